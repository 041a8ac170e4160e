// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The Ultra HDR reader and writer: each parsing layer on hand-made bytes, then
// whole files written and read back.
#include "UltraHdrFixtures.h"
#include "common/TestEnvironment.h"
#include "hdr/codec/IsoGainMapBlock.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/MpfIndex.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "hdr/codec/XmpGainMap.h"

#include <QtTest>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

GainMapMetadata sampleMetadata(int channels)
{
    GainMapMetadata m;
    m.channelCount = channels;
    for (int c = 0; c < channels; ++c)
        m.channels[c] = { -0.5 + 0.125 * c, 2.75 - 0.25 * c, 1.0 + 0.5 * c, 0.015625, 0.03125 };
    m.hdrCapacityMinLog2 = 0.0;
    m.hdrCapacityMaxLog2 = 2.75;
    return m;
}

// Everything but where the values came from.
bool sameValues(GainMapMetadata a, GainMapMetadata b)
{
    a.source = b.source;
    a.version = b.version;
    return a == b;
}

} // namespace

class TestUltraHdrCodec : public QObject
{
    Q_OBJECT

private slots:
    void segmentWalkerSkipsEntropyDataStuffingAndRestartMarkers()
    {
        QByteArray bytes("\xFF\xD8", 2);
        bytes += makeAppSegment(jpeg::APP1, jpeg::xmp(), "<x/>");
        bytes += QByteArray("\xFF\xFF\xFF\xDA\x00\x04\x01\x02", 8); // fill bytes before SOS
        bytes += QByteArray("\x11\xFF\x00\x22\xFF\xD3\x33\xFF\xFF\xD9", 10);
        bytes += "trailing";
        const JpegStream stream = walkJpeg(bytes);
        QVERIFY(stream.complete);
        QCOMPARE(stream.end, bytes.size() - 8);
        QCOMPARE(stream.segments.size(), 2);
        QCOMPARE(stream.segments[0].marker, jpeg::APP1);
        QCOMPARE(stream.segments[1].marker, jpeg::SOS);
        QCOMPARE(findAppPayload(bytes, stream, jpeg::APP1, jpeg::xmp()), QByteArrayView("<x/>"));
        QCOMPARE(walkJpeg(bytes, 3).end, 3); // no SOI there
    }
    void segmentWalkerMarksATruncatedStreamIncomplete()
    {
        const QByteArray full = encodeSdr(makeSdr(16, 8));
        QVERIFY(walkJpeg(full).complete);
        QCOMPARE(walkJpeg(full).width, 16);
        QCOMPARE(walkJpeg(full).height, 8);
        for (qsizetype cut = 2; cut < full.size(); ++cut) {
            const JpegStream stream = walkJpeg(full.first(cut));
            QVERIFY2(!stream.complete, qPrintable(QString::number(cut)));
            QCOMPARE(stream.end, cut);
        }
    }
    void mpfIndexRoundTripsAndRejectsInconsistentIndexes()
    {
        const QByteArray payload = buildMpf(1498, 883, 775);
        QCOMPARE(payload.size(), kMpfPayloadSize);
        const MpfIndex index = parseMpf(payload);
        QVERIFY(index.error.isEmpty());
        QCOMPARE(index.entries.size(), 2);
        QCOMPARE(index.entries[0].attributes, 0x00030000u);
        QCOMPARE(index.entries[0].size, 1498u);
        QCOMPARE(index.entries[1].size, 883u);
        QCOMPARE(index.entries[1].offset, 775u);

        QByteArray wrongCount = payload;
        wrongCount[31] = 3; // three images announced, entries for two
        QVERIFY(!parseMpf(wrongCount).error.isEmpty());
        QByteArray nonZeroFirst = payload;
        nonZeroFirst[61] = 1; // first image offset must be 0
        QVERIFY(!parseMpf(nonZeroFirst).error.isEmpty());
        QByteArray entriesOutside = payload;
        entriesOutside[45] = char(0x7F); // entry array offset past the segment
        QVERIFY(!parseMpf(entriesOutside).error.isEmpty());
        QVERIFY(!parseMpf(payload.first(40)).error.isEmpty());
        QVERIFY(!parseMpf(QByteArray(QByteArray("XX\0*", 4) + payload.mid(4))).error.isEmpty());
    }
    void mpfIndexReadsLittleEndian()
    {
        // The same index written by a little-endian writer.
        QByteArray le("II*\0\x08\0\0\0\x02\0", 10);
        auto u16 = [&le](quint16 v) { le.append(char(v & 0xFF)).append(char(v >> 8)); };
        auto u32 = [&u16](quint32 v) {
            u16(quint16(v & 0xFFFF));
            u16(quint16(v >> 16));
        };
        u16(0xB001);
        u16(4);
        u32(1);
        u32(2);
        u16(0xB002);
        u16(7);
        u32(32);
        u32(38);
        u32(0);
        u32(0x00030000);
        u32(100);
        u32(0);
        u32(0);
        u32(0);
        u32(50);
        u32(60);
        u32(0);
        const MpfIndex index = parseMpf(le);
        QVERIFY2(index.error.isEmpty(), qPrintable(index.error));
        QCOMPARE(index.entries.size(), 2);
        QCOMPARE(index.entries[1].size, 50u);
        QCOMPARE(index.entries[1].offset, 60u);
    }
    void isoBlockRoundTripsWithFullLayoutAndNoReservedBits()
    {
        for (int channels : { 1, 3 }) {
            const GainMapMetadata m = sampleMetadata(channels);
            const QByteArray block = serializeIsoBlock(m);
            QCOMPARE(block.size(), channels == 1 ? 61 : 141);
            QCOMPARE(quint8(block[4]) & 0x3F, 0);
            QCOMPARE(bool(quint8(block[4]) & 0x80), channels == 3);
            const IsoBlock parsed = parseIsoBlock(block);
            QVERIFY2(parsed.metadata, qPrintable(parsed.error));
            QVERIFY(sameValues(*parsed.metadata, m));
            QCOMPARE(parsed.metadata->source, GainMapMetadataSource::Iso21496);
        }
        const IsoBlock version = parseIsoBlock(isoVersionBlock());
        QVERIFY(version.versionOnly);
        QVERIFY(!version.metadata);
    }
    void isoBlockReadsTheCommonDenominatorLayout()
    {
        // flags 0x48: base colour space + one shared denominator; all values over 4.
        QByteArray block("\0\0\0\0\x48", 5);
        appendU32(block, 4);
        for (qint32 n : { 0, 8, -2, 10, 4, 1, 2 })
            appendU32(block, quint32(n));
        QCOMPARE(block.size(), 37);
        const IsoBlock parsed = parseIsoBlock(block);
        QVERIFY2(parsed.metadata, qPrintable(parsed.error));
        const GainMapMetadata &m = *parsed.metadata;
        QCOMPARE(m.channelCount, 1);
        QCOMPARE(m.hdrCapacityMinLog2, 0.0);
        QCOMPARE(m.hdrCapacityMaxLog2, 2.0);
        QCOMPARE(m.channels[0].minLog2, -0.5);
        QCOMPARE(m.channels[0].maxLog2, 2.5);
        QCOMPARE(m.channels[0].gamma, 1.0);
        QCOMPARE(m.channels[0].offsetSdr, 0.25);
        QCOMPARE(m.channels[0].offsetHdr, 0.5);
    }
    void isoBlockRejectsBadBlocks_data();
    void isoBlockRejectsBadBlocks()
    {
        QFETCH(QByteArray, block);
        const IsoBlock parsed = parseIsoBlock(block);
        QVERIFY(!parsed.metadata);
        QVERIFY(!parsed.versionOnly);
        QVERIFY(!parsed.error.isEmpty());
    }
    void acceptedIsoValuesStayValidWhenWrittenAgain()
    {
        // Found by fuzz_iso: a compact block whose capacities differ by less than
        // the written precision came back with equal capacities, i.e. invalid.
        const QByteArray found
            = QByteArray::fromHex("00005b5b5b5b255b5b5b5b5b255b5b5b5b5b5b5b5b5b5b5b5b5b5b5b5b5b5ba5"
                                  "ff000500000011000400848484"
                                  "84848400040000010084842c84840064848484848484848484848401e25b5b5b"
                                  "5b5b5b5b5b5b5b5b5b5b5b5b5b"
                                  "a5ff00050000001100040084848484848400040000010084842c848400648484"
                                  "84848484848484848401e2ee48"
                                  "01000021010000000004000001001004100400000000000001e2ee483a00");
        GainMapMetadata close = sampleMetadata(1);
        close.hdrCapacityMinLog2 = 1.0;
        close.hdrCapacityMaxLog2 = 1.0 + 1e-9;
        close.channels[0].minLog2 = 0.3;
        close.channels[0].maxLog2 = 0.3 + 1e-12;
        const IsoBlock accepted = parseIsoBlock(found);
        QVERIFY(accepted.metadata);
        for (const GainMapMetadata &m : { *accepted.metadata, close }) {
            QVERIFY(m.isValid());
            const IsoBlock again = parseIsoBlock(serializeIsoBlock(m));
            QVERIFY2(again.metadata, qPrintable(again.error));
            QCOMPARE(again.metadata->channelCount, m.channelCount);
        }
    }
    void xmpReadsAttributeAndElementFormsWithAnyPrefix();
    void xmpRejectsUnusableValues_data();
    void xmpRejectsUnusableValues();
    void xmpDefaultsApplyToAbsentValues();
    void weightFollowsDisplayHeadroom()
    {
        GainMapMetadata m = sampleMetadata(1);
        m.hdrCapacityMinLog2 = 1.0;
        m.hdrCapacityMaxLog2 = 3.0;
        QCOMPARE(m.weightForHeadroom(1.0), 0.0);
        QCOMPARE(m.weightForHeadroom(2.0), 0.0);
        QCOMPARE(m.weightForHeadroom(4.0), 0.5);
        QCOMPARE(m.weightForHeadroom(8.0), 1.0);
        QCOMPARE(m.weightForHeadroom(100.0), 1.0);
        QCOMPARE(m.weightForHeadroom(std::numeric_limits<double>::infinity()), 1.0);
        QCOMPARE(m.weightForHeadroom(std::nan("")), 0.0);
    }

