// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The inspector panel, the histogram panel and the quick preview on real
// files: where the metadata comes from, which HDR rows show and how, what
// the gain map of an Ultra HDR file really carries, the display row, and
// the histogram computed in the background with its channel selector.
#include "core/AppViewModel.h"
#include "hdr/UltraHdrFixtures.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "ui/history/AsyncThumbnailView.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/HistoryViewFixtures.h"
#include "ui/history/InspectorView.h"
#include "ui/history/QuickPreviewWindow.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QToolButton>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

class HistoryInspectorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_files.isValid());
        m_cameraJpeg = m_files.filePath(u"cam/DSC04223.JPG"_s);
        QVERIFY(writeCameraJpeg(m_cameraJpeg, QColor(200, 120, 60), QColor(30, 60, 120), 600, 400));
        const QByteArray sdr = jpegBytes(makeSdr(240, 160));
        const UltraHdrEncodeResult encoded = encodeUltraHdr(sdr, makeHdr(sdr, false));
        QVERIFY2(encoded.error.isEmpty(), qPrintable(encoded.error));
        m_ultraHdr = m_files.filePath(u"out/DSC04223_hdr.jpg"_s);
        QDir().mkpath(m_files.filePath(u"out"_s));
        QVERIFY(writeFile(m_ultraHdr, encoded.bytes));
    }
    void init()
    {
        settleHistory();
        removeDatabaseAndConfig();
    }

    void metadataComesFromTheJpegWhenTheOutputMoved()
    {
        AppViewModel model;
        InspectorView inspector(model);
        QSignalSpy loaded(&inspector, &InspectorView::loaded);
        inspector.setRecord({ .fingerprint = u"a"_s,
                              .stem = u"DSC04223"_s,
                              .jpgPath = m_cameraJpeg,
                              .outputPath = m_files.filePath(u"moved/DSC04223_hdr.jpg"_s),
                              .status = u"SUCCESS"_s });
        QCOMPARE(inspector.targetPath(), m_cameraJpeg);
        QTRY_COMPARE(loaded.size(), 1);
        QCOMPARE(inspector.valueText(u"camera"_s), u"ILCE-7RM5"_s);
        QCOMPARE(inspector.valueText(u"lens"_s), u"FE 24-70mm F2.8 GM II"_s);
        QCOMPARE(inspector.valueText(u"inspector_aperture"_s), u"ƒ/2.8"_s);
        QCOMPARE(inspector.valueText(u"inspector_shutter"_s), u"1/250s"_s);
        QCOMPARE(inspector.valueText(u"inspector_resolution"_s), u"600 × 400 (0.2 MP)"_s);
    }
    void withNoFileEveryValueShowsItsPlaceholder()
    {
        AppViewModel model;
        InspectorView inspector(model);
        QSignalSpy loaded(&inspector, &InspectorView::loaded);
        inspector.setRecord({ .fingerprint = u"n"_s, .stem = u"GONE01"_s, .status = u"SUCCESS"_s });
        QVERIFY(inspector.targetPath().isNull());
        QTRY_COMPARE(loaded.size(), 1);
        // With no camera the stem stands in.
        QCOMPARE(inspector.valueText(u"camera"_s), u"GONE01"_s);
        QCOMPARE(inspector.valueText(u"lens"_s), u"—"_s);
        QCOMPARE(inspector.valueText(u"inspector_aperture"_s), u"—"_s);
        QCOMPARE(inspector.valueText(u"inspector_filesize"_s), u"—"_s);
        QCOMPARE(inspector.valueText(u"inspector_gainmap_spec"_s), u"No gain map in this file"_s);
    }
    void facesRowFollowsTheCount_data()
    {
        QTest::addColumn<std::optional<qint64>>("faces");
        QTest::addColumn<QString>("shown");
        QTest::newRow("none found") << std::optional<qint64>(0) << u"None (Full dynamic boost)"_s;
        QTest::newRow("three") << std::optional<qint64>(3) << u"3 faces (40% skin damping)"_s;
        QTest::newRow("not recorded: row hidden") << std::optional<qint64>() << QString();
    }
    void facesRowFollowsTheCount()
    {
        QFETCH(std::optional<qint64>, faces);
        QFETCH(QString, shown);
        AppViewModel model;
        InspectorView inspector(model);
        inspector.setRecord(
            { .fingerprint = u"f"_s, .stem = u"F"_s, .status = u"SUCCESS"_s, .numFaces = faces });
        QCOMPARE(inspector.valueText(u"inspector_faces_detected"_s), shown);
    }
    void peakAndClipRowsUseTheirFormatsOrAreLeftOut()
    {
        AppViewModel model;
        InspectorView inspector(model);
        inspector.setRecord({ .fingerprint = u"p"_s,
                              .stem = u"P"_s,
                              .status = u"SUCCESS"_s,
                              .peakStops = 1.0,
                              .rawClipPct = 0.0123 });
        QCOMPARE(inspector.valueText(u"inspector_peak_stops"_s), u"+1.00 stops (2.0x)"_s);
        QCOMPARE(inspector.valueText(u"inspector_bayer_clip"_s), u"0.012%"_s);
        inspector.setRecord(
            { .fingerprint = u"q"_s, .stem = u"Q"_s, .status = u"SUCCESS"_s, .peakStops = 2.5 });
        QCOMPARE(inspector.valueText(u"inspector_peak_stops"_s), u"+2.50 stops (5.7x)"_s);
        QVERIFY(inspector.valueText(u"inspector_bayer_clip"_s).isNull());
    }
    void engineRowShowsWhatTheConfiguredEngineAnswers()
    {
        QTemporaryDir dir;
        const auto engine = [&dir](const QString &name, const QString &body) {
            const QString path = dir.filePath(name);
            QFile file(path);
            file.open(QIODevice::WriteOnly);
            file.write(u"#!/bin/sh\n%1\n"_s.arg(body).toUtf8());
            file.close();
            file.setPermissions(file.permissions() | QFileDevice::ExeOwner);
            return path;
        };
        QString path = engine(u"one"_s, u"echo; echo 'orvanta_engine 9.8.7'"_s);
        AppViewModel model;
        InspectorView inspector(model);
        inspector.setEnginePathProvider([&path] { return path; });
        QTRY_COMPARE(inspector.valueText(u"inspector_engine_version"_s), u"orvanta_engine 9.8.7"_s);
        // Another engine configured: asked again, not the remembered answer.
        path = engine(u"two"_s, u"echo 'orvanta_engine 10.0.1'"_s);
        inspector.setRecord({ .fingerprint = u"e"_s, .stem = u"E"_s, .status = u"SUCCESS"_s });
        QTRY_COMPARE(inspector.valueText(u"inspector_engine_version"_s),
                     u"orvanta_engine 10.0.1"_s);
        const QString unknown = model.t("inspector_engine_version_unknown");
        path = engine(u"broken"_s, u"echo 'orvanta_engine 1.0'; exit 3"_s);
        inspector.setRecord({ .fingerprint = u"f"_s, .stem = u"F"_s, .status = u"SUCCESS"_s });
        QTRY_COMPARE(inspector.valueText(u"inspector_engine_version"_s), unknown);
        path = dir.filePath(u"absent"_s);
        inspector.setRecord({ .fingerprint = u"g"_s, .stem = u"G"_s, .status = u"SUCCESS"_s });
        QCOMPARE(inspector.valueText(u"inspector_engine_version"_s), unknown);
    }
    void displayRowReadsTheHeadroomProvider_data();
    void displayRowReadsTheHeadroomProvider()
    {
        QFETCH(double, headroom);
        QFETCH(QString, shown);
        AppViewModel model;
        InspectorView inspector(model);
        QCOMPARE(inspector.valueText(u"inspector_display_cap"_s),
                 u"Standard SDR (1.0x)"_s); // Linux default
        inspector.setDisplayHeadroomProvider([headroom] { return headroom; });
        QCOMPARE(inspector.valueText(u"inspector_display_cap"_s), shown);
    }
    void gainMapRowShowsWhatTheUltraHdrFileCarries()
    {
        const GainMapSummary summary = PhotoReader().gainMap(m_ultraHdr).value;
        QVERIFY(summary.present);
        QCOMPARE(summary.kind, u"ISO 21496-1"_s);
        QCOMPARE(summary.channels, 1);
        QVERIFY(summary.maxStops > 2.0
                && summary.maxStops < 2.6); // the fixture boosts up to 2.5 stops

        AppViewModel model;
        InspectorView inspector(model);
        QSignalSpy loaded(&inspector, &InspectorView::loaded);
        inspector.setRecord({ .fingerprint = u"u"_s,
                              .stem = u"DSC04223"_s,
                              .outputPath = m_ultraHdr,
                              .status = u"SUCCESS"_s,
                              .peakStops = 2.5 });
        QTRY_COMPARE(loaded.size(), 1);
        const QString text = inspector.valueText(u"inspector_gainmap_spec"_s);
        // No version digits ("v0.0") after the standard's name.
        QVERIFY2(text.startsWith(u"ISO 21496-1 · 0.01 to 2."_s), qPrintable(text));
        QVERIFY2(text.endsWith(u" stops · 1 channel"_s), qPrintable(text));
    }
    void aPlainJpegSaysItHasNoGainMap()
    {
        const ReadResult<GainMapSummary> plain = PhotoReader().gainMap(m_cameraJpeg);
        QVERIFY(plain.error.isEmpty()); // read fine: it only carries no map
        QVERIFY(!plain.value.present);
    }
    void histogramIsComputedInTheBackgroundAndKeepsTheChannel()
    {
        AppViewModel model;
        HdrHistogramView view(model);
        QSignalSpy ready(&view, &HdrHistogramView::histogramReady);
        view.findChild<QToolButton *>(u"histogramModeRGB"_s)->click();
        QCOMPARE(view.channelMode(), HistogramChannelMode::Rgb);
        view.setFile(m_ultraHdr, 2.4); // a peak no other case has counted yet
        QVERIFY(view.isCalculating());
        QVERIFY(view.histogramData().isEmpty());
        QTRY_COMPARE(ready.size(), 1);
        QVERIFY(!view.isCalculating());
        QCOMPARE(view.histogramData().lumaBins.size(), 256);
        QCOMPARE(view.histogramData().redBins.size(), 256);
        // The same numbers as the direct computation.
        QCOMPARE(view.histogramData().lumaBins, computeHistogram(m_ultraHdr, 2.4)->lumaBins);
        view.setFile(m_cameraJpeg, std::nullopt);
        QCOMPARE(view.channelMode(), HistogramChannelMode::Rgb);
        QTRY_COMPARE(ready.size(), 2);
        QVERIFY(view.findChild<QLabel *>(u"histogramLegendPeak"_s)->text().endsWith(u"—"_s));
    }
    void previewScalesALargePhotoDownToTheBounds()
    {
        const QString big = m_files.filePath(u"out/big.jpg"_s);
        QVERIFY(writeCameraJpeg(big, Qt::white, Qt::black, 3000, 2000));
        const PhotoReader reader;
        QCOMPARE(reader.preview(big, QSize(600, 600)).value.size(), QSize(600, 400));
        // never enlarged
        QCOMPARE(reader.preview(m_cameraJpeg, QSize(2000, 2000)).value.size(), QSize(600, 400));
        QVERIFY(reader.preview(m_files.filePath(u"none.jpg"_s), QSize(100, 100)).value.isNull());
    }
    void thumbnailWithNoFileShowsTheMissingMarkAtOnce()
    {
        AsyncThumbnailView view(QSize(38, 22));
        QCOMPARE(view.requestedPixelSize(), 76);
        view.setPaths(QString(), m_files.filePath(u"nowhere.jpg"_s));
        QVERIFY(!view.isLoading());
        QCOMPARE(view.state(), RowMediaStore::ThumbState::Missing);
        QVERIFY(view.image().isNull());
    }
    void thumbnailFallsBackToTheJpegAtTwiceItsSize()
    {
        AsyncThumbnailView view(QSize(100, 40));
        QCOMPARE(view.requestedPixelSize(), 200);
        QSignalSpy finished(&view, &AsyncThumbnailView::finished);
        view.setPaths(m_files.filePath(u"out/moved_hdr.jpg"_s), m_cameraJpeg);
        QTRY_VERIFY(!view.isLoading());
        QCOMPARE(view.state(), RowMediaStore::ThumbState::Image);
        QCOMPARE(view.image().width(), 200); // 600 × 400 → long side 200
        QCOMPARE(finished.size(), 1);
    }
    void thumbnailOfANonImageKeepsThePlainPlaceholder()
    {
        const QString text = m_files.filePath(u"notes.jpg"_s);
        QVERIFY(writeFile(text, "not a picture at all"));
        AsyncThumbnailView view(QSize(38, 22));
        view.setPaths(text, QString());
        QTRY_VERIFY(!view.isLoading());
        QCOMPARE(view.state(), RowMediaStore::ThumbState::DecodeError);
        QVERIFY(view.image().isNull());
    }
    void inspectorShowsThePhotoItIsAbout()
    {
        AppViewModel model;
        InspectorView inspector(model);
        inspector.setRecord({ .fingerprint = u"t"_s,
                              .stem = u"DSC04223"_s,
                              .jpgPath = m_cameraJpeg,
                              .outputPath = m_ultraHdr,
                              .status = u"SUCCESS"_s });
        QTRY_COMPARE(inspector.thumbnail()->state(), RowMediaStore::ThumbState::Image);
        QCOMPARE(inspector.thumbnail()->image().size(),
                 QSize(192, 128)); // the Ultra HDR output, 240 × 160
    }

private:
    QString m_cameraJpeg;
    QString m_ultraHdr;
    QTemporaryDir m_files;
};

void HistoryInspectorTest::displayRowReadsTheHeadroomProvider_data()
{
    QTest::addColumn<double>("headroom");
    QTest::addColumn<QString>("shown");
    QTest::newRow("exactly 1.0 is SDR") << 1.0 << u"Standard SDR (1.0x)"_s;
    QTest::newRow("below 1 is SDR") << 0.8 << u"Standard SDR (1.0x)"_s;
    QTest::newRow("HDR panel") << 4.0 << u"HDR display (4.0x)"_s;
}

ORVANTA_TEST_WIDGETS_MAIN(HistoryInspectorTest)
#include "tst_historyinspector.moc"
