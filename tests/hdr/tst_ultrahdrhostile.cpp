// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Hostile and damaged files: each must give the SDR picture or a clear
// failure, never a crash, a hang or a read outside the buffer (this suite
// also runs in the sanitizer build).
#include "UltraHdrFixtures.h"
#include "common/TestEnvironment.h"
#include "hdr/codec/IsoGainMapBlock.h"
#include "hdr/codec/UltraHdrWriter.h"

#include <QRandomGenerator>
#include <QtTest>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

QByteArray validFile(bool xmp = true, bool iso = true)
{
    const QByteArray sdr = encodeSdr(makeSdr(40, 24));
    UltraHdrEncodeOptions options;
    options.writeXmp = xmp;
    options.writeIso = iso;
    return encodeUltraHdr(QByteArrayView(sdr), makeHdr(sdr, false), options).bytes;
}

// Offset of the MPF entry array's second entry (size, then offset).
qsizetype secondMpfEntry(const QByteArray &file)
{
    const qsizetype header = payloadOffset(file, 0, jpeg::APP2, jpeg::mpf());
    return header < 0 ? -1 : header + 50 + 16;
}

void writeU32(QByteArray &file, qsizetype at, quint32 value)
{
    QByteArray bytes;
    appendU32(bytes, value);
    file.replace(at, 4, bytes);
}

// The outcome every damaged file must have: a picture, or a failure with a
// reason; and when there is a picture it has the expected size (if known).
void checkDefinedOutcome(const UltraHdrDecodeResult &result, QSize size = {})
{
    if (result.image.isNull()) {
        QVERIFY(!result.error.isEmpty());
        return;
    }
    QVERIFY(result.error.isEmpty());
    QVERIFY(!result.image.size().isEmpty());
    if (size.isValid())
        QCOMPARE(result.image.size(), size);
}

} // namespace