    void roundTripRestoresMetadataAndPixels_data()
    {
        QTest::addColumn<bool>("multiChannel");
        QTest::addColumn<int>("scale");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("xmp");
        QTest::addColumn<bool>("iso");
        QTest::addColumn<bool>("alternate"); // gains in BT.2100 primaries, ISO flag 0
        const QSize size(64, 48);
        QTest::newRow("single channel, scale 1") << false << 1 << size << true << true << false;
        QTest::newRow("single channel, scale 4") << false << 4 << size << true << true << false;
        QTest::newRow("multi-channel, scale 1") << true << 1 << size << true << true << false;
        QTest::newRow("multi-channel, scale 4") << true << 4 << size << true << true << false;
        QTest::newRow("odd size, scale 4") << false << 4 << QSize(67, 33) << true << true << false;
        QTest::newRow("odd size, multi-channel")
            << true << 4 << QSize(31, 45) << true << true << false;
        QTest::newRow("XMP only") << false << 4 << size << true << false << false;
        QTest::newRow("ISO only") << true << 4 << size << false << true << false;
        QTest::newRow("alternate colour space") << true << 1 << size << true << true << true;
    }
    void roundTripRestoresMetadataAndPixels()
    {
        QFETCH(bool, multiChannel);
        QFETCH(int, scale);
        QFETCH(QSize, size);
        QFETCH(bool, xmp);
        QFETCH(bool, iso);
        QFETCH(bool, alternate);
        const QByteArray sdr = encodeSdr(makeSdr(size.width(), size.height()));
        const ImageBuffer hdr = makeHdr(sdr, multiChannel);
        UltraHdrEncodeOptions options;
        if (alternate)
            options.alternateGamut = Gamut::Bt2100;
        options.mapScale = scale;
        options.multiChannel = multiChannel;
        options.mapQuality = 95;
        options.writeXmp = xmp;
        options.writeIso = iso;
        const UltraHdrEncodeResult encoded = encodeUltraHdr(QByteArrayView(sdr), hdr, options);
        QVERIFY2(encoded.error.isEmpty(), qPrintable(encoded.error));
        QCOMPARE(encoded.mapWidth, (size.width() + scale - 1) / scale);

        const UltraHdrDecodeResult decoded = decodeUltraHdr(encoded.bytes);
        QVERIFY2(decoded.gainMapApplied, qPrintable(decoded.gainMapIssue));
        QCOMPARE(decoded.layout.locatedBy, GainMapLocator::Mpf);
        QVERIFY(decoded.layout.metadata);
        QVERIFY(sameValues(*decoded.layout.metadata, encoded.metadata));
        QCOMPARE(decoded.layout.metadata->source,
                 iso ? GainMapMetadataSource::Iso21496 : GainMapMetadataSource::Xmp);
        QCOMPARE(decoded.layout.metadata->channelCount, multiChannel ? 3 : 1);
        QCOMPARE(decoded.layout.primaryHdrgmVersion, xmp ? u"1.0"_s : QString());
        QCOMPARE(decoded.layout.primaryHasIsoVersion, iso);
        QCOMPARE(decoded.image.size(), size);
        QCOMPARE(decoded.layout.usesAlternateColourSpace(), alternate);
        const auto &mapSpace = decoded.layout.gainMapToXyz;
        QCOMPARE(mapSpace ? gamutOf(*mapSpace) : std::nullopt,
                 alternate ? std::optional(Gamut::Bt2100) : std::nullopt);

        // Tolerance: the map holds 8-bit log gains over the content's range, is
        // JPEG-coded and, at scale 4, averaged over 4×4 blocks of a smooth field.
        // A single-channel map restores luminance (each channel is only
        // approximated when the offsets are not zero), so that is what is compared
        // then. Each value must come back within 5 % (scale 1) or 8 % (scale 4),
        // with a small absolute allowance for near-black pixels; the mean within
        // 2.5 % (small odd pictures have relatively more border pixels, where the
        // map is extended from the outermost cell instead of interpolated).
        // Gains measured in a wider space come back through a matrix with large
        // coefficients, which magnifies the map's rounding in small channels.
        const double relTolerance = alternate ? 0.2 : scale == 1 ? 0.05 : 0.08;
        const int compared = multiChannel ? 3 : 1;
        auto value = [multiChannel](auto at, int c) {
            return multiChannel ? double(at(c)) : 0.2126 * at(0) + 0.7152 * at(1) + 0.0722 * at(2);
        };
        double sumError = 0.0, worst = 0.0;
        for (int y = 0; y < size.height(); ++y) {
            const float *expected = hdr.rowAs<float>(y);
            for (int x = 0; x < size.width(); ++x) {
                for (int c = 0; c < compared; ++c) {
                    const double want = value([&](int k) { return expected[4 * x + k]; }, c);
                    const double got
                        = value([&](int k) { return pixel(decoded.image, x, y, k); }, c);
                    const double error = std::abs(got - want) / (want + 0.02);
                    sumError += error;
                    worst = std::max(worst, error);
                    if (error > relTolerance)
                        QFAIL(qPrintable(u"pixel (%1,%2) channel %3: %4 instead of %5"_s.arg(x)
                                             .arg(y)
                                             .arg(c)
                                             .arg(got)
                                             .arg(want)));
                }
            }
        }
        const double mean = sumError / (compared * size.width() * size.height());
        QVERIFY2(mean < 0.025, qPrintable(u"mean %1, worst %2"_s.arg(mean).arg(worst)));
    }
    // Other writers store the map with a gamma: decoding raises the stored value to
    // 1/gamma before interpolating between the minimum and maximum boost.
    void mapGammaIsUndoneAsTheFormulaSays()
    {
        const QImage sdrPicture = makeSdr(32, 24);
        const QByteArray primary = encodeSdr(sdrPicture);
        const GainMapMetadata m = sampleMetadata(3); // gammas 1, 1.5 and 2
        const QByteArray file = assembleUltraHdr(primary, grayJpeg(8, 6, 96), { m, m, true });
        const UltraHdrDecodeResult hdr = decodeUltraHdr(file);
        const UltraHdrDecodeResult sdr = decodeUltraHdr(primary);
        QVERIFY2(hdr.gainMapApplied, qPrintable(hdr.gainMapIssue));
        QCOMPARE(hdr.weight, 1.0);
        for (int c = 0; c < 3; ++c) {
            const GainMapChannel &ch = m.channels[c];
            const double recovery = std::pow(96 / 255.0, 1.0 / ch.gamma);
            const double gain = std::exp2(ch.minLog2 + (ch.maxLog2 - ch.minLog2) * recovery);
            for (const QPoint at : { QPoint(3, 4), QPoint(20, 10), QPoint(30, 22) }) {
                const double base = pixel(sdr.image, at.x(), at.y(), c);
                const double want = (base + ch.offsetSdr) * gain - ch.offsetHdr;
                const double got = pixel(hdr.image, at.x(), at.y(), c);
                QVERIFY2(std::abs(got - want) <= 0.01 * want + 0.002,
                         qPrintable(u"channel %1: %2, formula %3"_s.arg(c).arg(got).arg(want)));
            }
        }
    }
    // ISO use-base-colour-space 0: the base goes into the map's ICC primaries,
    // takes its gains there and comes back. Gains of x4, x1 and x0.5 tell apart a
    // decoder that applies them to the base's channels.
    void gainsApplyInTheAlternateColourSpaceWhenFlagged()
    {
        const QByteArray primary = encodeSdr(makeSdr(32, 24));
        GainMapMetadata m;
        m.channelCount = 3;
        for (GainMapChannel &ch : m.channels)
            ch = { -1.0, 2.0, 1.0, 0.0, 0.0 };
        m.hdrCapacityMaxLog2 = 2.0;
        m.useBaseColourSpace = false;
        const std::uint8_t levels[3] = { 255, 85, 0 }; // log2 gains 2, 0, -1
        std::vector<std::uint8_t> cells;
        for (int i = 0; i < 8 * 6; ++i)
            cells.insert(cells.end(), levels, levels + 3);
        const QByteArray map = encodeJpeg(cells.data(), 8, 6, 3, 24, 100, true);
        UltraHdrAssembly assembly { std::nullopt, m, true, makeIccProfile(Gamut::DisplayP3) };
        const UltraHdrDecodeResult hdr = decodeUltraHdr(assembleUltraHdr(primary, map, assembly));
        const UltraHdrDecodeResult sdr = decodeUltraHdr(primary);
        QVERIFY2(hdr.gainMapApplied, qPrintable(hdr.gainMapIssue));
        QVERIFY(hdr.layout.usesAlternateColourSpace());
        const Matrix3 toP3
            = multiply(*inverse(gamutToXyz(Gamut::DisplayP3)), gamutToXyz(Gamut::Srgb));
        const Matrix3 back = *inverse(toP3);
        const double gains[3] = { 4.0, 1.0, 0.5 };
        for (const QPoint at : { QPoint(3, 4), QPoint(20, 10), QPoint(30, 22) }) {
            double p3[3], want[3];
            for (int c = 0; c < 3; ++c) {
                p3[c] = 0.0;
                for (int k = 0; k < 3; ++k)
                    p3[c] += toP3[c * 3 + k] * pixel(sdr.image, at.x(), at.y(), k);
                p3[c] *= gains[c];
            }
            for (int c = 0; c < 3; ++c) {
                want[c] = back[c * 3] * p3[0] + back[c * 3 + 1] * p3[1] + back[c * 3 + 2] * p3[2];
                const double got = pixel(hdr.image, at.x(), at.y(), c);
                QVERIFY2(std::abs(got - std::max(0.0, want[c])) <= 0.03 * std::abs(want[c]) + 0.004,
                         qPrintable(u"channel %1: %2, formula %3"_s.arg(c).arg(got).arg(want[c])));
            }
        }
    }
    void isoWinsOverConflictingXmp()
    {
        const QByteArray primary = encodeSdr(makeSdr(32, 24));
        const QByteArray map = grayJpeg(8, 6, 255);
        GainMapMetadata xmpValues = sampleMetadata(1), isoValues = sampleMetadata(1);
        xmpValues.channels[0].maxLog2 = 3.0;
        isoValues.channels[0].maxLog2 = 2.0;
        const QByteArray file = assembleUltraHdr(primary, map, { xmpValues, isoValues, true });
        const UltraHdrLayout layout = inspectUltraHdr(file);
        QVERIFY(layout.isUltraHdr());
        QCOMPARE(layout.metadata->source, GainMapMetadataSource::Iso21496);
        QCOMPARE(layout.metadata->channels[0].maxLog2, 2.0);
    }
    void invalidIsoFallsBackToValidXmp()
    {
        const QByteArray primary = encodeSdr(makeSdr(32, 24));
        QByteArray file = assembleUltraHdr(primary, grayJpeg(8, 6, 255),
                                           { sampleMetadata(1), sampleMetadata(1), true });
        const qsizetype mapStart = walkJpeg(file).end;
        const qsizetype iso = payloadOffset(file, mapStart, jpeg::APP2, jpeg::iso());
        QVERIFY(iso > 0);
        file.replace(iso + 9, 4, QByteArray(4, '\0')); // zero denominator
        const UltraHdrLayout layout = inspectUltraHdr(file);
        QVERIFY(layout.isUltraHdr());
        QCOMPARE(layout.metadata->source, GainMapMetadataSource::Xmp);
        QVERIFY(layout.issues.join(u'\n').contains(u"zero denominator"_s));
    }
    void fileWithoutMetadataDecodesToItsSdrPicture()
    {
        const QByteArray primary = encodeSdr(makeSdr(32, 24));
        const QByteArray file = assembleUltraHdr(primary, grayJpeg(8, 6, 255), {});
        const UltraHdrDecodeResult decoded = decodeUltraHdr(file);
        const UltraHdrDecodeResult sdr = decodeUltraHdr(primary);
        QVERIFY(decoded.error.isEmpty());
        QVERIFY(!decoded.gainMapApplied);
        QVERIFY(!decoded.gainMapIssue.isEmpty());
        QVERIFY(decoded.image == sdr.image);
        QVERIFY(!sdr.gainMapApplied);
        QCOMPARE(sdr.gainMapIssue, u"no gain map"_s);
    }
    void exifOrientationRotatesPictureAndMapTogether()
    {
        // A picture whose left half is boosted 4× and right half not, stored with
        // orientation 6 (turn 90° clockwise to display): the boosted half must end
        // up on top.
        const int w = 32, h = 16;
        QImage sdr(w, h, QImage::Format_RGB888);
        sdr.fill(QColor(128, 128, 128));
        const QByteArray base = insertAfterSoi(encodeSdr(sdr), exifOrientationSegment(6));
        const ImageBuffer linear = decodeUltraHdr(base, { 1.0, false }).image;
        QCOMPARE(linear.size(), QSize(h, w)); // already oriented
        ImageBuffer hdr(w, h, PixelFormat::RgbaF32);
        for (int y = 0; y < h; ++y)
            for (int x = 0; x < w; ++x)
                for (int c = 0; c < 4; ++c)
                    hdr.rowAs<float>(y)[4 * x + c]
                        = c == 3 ? 1.0f : pixel(linear, 0, 0, c) * (x < w / 2 ? 4.0f : 1.0f);
        UltraHdrEncodeOptions options;
        options.mapScale = 1;
        const UltraHdrEncodeResult encoded = encodeUltraHdr(QByteArrayView(base), hdr, options);
        QVERIFY2(encoded.error.isEmpty(), qPrintable(encoded.error));
        const UltraHdrDecodeResult decoded = decodeUltraHdr(encoded.bytes);
        QVERIFY(decoded.gainMapApplied);
        QCOMPARE(decoded.layout.orientation, 6);
        QCOMPARE(decoded.image.size(), QSize(h, w));
        const float top = pixel(decoded.image, h / 2, 2, 1);
        const float bottom = pixel(decoded.image, h / 2, w - 3, 1);
        QVERIFY2(std::abs(top / bottom - 4.0f) < 0.2f,
                 qPrintable(u"%1 / %2"_s.arg(top).arg(bottom)));

        // Turning decoded pixels follows the decoder's own rule, orientation by orientation.
        const QByteArray plain = encodeSdr(makeSdr(6, 4));
        const ImageBuffer upright = decodeUltraHdr(plain, { 1.0, false }).image;
        for (int o = 1; o <= 8; ++o) {
            const QByteArray turned = insertAfterSoi(plain, exifOrientationSegment(o));
            QVERIFY2(applyExifOrientation(upright.clone(), o)
                         == decodeUltraHdr(turned, { 1.0, false }).image,
                     qPrintable(u"orientation %1"_s.arg(o)));
        }
    }
    void encodingFromJpegKeepsItsExif()
    {
        const QByteArray base
            = insertAfterSoi(encodeSdr(makeSdr(16, 16)), exifOrientationSegment(3));
        const UltraHdrEncodeResult encoded
            = encodeUltraHdr(QByteArrayView(base), makeHdr(base, false));
        QVERIFY(encoded.error.isEmpty());
        QCOMPARE(inspectUltraHdr(encoded.bytes).orientation, 3);
        // The primary alone is still an ordinary JPEG with our blocks inside.
        const JpegStream primary = walkJpeg(encoded.bytes);
        QVERIFY(primary.complete);
        QVERIFY(!findAppPayload(encoded.bytes, primary, jpeg::APP2, jpeg::mpf()).isEmpty());
    }
    void lowHeadroomGivesTheSdrRendition()
    {
        const QByteArray sdr = encodeSdr(makeSdr(24, 16));
        const UltraHdrEncodeResult encoded
            = encodeUltraHdr(QByteArrayView(sdr), makeHdr(sdr, false));
        const UltraHdrDecodeResult atOne = decodeUltraHdr(encoded.bytes, { 1.0 });
        QVERIFY(!atOne.gainMapApplied);
        QCOMPARE(atOne.weight, 0.0);
        QCOMPARE(atOne.image, decodeUltraHdr(sdr).image);
        const double middle
            = (encoded.metadata.hdrCapacityMinLog2 + encoded.metadata.hdrCapacityMaxLog2) / 2;
        const UltraHdrDecodeResult half = decodeUltraHdr(encoded.bytes, { std::exp2(middle) });
        QVERIFY(half.gainMapApplied);
        QCOMPARE(half.weight, 0.5);
    }
};

