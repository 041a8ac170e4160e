// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/ImageAdapter.h"

#include <QTransform>

#include <cstring>

namespace orvanta {

namespace {

QImage::Format qtFormat(PixelFormat format)
{
    switch (format) {
    case PixelFormat::Gray8:
        return QImage::Format_Grayscale8;
    case PixelFormat::Rgb8:
        return QImage::Format_RGB888;
    case PixelFormat::Rgbx16:
        return QImage::Format_RGBX64;
    case PixelFormat::RgbaF16:
        return QImage::Format_RGBA16FPx4;
    case PixelFormat::RgbaF32:
        return QImage::Format_RGBA32FPx4;
    }
    return QImage::Format_Invalid;
}

} // namespace

QImage toQImage(ImageBuffer &&buffer)
{
    if (buffer.isNull())
        return {};
    const int w = buffer.width(), h = buffer.height();
    const qsizetype stride = buffer.stride();
    const QImage::Format format = qtFormat(buffer.format());
    uchar *pixels = buffer.release();
    // Qt hands the cleanup function its info pointer, not the pixels: pass both.
    return QImage(pixels, w, h, stride, format, &ImageBuffer::freePixels, pixels);
}

ImageBuffer toImageBuffer(const QImage &image, PixelFormat format)
{
    if (image.isNull())
        return {};
    const QImage converted = image.convertToFormat(qtFormat(format));
    ImageBuffer out(converted.width(), converted.height(), format);
    if (out.isNull())
        return out;
    const size_t used = size_t(out.width()) * out.bytesPerPixel();
    for (int y = 0; y < out.height(); ++y)
        std::memcpy(out.row(y), converted.constScanLine(y), used);
    return out;
}

QImage applyExifOrientation(QImage image, int orientation)
{
    if (image.isNull() || orientation <= 1 || orientation > 8)
        return image;
    // Mirror first (orientations 2, 4, 5, 7), then rotate.
    if (orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7)
        image = std::move(image).mirrored(true, false);
    int degrees = 0;
    switch (orientation) {
    case 3:
    case 4:
        degrees = 180;
        break;
    case 5:
    case 8:
        degrees = 270;
        break;
    case 6:
    case 7:
        degrees = 90;
        break;
    default:
        break;
    }
    if (degrees == 0)
        return image;
    return image.transformed(QTransform().rotate(degrees));
}

} // namespace orvanta
