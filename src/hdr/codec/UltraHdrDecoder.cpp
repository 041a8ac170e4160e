// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/UltraHdrDecoder.h"

#include "hdr/codec/GainMapApplier.h"
#include "hdr/codec/HalfFloat.h"
#include "hdr/codec/JpegCodec.h"

#include <QFile>
#include <QThread>

#include <cmath>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <mutex>
#include <thread>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBandRows = 16;
constexpr int kBandCount = 8;

// Where source pixel (0, y) lands in the oriented output and how far, in
// pixels, the next pixel of the same source row lies from it.
struct OrientedRow
{
    qsizetype origin = 0;
    qsizetype step = 1;
};

OrientedRow orientedRow(int orientation, int y, int srcW, int srcH, qsizetype pitch)
{
    auto at = [pitch](qsizetype dx, qsizetype dy) { return dy * pitch + dx; };
    switch (orientation) {
    case 2:
        return { at(srcW - 1, y), -1 };
    case 3:
        return { at(srcW - 1, srcH - 1 - y), -1 };
    case 4:
        return { at(0, srcH - 1 - y), 1 };
    case 5:
        return { at(y, 0), pitch };
    case 6:
        return { at(srcH - 1 - y, 0), pitch };
    case 7:
        return { at(srcH - 1 - y, srcW - 1), -pitch };
    case 8:
        return { at(y, srcW - 1), -pitch };
    default:
        return { at(0, y), 1 };
    }
}

struct Band
{
    std::vector<std::uint8_t> rgb;
    int y0 = 0;
    int rows = 0;
};

// Hands decoded bands from the decoding thread to the converting threads and
// the emptied bands back, so memory stays at a fixed number of bands.
class BandQueue
{
public:
    explicit BandQueue(int width)
    {
        for (auto &band : m_bands) {
            band.rgb.resize(size_t(width) * 3 * kBandRows);
            m_free.push_back(&band);
        }
    }
    Band *takeFree()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_free.empty(); });
        Band *band = m_free.front();
        m_free.pop_front();
        return band;
    }
    void giveFree(Band *band)
    {
        {
            std::lock_guard lock(m_mutex);
            m_free.push_back(band);
        }
        m_changed.notify_all();
    }
    void push(Band *band)
    {
        {
            std::lock_guard lock(m_mutex);
            m_ready.push_back(band);
        }
        m_changed.notify_all();
    }
    void finish()
    {
        {
            std::lock_guard lock(m_mutex);
            m_finished = true;
        }
        m_changed.notify_all();
    }
    // A band waiting to be converted if more than `backlog` are, without blocking.
    Band *takeReadyIfBacklog(size_t backlog)
    {
        std::lock_guard lock(m_mutex);
        if (m_ready.size() <= backlog)
            return nullptr;
        Band *band = m_ready.front();
        m_ready.pop_front();
        return band;
    }
    // Next band to convert; nullptr once decoding has finished and all are taken.
    Band *takeReady()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_ready.empty() || m_finished; });
        if (m_ready.empty())
            return nullptr;
        Band *band = m_ready.front();
        m_ready.pop_front();
        return band;
    }

private:
    std::array<Band, kBandCount> m_bands;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Band *> m_free, m_ready;
    bool m_finished = false;
};

struct RowWriter
{
    const GainMapApplier &applier;
    uchar *bits; // the output's pixels, taken once before any thread starts
    qsizetype pitch; // output row length in pixels (8 bytes each)
    int orientation;
    int srcW, srcH;

    void convertBand(const Band &band) const
    {
        std::vector<float> linear(size_t(srcW) * 4);
        std::vector<float> scratch(size_t(applier.scratchSize()));
        std::vector<quint16> half(size_t(srcW) * 4);
        auto *base = reinterpret_cast<quint64 *>(bits); // one RGBA half pixel = 8 bytes
        for (int r = 0; r < band.rows; ++r) {
            const int y = band.y0 + r;
            applier.convertRow(band.rgb.data() + size_t(r) * srcW * 3, y, linear.data(),
                               scratch.data());
            const OrientedRow row = orientedRow(orientation, y, srcW, srcH, pitch);
            if (row.step == 1) {
                floatsToHalves(reinterpret_cast<quint16 *>(base + row.origin), linear.data(),
                               srcW * 4);
                continue;
            }
            floatsToHalves(half.data(), linear.data(), srcW * 4);
            const auto *pixels = reinterpret_cast<const quint64 *>(half.data());
            quint64 *dst = base + row.origin;
            for (int x = 0; x < srcW; ++x, dst += row.step)
                std::memcpy(dst, pixels + x, 8);
        }
    }
};

bool decodeMap(QByteArrayView data, const JpegStream &stream, qint64 maxPixels, GainMapPlane &map,
               QString &why)
{
    JpegDecoder decoder;
    JpegDecoder::Options options;
    options.output = JpegDecoder::Output::Native;
    options.maxPixels = maxPixels;
    if (!decoder.open(data.sliced(stream.start, stream.end - stream.start), options)) {
        why = u"gain map image cannot be decoded: "_s + decoder.error();
        return false;
    }
    map.width = decoder.width();
    map.height = decoder.height();
    map.components = decoder.components();
    const qsizetype stride = qsizetype(map.width) * map.components;
    map.pixels.resize(size_t(stride) * map.height);
    if (decoder.readRows(map.pixels.data(), stride, map.height) != map.height) {
        why = u"gain map image cannot be decoded: "_s + decoder.error();
        return false;
    }
    return true;
}