void TestUltraHdrCodec::isoBlockRejectsBadBlocks_data()
{
    QTest::addColumn<QByteArray>("block");
    const QByteArray good = serializeIsoBlock(sampleMetadata(1));
    QByteArray zeroDenominator = good;
    zeroDenominator.replace(9, 4, QByteArray(4, '\0'));
    QByteArray newer = good;
    newer[1] = 1;
    QByteArray zeroGamma = good;
    zeroGamma.replace(37, 4, QByteArray(4, '\0'));
    QByteArray maxBelowMin = good;
    maxBelowMin.replace(29, 4, QByteArray("\xF0\x00\x00\x00", 4)); // -16
    QByteArray hdrBase = good;
    hdrBase[4] = char(quint8(hdrBase[4]) | 0x04);
    QTest::newRow("zero denominator") << zeroDenominator;
    QTest::newRow("minimum version 1") << newer;
    QTest::newRow("truncated") << good.first(60);
    QTest::newRow("trailing bytes from a version-0 writer") << QByteArray(good + "x");
    QTest::newRow("gamma zero") << zeroGamma;
    QTest::newRow("max below min") << maxBelowMin;
    QTest::newRow("base rendition is HDR") << hdrBase;
    QTest::newRow("three bytes") << QByteArray(3, '\0');
}

