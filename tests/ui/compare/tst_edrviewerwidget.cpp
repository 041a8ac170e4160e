// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The OpenGL viewer under a real X server: the input rules as the widget
// receives them, and rendered frames checked pixel by pixel against the C++
// kernels (read back from a half-float framebuffer, so no 8-bit rounding).
#include "common/TestEnvironment.h"
#include "hdr/EdrKernels.h"
#include "hdr/UltraHdrFixtures.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "ui/compare/DisplayHeadroom.h"
#include "ui/compare/EdrGlSurface.h"
#include "ui/compare/EdrViewer.h"

#include <QApplication>
#include <QFile>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <functional>
#include <memory>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// A half-float picture whose pixels come from `value(x, y)`.
QImage picture(int width, int height, const std::function<float(int, int)> &value)
{
    QImage image(width, height, QImage::Format_RGBA16FPx4);
    for (int y = 0; y < height; ++y) {
        auto *row = reinterpret_cast<qfloat16 *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const float v = value(x, y);
            row[4 * x] = row[4 * x + 1] = row[4 * x + 2] = qfloat16(v);
            row[4 * x + 3] = qfloat16(1.0f);
        }
    }
    return image;
}

EdrPicturePair uniformPair(QSize size, float sdr, float hdr)
{
    EdrPicturePair pair;
    pair.sdr = picture(size.width(), size.height(), [sdr](int, int) { return sdr; });
    pair.hdr = picture(size.width(), size.height(), [hdr](int, int) { return hdr; });
    pair.imageSize = size;
    return pair;
}

edr::Rgba at(const QImage &frame, int x, int yUp)
{
    const auto *row
        = reinterpret_cast<const float *>(frame.constScanLine(frame.height() - 1 - yUp));
    return { row[4 * x], row[4 * x + 1], row[4 * x + 2], row[4 * x + 3] };
}

bool near(const edr::Rgba &a, const edr::Rgba &b, float tolerance = 2e-3f)
{
    return std::abs(a.r - b.r) <= tolerance && std::abs(a.g - b.g) <= tolerance
        && std::abs(a.b - b.b) <= tolerance;
}

QString show(const edr::Rgba &c)
{
    return u"(%1, %2, %3)"_s.arg(c.r).arg(c.g).arg(c.b);
}

} // namespace

class TestEdrViewerWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QVERIFY2(EdrViewer::openGlAvailable(),
                 "these tests need an X server with OpenGL (xvfb-run)");
        displayheadroom::setOverride({});
        m_viewer = std::make_unique<EdrViewer>(u"no GL"_s);
        m_viewer->resize(400, 300);
        m_viewer->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_viewer.get()));
        QVERIFY(m_viewer->isDrawing());
        QTRY_VERIFY(m_viewer->surface()->isReady());
        m_splitReports.clear();
        m_viewer->onSplitChanged = [this](double split) { m_splitReports.append(split); };
        QSignalSpy uploaded(m_viewer->surface(), &EdrGlSurface::picturesUploaded);
        m_viewer->setPictures(uniformPair({ 400, 300 }, 0.25f, 2.0f));
        QTRY_COMPARE(uploaded.count(), 1);
    }

    void cleanup()
    {
        m_viewer.reset();
        displayheadroom::setOverride({});
    }

    // input (the rules themselves are tst_edrviewer's)
    void inputReachesTheModelAndTheDividerIsReported()
    {
        const auto wheel = [this](QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers) {
            QWheelEvent event(QPointF(200, 150), m_viewer->mapToGlobal(QPointF(200, 150)), pixels,
                              angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_viewer.get(), &event);
        };
        const double dpr = m_viewer->devicePixelRatioF();
        press({ 200 + 30 / dpr, 150 }); // 30 backing pixels off the divider: grabbed
        drag({ 100, 150 });
        QVERIFY(m_viewer->model().isDraggingSplit());
        release({ 100, 150 });
        QVERIFY(!m_viewer->model().isDraggingSplit());
        QCOMPARE(m_splitReports, QList<double> { 0.25 });
        QCOMPARE(m_viewer->settings().splitPosition, 0.25);

        pinch(1.0);
        QCOMPARE(m_viewer->model().zoomScale(), 2.0);
        wheel({ 30, 20 }, {}, {}); // a touchpad's pixels, y up in the model
        QCOMPARE(m_viewer->model().panOffset(), QPointF(30, -20));
        wheel({}, { 0, -120 }, {}); // a mouse notch: a quarter of its angle
        QCOMPARE(m_viewer->model().panOffset(), QPointF(30, 10));
        wheel({}, { 0, 120 }, Qt::ControlModifier); // Ctrl+wheel zooms a tenth
        QCOMPARE(m_viewer->model().zoomScale(), 2.2);
        press({ 20, 20 }); // far from the divider, zoomed: pans
        drag({ 30, 40 });
        release({ 30, 40 });
        QCOMPARE(m_viewer->model().panOffset(), QPointF(30 + 10 * dpr, 10 - 20 * dpr));
        QCOMPARE(m_splitReports.size(), 1);
        QTest::mouseDClick(m_viewer.get(), Qt::LeftButton, {}, QPoint(20, 20));
        QCOMPARE(m_viewer->model().zoomScale(), 1.0);
    }

    void readoutReportsTheHdrValueUnderThePointerWhenZoomed()
    {
        // Columns carry their own value, so the readout shows which pixel it read.
        EdrPicturePair pair = uniformPair({ 400, 300 }, 0.25f, 0);
        pair.hdr = picture(400, 300, [](int x, int) { return float(x) / 100.0f; });
        m_viewer->setPictures(pair);
        QSignalSpy readouts(m_viewer.get(), &EdrViewer::pixelReadoutChanged);
        hover({ 300, 150 });
        QVERIFY(!readouts.isEmpty());
        QVERIFY(!readouts.last()
                     .at(0)
                     .value<std::optional<EdrPixelReadout>>()
                     .has_value()); // at 1x: none
        pinch(2.0); // 3x around the centre
        hover({ 260, 150 });
        const auto readout = readouts.last().at(0).value<std::optional<EdrPixelReadout>>();
        QVERIFY(readout.has_value());
        // 60 points right of the centre at 3x is 20 picture pixels right of column 200.
        QCOMPARE(readout->pixel, QPoint(220, 150));
        QCOMPARE(readout->value.r, float(qfloat16(2.2f)));
    }

    // frames
    void splitShowsSdrLeftDividerAndHdrRight()
    {
        m_viewer->updateState({ 0.3 });
        const QImage f = frame();
        const double xs = f.width() * 0.3;
        for (int x = 0; x < f.width(); ++x) {
            const edr::Rgba c = at(f, x, 150);
            edr::Rgba expected
                = x + 0.5 < xs ? edr::Rgba { 0.25f, 0.25f, 0.25f } : edr::Rgba { 2, 2, 2 };
            if (x + 0.5 >= xs - 1.0 && x + 0.5 < xs + 1.0)
                expected = { 0.95f + 0.05f * expected.r, 0.95f + 0.05f * expected.g,
                             0.95f + 0.05f * expected.b };
            QVERIFY2(near(c, expected),
                     qPrintable(u"x %1: %2 vs %3"_s.arg(x).arg(show(c), show(expected))));
        }
    }

    void singleModesShowOneSideOnly()
    {
        EdrViewerSettings settings;
        settings.compareMode = EDRCompareMode::HdrOnly;
        m_viewer->updateState(settings);
        QImage f = frame();
        for (int x : { 0, 199, 200, 399 })
            QVERIFY(near(at(f, x, 10), { 2, 2, 2 }));
        settings.compareMode = EDRCompareMode::SdrOnly;
        m_viewer->updateState(settings);
        f = frame();
        for (int x : { 0, 199, 200, 399 })
            QVERIFY(near(at(f, x, 10), { 0.25f, 0.25f, 0.25f }));
    }

    void backdropSurroundsAFittedPicture()
    {
        // 200 x 50 in 400 x 300: fitted to 400 x 100, centred, 100 rows of backdrop above and
        // below.
        m_viewer->setPictures(uniformPair({ 200, 50 }, 0.25f, 0.5f));
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        const QImage f = frame();
        const int h = f.height();
        const int band = (h - f.width() / 4) / 2;
        const edr::Rgba backdrop { 0.08f, 0.09f, 0.09f };
        QVERIFY(near(at(f, 200, band - 1), backdrop));
        QVERIFY(near(at(f, 200, band + 1), { 0.5f, 0.5f, 0.5f }));
        QVERIFY(near(at(f, 200, h - band - 2), { 0.5f, 0.5f, 0.5f }));
        QVERIFY(near(at(f, 200, h - band + 1), backdrop));
    }

    void zebraStripesWhereTheReferenceSays()
    {
        // Left half of the HDR picture dim (0.5), right half bright (2.0).
        EdrPicturePair pair = uniformPair({ 400, 300 }, 0.25f, 0);
        pair.hdr = picture(400, 300, [](int x, int) { return x < 200 ? 0.5f : 2.0f; });
        m_viewer->setPictures(pair);
        EdrViewerSettings settings;
        settings.splitPosition
            = 0.75; // the bright half shows SDR on its right part: stripes on both sides
        settings.zebraEnabled = true;
        settings.zebraThreshold = 1.0f;
        m_viewer->updateState(settings);
        const QImage f = frame();
        const double xs = f.width() * 0.75;
        int striped = 0;
        for (int y = 0; y < f.height(); y += 7) {
            for (int x = 0; x < f.width(); ++x) {
                if (std::abs(x + 0.5 - xs) <= 1.5 || x == f.width() / 2 || x == f.width() / 2 - 1)
                    continue; // divider and the filtered edge between the halves
                const float v = x < f.width() / 2 ? 0.5f : 2.0f;
                const edr::Rgba ref { v, v, v };
                const edr::Rgba displayed = x + 0.5 < xs ? edr::Rgba { 0.25f, 0.25f, 0.25f } : ref;
                const edr::Rgba expected = edr::zebraFilter(displayed, ref, x, y, 1.0f, 1.0f);
                const edr::Rgba c = at(f, x, y);
                striped += expected.g == 0.82f;
                QVERIFY2(
                    near(c, expected),
                    qPrintable(u"(%1, %2): %3 vs %4"_s.arg(x).arg(y).arg(show(c), show(expected))));
            }
        }
        QVERIFY(striped > 1000);
    }

    void shadowStripesBelowTheirThreshold()
    {
        EdrPicturePair pair = uniformPair({ 400, 300 }, 0.25f, 0);
        pair.hdr = picture(400, 300, [](int x, int) { return x < 200 ? 0.01f : 0.5f; });
        m_viewer->setPictures(pair);
        EdrViewerSettings settings;
        settings.compareMode = EDRCompareMode::HdrOnly;
        settings.shadowZebraEnabled = true;
        settings.shadowThreshold = 0.05f;
        m_viewer->updateState(settings);
        const QImage f = frame();
        for (int y = 3; y < f.height(); y += 11) {
            for (int x : { 0, 5, 9, 120, 198, 201, 300, 399 }) {
                const float v = x < 200 ? 0.01f : 0.5f;
                const edr::Rgba expected
                    = edr::shadowZebraFilter({ v, v, v }, { v, v, v }, x, y, 0.05f, 1.0f);
                QVERIFY2(near(at(f, x, y), expected), qPrintable(u"(%1, %2)"_s.arg(x).arg(y)));
            }
        }
    }

    void filmicMatchesTheReferenceCurve_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<double>("simulatedHeadroom");
        for (float v : { -0.5f, 0.0f, 0.18f, 0.5f, 1.0f, 2.0f, 6.0f })
            QTest::addRow("%.2f", double(v)) << v << 1.0;
        for (float v : { 0.5f, 2.0f, 3.5f })
            QTest::addRow("%.2f at simulated 4x", double(v)) << v << 4.0;
    }

    void filmicMatchesTheReferenceCurve()
    {
        QFETCH(float, value);
        QFETCH(double, simulatedHeadroom);
        m_viewer->setPictures(uniformPair({ 400, 300 }, 0.25f, value));
        EdrViewerSettings settings;
        settings.compareMode = EDRCompareMode::HdrOnly;
        settings.toneMapMode = SDRToneMapMode::FilmicRollOff;
        settings.simulatedHeadroom = simulatedHeadroom;
        m_viewer->updateState(settings);
        const QImage f = frame();
        const float input = float(qfloat16(value)) / float(simulatedHeadroom);
        const float expected = edr::filmicCurve(input);
        const edr::Rgba c = at(f, 200, 150);
        QVERIFY2(std::abs(c.r - expected) < 2e-3f,
                 qPrintable(u"%1 vs %2"_s.arg(c.r).arg(expected)));
    }

    void zoomedOutViewsReadAReducedLevel()
    {
        // A checkerboard of 0 and 2 in 2x2 blocks shown at 0.29 of its size
        // must come out as its average, not as whichever texels happen to be
        // hit, nor as the half-size level, still a checkerboard of pixels.
        // (The size is no multiple of the view's, so samples fall between texels.)
        EdrPicturePair pair = uniformPair({ 1400, 1050 }, 0.25f, 0);
        pair.hdr
            = picture(1400, 1050, [](int x, int y) { return (x / 2 + y / 2) % 2 ? 2.0f : 0.0f; });
        m_viewer->setPictures(pair);
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        const QImage f = frame();
        for (int y = 5; y < f.height(); y += 37) {
            for (int x = 3; x < f.width(); x += 41)
                QVERIFY2(near(at(f, x, y), { 1, 1, 1 }, 0.01f),
                         qPrintable(u"(%1, %2): "_s.arg(x).arg(y) + show(at(f, x, y))));
        }
        // At 5x the level is the picture itself: single texels show again.
        for (int i = 0; i < 4; ++i)
            pinch(1.0);
        const QImage zoomed = frame();
        float lowest = 2, highest = 0;
        for (int x = 100; x < 140; ++x) {
            lowest = std::min(lowest, at(zoomed, x, 150).r);
            highest = std::max(highest, at(zoomed, x, 150).r);
        }
        QVERIFY2(highest - lowest > 1.0f, qPrintable(u"%1 ... %2"_s.arg(lowest).arg(highest)));
    }

    void fullResolutionFollowsTheFirstFrame()
    {
        // 400 x 300 shown in 400 x 300 reads the full resolution. A new pair of
        // the same size shows first from its half-size level (the old pair's
        // full resolution is still in that storage and must not show), and its
        // own full resolution follows on a later turn of the event loop.
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        QTRY_VERIFY(m_viewer->surface()->uploadsComplete());
        const auto centre
            = [this] { return m_viewer->surface()->grabFramebuffer().pixelColor(200, 150); };
        QCOMPARE(centre(), QColor(Qt::white)); // 2.0, clipped
        QSignalSpy uploaded(m_viewer->surface(), &EdrGlSurface::picturesUploaded);
        m_viewer->setPictures(uniformPair({ 400, 300 }, 0.25f, 0.5f));
        QVERIFY(uploaded.wait());
        QVERIFY(!m_viewer->surface()->uploadsComplete());
        const QColor first = centre();
        QVERIFY2(first.red() < 200, qPrintable(first.name()));
        QTRY_VERIFY(m_viewer->surface()->uploadsComplete());
        QCOMPARE(centre(), first);
    }

    void aLargePictureGoesUpInBandsOfRows()
    {
        // 2800 x 2100 half floats (47 MB) reach the GPU in bands of rows, each in
        // its own place: at 5x the centre, rows about 1050 in the second band,
        // shows the picture's stripes (7 rows at 2.0, 7 at 0).
        EdrPicturePair pair = uniformPair({ 2800, 2100 }, 0.25f, 0);
        pair.hdr = picture(2800, 2100, [](int, int y) { return (y / 7) % 2 ? 2.0f : 0.0f; });
        m_viewer->setPictures(pair);
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        QTRY_VERIFY(m_viewer->surface()->uploadsComplete());
        for (int i = 0; i < 4; ++i)
            pinch(1.0);
        const QImage shown = m_viewer->surface()->grabFramebuffer();
        int lowest = 255, highest = 0;
        for (int y = 130; y < 170; ++y) {
            lowest = std::min(lowest, shown.pixelColor(200, y).red());
            highest = std::max(highest, shown.pixelColor(200, y).red());
        }
        QVERIFY2(highest - lowest > 200, qPrintable(u"%1 ... %2"_s.arg(lowest).arg(highest)));
    }

    void dividerStripsAddUpToTheFullFrame()
    {
        // A divider drag redraws only the columns it crossed; after a run of
        // moves the screen must equal a frame drawn in one piece.
        EdrPicturePair pair = uniformPair({ 400, 300 }, 0, 0);
        pair.sdr = picture(400, 300, [](int x, int y) { return float((x * 3 + y) % 50) / 50.0f; });
        pair.hdr = picture(400, 300, [](int x, int y) { return float((x + 2 * y) % 90) / 30.0f; });
        showWhole(*m_viewer, pair);
        EdrViewerSettings settings;
        settings.zebraEnabled = true;
        settings.zebraThreshold = 1.5f;
        for (double split : { 0.5, 0.52, 0.9, 0.1, 0.33, 0.34, 0.6 }) {
            settings.splitPosition = split;
            m_viewer->updateState(settings);
            m_viewer->surface()->grabFramebuffer(); // draws this step
        }
        const QImage stepped = m_viewer->surface()->grabFramebuffer();

        EdrViewer fresh(u"no GL"_s);
        fresh.resize(m_viewer->size());
        fresh.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fresh));
        QTRY_VERIFY(fresh.surface()->isReady());
        showWhole(fresh, pair);
        fresh.updateState(settings);
        const QImage whole = fresh.surface()->grabFramebuffer();
        QCOMPARE(stepped.size(), whole.size());
        QCOMPARE(stepped, whole);
    }

    void pannedFramesMatchAFullFrame()
    {
        // A pan moves what is on screen (with stripes on: the picture under
        // them) and draws only the uncovered edges and the columns at the
        // divider; the result must equal a frame drawn whole, by a viewer that
        // draws only once, at the end.
        EdrPicturePair pair = uniformPair({ 400, 300 }, 0, 0);
        pair.sdr = picture(400, 300, [](int x, int y) { return float((x * 3 + y) % 50) / 50.0f; });
        pair.hdr = picture(400, 300, [](int x, int y) { return float((x + 2 * y) % 90) / 60.0f; });
        const QList<QPoint> path { { 50, 150 }, { 60, 150 },  { 60, 165 }, { 40, 140 },
                                   { 45, 200 }, { 100, 100 }, { 99, 101 } };
        const auto run = [&](EdrViewer &viewer, bool stripes, bool stepped) {
            showWhole(viewer, pair);
            EdrViewerSettings settings;
            settings.zebraEnabled = stripes;
            settings.zebraThreshold = 1.2f;
            settings.shadowZebraEnabled = stripes;
            settings.shadowThreshold = 0.1f;
            viewer.updateState(settings);
            QNativeGestureEvent zoom(Qt::ZoomNativeGesture,
                                     QPointingDevice::primaryPointingDevice(), 2, QPointF(200, 150),
                                     QPointF(200, 150), viewer.mapToGlobal(QPointF(200, 150)), 1.0,
                                     {});
            QApplication::sendEvent(&viewer, &zoom);
            if (stepped)
                viewer.surface()->grabFramebuffer();
            QTest::mousePress(&viewer, Qt::LeftButton, {}, path.first());
            for (const QPoint &p : path) {
                QMouseEvent move(QEvent::MouseMove, p, viewer.mapToGlobal(QPointF(p)), Qt::NoButton,
                                 Qt::LeftButton, {});
                QApplication::sendEvent(&viewer, &move);
                if (stepped)
                    viewer.surface()->grabFramebuffer(); // draws this step
            }
            QTest::mouseRelease(&viewer, Qt::LeftButton, {}, path.last());
            return viewer.surface()->grabFramebuffer();
        };
        for (bool stripes : { false, true }) {
            EdrViewer stepping(u"no GL"_s), reference(u"no GL"_s);
            for (EdrViewer *viewer : { &stepping, &reference }) {
                viewer->resize(m_viewer->size());
                viewer->show();
                QVERIFY(QTest::qWaitForWindowExposed(viewer));
                QTRY_VERIFY(viewer->surface()->isReady());
            }
            const QImage stepped = run(stepping, stripes, true);
            const QImage whole = run(reference, stripes, false);
            QVERIFY(stepping.model().panOffset() != QPointF());
            QCOMPARE(reference.model().panOffset(), stepping.model().panOffset());
            QCOMPARE(stepped, whole);
        }
    }

    void loadsAGeneratedUltraHdrFileInTheBackground()
    {
        QTemporaryDir dir;
        const QByteArray sdr = test::encodeSdr(test::makeSdr(160, 120));
        const UltraHdrEncodeResult encoded
            = encodeUltraHdr(QByteArrayView(sdr), test::makeHdr(sdr, false));
        QVERIFY2(encoded.error.isEmpty(), qPrintable(encoded.error));
        const QString hdrPath = dir.filePath(u"photo.jpg"_s);
        QFile file(hdrPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(encoded.bytes);
        file.close();

        QSignalSpy loaded(m_viewer.get(), &EdrViewer::picturesLoaded);
        QSignalSpy uploaded(m_viewer->surface(), &EdrGlSurface::picturesUploaded);
        pinch(1.0);
        m_viewer->loadImages(dir.filePath(u"missing-camera.jpg"_s), hdrPath);
        QVERIFY(m_viewer->isLoading());
        QTRY_COMPARE(loaded.count(), 1);
        QCOMPARE(m_viewer->imageSize(), QSizeF(160, 120));
        QVERIFY(m_viewer->sdrFromHdrFile()); // the camera JPEG is missing: the file's own base
        QCOMPARE(m_viewer->model().zoomScale(), 1.0); // a new pair starts unzoomed
        QTRY_COMPARE(uploaded.count(), 1);
        // The right edge of the HDR side is boosted well above the SDR base there.
        m_viewer->updateState({ 0.5 });
        const QImage f = frame();
        const edr::Rgba sdrSide = at(f, f.width() / 2 - 4, f.height() / 2);
        const edr::Rgba hdrSide = at(f, f.width() - 60, f.height() / 2);
        QVERIFY2(hdrSide.r > 2.0f * sdrSide.r, qPrintable(show(hdrSide) + show(sdrSide)));
    }

    void previousPairStaysUntilTheNewOneIsReady()
    {
        QTemporaryDir dir;
        const QString hdrPath = dir.filePath(u"next.jpg"_s);
        const QByteArray sdr = test::encodeSdr(test::makeSdr(64, 48));
        QFile file(hdrPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(encodeUltraHdr(QByteArrayView(sdr), test::makeHdr(sdr, false)).bytes);
        file.close();
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        QSignalSpy loaded(m_viewer.get(), &EdrViewer::picturesLoaded);
        m_viewer->loadImages(QString(), hdrPath);
        // Decoding runs on the pool; until its result arrives the old pair is drawn.
        QVERIFY(near(at(frame(), 200, 150), { 2, 2, 2 }));
        QCOMPARE(m_viewer->imageSize(), QSizeF(400, 300));
        QTRY_COMPARE(loaded.count(), 1);
        QCOMPARE(m_viewer->imageSize(), QSizeF(64, 48));
        QVERIFY(!near(at(frame(), 200, 150), { 2, 2, 2 }));
    }

    void pairWithoutHdrFileIsNeverDrawn()
    {
        QTemporaryDir dir;
        const QString sdrPath = dir.filePath(u"camera.jpg"_s);
        QFile file(sdrPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(test::encodeSdr(test::makeSdr(64, 48)));
        file.close();
        m_viewer->updateState({ 0.5, EDRCompareMode::HdrOnly });
        QSignalSpy loaded(m_viewer.get(), &EdrViewer::picturesLoaded);
        m_viewer->loadImages(sdrPath, dir.filePath(u"missing.jpg"_s));
        QTRY_COMPARE(loaded.count(), 1);
        QCOMPARE(m_viewer->imageSize(), QSizeF(400, 300));
        QVERIFY(near(at(frame(), 200, 150), { 2, 2, 2 }));
    }

private:
    // Frames drawn piece by piece start from a pair wholly on the GPU.
    static void showWhole(EdrViewer &viewer, const EdrPicturePair &pair)
    {
        viewer.setPictures(pair);
        QTRY_VERIFY(viewer.surface()->uploadsComplete());
    }
    void press(QPointF point)
    {
        QTest::mousePress(m_viewer.get(), Qt::LeftButton, {}, point.toPoint());
    }
    void drag(QPointF point, Qt::MouseButtons buttons = Qt::LeftButton)
    {
        QMouseEvent move(QEvent::MouseMove, point, m_viewer->mapToGlobal(point), Qt::NoButton,
                         buttons, {});
        QApplication::sendEvent(m_viewer.get(), &move);
    }
    // Sent directly: QTest's button-less move warps the X pointer and
    // depends on the server's answer arriving in time.
    void hover(QPointF point) { drag(point, Qt::NoButton); }
    void release(QPointF point)
    {
        QTest::mouseRelease(m_viewer.get(), Qt::LeftButton, {}, point.toPoint());
    }
    void pinch(double magnification)
    {
        const QPointF centre(200, 150);
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(),
                                  2, centre, centre, m_viewer->mapToGlobal(centre), magnification,
                                  {});
        QApplication::sendEvent(m_viewer.get(), &event);
    }
    QImage frame()
    {
        return m_viewer->surface()->renderLinear(m_viewer->size() * m_viewer->devicePixelRatioF());
    }

    std::unique_ptr<EdrViewer> m_viewer;
    QList<double> m_splitReports;
};

ORVANTA_TEST_WIDGETS_MAIN(TestEdrViewerWidget)
#include "tst_edrviewerwidget.moc"
