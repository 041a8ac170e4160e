// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/UltraHdrWriter.h"

#include "hdr/codec/IsoGainMapBlock.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/JpegSegments.h"
#include "hdr/codec/MpfIndex.h"
#include "hdr/codec/ParallelRanges.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/XmpGainMap.h"

#include <QtCore/qfloat16.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// Gains beyond these are clipped: no display shows 2^16 over SDR white and the
// bound keeps the log domain finite where the SDR pixel is black.
constexpr float kMinLog2Gain = -16.0f;
constexpr float kMaxLog2Gain = 16.0f;
// The narrowest range the map may span; a flat map would divide by zero.
constexpr double kMinRange = 1.0 / 64.0;

bool decodeSdr(QByteArrayView jpegBytes, ImageBuffer &out, QString &error)
{
    JpegDecoder decoder;
    if (!decoder.open(jpegBytes, {})) {
        error = u"SDR picture cannot be decoded: "_s + decoder.error();
        return false;
    }
    out = ImageBuffer(decoder.width(), decoder.height(), PixelFormat::Rgb8);
    if (out.isNull()) {
        error = u"not enough memory for the SDR picture"_s;
        return false;
    }
    if (decoder.readRows(out.bits(), out.stride(), out.height()) != out.height()) {
        error = u"SDR picture cannot be decoded: "_s + decoder.error();
        return false;
    }
    return true;
}

HdrRowSource rowsOf(const ImageBuffer &hdr)
{
    return [&hdr](int y, float *rgba) {
        if (hdr.format() == PixelFormat::RgbaF16)
            qFloatFromFloat16(rgba, hdr.rowAs<qfloat16>(y), qsizetype(hdr.width()) * 4);
        else
            std::memcpy(rgba, hdr.row(y), size_t(hdr.width()) * 16);
        return true;
    };
}

float luminance(float r, float g, float b)
{
    return 0.2126f * r + 0.7152f * g + 0.0722f * b;
}

// sRGB to the alternate space's primaries, when the options name one.
std::optional<std::array<float, 9>> alternateMatrix(const UltraHdrEncodeOptions &options)
{
    if (!options.alternateGamut)
        return std::nullopt;
    const Matrix3 m
        = multiply(*inverse(gamutToXyz(*options.alternateGamut)), gamutToXyz(Gamut::Srgb));
    std::array<float, 9> f;
    for (int i = 0; i < 9; ++i)
        f[i] = float(m[i]);
    return f;
}

void toSpace(const std::array<float, 9> &m, float &r, float &g, float &b)
{
    const float in[3] = { r, g, b };
    r = m[0] * in[0] + m[1] * in[1] + m[2] * in[2];
    g = m[3] * in[0] + m[4] * in[1] + m[5] * in[2];
    b = m[6] * in[0] + m[7] * in[1] + m[8] * in[2];
}

// Sums of log2 gains per map cell, channel by channel, and pixel counts per
// cell. Cell k covers the pixels whose index times map size over picture size
// rounds down to k: the same grid the decoder samples, also when the size is
// not a multiple of the scale.
struct CellSums
{
    int mapW = 0, mapH = 0, channels = 1;
    std::vector<float> sums;
    std::vector<int> counts;
};

// Adds the pixel rows of map rows [cellY0, cellY1) to `cells`. Bands of map
// rows never share a cell, so threads can fill bands of their own.
bool sumCellRows(const ImageBuffer &sdr, const HdrRowSource &rows,
                 const UltraHdrEncodeOptions &options, int cellY0, int cellY1, CellSums &cells)
{
    std::array<float, 256> linear {};
    for (int v = 0; v < 256; ++v)
        linear[v] = srgbToLinear(float(v) / 255.0f);
    const int width = sdr.width(), height = sdr.height(), mapW = cells.mapW, mapH = cells.mapH;
    const int channels = cells.channels;
    std::vector<int> cellX(static_cast<size_t>(width));
    for (int x = 0; x < width; ++x)
        cellX[x] = int(qint64(x) * mapW / width);
    std::vector<float> row(static_cast<size_t>(width) * 4);
    const float os = float(options.offsetSdr), oh = float(options.offsetHdr);
    const std::optional<std::array<float, 9>> toAlternate = alternateMatrix(options);
    // The first pixel row whose cell row is `cy`: ceil(cy * height / mapH).
    auto firstRow = [&](int cy) { return int((qint64(cy) * height + mapH - 1) / mapH); };
    for (int y = firstRow(cellY0); y < firstRow(cellY1); ++y) {
        if (!rows(y, row.data()))
            return false;
        const std::uint8_t *s = sdr.row(y);
        const size_t cellRow = size_t(qint64(y) * mapH / height) * mapW;
        for (int x = 0; x < width; ++x) {
            float *h = row.data() + 4 * x;
            float sr = linear[s[3 * x]], sg = linear[s[3 * x + 1]], sb = linear[s[3 * x + 2]];
            if (toAlternate) {
                toSpace(*toAlternate, sr, sg, sb);
                toSpace(*toAlternate, h[0], h[1], h[2]);
            }
            ++cells.counts[cellRow + cellX[x]];
            float *cell = cells.sums.data() + (cellRow + cellX[x]) * channels;
            if (channels == 1) {
                const float hy = std::max(0.0f, luminance(h[0], h[1], h[2]));
                const float gain = std::log2((hy + oh) / (luminance(sr, sg, sb) + os));
                cell[0] += std::clamp(gain, kMinLog2Gain, kMaxLog2Gain);
                continue;
            }
            const float sdrValues[3] = { sr, sg, sb };
            for (int c = 0; c < 3; ++c) {
                const float gain = std::log2((std::max(0.0f, h[c]) + oh) / (sdrValues[c] + os));
                cell[c] += std::clamp(gain, kMinLog2Gain, kMaxLog2Gain);
            }
        }
    }
    return true;
}