void TestUltraHdrCodec::xmpReadsAttributeAndElementFormsWithAnyPrefix()
{
    const QByteArray attributes = gainMapXmp(sampleMetadata(1));
    std::optional<GainMapMetadata> m = gainMapMetadataFromXmp(parseXmp(attributes), nullptr);
    QVERIFY(m);
    QVERIFY(sameValues(*m, sampleMetadata(1)));

    const QByteArray elements = gainMapXmp(sampleMetadata(3));
    QVERIFY(elements.contains("<rdf:Seq>"));
    m = gainMapMetadataFromXmp(parseXmp(elements), nullptr);
    QVERIFY(m);
    QCOMPARE(m->channelCount, 3);
    QVERIFY(sameValues(*m, sampleMetadata(3)));

    // Another prefix, a scalar as element text, an xpacket wrapper and NUL padding.
    const QByteArray other = R"(<?xpacket begin="" id="W5M0MpCehiHzreSzNTczkc9d"?>
<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#">
<rdf:Description xmlns:g="http://ns.adobe.com/hdr-gain-map/1.0/" g:Version="1.0" g:HDRCapacityMax="3">
<g:GainMapMax>3</g:GainMapMax></rdf:Description></rdf:RDF></x:xmpmeta>
<?xpacket end="w"?>)"
        + QByteArray(5, '\0');
    m = gainMapMetadataFromXmp(parseXmp(other), nullptr);
    QVERIFY(m);
    QCOMPARE(m->channels[0].maxLog2, 3.0);
    QCOMPARE(m->hdrCapacityMaxLog2, 3.0);
    QCOMPARE(m->source, GainMapMetadataSource::Xmp);
}

