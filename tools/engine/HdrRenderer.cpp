// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "HdrRenderer.h"

#include "ColourMatch.h"
#include "RawDevelop.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/ParallelRanges.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "media/ExivAdapter.h"

#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <array>
#include <cmath>
#include <future>
#include <opencv2/imgproc.hpp>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

constexpr double kHeadroomStops = 3.0; // the most the highlight part may add
constexpr float kOffset = 1.0f / 64.0f; // the writer's SDR/HDR offsets
constexpr int kWorkLongSide = 1500; // gains are worked out at about this size

double smoothstep(double e0, double e1, double x)
{
    const double t = std::clamp((x - e0) / (e1 - e0), 0.0, 1.0);
    return t * t * (3.0 - 2.0 * t);
}

// sRGB code value to linear light, for all 256 codes.
const std::array<float, 256> &srgbTable()
{
    static const std::array<float, 256> table = [] {
        std::array<float, 256> t {};
        for (int i = 0; i < 256; ++i)
            t[i] = srgbToLinear(i / 255.0f);
        return t;
    }();
    return table;
}

float luminance(float r, float g, float b)
{
    return 0.2126f * r + 0.7152f * g + 0.0722f * b;
}

ImageBuffer decodeJpeg(const QByteArray &bytes, int scale, QString &error)
{
    JpegDecoder decoder;
    if (!decoder.open(bytes, { JpegDecoder::Output::Rgb, scale, false, 1ll << 28 })) {
        error = u"JPG: "_s + decoder.error();
        return {};
    }
    ImageBuffer image(decoder.width(), decoder.height(), PixelFormat::Rgb8);
    if (image.isNull()) {
        error = u"JPG: not enough memory"_s;
        return {};
    }
    while (decoder.rowsRead() < decoder.height()) {
        const int row = decoder.rowsRead();
        if (decoder.readRows(image.row(row), image.stride(), decoder.height() - row) <= 0) {
            error = u"JPG: "_s + decoder.error();
            return {};
        }
    }
    return image;
}

// Per work pixel: the linear SDR colour and the exposure-matched RAW colour.
struct WorkPlanes
{
    int width = 0, height = 0;
    std::vector<float> sdr; // RGB, linear
    std::vector<float> raw; // RGB, linear, scaled to the JPG's exposure
    std::vector<float> brightness; // brightest SDR channel, encoded 0..1
};

WorkPlanes makePlanes(const ImageBuffer &sdr8, const ImageBuffer &raw64, int threads)
{
    WorkPlanes p;
    p.width = sdr8.width();
    p.height = sdr8.height();
    const size_t n = size_t(p.width) * p.height;
    p.sdr.resize(n * 3);
    p.raw.resize(n * 3);
    p.brightness.resize(n);
    const auto &lut = srgbTable();
    inRanges(size_t(p.height), threads, [&](size_t y0, size_t y1) {
        for (int y = int(y0); y < int(y1); ++y) {
            const uchar *s = sdr8.row(y);
            const quint16 *r = raw64.rowAs<quint16>(y);
            for (int x = 0; x < p.width; ++x) {
                const size_t i = size_t(y) * p.width + x;
                for (int c = 0; c < 3; ++c) {
                    p.sdr[i * 3 + c] = lut[s[x * 3 + c]];
                    p.raw[i * 3 + c] = r[x * 4 + c] / 65535.0f;
                }
                p.brightness[i] = std::max({ s[x * 3], s[x * 3 + 1], s[x * 3 + 2] }) / 255.0f;
            }
        }
    });
    return p;
}

// Lift of the shadows when the frame is back-lit: a bright surround with a
// large dark subject. Returns the fill strength in stops (0 when not back-lit).
double backlitStrength(const WorkPlanes &p)
{
    std::vector<float> lum(p.brightness.size());
    for (size_t i = 0; i < lum.size(); ++i)
        lum[i] = luminance(p.sdr[i * 3], p.sdr[i * 3 + 1], p.sdr[i * 3 + 2]);
    std::sort(lum.begin(), lum.end());
    const float p25 = lum[lum.size() / 4], p90 = lum[lum.size() * 9 / 10];
    if (p90 < 0.35f || p25 > 0.06f)
        return 0.0;
    return 0.8 * smoothstep(6.0, 20.0, p90 / std::max(p25, 0.002f));
}

struct GainPlanes
{
    std::vector<float> factor; // per channel: (hdr + offset) / (sdr + offset)
    std::vector<float> lift; // stops, for the mask and the peak
    double peakStops = 0.0;
};

