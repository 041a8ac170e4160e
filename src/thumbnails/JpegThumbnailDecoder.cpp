// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/JpegThumbnailDecoder.h"

#include "media/ExifOrientation.h"
#include "thumbnails/ImageAdapter.h"

#include <QFile>

#include <algorithm>
#include <csetjmp>
#include <jpeglib.h>

namespace orvanta {

namespace {

// Output larger than this (after DCT scaling) is refused rather than
// allocated: it only happens with absurd or hostile headers.
constexpr qint64 MaxOutputPixels = 32 * 1024 * 1024;
// libjpeg's own working memory (progressive files buffer every coefficient).
constexpr long MaxDecoderMemory = 256L * 1024 * 1024;

// Decode straight into QImage::Format_RGB32, whose bytes are B, G, R, X in
// memory on little-endian machines and X, R, G, B on big-endian ones.
#if Q_BYTE_ORDER == Q_LITTLE_ENDIAN
constexpr J_COLOR_SPACE RgbOutputSpace = JCS_EXT_BGRX;
#else
constexpr J_COLOR_SPACE RgbOutputSpace = JCS_EXT_XRGB;
#endif

struct ErrorManager
{
    jpeg_error_mgr pub;
    std::jmp_buf jump;
};

[[noreturn]] void exitOnError(j_common_ptr cinfo)
{
    std::longjmp(reinterpret_cast<ErrorManager *>(cinfo->err)->jump, 1);
}

// Warnings (a truncated scan, extraneous bytes) are not failures: libjpeg
// fills what is missing and the thumbnail is still worth showing.
void ignoreMessage(j_common_ptr)
{
}

// libjpeg reports errors by longjmp. Each step that can fail runs in its own
// function holding only trivially destructible locals, so the jump never
// skips a C++ destructor.
struct Session
{
    jpeg_decompress_struct cinfo;
    ErrorManager error;
};

bool readHeader(Session &s, int maxPixelSize)
{
    if (setjmp(s.error.jump))
        return false;
    jpeg_save_markers(&s.cinfo, JPEG_APP0 + 1, 0xFFFF);
    if (jpeg_read_header(&s.cinfo, TRUE) != JPEG_HEADER_OK)
        return false;
    s.cinfo.scale_num = unsigned(
        jpegScaleNumerator(int(s.cinfo.image_width), int(s.cinfo.image_height), maxPixelSize));
    s.cinfo.scale_denom = 8;
    s.cinfo.dct_method = JDCT_IFAST;
    s.cinfo.do_fancy_upsampling = FALSE;
    s.cinfo.do_block_smoothing = FALSE;
    const bool cmyk = s.cinfo.jpeg_color_space == JCS_CMYK || s.cinfo.jpeg_color_space == JCS_YCCK;
    s.cinfo.out_color_space = cmyk ? JCS_CMYK : RgbOutputSpace;
    jpeg_calc_output_dimensions(&s.cinfo);
    return true;
}

bool startDecompress(Session &s)
{
    if (setjmp(s.error.jump))
        return false;
    return jpeg_start_decompress(&s.cinfo) == TRUE;
}

bool readScanlines(Session &s, uchar *bits, qsizetype bytesPerLine)
{
    if (setjmp(s.error.jump))
        return false;
    while (s.cinfo.output_scanline < s.cinfo.output_height) {
        JSAMPROW row = bits + qsizetype(s.cinfo.output_scanline) * bytesPerLine;
        if (jpeg_read_scanlines(&s.cinfo, &row, 1) != 1)
            return false;
    }
    return true;
}

int orientationFromMarkers(const jpeg_decompress_struct &cinfo)
{
    for (jpeg_saved_marker_ptr m = cinfo.marker_list; m; m = m->next) {
        if (m->marker == JPEG_APP0 + 1 && m->data_length > 6) {
            const int orientation = orientationFromExifBlock(m->data, qsizetype(m->data_length));
            if (orientation != 1)
                return orientation;
        }
    }
    return 1;
}

// Adobe writes CMYK inverted (saw_Adobe_marker); other writers store it plain.
void cmykToRgb32(QImage &image, bool inverted)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar *p = image.scanLine(y);
        QRgb *out = reinterpret_cast<QRgb *>(p);
        for (int x = 0; x < image.width(); ++x, p += 4) {
            int c = p[0], m = p[1], ye = p[2], k = p[3];
            if (!inverted) {
                c = 255 - c, m = 255 - m, ye = 255 - ye, k = 255 - k;
            }
            out[x] = qRgb(c * k / 255, m * k / 255, ye * k / 255);
        }
    }
}