// Mean log2 gain of every map cell; empty when the row source gave up.
std::vector<float> cellGains(const ImageBuffer &sdr, const HdrRowSource &rows, int mapW, int mapH,
                             int channels, const UltraHdrEncodeOptions &options)
{
    CellSums cells { mapW, mapH, channels, std::vector<float>(size_t(mapW) * mapH * channels, 0.0f),
                     std::vector<int>(size_t(mapW) * mapH, 0) };
    // Bands of map rows; a band that fails clears the flag of its first row.
    std::vector<char> ok(size_t(mapH), 1);
    inRanges(size_t(mapH), options.threads, [&](size_t first, size_t last) {
        ok[first] = sumCellRows(sdr, rows, options, int(first), int(last), cells);
    });
    if (std::find(ok.begin(), ok.end(), 0) != ok.end())
        return {};
    std::vector<float> &sums = cells.sums;
    for (size_t i = 0; i < cells.counts.size(); ++i)
        for (int c = 0; c < channels; ++c)
            sums[i * channels + c] /= float(std::max(1, cells.counts[i]));
    return std::move(sums);
}

GainMapMetadata metadataFor(const std::vector<float> &gains, int channels,
                            const UltraHdrEncodeOptions &options)
{
    GainMapMetadata m;
    m.channelCount = channels;
    double capacityMin = 1e9, capacityMax = 0.0;
    for (int c = 0; c < channels; ++c) {
        float lo = kMaxLog2Gain, hi = kMinLog2Gain;
        for (size_t i = size_t(c); i < gains.size(); i += size_t(channels)) {
            lo = std::min(lo, gains[i]);
            hi = std::max(hi, gains[i]);
        }
        GainMapChannel &ch = m.channels[c];
        ch.minLog2 = quantizeForIso(lo);
        ch.maxLog2 = quantizeForIso(std::max<double>(hi, ch.minLog2 + kMinRange));
        ch.gamma = quantizeForIso(options.gamma);
        ch.offsetSdr = quantizeForIso(options.offsetSdr);
        ch.offsetHdr = quantizeForIso(options.offsetHdr);
        capacityMin = std::min(capacityMin, std::max(0.0, ch.minLog2));
        capacityMax = std::max(capacityMax, ch.maxLog2);
    }
    m.hdrCapacityMinLog2 = quantizeForIso(capacityMin);
    m.hdrCapacityMaxLog2 = quantizeForIso(std::max(capacityMax, capacityMin + kMinRange));
    return m;
}

QByteArray encodeMap(const std::vector<float> &gains, int mapW, int mapH, int channels,
                     const GainMapMetadata &m, int quality)
{
    std::vector<std::uint8_t> bytes(gains.size());
    for (int c = 0; c < channels; ++c) {
        const GainMapChannel &ch = m.channel(c);
        const double lo = ch.minLog2, perStop = 1.0 / (ch.maxLog2 - ch.minLog2);
        for (size_t i = size_t(c); i < gains.size(); i += size_t(channels)) {
            const double t = std::clamp((gains[i] - lo) * perStop, 0.0, 1.0);
            // pow(t, 1) is t exactly; skipping it saves a call per sample of the usual map.
            const double encoded = ch.gamma == 1.0 ? t : std::pow(t, ch.gamma);
            bytes[i] = std::uint8_t(encoded * 255.0 + 0.5);
        }
    }
    // Each channel of a multi-channel map is its own gain: no chroma subsampling.
    return encodeJpeg(bytes.data(), mapW, mapH, channels, qsizetype(mapW) * channels, quality,
                      true);
}

