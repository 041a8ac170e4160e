// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "RawDevelop.h"

#include "FrameAlign.h"

#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <libraw/libraw.h>
#include <memory>
#include <opencv2/imgproc.hpp>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

QString librawError(const char *step, int code)
{
    return u"RAW "_s + QString::fromLatin1(step) + u": "_s
        + QString::fromUtf8(libraw_strerror(code));
}

// Percentage of sensor samples at or above the white level, over the visible area.
double clipPercentage(const LibRaw &raw)
{
    const auto &rd = raw.imgdata.rawdata;
    const auto &s = raw.imgdata.sizes;
    const unsigned white = raw.imgdata.color.maximum;
    if (white == 0)
        return 0.0;
    const unsigned limit = white - white / 100; // within 1% of the white level
    quint64 clipped = 0, total = 0;
    for (int y = s.top_margin; y < s.top_margin + s.height; ++y) {
        const size_t row = size_t(y) * s.raw_width + s.left_margin;
        if (rd.raw_image) {
            // One sample a pixel: a loop the compiler turns into vector compares.
            const ushort *px = rd.raw_image + row;
            unsigned inRow = 0;
            for (int x = 0; x < s.width; ++x)
                inRow += px[x] >= limit;
            clipped += inRow;
            total += unsigned(s.width);
        } else if (rd.color3_image || rd.color4_image) {
            const int channels = rd.color3_image ? 3 : 4;
            for (int x = 0; x < s.width; ++x) {
                const ushort *px
                    = rd.color3_image ? rd.color3_image[row + x] : rd.color4_image[row + x];
                for (int c = 0; c < std::min(channels, 3); ++c) {
                    clipped += px[c] >= limit;
                    ++total;
                }
            }
        }
    }
    return total ? 100.0 * double(clipped) / double(total) : 0.0;
}

ImageBuffer toImage(const libraw_processed_image_t *processed)
{
    ImageBuffer image(processed->width, processed->height, PixelFormat::Rgbx16);
    if (image.isNull())
        return image;
    const auto *src = reinterpret_cast<const ushort *>(processed->data);
    const int colors = processed->colors;
    for (int y = 0; y < processed->height; ++y) {
        quint16 *dst = image.rowAs<quint16>(y);
        const ushort *px = src + size_t(y) * processed->width * colors;
        if (colors == 3) {
            for (int x = 0; x < processed->width; ++x, px += 3, dst += 4) {
                dst[0] = px[0];
                dst[1] = px[1];
                dst[2] = px[2];
                dst[3] = 0xffff;
            }
            continue;
        }
        for (int x = 0; x < processed->width; ++x, px += colors, dst += 4) {
            dst[0] = dst[1] = dst[2] = px[0];
            dst[3] = 0xffff;
        }
    }
    return image;
}

// The part of the RAW the JPG shows, scaled to the JPG's size.
ImageBuffer frameLike(ImageBuffer image, const ImageBuffer &jpg, int threads)
{
    const QRect crop = findJpegFrame(image, jpg, threads);
    if (crop.size() == jpg.size())
        return crop == image.rect() ? std::move(image) : image.copy(crop);
    // Area averaging: every RAW pixel of the frame counts once when shrinking.
    const cv::Mat source(image.height(), image.width(), CV_16UC4, image.bits(),
                         size_t(image.stride()));
    ImageBuffer out(jpg.width(), jpg.height(), PixelFormat::Rgbx16);
    if (out.isNull())
        return out;
    cv::Mat target(out.height(), out.width(), CV_16UC4, out.bits(), size_t(out.stride()));
    cv::resize(source(cv::Rect(crop.x(), crop.y(), crop.width(), crop.height())), target,
               target.size(), 0, 0, cv::INTER_AREA);
    return out;
}

} // namespace

int inverseOrientation(int orientation)
{
    return orientation == 6 ? 8 : orientation == 8 ? 6 : orientation;
}

RawDevelopment developRaw(const QString &path, const ImageBuffer &jpg, int jpgOrientation,
                          int threads)
{
    RawDevelopment out;
    QElapsedTimer clock;
    clock.start();
    auto raw = std::make_unique<LibRaw>();
    auto &params = raw->imgdata.params;
    params.output_bps = 16;
    params.gamm[0] = params.gamm[1] = 1.0;
    params.no_auto_bright = 1;
    params.use_camera_wb = 1;
    params.output_color = 1; // sRGB primaries, like the camera JPG
    params.highlight = 0; // clip at the sensor's white point: no invented detail
    params.user_qual = 0; // bilinear: the result feeds a map at a quarter of the size
    const QByteArray file = path.toUtf8();
    int code = raw->open_file(file.constData());
    if (code != LIBRAW_SUCCESS) {
        out.error = librawError("open", code);
        return out;
    }
    if ((code = raw->unpack()) != LIBRAW_SUCCESS) {
        out.error = librawError("unpack", code);
        return out;
    }
    out.clipPct = clipPercentage(*raw);
    out.decodeSec = clock.nsecsElapsed() / 1e9;
    clock.restart();
    out.baselineStops = raw->imgdata.color.dng_levels.baseline_exposure;
    if (!std::isfinite(out.baselineStops) || std::abs(out.baselineStops) > 6.0)
        out.baselineStops = 0.0;
    const auto &sizes = raw->imgdata.sizes;
    params.half_size = raw->imgdata.idata.filters != 0
        && std::min(sizes.width, sizes.height) / 2 >= std::min(jpg.width(), jpg.height());
    if ((code = raw->dcraw_process()) != LIBRAW_SUCCESS) {
        out.error = librawError("processing", code);
        return out;
    }
    libraw_processed_image_t *processed = raw->dcraw_make_mem_image(&code);
    if (!processed) {
        out.error = librawError("output", code);
        return out;
    }
    ImageBuffer upright = toImage(processed);
    LibRaw::dcraw_clear_mem(processed);
    raw.reset();
    out.developSec = clock.nsecsElapsed() / 1e9;
    clock.restart();
    if (upright.isNull()) {
        out.error = u"RAW output: not enough memory"_s;
        return out;
    }
    out.image = frameLike(
        applyExifOrientation(std::move(upright), inverseOrientation(jpgOrientation)), jpg, threads);
    out.alignSec = clock.nsecsElapsed() / 1e9;
    return out;
}

} // namespace orvanta::engine