// Decodes the primary band by band on this thread while the helpers convert.
QString decodePrimary(JpegDecoder &decoder, const RowWriter &writer, int threads)
{
    const int width = decoder.width();
    const int height = decoder.height();
    BandQueue queue(width);
    auto convertAll = [&queue, &writer] {
        while (Band *band = queue.takeReady()) {
            writer.convertBand(*band);
            queue.giveFree(band);
        }
    };
    std::vector<std::thread> helpers;
    for (int i = 1; i < threads; ++i)
        helpers.emplace_back(convertAll);
    QString error;
    for (int y = 0; y < height;) {
        Band *band = queue.takeFree();
        const int rows = decoder.readRows(band->rgb.data(), qsizetype(width) * 3,
                                          std::min(kBandRows, height - y));
        if (rows <= 0) {
            error = u"primary image cannot be decoded: "_s + decoder.error();
            queue.giveFree(band);
            break;
        }
        band->y0 = y;
        band->rows = rows;
        y += rows;
        if (helpers.empty()) {
            writer.convertBand(*band);
            queue.giveFree(band);
            continue;
        }
        queue.push(band);
        // When converting is the slower half, the decoding thread takes a
        // share of it instead of waiting for a free band.
        if (Band *waiting = queue.takeReadyIfBacklog(size_t(helpers.size()))) {
            writer.convertBand(*waiting);
            queue.giveFree(waiting);
        }
    }
    queue.finish();
    convertAll();
    for (std::thread &helper : helpers)
        helper.join();
    return error;
}

} // namespace

float srgbToLinear(float v)
{
    return v <= 0.04045f ? v / 12.92f : std::pow((v + 0.055f) / 1.055f, 2.4f);
}

float linearToSrgb(float v)
{
    v = std::clamp(v, 0.0f, 1.0f);
    return v <= 0.0031308f ? v * 12.92f : 1.055f * std::pow(v, 1.0f / 2.4f) - 0.055f;
}

UltraHdrDecodeResult decodeUltraHdr(QByteArrayView data, const UltraHdrDecodeOptions &options)
{
    UltraHdrDecodeResult result;
    result.layout = inspectUltraHdr(data);
    const UltraHdrLayout &layout = result.layout;
    if (!layout.isJpeg()) {
        result.error = layout.error;
        return result;
    }
    result.gainMapIssue
        = options.applyGainMap ? layout.gainMapIssue() : u"gain map not requested"_s;

    GainMapPlane map;
    if (options.applyGainMap && layout.isUltraHdr()) {
        result.weight = layout.metadata->weightForHeadroom(options.displayHeadroom);
        if (result.weight <= 0.0)
            result.gainMapIssue = u"display headroom too low for the gain map"_s;
        else if (!decodeMap(data, *layout.gainMap, options.maxPixels, map, result.gainMapIssue))
            result.weight = 0.0;
    }

    JpegDecoder decoder;
    JpegDecoder::Options primaryOptions;
    primaryOptions.maxPixels = options.maxPixels;
    if (!decoder.open(data.sliced(0, layout.primary.end), primaryOptions)) {
        result.error = u"primary image cannot be decoded: "_s + decoder.error();
        return result;
    }
    const int srcW = decoder.width(), srcH = decoder.height();
    const bool swaps = layout.orientation >= 5;
    ImageBuffer image(swaps ? srcH : srcW, swaps ? srcW : srcH, PixelFormat::RgbaF16);
    if (image.isNull()) {
        result.error = u"not enough memory for the decoded image"_s;
        return result;
    }
    const bool applyMap = result.weight > 0.0;
    const GainMapApplier applier(srcW, srcH, applyMap ? &*layout.metadata : nullptr, result.weight,
                                 applyMap ? &map : nullptr, layout.baseToAlternate());
    const RowWriter writer { applier, image.bits(), image.stride() / 8, layout.orientation,
                             srcW,    srcH };
    const int threads
        = options.threads > 0 ? options.threads : std::max(1, QThread::idealThreadCount());
    const QString error = decodePrimary(decoder, writer, std::min(threads, 8));
    if (!error.isEmpty()) {
        result.error = error;
        return result;
    }
    result.image = std::move(image);
    result.gainMapApplied = applyMap;
    if (applyMap)
        result.gainMapIssue.clear();
    return result;
}

UltraHdrDecodeResult decodeUltraHdrFile(const QString &path, const UltraHdrDecodeOptions &options)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        UltraHdrDecodeResult result;
        result.error = u"cannot open file: "_s + file.errorString();
        return result;
    }
    const QByteArray bytes = file.readAll();
    return decodeUltraHdr(bytes, options);
}

} // namespace orvanta