bool isDropped(QByteArrayView data, const JpegSegment &segment)
{
    const QByteArrayView payload = data.sliced(segment.payloadOffset, segment.payloadSize);
    if (segment.marker == jpeg::APP1)
        return payload.startsWith(jpeg::xmp());
    if (segment.marker == jpeg::APP2)
        return payload.startsWith(jpeg::mpf()) || payload.startsWith(jpeg::iso());
    return false;
}

// The image with `inserted` placed after its leading JFIF/Exif segments and
// its own XMP, MPF and ISO blocks removed. `insertAt` receives the position.
// Empty unless the image is whole: a frame header, a scan and its end.
QByteArray rebuildImage(QByteArrayView data, const QByteArray &inserted, qsizetype *insertAt)
{
    const JpegStream stream = walkJpeg(data, 0);
    const bool scanned = std::any_of(stream.segments.cbegin(), stream.segments.cend(),
                                     [](const JpegSegment &s) { return s.marker == jpeg::SOS; });
    if (!stream.complete || stream.width <= 0 || !scanned)
        return {};
    QByteArray out("\xFF\xD8", 2);
    bool insertedYet = false;
    auto insert = [&] {
        if (insertAt)
            *insertAt = out.size();
        out += inserted;
        insertedYet = true;
    };
    qsizetype scanStart = stream.end;
    for (const JpegSegment &segment : stream.segments) {
        if (segment.marker == jpeg::SOS) {
            scanStart = segment.offset;
            break;
        }
        const QByteArrayView payload = data.sliced(segment.payloadOffset, segment.payloadSize);
        const bool leading = segment.marker == jpeg::APP0
            || (segment.marker == jpeg::APP1 && payload.startsWith(jpeg::exif()));
        if (!leading && !insertedYet)
            insert();
        if (!isDropped(data, segment))
            out += data.sliced(segment.offset, segment.payloadSize + 4);
    }
    if (!insertedYet)
        insert();
    out += data.sliced(scanStart, stream.end - scanStart);
    return out;
}

// Metadata, map JPEG and file from the mean gains of every map cell.
UltraHdrEncodeResult encodeGains(QByteArrayView primary, const std::vector<float> &gains, int mapW,
                                 int mapH, int channels, const UltraHdrEncodeOptions &options)
{
    UltraHdrEncodeResult result;
    result.mapWidth = mapW;
    result.mapHeight = mapH;
    result.metadata = metadataFor(gains, channels, options);
    result.metadata.useBaseColourSpace = !options.alternateGamut;
    if (const QString why = result.metadata.validationError(); !why.isEmpty()) {
        result.error = u"gain map options invalid: "_s + why;
        return result;
    }
    const QByteArray map
        = encodeMap(gains, mapW, mapH, channels, result.metadata, options.mapQuality);
    UltraHdrAssembly assembly;
    if (options.writeXmp)
        assembly.xmp = result.metadata;
    if (options.writeIso)
        assembly.iso = result.metadata;
    if (options.alternateGamut)
        assembly.gainMapIcc = makeIccProfile(*options.alternateGamut);
    result.bytes = assembleUltraHdr(primary, map, assembly);
    if (result.bytes.isEmpty())
        result.error = u"the Ultra HDR file could not be assembled"_s;
    return result;
}

UltraHdrEncodeResult encodeFrom(QByteArrayView primary, const ImageBuffer &sdr,
                                const HdrRowSource &rows, const UltraHdrEncodeOptions &options)
{
    const int scale = std::clamp(options.mapScale, 1, 128);
    const int channels = options.multiChannel ? 3 : 1;
    const int mapW = (sdr.width() + scale - 1) / scale, mapH = (sdr.height() + scale - 1) / scale;
    const std::vector<float> gains = cellGains(sdr, rows, mapW, mapH, channels, options);
    if (gains.empty()) {
        UltraHdrEncodeResult result;
        result.error = u"the HDR picture could not be read"_s;
        return result;
    }
    return encodeGains(primary, gains, mapW, mapH, channels, options);
}

} // namespace

UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, int width, int height,
                                    const HdrRowSource &rows, const UltraHdrEncodeOptions &options,
                                    const ImageBuffer *decodedSdr)
{
    UltraHdrEncodeResult result;
    ImageBuffer decodedHere;
    if (!decodedSdr) {
        if (!decodeSdr(sdrJpeg, decodedHere, result.error))
            return result;
        decodedSdr = &decodedHere;
    }
    const ImageBuffer &sdr = *decodedSdr;
    if (width != sdr.width() || height != sdr.height()) {
        result.error = u"the HDR picture is %1×%2 but the SDR picture is %3×%4"_s.arg(width)
                           .arg(height)
                           .arg(sdr.width())
                           .arg(sdr.height());
        return result;
    }
    return encodeFrom(sdrJpeg, sdr, rows, options);
}

UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, const ImageBuffer &hdr,
                                    const UltraHdrEncodeOptions &options)
{
    if (hdr.format() != PixelFormat::RgbaF16 && hdr.format() != PixelFormat::RgbaF32) {
        UltraHdrEncodeResult result;
        result.error = u"the HDR picture is not in floating point"_s;
        return result;
    }
    return encodeUltraHdr(sdrJpeg, hdr.width(), hdr.height(), rowsOf(hdr), options);
}

UltraHdrEncodeResult encodeUltraHdr(const ImageBuffer &sdr, const ImageBuffer &hdr,
                                    const UltraHdrEncodeOptions &options)
{
    UltraHdrEncodeResult result;
    if (sdr.isNull() || sdr.format() != PixelFormat::Rgb8) {
        result.error = u"the SDR picture is empty or not 8-bit RGB"_s;
        return result;
    }
    const QByteArray primary
        = encodeJpeg(sdr.bits(), sdr.width(), sdr.height(), 3, sdr.stride(), options.baseQuality);
    if (primary.isEmpty()) {
        result.error = u"the SDR picture could not be encoded"_s;
        return result;
    }
    // Gains are measured against the primary as a reader will decode it, so
    // the JPEG loss of the base is compensated by the map.
    return encodeUltraHdr(QByteArrayView(primary), hdr, options);
}

UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, GainMapCells cells,
                                    const UltraHdrEncodeOptions &options)
{
    const qint64 size = qint64(cells.width) * cells.height * cells.channels;
    if (cells.width <= 0 || cells.height <= 0 || (cells.channels != 1 && cells.channels != 3)
        || size != qint64(cells.log2Gains.size())) {
        UltraHdrEncodeResult result;
        result.error = u"the gain map's size does not match its values"_s;
        return result;
    }
    for (float &gain : cells.log2Gains)
        gain = std::isnan(gain) ? 0.0f : std::clamp(gain, kMinLog2Gain, kMaxLog2Gain);
    return encodeGains(sdrJpeg, cells.log2Gains, cells.width, cells.height, cells.channels,
                       options);
}

QByteArray assembleUltraHdr(QByteArrayView primaryJpeg, QByteArrayView gainMapJpeg,
                            const UltraHdrAssembly &assembly)
{
    QByteArray mapBlocks;
    if (assembly.xmp)
        mapBlocks += makeAppSegment(jpeg::APP1, jpeg::xmp(), gainMapXmp(*assembly.xmp));
    if (assembly.iso)
        mapBlocks += makeAppSegment(jpeg::APP2, jpeg::iso(), serializeIsoBlock(*assembly.iso));
    if (!assembly.gainMapIcc.isEmpty())
        mapBlocks += iccSegments(assembly.gainMapIcc);
    const QByteArray map = rebuildImage(gainMapJpeg, mapBlocks, nullptr);
    if (map.isEmpty())
        return {};

    QByteArray primaryBlocks;
    if (assembly.xmp)
        primaryBlocks += makeAppSegment(jpeg::APP1, jpeg::xmp(), primaryXmp(map.size()));
    if (assembly.iso)
        primaryBlocks += makeAppSegment(jpeg::APP2, jpeg::iso(), isoVersionBlock());
    const qsizetype mpfAt = primaryBlocks.size();
    if (assembly.mpf)
        primaryBlocks += makeAppSegment(jpeg::APP2, jpeg::mpf(), QByteArray(kMpfPayloadSize, '\0'));
    qsizetype insertAt = 0;
    QByteArray primary = rebuildImage(primaryJpeg, primaryBlocks, &insertAt);
    if (primary.isEmpty())
        return {};
    if (assembly.mpf) {
        // Offsets inside the MPF index count from its byte-order mark.
        const qsizetype header = insertAt + mpfAt + 4 + jpeg::mpf().size();
        const QByteArray index = buildMpf(quint32(primary.size()), quint32(map.size()),
                                          quint32(primary.size() - header));
        primary.replace(header, index.size(), index);
    }
    return primary + map;
}

} // namespace orvanta
