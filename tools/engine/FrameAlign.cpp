// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "FrameAlign.h"

#include "hdr/codec/ParallelRanges.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace orvanta::engine {

namespace {

constexpr double kSmallestCrop = 0.7; // share of each side the JPG keeps at least
constexpr double kClearlyBetter = 0.01; // correlation a crop must gain over the plain frame

// A small log-luminance picture of `src` in `image`: the mean of 4 x 4 point
// samples per pixel. Log luminance compares well across tone curves.
struct Thumb
{
    int w = 0, h = 0;
    std::vector<float> v;
    float at(double x, double y) const
    {
        x = std::clamp(x, 0.0, w - 1.0);
        y = std::clamp(y, 0.0, h - 1.0);
        const int x0 = std::min(int(x), w - 2), y0 = std::min(int(y), h - 2);
        const float fx = float(x - x0), fy = float(y - y0);
        const float *r0 = &v[size_t(y0) * w + x0], *r1 = r0 + w;
        const float top = r0[0] + (r0[1] - r0[0]) * fx, bottom = r1[0] + (r1[1] - r1[0]) * fx;
        return top + (bottom - top) * fy;
    }
};

float linearOf(const ImageBuffer &image, int x, int y)
{
    if (image.format() == PixelFormat::Rgb8) {
        const uchar *p = image.row(y) + x * 3;
        const float e = (0.2126f * p[0] + 0.7152f * p[1] + 0.0722f * p[2]) / 255.0f;
        return std::pow(e, 2.2f);
    }
    const quint16 *p = image.rowAs<quint16>(y) + x * 4;
    return (0.2126f * p[0] + 0.7152f * p[1] + 0.0722f * p[2]) / 65535.0f;
}

Thumb thumbOf(const ImageBuffer &image, QRectF src, int w, int h)
{
    Thumb t { w, h, std::vector<float>(size_t(w) * h) };
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            float sum = 0.0f;
            for (int j = 0; j < 4; ++j)
                for (int i = 0; i < 4; ++i) {
                    const int sx = int(src.left() + (x + (i + 0.5) / 4) * src.width() / w);
                    const int sy = int(src.top() + (y + (j + 0.5) / 4) * src.height() / h);
                    sum += linearOf(image, std::clamp(sx, 0, image.width() - 1),
                                    std::clamp(sy, 0, image.height() - 1));
                }
            t.v[size_t(y) * w + x] = std::log2(sum / 16 + 1e-3f);
        }
    return t;
}

// A candidate frame in the RAW thumbnail's pixels: scale (share of each
// side) and top-left corner.
struct Frame
{
    double scale = 1.0, x = 0.0, y = 0.0, score = -2.0;
};

// Zero-mean normalised correlation of the JPG thumbnail with the RAW thumbnail
// sampled over `f`.
double correlate(const Thumb &jpg, const Thumb &raw, const Frame &f)
{
    double sa = 0, sb = 0, saa = 0, sbb = 0, sab = 0;
    const double step = f.scale * raw.w / jpg.w;
    for (int y = 0; y < jpg.h; ++y)
        for (int x = 0; x < jpg.w; ++x) {
            const double a = jpg.v[size_t(y) * jpg.w + x];
            const double b = raw.at(f.x + (x + 0.5) * step - 0.5, f.y + (y + 0.5) * step - 0.5);
            sa += a, sb += b, saa += a * a, sbb += b * b, sab += a * b;
        }
    const double n = double(jpg.w) * jpg.h;
    const double va = saa - sa * sa / n, vb = sbb - sb * sb / n;
    return va > 0 && vb > 0 ? (sab - sa * sb / n) / std::sqrt(va * vb) : -1.0;
}

