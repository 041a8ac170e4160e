// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Pixels in memory without QtGui, so the engine and the command-line tool run
// on QtCore alone. Move-only: a 24 MP picture is never copied by accident;
// clone() copies on purpose. One owner at a time; any thread.
#pragma once

#include <QRect>
#include <QSize>
#include <QtGlobal>

#include <memory>

namespace orvanta {

enum class PixelFormat {
    Gray8, // 1 byte a pixel
    Rgb8, // 3 bytes a pixel, R G B
    Rgbx16, // 4 × 16-bit words a pixel, the last one unused (65535)
    RgbaF16, // 4 half floats a pixel
    RgbaF32, // 4 floats a pixel
};

class ImageBuffer
{
public:
    ImageBuffer() = default;
    // Uninitialised pixels; a null buffer when the size is empty or memory runs out.
    ImageBuffer(int width, int height, PixelFormat format);
    ImageBuffer(ImageBuffer &&other) noexcept;
    ImageBuffer &operator=(ImageBuffer &&other) noexcept;
    ImageBuffer(const ImageBuffer &) = delete;
    ImageBuffer &operator=(const ImageBuffer &) = delete;
    ~ImageBuffer();

    bool isNull() const { return !m_pixels; }
    int width() const { return m_width; }
    int height() const { return m_height; }
    QSize size() const { return { m_width, m_height }; }
    QRect rect() const { return { 0, 0, m_width, m_height }; }
    PixelFormat format() const { return m_format; }
    // Bytes from one row to the next: whole pixels, rounded up to 4 bytes.
    qsizetype stride() const { return m_stride; }
    int bytesPerPixel() const { return bytesPerPixel(m_format); }
    static int bytesPerPixel(PixelFormat format);

    uchar *row(int y) { return m_pixels.get() + y * m_stride; }
    const uchar *row(int y) const { return m_pixels.get() + y * m_stride; }
    template<typename T> T *rowAs(int y) { return reinterpret_cast<T *>(row(y)); }
    template<typename T> const T *rowAs(int y) const { return reinterpret_cast<const T *>(row(y)); }
    uchar *bits() { return m_pixels.get(); }
    const uchar *bits() const { return m_pixels.get(); }

    void fill(uchar byte);
    ImageBuffer clone() const;
    // The pixels inside `area` (clipped to the picture), in the same format.
    ImageBuffer copy(const QRect &area) const;
    // Hands the pixel block to a new owner, who frees it with freePixels();
    // the buffer is null afterwards. For adapters that wrap it without a copy.
    uchar *release();
    static void freePixels(void *pixels);

    // Same format, size and pixels (the padding at the end of rows is ignored).
    bool operator==(const ImageBuffer &other) const;

private:
    std::unique_ptr<uchar[]> m_pixels;
    int m_width = 0;
    int m_height = 0;
    qsizetype m_stride = 0;
    PixelFormat m_format = PixelFormat::Rgb8;
};

// Applies an EXIF orientation (1..8): 6 turns a landscape-stored portrait 90°
// clockwise, 8 counter-clockwise, 3 by 180°, 2/4/5/7 add a mirror.
ImageBuffer applyExifOrientation(ImageBuffer image, int orientation);

// Where the pixel stored at (x, y) of a `width` × `height` picture lands once
// `orientation` is applied.
void orientedPosition(int orientation, int width, int height, int x, int y, int *outX, int *outY);

} // namespace orvanta