class TestUltraHdrHostile : public QObject
{
    Q_OBJECT

private slots:
    void truncationAnywhereGivesSdrOrFailure()
    {
        const QByteArray file = validFile();
        const qsizetype primaryEnd = walkJpeg(file).end;
        for (qsizetype cut = 0; cut < file.size(); ++cut) {
            const UltraHdrDecodeResult result = decodeUltraHdr(file.first(cut));
            checkDefinedOutcome(result, QSize(40, 24));
            // The map is never applied from an incomplete gain-map stream.
            QVERIFY2(!result.gainMapApplied, qPrintable(QString::number(cut)));
            if (cut >= primaryEnd)
                QVERIFY(!result.image.isNull());
        }
        QVERIFY(decodeUltraHdr(file).gainMapApplied);
    }
    void mpfOffsetsOutOfRangeFallBackToTheContainerDirectory_data()
    {
        QTest::addColumn<quint32>("offset");
        QTest::newRow("past the end of the file") << 0x7FFFFFFFu;
        QTest::newRow("wraps around in 32 bits") << 0xFFFFFFF0u;
        QTest::newRow("inside the primary") << 0u;
        QTest::newRow("one byte off") << 1u;
    }
    void mpfOffsetsOutOfRangeFallBackToTheContainerDirectory()
    {
        QFETCH(quint32, offset);
        QByteArray file = validFile();
        const qsizetype entry = secondMpfEntry(file);
        QVERIFY(entry > 0);
        const quint32 real = readU32(file.constData() + entry + 8, true);
        writeU32(file, entry + 8, offset == 1u ? real + 1 : offset);
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(result.gainMapApplied);
        QCOMPARE(result.layout.locatedBy, GainMapLocator::Container);
        QVERIFY(result.layout.issues.join(u'\n').contains(u"MPF image 2"_s));
    }
    void isoOnlyFileWithBrokenMpfIsFoundByScanning()
    {
        QByteArray file = validFile(false, true);
        const qsizetype entry = secondMpfEntry(file);
        writeU32(file, entry + 8, 0x7FFFFFFF);
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(result.gainMapApplied);
        QCOMPARE(result.layout.locatedBy, GainMapLocator::Scan);
    }
    void zeroDenominatorWithoutXmpGivesSdr()
    {
        QByteArray file = validFile(false, true);
        const qsizetype iso = payloadOffset(file, walkJpeg(file).end, jpeg::APP2, jpeg::iso());
        QVERIFY(iso > 0);
        file.replace(iso + 25, 4, QByteArray(4, '\0')); // gain map min denominator
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(!result.gainMapApplied);
        QVERIFY(result.gainMapIssue.contains(u"zero denominator"_s));
        QCOMPARE(result.image, decodeUltraHdr(file, { 1.0, false }).image);
    }
    void nonFiniteXmpValuesGiveSdr()
    {
        GainMapMetadata m;
        m.channels[0].maxLog2 = 1.2578125;
        const QByteArray clean
            = assembleUltraHdr(encodeSdr(makeSdr(16, 16)), grayJpeg(4, 4, 200), { m, {}, true });
        QVERIFY(inspectUltraHdr(clean).isUltraHdr());
        const QByteArray good = R"(hdrgm:GainMapMax="1.2578125")";
        for (const char *bad : { "nan", "inf", "-inf", "1e999", "0x1p3" }) {
            // Padded to the same length, so every size and offset stays right and
            // the only fault is the value itself.
            const QByteArray value = QByteArray(bad).leftJustified(9, ' ');
            QByteArray file = clean;
            file.replace(file.indexOf(good), good.size(),
                         QByteArray("hdrgm:GainMapMax=\"" + value + "\""));
            const UltraHdrDecodeResult result = decodeUltraHdr(file);
            QVERIFY2(!result.gainMapApplied, bad);
            QVERIFY(!result.image.isNull());
            QVERIFY2(result.gainMapIssue.contains(u"finite"_s), qPrintable(result.gainMapIssue));
        }
    }
    void gainMapLargerThanTheBaseIsResampled()
    {
        GainMapMetadata m;
        m.channels[0] = { 0.0, 1.0, 1.0, 0.0, 0.0 };
        m.hdrCapacityMaxLog2 = 1.0;
        const QByteArray file
            = assembleUltraHdr(encodeSdr(makeSdr(16, 12)), grayJpeg(64, 48, 255), { m, m, true });
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(result.gainMapApplied);
        QCOMPARE(result.image.size(), QSize(16, 12));
        const UltraHdrDecodeResult sdr = decodeUltraHdr(file, { 1.0 });
        QVERIFY(qAbs(pixel(result.image, 8, 6, 1) / pixel(sdr.image, 8, 6, 1) - 2.0f) < 0.03f);
    }
    void thirdImageInTheFileDoesNotHideTheGainMap()
    {
        // primary | a plain thumbnail JPEG | the gain map: MPF and the directory
        // both point at the thumbnail, which carries no gain-map metadata.
        const QByteArray file = validFile();
        const qsizetype primaryEnd = walkJpeg(file).end;
        const QByteArray withThumbnail
            = file.left(primaryEnd) + encodeSdr(makeSdr(8, 8)) + file.mid(primaryEnd);
        const UltraHdrDecodeResult result = decodeUltraHdr(withThumbnail);
        QVERIFY2(result.gainMapApplied, qPrintable(result.gainMapIssue));
        QCOMPARE(result.layout.locatedBy, GainMapLocator::Scan);
        QCOMPARE(result.layout.imagesAfterPrimary, 2);
    }
    void bytesThatAreNoJpegFailClearly()
    {
        for (const QByteArray &bytes :
             { QByteArray(), QByteArray("\xFF"), QByteArray("GIF89a........"),
               QByteArray("\xFF\xD8", 2), QByteArray("\xFF\xD8\xFF\xD9", 4) }) {
            const UltraHdrDecodeResult result = decodeUltraHdr(bytes);
            QVERIFY(result.image.isNull());
            QVERIFY(!result.error.isEmpty());
        }
        const UltraHdrDecodeResult missing = decodeUltraHdrFile(u"/nonexistent/file.jpg"_s);
        QVERIFY(missing.error.startsWith(u"cannot open file"_s));
    }
    void oversizedFrameIsRefusedBeforeAllocating()
    {
        QByteArray file = encodeSdr(makeSdr(16, 16));
        const JpegStream stream = walkJpeg(file);
        for (const JpegSegment &s : stream.segments) {
            if (s.marker == 0xC0) {
                file[s.payloadOffset + 1] = char(0x75); // height 30000
                file[s.payloadOffset + 2] = char(0x30);
                file[s.payloadOffset + 3] = char(0x75); // width 30000
                file[s.payloadOffset + 4] = char(0x30);
            }
        }
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(result.image.isNull());
        QVERIFY2(result.error.contains(u"too large"_s), qPrintable(result.error));
    }
    void corruptGainMapDataLeavesTheBaseIntact()
    {
        QByteArray file = validFile();
        const JpegStream map = walkJpeg(file, walkJpeg(file).end);
        // Overwrite the gain map's frame header with nonsense component counts.
        for (const JpegSegment &s : map.segments)
            if (s.marker == 0xC0)
                file[s.payloadOffset + 5] = char(9);
        const UltraHdrDecodeResult result = decodeUltraHdr(file);
        QVERIFY(!result.gainMapApplied);
        QVERIFY(result.gainMapIssue.contains(u"cannot be decoded"_s));
        QCOMPARE(result.image, decodeUltraHdr(file, { 1.0, false }).image);
    }
    // A camera JPG becomes the primary byte for byte, never decoded by the
    // writer: one whose scan is hidden inside another segment's length (found
    // by fuzzing) must be refused, not delivered as a file readers call cut.
    void primaryWithoutAScanIsRefusedByTheWriter()
    {
        const QByteArray sdr = encodeSdr(makeSdr(40, 24));
        const GainMapCells cells { 10, 6, 1, std::vector<float>(60, 1.5f) };
        const UltraHdrEncodeResult whole = encodeUltraHdr(QByteArrayView(sdr), cells, {});
        QVERIFY2(decodeUltraHdr(whole.bytes).gainMapApplied, qPrintable(whole.error));
        QCOMPARE(whole.metadata.channels[0].maxLog2, 1.5 + 1.0 / 64);

        QByteArray hidden = sdr;
        const JpegStream stream = walkJpeg(hidden);
        for (qsizetype i = 1; i < stream.segments.size(); ++i) {
            if (stream.segments[i].marker != jpeg::SOS)
                continue;
            const JpegSegment &before = stream.segments[i - 1];
            const int length = int(stream.segments[i].offset - before.offset) + 16;
            hidden[before.offset + 2] = char(length >> 8);
            hidden[before.offset + 3] = char(length & 0xFF);
            break;
        }
        const UltraHdrEncodeResult refused = encodeUltraHdr(QByteArrayView(hidden), cells, {});
        QVERIFY(refused.bytes.isEmpty());
        QVERIFY(!refused.error.isEmpty());
    }
    void randomByteDamageNeverCrashes()
    {
        const QByteArray file = validFile();
        QRandomGenerator random(20260611);
        for (int round = 0; round < 400; ++round) {
            QByteArray damaged = file;
            const int flips = 1 + int(random.bounded(8));
            for (int i = 0; i < flips; ++i)
                damaged[qsizetype(random.bounded(quint32(damaged.size())))]
                    = char(random.bounded(256));
            checkDefinedOutcome(decodeUltraHdr(damaged));
        }
    }
};

ORVANTA_TEST_GUILESS_MAIN(TestUltraHdrHostile)
#include "tst_ultrahdrhostile.moc"