// The gain factors, lift and HDR luminance of work pixel `i`.
void gainAt(const WorkPlanes &p, const Tuning &t, const ImageBuffer &skin, double fill, size_t i,
            GainPlanes &g, std::vector<float> &peaks)
{
    const float *s = &p.sdr[i * 3], *r = &p.raw[i * 3];
    const float ys = luminance(s[0], s[1], s[2]), yr = luminance(r[0], r[1], r[2]);
    const double excess = std::max(0.0, std::log2((yr + 1e-4) / (ys + 1e-4)));
    double lift = liftStops(t, ys, excess, p.brightness[i]);
    if (!skin.isNull())
        lift *= 1.0
            - std::clamp(t.skinDamp, 0.0, 1.0) * skin.row(int(i / p.width))[i % p.width] / 255.0;
    if (fill > 0.0) {
        const double dark = 1.0 - smoothstep(0.0, 0.18, ys);
        lift += fill * dark * dark;
    }
    g.lift[i] = float(lift);
    // Colour: where the JPG clipped, take the hue from the RAW; lifted
    // highlights keep (or gain) saturation by the chroma value.
    const double clip = smoothstep(0.85, 1.0, p.brightness[i]);
    const double hiShare = std::clamp(lift / kHeadroomStops, 0.0, 1.0);
    const double yHdr = ys * std::exp2(lift);
    for (int c = 0; c < 3; ++c) {
        const double cs = s[c] / std::max(ys, 1e-5f), cr = r[c] / std::max(yr, 1e-5f);
        double chroma = cs + (cr - cs) * clip;
        chroma = 1.0 + (chroma - 1.0) * (1.0 + t.chromaBoost * hiShare);
        const double hdr = std::max(0.0, yHdr * chroma);
        g.factor[i * 3 + c] = float((hdr + kOffset) / (s[c] + kOffset));
    }
    peaks[i] = float(yHdr);
}

GainPlanes computeGains(const WorkPlanes &p, const Tuning &t, const ImageBuffer &skin, double fill,
                        int threads)
{
    GainPlanes g;
    const size_t n = p.brightness.size();
    g.factor.resize(n * 3);
    g.lift.resize(n);
    std::vector<float> peaks(n);
    // Each pixel depends on its own values only, so ranges run side by side.
    inRanges(n, threads, [&](size_t begin, size_t end) {
        for (size_t i = begin; i < end; ++i)
            gainAt(p, t, skin, fill, i, g, peaks);
    });
    auto at = peaks.begin() + std::min(peaks.size() - 1, peaks.size() * 999 / 1000);
    std::nth_element(peaks.begin(), at, peaks.end());
    g.peakStops = std::max(0.0, std::log2(double(*at)));
    return g;
}

// The map's gains from the work-size factors: log2 of each factor (per
// colour), or of the luminance ratio they give (one channel), at the work
// size, then averaged (or interpolated) to the map's size. The work picture is
// the camera JPG decoded at 1/scale, so the map still measures against what a
// reader decodes.
GainMapCells mapGains(const WorkPlanes &p, const GainPlanes &g, int channels, int mapW, int mapH,
                      int threads)
{
    cv::Mat work(p.height, p.width, channels == 3 ? CV_32FC3 : CV_32FC1);
    float *out = work.ptr<float>();
    inRanges(p.brightness.size(), threads, [&](size_t begin, size_t end) {
        for (size_t i = begin; i < end; ++i) {
            const float *f = &g.factor[i * 3];
            if (channels == 3) {
                for (int c = 0; c < 3; ++c)
                    out[i * 3 + c] = std::log2(f[c]);
                continue;
            }
            const float *s = &p.sdr[i * 3];
            float hdr[3];
            for (int c = 0; c < 3; ++c)
                hdr[c] = std::max(0.0f, (s[c] + kOffset) * f[c] - kOffset);
            out[i] = std::log2((luminance(hdr[0], hdr[1], hdr[2]) + kOffset)
                               / (luminance(s[0], s[1], s[2]) + kOffset));
        }
    });
    GainMapCells cells { mapW, mapH, channels, std::vector<float>(size_t(mapW) * mapH * channels) };
    cv::Mat map(mapH, mapW, work.type(), cells.log2Gains.data());
    if (mapW == p.width && mapH == p.height)
        work.copyTo(map);
    else
        cv::resize(work, map, map.size(), 0, 0, mapW < p.width ? cv::INTER_AREA : cv::INTER_LINEAR);
    return cells;
}