// Best frame over scales [lo, hi] and corners within `reach` thumbnail pixels of `around`
// (the whole free range when `around` is null). Scales are split among
// `threads`; the frame found is the same for any count.
Frame search(const Thumb &jpg, const Thumb &raw, double lo, double hi, double scaleStep,
             const Frame *around, double reach, double posStep, int threads)
{
    std::vector<double> scales;
    for (double s = lo; s <= hi + 1e-9; s += scaleStep)
        scales.push_back(s);
    const auto bestOf = [&](size_t first, size_t last) {
        Frame best;
        for (size_t k = first; k < last; ++k) {
            const double s = scales[k];
            const double freeX = (1.0 - s) * raw.w, freeY = (1.0 - s) * raw.h;
            const double x0 = around ? std::max(0.0, around->x - reach) : 0.0;
            const double y0 = around ? std::max(0.0, around->y - reach) : 0.0;
            const double x1 = around ? std::min(freeX, around->x + reach) : freeX;
            const double y1 = around ? std::min(freeY, around->y + reach) : freeY;
            for (double y = y0; y <= y1 + 1e-9; y += posStep)
                for (double x = x0; x <= x1 + 1e-9; x += posStep) {
                    Frame f { s, x, y };
                    f.score = correlate(jpg, raw, f);
                    if (f.score > best.score)
                        best = f;
                }
        }
        return best;
    };
    // One best frame per range of scales, kept under the range's first scale.
    std::vector<Frame> bests(scales.size());
    inRanges(scales.size(), threads,
             [&](size_t first, size_t last) { bests[first] = bestOf(first, last); });
    // In scale order, the first of equal scores wins, as in one pass.
    Frame best;
    for (const Frame &f : bests)
        if (f.score > best.score)
            best = f;
    return best;
}

QRect centredAspectCrop(QSize have, QSize want)
{
    const double ratio = double(want.width()) / want.height();
    const double own = double(have.width()) / have.height();
    if (own > ratio * 1.002) {
        const int w = int(have.height() * ratio + 0.5);
        return { (have.width() - w) / 2, 0, w, have.height() };
    }
    if (own < ratio / 1.002) {
        const int h = int(have.width() / ratio + 0.5);
        return { 0, (have.height() - h) / 2, have.width(), h };
    }
    return { QPoint(0, 0), have };
}

} // namespace

QRect findJpegFrame(const ImageBuffer &raw, const ImageBuffer &jpg, int threads)
{
    const QRect plain = centredAspectCrop(raw.size(), jpg.size());
    if (jpg.width() < 32 || jpg.height() < 32)
        return plain;
    // Coarse: the whole range of crops on small pictures; finer: around the best.
    const auto thumbs = [&](int longSide) {
        const double k = double(longSide) / std::max(jpg.width(), jpg.height());
        const int w = std::max(8, int(jpg.width() * k)), h = std::max(8, int(jpg.height() * k));
        return std::pair { thumbOf(jpg, jpg.rect(), w, h), thumbOf(raw, plain, w * 2, h * 2) };
    };
    const auto [jpgCoarse, rawCoarse] = thumbs(48);
    Frame best = search(jpgCoarse, rawCoarse, kSmallestCrop, 1.0, 0.02, nullptr, 0, 2.0, threads);
    // Each finer level looks only around the best frame of the one before:
    // the coarse grid is off by at most a step of scale and of position.
    const auto refine = [&](const Thumb &jpgThumb, const Thumb &rawThumb, const Thumb &coarser,
                            double span, double scaleStep, double reach) {
        const double k = double(rawThumb.w) / coarser.w;
        const Frame around { best.scale, best.x * k, best.y * k };
        best
            = search(jpgThumb, rawThumb, std::max(kSmallestCrop, best.scale - span),
                     std::min(1.0, best.scale + span), scaleStep, &around, reach * k, 1.0, threads);
    };
    const auto [jpgMiddle, rawMiddle] = thumbs(96);
    refine(jpgMiddle, rawMiddle, rawCoarse, 0.02, 0.01, 2.5);
    const auto [jpgFine, rawFine] = thumbs(160);
    refine(jpgFine, rawFine, rawMiddle, 0.012, 0.004, 2.5);
    const double whole = correlate(jpgFine, rawFine, Frame {});
    if (best.score < whole + kClearlyBetter)
        return plain;
    const double px = double(plain.width()) / rawFine.w;
    return QRectF(plain.left() + best.x * px, plain.top() + best.y * px, best.scale * plain.width(),
                  best.scale * plain.height())
        .toRect()
        .intersected(raw.rect());
}

} // namespace orvanta::engine
