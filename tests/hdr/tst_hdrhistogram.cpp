// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The HDR histogram's numbers: binning, counting, smoothing, the rendition it
// is taken from, the curve geometry and the asynchronous delivery.
#include "UltraHdrFixtures.h"
#include "common/TestEnvironment.h"
#include "hdr/HdrHistogram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

class TestHdrHistogram : public QObject
{
    Q_OBJECT

private slots:
    void binsFollowThePeakGain_data()
    {
        QTest::addColumn<float>("value");
        QTest::addColumn<float>("peak");
        QTest::addColumn<int>("bin");
        QTest::newRow("white, 3.6 stops: top bin") << 1.0f << 3.6f << 255;
        QTest::newRow("white, 6 stops: still the top bin") << 1.0f << 6.0f << 255;
        QTest::newRow("white, 1.8 stops: half the bright zone") << 1.0f << 1.8f << 207;
        QTest::newRow("white, 0.5 stops: a quarter at least") << 1.0f << 0.5f << 183;
        QTest::newRow("white, no peak") << 1.0f << 0.0f << 159;
        QTest::newRow("white, 0.1 stop is not enough") << 1.0f << 0.1f << 159;
        QTest::newRow("0.82 stays in the standard zone") << 0.82f << 3.6f << 159;
        QTest::newRow("just above 0.82 opens the bright zone") << 0.83f << 3.6f << 165;
        QTest::newRow("black") << 0.0f << 3.6f << 0;
        QTest::newRow("mid grey") << 0.5f << 3.6f << 96;
    }
    void binsFollowThePeakGain()
    {
        QFETCH(float, value);
        QFETCH(float, peak);
        QFETCH(int, bin);
        QCOMPARE(histogramBin(value, peak), bin);
    }
    void whitePixelsLandInTheSameBinForLumaAndChannels_data()
    {
        QTest::addColumn<std::optional<double>>("peak");
        QTest::addColumn<int>("bin");
        QTest::newRow("3.6 stops") << std::optional<double>(3.6) << 255;
        QTest::newRow("1.8 stops") << std::optional<double>(1.8) << 207;
        QTest::newRow("0.5 stops") << std::optional<double>(0.5) << 183;
        QTest::newRow("no peak recorded") << std::optional<double>() << 159;
    }
    void whitePixelsLandInTheSameBinForLumaAndChannels()
    {
        QFETCH(std::optional<double>, peak);
        QFETCH(int, bin);
        QImage white(7, 5, QImage::Format_RGBA8888);
        white.fill(Qt::white);
        const HistogramCounts counts = countHistogram(white, peak);
        QCOMPARE(counts.luma[bin], 35);
        QCOMPARE(counts.red[bin], 35);
        QCOMPARE(counts.green[bin], 35);
        QCOMPARE(counts.blue[bin], 35);
    }
    void singleCountSmoothsToAFiveBinBump()
    {
        std::array<qint64, 256> counts {};
        counts[100] = 7;
        const QList<float> curve = postProcess(counts);
        QCOMPARE(curve.size(), 256);
        QCOMPARE(curve[100], 1.0f);
        QCOMPARE(curve[99], std::pow(4.0f / 6.0f, 0.85f));
        QCOMPARE(curve[101], std::pow(4.0f / 6.0f, 0.85f));
        QCOMPARE(curve[98], std::pow(1.0f / 6.0f, 0.85f));
        QCOMPARE(curve[102], std::pow(1.0f / 6.0f, 0.85f));
        QCOMPARE(curve[97], 0.0f);
        QCOMPARE(curve[103], 0.0f);
    }
    void edgeBinsRepeatTheirValueWhenSmoothing()
    {
        // At bin 0 the missing left neighbour is bin 0 itself: after two passes
        // bins 0, 1 and 2 hold 10/16, 5/16 and 1/16 of the count.
        std::array<qint64, 256> counts {};
        counts[0] = 16;
        const QList<float> curve = postProcess(counts);
        QCOMPARE(curve[0], 1.0f);
        QCOMPARE(curve[1], std::pow(5.0f / 10.0f, 0.85f));
        QCOMPARE(curve[2], std::pow(1.0f / 10.0f, 0.85f));
        QCOMPARE(curve[3], 0.0f);
    }
    void allZeroCountsGiveAFlatZeroCurve()
    {
        const QList<float> curve = postProcess(std::array<qint64, 256> {});
        QCOMPARE(curve, QList<float>(256, 0.0f));
        const HistogramCurve path = histogramCurve(curve, QSizeF(200, 100));
        QCOMPARE(path.stroke.boundingRect(), QRectF(0, 100, 200, 0));
    }
    void blackPictureFillsBinZero()
    {
        QImage black(10, 10, QImage::Format_RGBA8888);
        black.fill(Qt::black);
        const HistogramCounts counts = countHistogram(black, 3.6);
        QCOMPARE(counts.luma[0], 100);
        const QList<float> curve = postProcess(counts.luma);
        QCOMPARE(curve[0], 1.0f);
        QCOMPARE(*std::max_element(curve.cbegin() + 3, curve.cend()), 0.0f);
    }
    void renditionIsOrientedAndAtMost512Pixels()
    {
        // Left half red, right half blue, stored sideways (orientation 6: turn
        // clockwise): displayed, red is on top.
        QImage sideways(1200, 800, QImage::Format_RGB888);
        sideways.fill(Qt::blue);
        for (int y = 0; y < 800; ++y)
            for (int x = 0; x < 600; ++x)
                sideways.setPixelColor(x, y, Qt::red);
        const QString path = writeFile(
            u"sideways.jpg"_s, insertAfterSoi(encodeSdr(sideways, 90), exifOrientationSegment(6)));
        const QImage rendition = histogramRendition(path);
        QCOMPARE(rendition.size(), QSize(341, 512));
        QCOMPARE(rendition.format(), QImage::Format_RGBA8888_Premultiplied);
        QVERIFY(rendition.pixelColor(170, 50).red() > 200);
        QVERIFY(rendition.pixelColor(170, 460).blue() > 200);

        const QString small = writeFile(u"small.jpg"_s, encodeSdr(makeSdr(40, 30)));
        QCOMPARE(histogramRendition(small).size(), QSize(40, 30));

        QImage png(700, 100, QImage::Format_RGB32);
        png.fill(Qt::white);
        const QString pngPath = m_dir.filePath(u"wide.png"_s);
        QVERIFY(png.save(pngPath));
        QCOMPARE(histogramRendition(pngPath).size(), QSize(512, 73));
        const std::optional<HDRHistogramData> data = computeHistogram(pngPath, 1.8);
        QVERIFY(data);
        QCOMPARE(data->lumaBins.size(), HDRHistogramData::binCount);
        QCOMPARE(data->lumaBins[207], 1.0f);
        QCOMPARE(data->peakLuma, 0.0f);
        QCOMPARE(data->edrPixelRatio, 0.0f);
    }
    void unreadableFilesGiveNoData()
    {
        QVERIFY(!computeHistogram(m_dir.filePath(u"missing.jpg"_s), 2.0));
        QVERIFY(!computeHistogram(writeFile(u"text.jpg"_s, "not a picture"), 2.0));
        QVERIFY(
            !computeHistogram(writeFile(u"cut.jpg"_s, encodeSdr(makeSdr(64, 64)).first(20)), 2.0));
        QVERIFY(HDRHistogramData().isEmpty());
    }
    void curvePassesThroughEveryBinAndFillCloses()
    {
        QList<float> bins(256, 0.0f);
        bins[0] = 0.5f;
        bins[128] = 1.0f;
        bins[255] = 2.0f; // drawn as 1.0
        const HistogramCurve curve = histogramCurve(bins, QSizeF(510, 100));
        QCOMPARE(curve.stroke.elementCount(), 1 + 3 * 255);
        QCOMPARE(QPointF(curve.stroke.elementAt(0)), QPointF(0, 50));
        QCOMPARE(QPointF(curve.stroke.elementAt(3 * 128)), QPointF(256, 0));
        QCOMPARE(QPointF(curve.stroke.elementAt(3 * 255)), QPointF(510, 0));
        // Catmull-Rom control points of the first segment: p1 + (p2 - p0) / 6 with p0 = p1.
        QCOMPARE(QPointF(curve.stroke.elementAt(1)), QPointF(2.0 / 6.0, 50 + 50.0 / 6.0));
        QVERIFY(curve.fill.contains(QPointF(256, 99)));
        // The fill runs down the right edge and back along the bottom.
        const int n = curve.fill.elementCount();
        QVERIFY(n >= 3 * 255 + 3);
        QCOMPARE(QPointF(curve.fill.elementAt(3 * 255 + 1)), QPointF(510, 100));
        QCOMPARE(QPointF(curve.fill.elementAt(3 * 255 + 2)), QPointF(0, 100));
        QVERIFY(histogramCurve({}, QSizeF(10, 10)).stroke.isEmpty());
    }

private:
    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        const QString path = m_dir.filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            return {};
        return path;
    }
    QTemporaryDir m_dir;
};

ORVANTA_TEST_GUI_MAIN(TestHdrHistogram)
#include "tst_hdrhistogram.moc"