ImageBuffer maskImage(const std::vector<float> &values, int w, int h, double full)
{
    ImageBuffer mask(w, h, PixelFormat::Gray8);
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < w; ++x)
            mask.row(y)[x]
                = uchar(std::clamp(values[size_t(y) * w + x] / full * 255.0, 0.0, 255.0));
    return mask;
}

// Grey as the eye sees it: luminance of the linear colour, encoded again.
ImageBuffer greyOf(const ImageBuffer &rgb)
{
    ImageBuffer grey(rgb.width(), rgb.height(), PixelFormat::Gray8);
    const auto &lut = srgbTable();
    static const std::array<uchar, 4096> encode = [] {
        std::array<uchar, 4096> t {};
        for (int i = 0; i < 4096; ++i)
            t[i] = uchar(std::lround(linearToSrgb(i / 4095.0f) * 255.0f));
        return t;
    }();
    for (int y = 0; y < grey.height(); ++y) {
        const uchar *s = rgb.row(y);
        uchar *out = grey.row(y);
        for (int x = 0; x < grey.width(); ++x) {
            const float lum = luminance(lut[s[3 * x]], lut[s[3 * x + 1]], lut[s[3 * x + 2]]);
            out[x] = encode[size_t(std::clamp(lum, 0.0f, 1.0f) * 4095.0f + 0.5f)];
        }
    }
    return grey;
}

// The skin weight per pixel of `work`, in its stored order. Faces are looked
// for upright, as the photo is shown.
ImageBuffer skinOf(const RenderRequest::SkinFinder &findSkin, const ImageBuffer &work,
                   int orientation, int *faces)
{
    const ImageBuffer turned
        = orientation > 1 ? applyExifOrientation(work.clone(), orientation) : ImageBuffer();
    const ImageBuffer &upright = orientation > 1 ? turned : work;
    ImageBuffer skin = findSkin(greyOf(upright), upright, faces);
    if (!skin.isNull())
        skin = applyExifOrientation(std::move(skin), inverseOrientation(orientation));
    return skin;
}

const char *fitName(ColourFit::Kind kind)
{
    switch (kind) {
    case ColourFit::Kind::Matrix:
        return "matrix";
    case ColourFit::Kind::PerChannel:
        return "per_channel";
    case ColourFit::Kind::ExposureOnly:
        break;
    }
    return "exposure";
}

// Brings the RAW to the JPG's colours, so that the gains only carry what the
// JPG clipped, never the difference between two colour renderings.
bool matchColours(WorkPlanes &p, double baselineStops, int threads, RenderResult &result)
{
    const size_t n = p.brightness.size();
    const ColourFit fit
        = fitColour(p.sdr.data(), p.raw.data(), p.brightness.data(), n, baselineStops);
    result.colourResidual = fit.residualStops;
    result.colourFit = QString::fromLatin1(fitName(fit.kind));
    if (!fit.matched) {
        result.failure = u"colour_unmatched"_s;
        result.error = u"cannot match the JPG to the RAW: "_s + fit.issue;
        return false;
    }
    inRanges(n, threads, [&](size_t begin, size_t end) {
        applyColour(fit, p.raw.data() + begin * 3, end - begin);
    });
    return true;
}

} // namespace

double liftStops(const Tuning &t, double sdrLum, double excessStops, double brightness)
{
    // Most pixels are dark enough for both parts to be zero; the powers are
    // worked out only where they count.
    // Bright mid-tones: up to midTarget stops at white, spread by powerMid.
    const double tm = std::clamp((sdrLum - 0.18) / 0.82, 0.0, 1.0);
    const double mid
        = tm > 0.0 ? t.midTarget * std::pow(tm, 1.0 / std::max(t.powerMid, 0.05)) : 0.0;
    // Highlights the RAW holds above the JPG: a soft knee toward the headroom.
    const double gate = smoothstep(0.55, 0.95, brightness);
    double hi = 0.0;
    if (gate > 0.0 && excessStops > 0.0) {
        const double x = excessStops / kHeadroomStops;
        const double p = std::max(t.powerHi, 0.1);
        hi = kHeadroomStops * x / std::pow(1.0 + std::pow(x, p), 1.0 / p);
    }
    return std::max(0.0, t.scale * (mid + hi * gate));
}

