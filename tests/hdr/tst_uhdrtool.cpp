// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The orvanta-uhdr command: encode, probe and decode through the real
// executable, as photographers use it, plus the float map format it speaks.
#include "UltraHdrFixtures.h"
#include "common/TestEnvironment.h"
#include "hdr/codec/PortableFloatMap.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

struct Run
{
    int exitCode = -1;
    QByteArray out, err;
};

Run runTool(const QStringList &args)
{
    QProcess process;
    process.start(QStringLiteral(ORVANTA_UHDR_TOOL), args);
    Run run;
    if (!process.waitForFinished(60000))
        return run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = process.readAllStandardOutput();
    run.err = process.readAllStandardError();
    return run;
}

bool save(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray load(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestUhdrTool : public QObject
{
    Q_OBJECT

private slots:
    void floatMapRoundTripsAndRejectsDamage()
    {
        ImageBuffer image(3, 2, PixelFormat::RgbaF32);
        for (int y = 0; y < 2; ++y)
            for (int x = 0; x < 3; ++x)
                for (int c = 0; c < 4; ++c)
                    image.rowAs<float>(y)[4 * x + c]
                        = c == 3 ? 1.0f : float(x + 10 * y) + 0.25f * c;
        const QByteArray bytes = writePortableFloatMap(image);
        QVERIFY(bytes.startsWith("PF\n3 2\n-1.0\n"));
        QCOMPARE(bytes.size(), 12 + 3 * 2 * 12);
        // Rows are stored bottom-up: the first stored pixel is (0, 1).
        float first = 0;
        std::memcpy(&first, bytes.constData() + 12, 4);
        QCOMPARE(first, 10.0f);
        QVERIFY(readPortableFloatMap(bytes) == image);
        // Half floats are written as the same values.
        ImageBuffer half(3, 2, PixelFormat::RgbaF16);
        for (int y = 0; y < 2; ++y)
            qFloatToFloat16(half.rowAs<qfloat16>(y), image.rowAs<float>(y), 12);
        QCOMPARE(writePortableFloatMap(half), bytes);

        QString error;
        QVERIFY(readPortableFloatMap(bytes.first(bytes.size() - 1), &error).isNull());
        QCOMPARE(error, u"portable float map is truncated"_s);
        QVERIFY(readPortableFloatMap("PF\n-3 2\n-1.0\n", &error).isNull());
        QVERIFY(readPortableFloatMap("P6\n3 2\n255\n", &error).isNull());
        // A big-endian grayscale map.
        QByteArray gray("Pf\n1 1\n1.0\n");
        gray.append("\x40\x00\x00\x00", 4); // 2.0
        const ImageBuffer g = readPortableFloatMap(gray, &error);
        QCOMPARE(g.rowAs<float>(0)[1], 2.0f);
    }
    void encodeProbeDecodeRoundTrip()
    {
        const QByteArray sdr = encodeSdr(makeSdr(48, 32));
        const QString sdrPath = m_dir.filePath(u"in.jpg"_s);
        const QString hdrPath = m_dir.filePath(u"in.pfm"_s);
        const QString outPath = m_dir.filePath(u"out.jpg"_s);
        const QString decodedPath = m_dir.filePath(u"out.pfm"_s);
        const ImageBuffer hdr = makeHdr(sdr, true);
        QVERIFY(save(sdrPath, sdr));
        QVERIFY(save(hdrPath, writePortableFloatMap(hdr)));

        const Run encoded = runTool({ u"encode"_s, sdrPath, hdrPath, outPath, u"--scale"_s, u"2"_s,
                                      u"--quality"_s, u"95"_s, u"--multichannel"_s });
        QVERIFY2(encoded.exitCode == 0, encoded.err.constData());

        const Run probed = runTool({ u"probe"_s, outPath });
        QCOMPARE(probed.exitCode, 0);
        const QJsonObject json = QJsonDocument::fromJson(probed.out).object();
        QCOMPARE(json[u"ultrahdr"_s].toBool(), true);
        QCOMPARE(json[u"gainMap"_s][u"width"_s].toInt(), 24);
        QCOMPARE(json[u"gainMap"_s][u"locatedBy"_s].toString(), u"mpf"_s);
        QCOMPARE(json[u"metadata"_s][u"channels"_s].toInt(), 3);
        QCOMPARE(json[u"metadata"_s][u"source"_s].toString(), u"iso21496-1"_s);
        QCOMPARE(json[u"primary"_s][u"hdrgmVersion"_s].toString(), u"1.0"_s);

        const Run decoded = runTool({ u"decode"_s, outPath, decodedPath });
        QVERIFY2(decoded.exitCode == 0, decoded.err.constData());
        const ImageBuffer back = readPortableFloatMap(load(decodedPath));
        QCOMPARE(back.size(), QSize(48, 32));
        const float want = hdr.rowAs<float>(16)[4 * 40];
        const float got = back.rowAs<float>(16)[4 * 40];
        QVERIFY2(std::abs(got - want) / want < 0.06f, qPrintable(u"%1 vs %2"_s.arg(got).arg(want)));

        const Run sdrOnly = runTool({ u"decode"_s, outPath, decodedPath, u"--headroom"_s, u"1"_s });
        QCOMPARE(sdrOnly.exitCode, 0);
        QVERIFY(sdrOnly.err.contains("gain map not applied"));
    }
    void probeExplainsWhyAFileIsNotUltraHdr()
    {
        const QString plain = m_dir.filePath(u"plain.jpg"_s);
        QVERIFY(save(plain, encodeSdr(makeSdr(8, 8))));
        const Run run = runTool({ u"probe"_s, plain });
        QCOMPARE(run.exitCode, 3);
        const QJsonObject json = QJsonDocument::fromJson(run.out).object();
        QCOMPARE(json[u"ultrahdr"_s].toBool(), false);
        QCOMPARE(json[u"reason"_s].toString(), u"no gain map"_s);
        QVERIFY(run.err.contains("is not Ultra HDR"));

        const Run missing = runTool({ u"probe"_s, m_dir.filePath(u"missing.jpg"_s) });
        QCOMPARE(missing.exitCode, 2);
    }
    void badArgumentsPrintUsage()
    {
        for (const QStringList &args :
             { QStringList(), QStringList { u"frobnicate"_s },
               QStringList { u"decode"_s, u"a.jpg"_s },
               QStringList { u"decode"_s, u"a.jpg"_s, u"b.pfm"_s, u"--headroom"_s, u"0.5"_s },
               QStringList { u"encode"_s, u"a"_s, u"b"_s, u"c"_s, u"--scale"_s, u"0"_s } }) {
            const Run run = runTool(args);
            QCOMPARE(run.exitCode, 1);
            QVERIFY(run.err.startsWith("usage: orvanta-uhdr"));
        }
    }

private:
    QTemporaryDir m_dir;
};

ORVANTA_TEST_GUILESS_MAIN(TestUhdrTool)
#include "tst_uhdrtool.moc"