QImage decodeSession(Session &s, int maxPixelSize, int orientation)
{
    if (!readHeader(s, maxPixelSize))
        return {};
    if (orientation < 1 || orientation > 8)
        orientation = orientationFromMarkers(s.cinfo);
    const qint64 width = s.cinfo.output_width;
    const qint64 height = s.cinfo.output_height;
    if (width < 1 || height < 1 || width * height > MaxOutputPixels)
        return {};
    if (!startDecompress(s))
        return {};
    QImage image(int(width), int(height), QImage::Format_RGB32);
    if (image.isNull() || s.cinfo.output_components != 4)
        return {};
    if (!readScanlines(s, image.bits(), image.bytesPerLine()))
        return {};
    if (s.cinfo.out_color_space == JCS_CMYK)
        cmykToRgb32(image, s.cinfo.saw_Adobe_marker);
    // The target comes from the stored size: DCT scaling rounds each side up,
    // which would skew the aspect ratio by up to a pixel.
    const QSize stored(int(s.cinfo.image_width), int(s.cinfo.image_height));
    const QSize target = fitWithin(stored, maxPixelSize);
    if (target != image.size())
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return applyExifOrientation(std::move(image), orientation);
}

// Owns the libjpeg object for one decode; the source is attached by the caller.
class JpegDecoder
{
public:
    JpegDecoder()
    {
        m_session.cinfo.err = jpeg_std_error(&m_session.error.pub);
        m_session.error.pub.error_exit = exitOnError;
        m_session.error.pub.output_message = ignoreMessage;
        m_session.error.pub.emit_message = [](j_common_ptr, int) {};
        jpeg_create_decompress(&m_session.cinfo);
        m_session.cinfo.mem->max_memory_to_use = MaxDecoderMemory;
    }
    ~JpegDecoder() { jpeg_destroy_decompress(&m_session.cinfo); }
    JpegDecoder(const JpegDecoder &) = delete;
    JpegDecoder &operator=(const JpegDecoder &) = delete;

    jpeg_decompress_struct *cinfo() { return &m_session.cinfo; }
    QImage decode(int maxPixelSize, int orientation)
    {
        return decodeSession(m_session, maxPixelSize, orientation);
    }

private:
    Session m_session {};
};

} // namespace

int jpegScaleNumerator(int width, int height, int maxPixelSize)
{
    const qint64 longer = std::max(width, height);
    for (int num = 1; num < 8; ++num) {
        // libjpeg rounds scaled dimensions up.
        if ((longer * num + 7) / 8 >= maxPixelSize)
            return num;
    }
    return 8;
}

QSize fitWithin(QSize size, int maxPixelSize)
{
    if (maxPixelSize < 1 || size.isEmpty())
        return size;
    if (size.width() <= maxPixelSize && size.height() <= maxPixelSize)
        return size;
    // The longer side becomes exactly maxPixelSize; the other is rounded to
    // the nearest pixel (QSize::scaled would truncate 106.7 to 106).
    const qint64 longer = std::max(size.width(), size.height());
    const qint64 shorter = std::min(size.width(), size.height());
    const int scaledShorter
        = int(std::max<qint64>(1, (shorter * maxPixelSize + longer / 2) / longer));
    return size.width() >= size.height() ? QSize(maxPixelSize, scaledShorter)
                                         : QSize(scaledShorter, maxPixelSize);
}

QImage decodeJpegThumbnail(const QString &path, int maxPixelSize)
{
    // Mapping the file hands libjpeg the whole stream without a copy or a
    // read call per 4 KiB buffer; the pages are the page cache's, not ours.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() < 4)
        return {};
    const qint64 size = file.size();
    uchar *mapped = file.map(0, size);
    if (!mapped)
        return {};
    JpegDecoder decoder;
    jpeg_mem_src(decoder.cinfo(), mapped, static_cast<unsigned long>(size));
    return decoder.decode(maxPixelSize, 0);
}

QImage decodeJpegThumbnail(const QByteArray &data, int maxPixelSize, int orientation)
{
    if (data.isEmpty())
        return {};
    JpegDecoder decoder;
    jpeg_mem_src(decoder.cinfo(), reinterpret_cast<const unsigned char *>(data.constData()),
                 static_cast<unsigned long>(data.size()));
    return decoder.decode(maxPixelSize, orientation);
}

bool looksLikeJpeg(const QByteArray &head)
{
    return head.size() >= 3 && uchar(head[0]) == 0xFF && uchar(head[1]) == 0xD8
        && uchar(head[2]) == 0xFF;
}

} // namespace orvanta
