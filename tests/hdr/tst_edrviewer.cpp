// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The EDR viewer's rules without a widget: placement, pan limits, the input
// rules for divider, pan, pinch, scroll and double click, and the two kernels.
#include "common/TestEnvironment.h"
#include "hdr/EdrKernels.h"
#include "hdr/EdrViewerModel.h"
#include "hdr/EdrViewerTypes.h"

#include <QtTest>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// A 1000 × 500 point view at 2 pixels a point showing a 4000 × 2000 picture.
EdrViewerModel::Viewport viewport()
{
    return { QSizeF(1000, 500), 2.0, QSizeF(2000, 1000), QSizeF(4000, 2000) };
}

} // namespace

class TestEdrViewer : public QObject
{
    Q_OBJECT

private slots:
    void pictureIsFittedAndCentred()
    {
        QCOMPARE(edr::fitScale(QSizeF(2000, 1000), QSizeF(4000, 4000)), 0.25);
        QCOMPARE(edr::placement(QSizeF(2000, 1000), QSizeF(4000, 4000), 1.0, {}),
                 QRectF(500, 0, 1000, 1000));
        QCOMPARE(edr::placement(QSizeF(2000, 1000), QSizeF(4000, 4000), 2.0, QPointF(10, -20)),
                 QRectF(10, -520, 2000, 2000));
        QVERIFY(edr::placement(QSizeF(2000, 1000), QSizeF(0, 0), 1.0, {}).isEmpty());
        QCOMPARE(edr::dividerRect(QSizeF(2000, 1000), 0.25), QRectF(499, 0, 2, 1000));
    }
    void panIsLimitedToThePicture()
    {
        const QSizeF drawable(2000, 1000), image(4000, 2000);
        QCOMPARE(edr::clampPanOffset(QPointF(300, 300), drawable, image, 1.0), QPointF(0, 0));
        // At 2× the picture is 4000 × 2000 on a 2000 × 1000 drawable: ±1000, ±500.
        QCOMPARE(edr::clampPanOffset(QPointF(5000, -5000), drawable, image, 2.0),
                 QPointF(1000, -500));
        QCOMPARE(edr::clampPanOffset(QPointF(-20, 30), drawable, image, 2.0), QPointF(-20, 30));
        QCOMPARE(edr::clampPanOffset(QPointF(5, 5), QSizeF(0, 100), image, 2.0), QPointF(0, 0));
    }
    void pinchZoomStaysWithinOneAndFive()
    {
        EdrViewerModel model;
        QVERIFY(model.magnify(-0.5, viewport()) & EdrViewerModel::Render);
        QCOMPARE(model.zoomScale(), 1.0);
        model.magnify(1.0, viewport());
        model.scrollWheel(QPointF(100, 0), viewport());
        QCOMPARE(model.panOffset(), QPointF(100, 0));
        model.magnify(-0.4975, viewport()); // 2.0 × 0.5025 = 1.005: snaps back
        QCOMPARE(model.zoomScale(), 1.0);
        QCOMPARE(model.panOffset(), QPointF(0, 0));
        for (int i = 0; i < 10; ++i)
            model.magnify(0.9, viewport());
        QCOMPARE(model.zoomScale(), 5.0);
    }
    void doubleClickZoomsInBelow1_1AndResetsAbove()
    {
        EdrViewerModel model;
        model.magnify(0.05, viewport());
        QCOMPARE(model.zoomScale(), 1.05);
        // Clicked at (600, 200) points: 100 right of and 50 above the centre.
        QVERIFY(model.mouseDown(QPointF(600, 200), 2, viewport()) & EdrViewerModel::Render);
        QCOMPARE(model.zoomScale(), 2.0);
        QCOMPARE(model.panOffset(), QPointF(-180, -90));
        model.magnify(-0.4, viewport()); // 1.2
        QCOMPARE(model.zoomScale(), 1.2);
        model.mouseDown(QPointF(600, 200), 2, viewport());
        QCOMPARE(model.zoomScale(), 1.0);
        QCOMPARE(model.panOffset(), QPointF(0, 0));
    }
    void clickNearTheDividerGrabsIt_data()
    {
        QTest::addColumn<double>("backingDistance");
        QTest::addColumn<bool>("grabs");
        QTest::newRow("39 pixels away grabs") << 39.0 << true;
        QTest::newRow("40 pixels away does not") << 40.0 << false;
        QTest::newRow("on the divider") << 0.0 << true;
        QTest::newRow("39 pixels left grabs") << -39.0 << true;
        QTest::newRow("40 pixels left does not") << -40.0 << false;
    }
    void clickNearTheDividerGrabsIt()
    {
        QFETCH(double, backingDistance);
        QFETCH(bool, grabs);
        EdrViewerModel model; // divider at 0.5: 1000 drawable pixels, 500 points
        const QPointF click(500 + backingDistance / 2.0, 100);
        const EdrViewerModel::Effects effects = model.mouseDown(click, 1, viewport());
        QVERIFY(model.isDraggingSplit());
        QVERIFY(!model.isPanningImage());
        if (grabs) {
            QCOMPARE(effects, EdrViewerModel::Effects(EdrViewerModel::NoEffect));
            QCOMPARE(model.splitPosition(), 0.5);
        } else { // not zoomed: the divider jumps to the click
            QCOMPARE(effects, EdrViewerModel::Render | EdrViewerModel::SplitChanged);
            QCOMPARE(model.splitPosition(), click.x() / 1000.0);
        }
    }
    void dividerDragStopsAtTheEdges()
    {
        EdrViewerModel model;
        model.mouseDown(QPointF(500, 100), 1, viewport());
        QCOMPARE(model.mouseDragged(QPointF(-50, 100), viewport()),
                 EdrViewerModel::Render | EdrViewerModel::SplitChanged);
        QCOMPARE(model.splitPosition(), 0.01);
        model.mouseDragged(QPointF(5000, 100), viewport());
        QCOMPARE(model.splitPosition(), 0.99);
        model.mouseDragged(QPointF(250, 100), viewport());
        QCOMPARE(model.splitPosition(), 0.25);
        model.mouseUp();
        QVERIFY(!model.isDraggingSplit());
        QCOMPARE(model.mouseDragged(QPointF(300, 100), viewport()),
                 EdrViewerModel::Effects(EdrViewerModel::NoEffect));
    }
    void dragPansOnlyWhenZoomed()
    {
        EdrViewerModel model;
        model.magnify(1.0, viewport()); // 2×
        model.mouseDown(QPointF(100, 100), 1, viewport()); // far from the divider
        QVERIFY(model.isPanningImage());
        QCOMPARE(model.splitPosition(), 0.5); // zoomed, a press does not move the divider
        // 10 points right and 20 down: +20 pixels in x, −40 in y (y up).
        QCOMPARE(model.mouseDragged(QPointF(110, 120), viewport()),
                 EdrViewerModel::Effects(EdrViewerModel::Render));
        QCOMPARE(model.panOffset(), QPointF(20, -40));
        model.mouseDragged(QPointF(5000, 120), viewport());
        QCOMPARE(model.panOffset(), QPointF(1000, -40));
    }
    void scrollPansOnlyWhenZoomed()
    {
        EdrViewerModel model;
        QCOMPARE(model.scrollWheel(QPointF(30, 40), viewport()),
                 EdrViewerModel::Effects(EdrViewerModel::NoEffect));
        QCOMPARE(model.panOffset(), QPointF(0, 0));
        model.magnify(1.0, viewport());
        model.scrollWheel(QPointF(30, 40), viewport());
        QCOMPARE(model.panOffset(), QPointF(30, -40));
        model.resetView();
        QCOMPARE(model.zoomScale(), 1.0);
        QCOMPARE(model.panOffset(), QPointF(0, 0));
    }
    void headroomOf1_05IsAnSdrDisplay()
    {
        QVERIFY(!edr::isHdrDisplay(1.0));
        QVERIFY(!edr::isHdrDisplay(1.05));
        QVERIFY(edr::isHdrDisplay(1.06));
    }
    void filmicRollOffValues_data()
    {
        QTest::addColumn<float>("input");
        QTest::addColumn<float>("expected");
        QTest::newRow("0") << 0.0f << 0.0f;
        QTest::newRow("0.5 is lifted") << 0.5f << 0.57447f;
        QTest::newRow("1.0 stays") << 1.0f << 1.0f;
        QTest::newRow("2.0 clips") << 2.0f << 1.0f;
        QTest::newRow("negative") << -0.7f << 0.0f;
    }
    void filmicRollOffValues()
    {
        QFETCH(float, input);
        QFETCH(float, expected);
        QVERIFY(qAbs(edr::filmicCurve(input) - expected) < 1e-4f);
        const edr::Rgba out = edr::filmicRollOff({ input, input, input, 0.3f });
        QCOMPARE(out.a, 0.3f);
        QCOMPARE(out.g, edr::filmicCurve(input));
    }
    void zebraStripesFollowTheDiagonalPhase()
    {
        const edr::Rgba display { 0.2f, 0.3f, 0.4f, 1.0f };
        const edr::Rgba bright { 2.0f, 2.0f, 2.0f, 1.0f };
        const edr::Rgba amber { 1.0f, 0.82f, 0.0f, 1.0f };
        const edr::Rgba dark { 0.06f, 0.06f, 0.06f, 1.0f };
        QCOMPARE(edr::zebraFilter(display, bright, 0, 0, 1.0f, 1.0f), amber);
        QCOMPARE(edr::zebraFilter(display, bright, 7, 0, 1.0f, 1.0f), amber);
        QCOMPARE(edr::zebraFilter(display, bright, 4, 4, 1.0f, 1.0f), dark);
        QCOMPARE(edr::zebraFilter(display, bright, 15, 0, 1.0f, 1.0f), dark);
        QCOMPARE(edr::zebraFilter(display, bright, 9, 7, 1.0f, 1.0f), amber); // 16: a new stripe
        // Luminance exactly at the threshold counts; below it does not.
        QCOMPARE(edr::zebraFilter(display, { 1.0f, 1.0f, 1.0f, 1.0f }, 0, 0, 1.0f, 1.0f), amber);
        QCOMPARE(edr::zebraFilter(display, { 0.9f, 0.9f, 0.9f, 1.0f }, 0, 0, 1.0f, 1.0f), display);
        QCOMPARE(edr::zebraFilter(display, bright, 0, 0, 1.0f, 0.4f), display);
        QVERIFY(edr::zebraFilterGlsl().contains(u"% 16"_s));
        QVERIFY(edr::filmicRollOffGlsl().contains(u"0.35"_s));
    }
};

ORVANTA_TEST_GUILESS_MAIN(TestEdrViewer)
#include "tst_edrviewer.moc"
