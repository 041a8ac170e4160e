// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "HdrRenderer.h"

#include "RawDevelop.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "media/ExifOrientation.h"
#include "media/ExivAdapter.h"

#include <QFile>
#include <QFloat16>

#include <algorithm>
#include <array>
#include <cmath>
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

QImage decodeJpeg(const QByteArray &bytes, int scale, QString &error)
{
    JpegDecoder decoder;
    if (!decoder.open(bytes, { JpegDecoder::Output::Rgb, scale, false, 1ll << 28 })) {
        error = u"JPG: "_s + decoder.error();
        return {};
    }
    QImage image(decoder.width(), decoder.height(), QImage::Format_RGB888);
    while (decoder.rowsRead() < decoder.height()) {
        const int row = decoder.rowsRead();
        if (decoder.readRows(image.scanLine(row), image.bytesPerLine(), decoder.height() - row)
            <= 0) {
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

WorkPlanes makePlanes(const QImage &sdr8, const QImage &raw64)
{
    WorkPlanes p;
    p.width = sdr8.width();
    p.height = sdr8.height();
    const size_t n = size_t(p.width) * p.height;
    p.sdr.resize(n * 3);
    p.raw.resize(n * 3);
    p.brightness.resize(n);
    const auto &lut = srgbTable();
    for (int y = 0; y < p.height; ++y) {
        const uchar *s = sdr8.constScanLine(y);
        const auto *r = reinterpret_cast<const quint16 *>(raw64.constScanLine(y));
        for (int x = 0; x < p.width; ++x) {
            const size_t i = size_t(y) * p.width + x;
            for (int c = 0; c < 3; ++c) {
                p.sdr[i * 3 + c] = lut[s[x * 3 + c]];
                p.raw[i * 3 + c] = r[x * 4 + c] / 65535.0f;
            }
            p.brightness[i] = std::max({ s[x * 3], s[x * 3 + 1], s[x * 3 + 2] }) / 255.0f;
        }
    }
    return p;
}

// Scales the RAW so its mid-tones sit where the JPG's do: the median ratio over
// pixels that are well exposed in both.
double matchExposure(WorkPlanes &p)
{
    std::vector<float> ratios;
    const size_t n = p.brightness.size();
    ratios.reserve(n / 4);
    for (size_t i = 0; i < n; ++i) {
        const float ys = luminance(p.sdr[i * 3], p.sdr[i * 3 + 1], p.sdr[i * 3 + 2]);
        const float yr = luminance(p.raw[i * 3], p.raw[i * 3 + 1], p.raw[i * 3 + 2]);
        if (ys > 0.03f && ys < 0.6f && p.brightness[i] < 0.9f && yr > 1e-5f)
            ratios.push_back(ys / yr);
    }
    double k = 1.0;
    if (ratios.size() >= std::max<size_t>(16, n / 200)) {
        auto mid = ratios.begin() + ratios.size() / 2;
        std::nth_element(ratios.begin(), mid, ratios.end());
        k = *mid;
    }
    for (float &v : p.raw)
        v = float(v * k);
    return k;
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

GainPlanes computeGains(const WorkPlanes &p, const Tuning &t, const QImage &skin, double fill)
{
    GainPlanes g;
    const size_t n = p.brightness.size();
    g.factor.resize(n * 3);
    g.lift.resize(n);
    std::vector<float> peaks;
    peaks.reserve(n);
    for (size_t i = 0; i < n; ++i) {
        const float *s = &p.sdr[i * 3], *r = &p.raw[i * 3];
        const float ys = luminance(s[0], s[1], s[2]), yr = luminance(r[0], r[1], r[2]);
        const double excess = std::max(0.0, std::log2((yr + 1e-4) / (ys + 1e-4)));
        double lift = liftStops(t, ys, excess, p.brightness[i]);
        if (!skin.isNull())
            lift *= 1.0
                - std::clamp(t.skinDamp, 0.0, 1.0)
                    * skin.constScanLine(int(i / p.width))[i % p.width] / 255.0;
        if (fill > 0.0)
            lift += fill * std::pow(1.0 - smoothstep(0.0, 0.18, ys), 2.0);
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
        peaks.push_back(float(yHdr));
    }
    auto at = peaks.begin() + std::min(peaks.size() - 1, peaks.size() * 999 / 1000);
    std::nth_element(peaks.begin(), at, peaks.end());
    g.peakStops = std::max(0.0, std::log2(double(*at)));
    return g;
}

// Bilinear sampling positions of one axis: for each output coordinate the
// two source indices and the weight of the second.
struct Taps
{
    std::vector<int> i0, i1;
    std::vector<float> w;
};

Taps tapsFor(int outSize, int inSize)
{
    Taps t;
    t.i0.resize(outSize);
    t.i1.resize(outSize);
    t.w.resize(outSize);
    const double scale = double(inSize) / outSize;
    for (int o = 0; o < outSize; ++o) {
        const double f = std::clamp((o + 0.5) * scale - 0.5, 0.0, inSize - 1.0);
        t.i0[o] = int(f);
        t.i1[o] = std::min(t.i0[o] + 1, inSize - 1);
        t.w[o] = float(f - t.i0[o]);
    }
    return t;
}

// The full-size HDR picture: the full JPG times the work-size gain factors,
// sampled bilinearly.
QImage buildHdr(const QImage &full, const GainPlanes &g, int gw, int gh)
{
    QImage hdr(full.size(), QImage::Format_RGBA16FPx4);
    const Taps tx = tapsFor(full.width(), gw), ty = tapsFor(full.height(), gh);
    const auto &lut = srgbTable();
    const qfloat16 one(1.0f);
    for (int y = 0; y < full.height(); ++y) {
        const float *r0 = &g.factor[size_t(ty.i0[y]) * gw * 3];
        const float *r1 = &g.factor[size_t(ty.i1[y]) * gw * 3];
        const float wy = ty.w[y];
        const uchar *s = full.constScanLine(y);
        auto *out = reinterpret_cast<qfloat16 *>(hdr.scanLine(y));
        for (int x = 0; x < full.width(); ++x) {
            const int a = tx.i0[x] * 3, b = tx.i1[x] * 3;
            const float wx = tx.w[x];
            for (int c = 0; c < 3; ++c) {
                const float top = r0[a + c] + (r0[b + c] - r0[a + c]) * wx;
                const float bottom = r1[a + c] + (r1[b + c] - r1[a + c]) * wx;
                const float factor = top + (bottom - top) * wy;
                out[x * 4 + c]
                    = qfloat16(std::max(0.0f, (lut[s[x * 3 + c]] + kOffset) * factor - kOffset));
            }
            out[x * 4 + 3] = one;
        }
    }
    return hdr;
}

QImage maskImage(const std::vector<float> &values, int w, int h, double full)
{
    QImage mask(w, h, QImage::Format_Grayscale8);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x)
            mask.scanLine(y)[x]
                = uchar(std::clamp(values[size_t(y) * w + x] / full * 255.0, 0.0, 255.0));
    return mask;
}

QImage greyOf(const QImage &rgb)
{
    return rgb.convertToFormat(QImage::Format_Grayscale8);
}

} // namespace

double liftStops(const Tuning &t, double sdrLum, double excessStops, double brightness)
{
    // Bright mid-tones: up to midTarget stops at white, spread by powerMid.
    const double tm = std::clamp((sdrLum - 0.18) / 0.82, 0.0, 1.0);
    const double mid = t.midTarget * std::pow(tm, 1.0 / std::max(t.powerMid, 0.05));
    // Highlights the RAW holds above the JPG: a soft knee toward the headroom.
    const double x = excessStops / kHeadroomStops;
    const double p = std::max(t.powerHi, 0.1);
    const double hi = kHeadroomStops * x / std::pow(1.0 + std::pow(x, p), 1.0 / p);
    return std::max(0.0, t.scale * (mid + hi * smoothstep(0.55, 0.95, brightness)));
}

RenderResult renderPair(const RenderRequest &request)
{
    RenderResult result;
    QFile jpgFile(request.jpgPath);
    if (!jpgFile.open(QIODevice::ReadOnly)) {
        result.error = u"cannot read the JPG: "_s + jpgFile.errorString();
        return result;
    }
    const QByteArray jpgBytes = jpgFile.readAll();
    const QImage full = decodeJpeg(jpgBytes, 1, result.error);
    if (full.isNull())
        return result;
    // Gains are computed at about the gain map's own resolution.
    int scale = 1;
    while (scale < 8 && std::max(full.width(), full.height()) / (scale * 2) >= kWorkLongSide)
        scale *= 2;
    const QImage work = scale > 1 ? decodeJpeg(jpgBytes, scale, result.error) : full;
    if (work.isNull())
        return result;
    const auto tags = exiv::readTags(request.jpgPath);
    const int orientation = tags && tags->orientation ? *tags->orientation : 1;

    RawDevelopment raw = developRaw(request.rawPath, work.size(), orientation);
    if (!raw.error.isEmpty()) {
        result.error = raw.error;
        return result;
    }
    result.rawClipPct = raw.clipPct;
    WorkPlanes planes = makePlanes(work, raw.image);
    raw.image = QImage();
    matchExposure(planes);

    QImage skin;
    if (request.findSkin) {
        // Faces are looked for upright, as the photo is shown; the skin
        // weight then goes back to the stored pixel order.
        const QImage upright = applyExifOrientation(work, orientation);
        skin = request.findSkin(greyOf(upright), upright, &result.faces);
        if (!skin.isNull())
            skin = applyExifOrientation(skin, inverseOrientation(orientation));
    }
    const double fill = request.backlitFill ? backlitStrength(planes) : 0.0;
    result.backlit = fill > 0.0;
    const GainPlanes gains = computeGains(planes, request.tuning, skin, fill);
    result.peakStops = gains.peakStops;
    if (request.wantMasks) {
        result.gainMask = maskImage(gains.lift, planes.width, planes.height, 4.0);
        result.skinMask = skin.isNull() ? QImage(work.size(), QImage::Format_Grayscale8) : skin;
        if (skin.isNull())
            result.skinMask.fill(0);
    }
    const QImage hdr = buildHdr(full, gains, planes.width, planes.height);
    UltraHdrEncodeOptions options;
    options.multiChannel = request.tuning.chromaBoost > 0.001;
    const UltraHdrEncodeResult encoded = encodeUltraHdr(jpgBytes, hdr, options);
    if (encoded.bytes.isEmpty()) {
        result.error = u"Ultra HDR encoding failed: "_s + encoded.error;
        return result;
    }
    result.bytes = encoded.bytes;
    return result;
}

} // namespace orvanta::engine