void TestUltraHdrCodec::xmpRejectsUnusableValues_data()
{
    QTest::addColumn<QByteArray>("properties");
    QTest::newRow("nan") << QByteArray(R"(h:GainMapMax="nan" h:HDRCapacityMax="2")");
    QTest::newRow("infinity") << QByteArray(R"(h:GainMapMax="inf" h:HDRCapacityMax="2")");
    QTest::newRow("not a number") << QByteArray(R"(h:GainMapMax="2x" h:HDRCapacityMax="2")");
    QTest::newRow("missing max") << QByteArray(R"(h:HDRCapacityMax="2")");
    QTest::newRow("missing capacity") << QByteArray(R"(h:GainMapMax="2")");
    QTest::newRow("max below min")
        << QByteArray(R"(h:GainMapMin="3" h:GainMapMax="2" h:HDRCapacityMax="2")");
    QTest::newRow("negative gamma")
        << QByteArray(R"(h:Gamma="-1" h:GainMapMax="2" h:HDRCapacityMax="2")");
    QTest::newRow("capacities equal")
        << QByteArray(R"(h:GainMapMax="2" h:HDRCapacityMin="2" h:HDRCapacityMax="2")");
    QTest::newRow("HDR base") << QByteArray(
        R"(h:BaseRenditionIsHDR="True" h:GainMapMax="2" h:HDRCapacityMax="2")");
    QTest::newRow("two values") << QByteArray(
        R"(h:HDRCapacityMax="2"><h:GainMapMax><rdf:Seq><rdf:li>1</rdf:li><rdf:li>2</rdf:li></rdf:Seq></h:GainMapMax)");
}