RenderResult renderPair(const RenderRequest &request)
{
    RenderResult result;
    QElapsedTimer clock;
    clock.start();
    const auto lap = [&](const QString &stage) {
        result.stages.append({ stage, clock.nsecsElapsed() / 1e9 });
        clock.restart();
    };
    QFile jpgFile(request.jpgPath);
    if (!jpgFile.open(QIODevice::ReadOnly)) {
        result.failure = u"jpg_unreadable"_s;
        result.error = u"cannot read the JPG: "_s + jpgFile.errorString();
        return result;
    }
    const QByteArray jpgBytes = jpgFile.readAll();
    // Gains are computed at about the gain map's own resolution; the camera
    // JPG is never decoded at full size, since its bytes are the primary.
    int scale = 1, fullWidth = 0, fullHeight = 0;
    {
        JpegDecoder header;
        if (!header.open(jpgBytes, {})) {
            result.failure = u"jpg_unreadable"_s;
            result.error = u"JPG: "_s + header.error();
            return result;
        }
        fullWidth = header.width();
        fullHeight = header.height();
        while (scale < 8
               && std::max(header.width(), header.height()) / (scale * 2) >= kWorkLongSide)
            scale *= 2;
    }
    const ImageBuffer work = decodeJpeg(jpgBytes, scale, result.error);
    if (work.isNull()) {
        result.failure = u"jpg_unreadable"_s;
        return result;
    }
    lap(u"jpg_decode"_s);
    const auto tags = exiv::readTags(request.jpgPath);
    const int orientation = tags && tags->orientation ? *tags->orientation : 1;
    lap(u"metadata"_s);

    // Faces are looked for beside the RAW's development: each needs only the
    // JPG. The development keeps this thread, whose heap its large buffers
    // return to from one photo to the next.
    struct Faces
    {
        ImageBuffer skin;
        int count = 0;
        double seconds = 0.0;
    };
    auto searching
        = std::async(request.threads > 1 ? std::launch::async : std::launch::deferred, [&] {
              Faces found;
              QElapsedTimer faceClock;
              faceClock.start();
              if (request.findSkin)
                  found.skin = skinOf(request.findSkin, work, orientation, &found.count);
              found.seconds = faceClock.nsecsElapsed() / 1e9;
              return found;
          });
    RawDevelopment raw = developRaw(request.rawPath, work, orientation, request.threads);
    Faces faces = searching.get();
    ImageBuffer skin = std::move(faces.skin);
    result.faces = faces.count;
    result.stages.append({ u"faces"_s, faces.seconds });
    if (!raw.error.isEmpty()) {
        result.failure = u"raw_unreadable"_s;
        result.error = raw.error;
        return result;
    }
    result.rawClipPct = raw.clipPct;
    result.stages.append({ u"raw_decode"_s, raw.decodeSec });
    result.stages.append({ u"develop"_s, raw.developSec });
    result.stages.append({ u"align"_s, raw.alignSec });
    clock.restart();
    WorkPlanes planes = makePlanes(work, raw.image, request.threads);
    raw.image = ImageBuffer();
    if (!matchColours(planes, raw.baselineStops, request.threads, result))
        return result;
    lap(u"colour_fit"_s);
    const double fill = request.backlitFill ? backlitStrength(planes) : 0.0;
    result.backlit = fill > 0.0;
    const GainPlanes gains = computeGains(planes, request.tuning, skin, fill, request.threads);
    result.peakStops = gains.peakStops;
    if (request.wantMasks) {
        result.gainMask = maskImage(gains.lift, planes.width, planes.height, 4.0);
        result.skinMask = skin.isNull()
            ? ImageBuffer(work.width(), work.height(), PixelFormat::Gray8)
            : skin.clone();
        if (skin.isNull())
            result.skinMask.fill(0);
    }
    UltraHdrEncodeOptions options;
    const int channels = request.tuning.chromaBoost > 0.001 ? 3 : 1;
    const int mapW = (fullWidth + options.mapScale - 1) / options.mapScale;
    const int mapH = (fullHeight + options.mapScale - 1) / options.mapScale;
    GainMapCells cells = mapGains(planes, gains, channels, mapW, mapH, request.threads);
    lap(u"tone_gain"_s);
    const UltraHdrEncodeResult encoded = encodeUltraHdr(jpgBytes, std::move(cells), options);
    if (encoded.bytes.isEmpty()) {
        result.failure = u"encode_failed"_s;
        result.error = u"Ultra HDR encoding failed: "_s + encoded.error;
        return result;
    }
    result.bytes = encoded.bytes;
    lap(u"encode"_s);
    return result;
}

} // namespace orvanta::engine
