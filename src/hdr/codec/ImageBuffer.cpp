// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/ImageBuffer.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace orvanta {

int ImageBuffer::bytesPerPixel(PixelFormat format)
{
    switch (format) {
    case PixelFormat::Gray8:
        return 1;
    case PixelFormat::Rgb8:
        return 3;
    case PixelFormat::Rgbx16:
    case PixelFormat::RgbaF16:
        return 8;
    case PixelFormat::RgbaF32:
        return 16;
    }
    return 1;
}

ImageBuffer::ImageBuffer(int width, int height, PixelFormat format)
    : m_format(format)
{
    if (width <= 0 || height <= 0)
        return;
    // Rows on 4-byte boundaries, as display toolkits expect of pixels they wrap.
    const qint64 stride = (qint64(width) * bytesPerPixel(format) + 3) & ~qint64(3);
    if (stride > (qint64(1) << 40) / height)
        return;
    m_pixels.reset(new (std::nothrow) uchar[size_t(stride * height)]);
    if (!m_pixels)
        return;
    m_width = width;
    m_height = height;
    m_stride = stride;
}

ImageBuffer::ImageBuffer(ImageBuffer &&other) noexcept
{
    *this = std::move(other);
}

ImageBuffer &ImageBuffer::operator=(ImageBuffer &&other) noexcept
{
    if (this == &other)
        return *this;
    m_pixels = std::move(other.m_pixels);
    m_width = std::exchange(other.m_width, 0);
    m_height = std::exchange(other.m_height, 0);
    m_stride = std::exchange(other.m_stride, 0);
    m_format = other.m_format;
    return *this;
}

ImageBuffer::~ImageBuffer() = default;

void ImageBuffer::fill(uchar byte)
{
    if (m_pixels)
        std::memset(m_pixels.get(), byte, size_t(m_stride) * m_height);
}

ImageBuffer ImageBuffer::clone() const
{
    return copy(rect());
}

ImageBuffer ImageBuffer::copy(const QRect &area) const
{
    const QRect r = area.intersected(rect());
    if (isNull() || r.isEmpty())
        return {};
    ImageBuffer out(r.width(), r.height(), m_format);
    if (out.isNull())
        return out;
    const int bpp = bytesPerPixel();
    for (int y = 0; y < r.height(); ++y)
        std::memcpy(out.row(y), row(r.top() + y) + qsizetype(r.left()) * bpp,
                    size_t(r.width()) * bpp);
    return out;
}

uchar *ImageBuffer::release()
{
    m_width = m_height = 0;
    m_stride = 0;
    return m_pixels.release();
}

void ImageBuffer::freePixels(void *pixels)
{
    delete[] static_cast<uchar *>(pixels);
}

bool ImageBuffer::operator==(const ImageBuffer &other) const
{
    if (m_format != other.m_format || size() != other.size())
        return false;
    const size_t used = size_t(m_width) * bytesPerPixel();
    for (int y = 0; y < m_height; ++y)
        if (std::memcmp(row(y), other.row(y), used) != 0)
            return false;
    return true;
}

void orientedPosition(int orientation, int width, int height, int x, int y, int *outX, int *outY)
{
    // Mirrors come first (2, 4, 5, 7), then the turn clockwise.
    switch (orientation) {
    case 2:
        *outX = width - 1 - x, *outY = y;
        return;
    case 3:
        *outX = width - 1 - x, *outY = height - 1 - y;
        return;
    case 4:
        *outX = x, *outY = height - 1 - y;
        return;
    case 5:
        *outX = y, *outY = x;
        return;
    case 6:
        *outX = height - 1 - y, *outY = x;
        return;
    case 7:
        *outX = height - 1 - y, *outY = width - 1 - x;
        return;
    case 8:
        *outX = y, *outY = width - 1 - x;
        return;
    default:
        *outX = x, *outY = y;
        return;
    }
}

ImageBuffer applyExifOrientation(ImageBuffer image, int orientation)
{
    if (image.isNull() || orientation <= 1 || orientation > 8)
        return image;
    const int w = image.width(), h = image.height();
    const bool swaps = orientation >= 5;
    ImageBuffer out(swaps ? h : w, swaps ? w : h, image.format());
    if (out.isNull())
        return out;
    const int bpp = image.bytesPerPixel();
    for (int y = 0; y < h; ++y) {
        const uchar *src = image.row(y);
        int x0 = 0, y0 = 0, x1 = 0, y1 = 0;
        orientedPosition(orientation, w, h, 0, y, &x0, &y0);
        orientedPosition(orientation, w, h, std::min(1, w - 1), y, &x1, &y1);
        // Along a source row the destination moves by a fixed step.
        const qsizetype step = qsizetype(y1 - y0) * out.stride() + qsizetype(x1 - x0) * bpp;
        uchar *dst = out.row(y0) + qsizetype(x0) * bpp;
        for (int x = 0; x < w; ++x, dst += step)
            std::memcpy(dst, src + qsizetype(x) * bpp, size_t(bpp));
    }
    return out;
}

} // namespace orvanta