void TestUltraHdrCodec::xmpRejectsUnusableValues()
{
    QFETCH(QByteArray, properties);
    const QByteArray xml
        = QByteArray(
              R"(<x:xmpmeta xmlns:x="adobe:ns:meta/"><rdf:RDF xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#"><rdf:Description xmlns:h="http://ns.adobe.com/hdr-gain-map/1.0/" )")
        + properties + (properties.endsWith("GainMapMax>") ? "" : ">")
        + "</rdf:Description></rdf:RDF></x:xmpmeta>";
    const XmpPacket packet = parseXmp(xml);
    QVERIFY2(packet.wellFormed, qPrintable(packet.error));
    QString why;
    QVERIFY(!gainMapMetadataFromXmp(packet, &why));
    QVERIFY(!why.isEmpty());
}

void TestUltraHdrCodec::xmpDefaultsApplyToAbsentValues()
{
    const QByteArray xml
        = R"(<rdf:Description xmlns:rdf="http://www.w3.org/1999/02/22-rdf-syntax-ns#" xmlns:hdrgm="http://ns.adobe.com/hdr-gain-map/1.0/" hdrgm:GainMapMax="1.5" hdrgm:HDRCapacityMax="1.5"/>)";
    const std::optional<GainMapMetadata> m = gainMapMetadataFromXmp(parseXmp(xml), nullptr);
    QVERIFY(m);
    QCOMPARE(m->channels[0].minLog2, 0.0);
    QCOMPARE(m->channels[0].gamma, 1.0);
    QCOMPARE(m->channels[0].offsetSdr, 1.0 / 64);
    QCOMPARE(m->channels[0].offsetHdr, 1.0 / 64);
    QCOMPARE(m->hdrCapacityMinLog2, 0.0);
    QCOMPARE(m->version, u"1.0"_s);
}

ORVANTA_TEST_GUILESS_MAIN(TestUltraHdrCodec)
#include "tst_ultrahdrcodec.moc"
