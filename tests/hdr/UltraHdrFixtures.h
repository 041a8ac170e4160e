// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Small generated pictures and files for the Ultra HDR tests: an SDR picture,
// an HDR picture that is that SDR picture boosted by a known, smooth gain
// field, and helpers to edit JPEG bytes.
#pragma once

#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/JpegSegments.h"
#include "hdr/codec/UltraHdrDecoder.h"

#include <QByteArray>
#include <QImage>
#include <QtCore/qfloat16.h>

#include <cmath>

namespace orvanta::test {

// Smooth colour ramps with some variety, so every channel has its own values.
inline QImage makeSdr(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y) {
        uchar *row = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            const double u = (x + 0.5) / width, v = (y + 0.5) / height;
            row[3 * x] = uchar(40 + 180 * u);
            row[3 * x + 1] = uchar(60 + 150 * v);
            row[3 * x + 2] = uchar(90 + 100 * (1.0 - u) * v);
        }
    }
    return image;
}

// log2 boost of channel c at (x, y): 0 at the left edge, up to 2.5 stops at
// the right; channels differ when `perChannel` is set.
inline double boostLog2(int x, int y, int width, int height, int c, bool perChannel)
{
    const double u = (x + 0.5) / width, v = (y + 0.5) / height;
    const double base = 2.5 * u * (0.6 + 0.4 * v);
    return perChannel ? base * (1.0 - 0.25 * c) : base;
}

// The HDR rendition of `sdrJpeg` as a reader decodes it, boosted by boostLog2().
inline ImageBuffer makeHdr(const QByteArray &sdrJpeg, bool perChannel)
{
    const UltraHdrDecodeResult sdr = decodeUltraHdr(sdrJpeg, { 1.0, false });
    ImageBuffer hdr(sdr.image.width(), sdr.image.height(), PixelFormat::RgbaF32);
    for (int y = 0; y < hdr.height(); ++y) {
        const qfloat16 *in = sdr.image.rowAs<qfloat16>(y);
        float *out = hdr.rowAs<float>(y);
        for (int x = 0; x < hdr.width(); ++x) {
            for (int c = 0; c < 3; ++c)
                out[4 * x + c] = float(in[4 * x + c])
                    * float(std::exp2(boostLog2(x, y, hdr.width(), hdr.height(), c, perChannel)));
            out[4 * x + 3] = 1.0f;
        }
    }
    return hdr;
}

inline QByteArray encodeSdr(const QImage &sdr, int quality = 95)
{
    const QImage rgb = sdr.convertToFormat(QImage::Format_RGB888);
    return encodeJpeg(rgb.constBits(), rgb.width(), rgb.height(), 3, rgb.bytesPerLine(), quality);
}

inline QByteArray grayJpeg(int width, int height, uchar value)
{
    const QByteArray pixels(qsizetype(width) * height, char(value));
    return encodeJpeg(reinterpret_cast<const uchar *>(pixels.constData()), width, height, 1, width,
                      90);
}

// An Exif APP1 segment (big-endian TIFF) holding only an orientation tag.
inline QByteArray exifOrientationSegment(int orientation)
{
    QByteArray tiff("MM\0*", 4);
    appendU32(tiff, 8);
    appendU16(tiff, 1);
    appendU16(tiff, 0x0112);
    appendU16(tiff, 3);
    appendU32(tiff, 1);
    appendU16(tiff, quint16(orientation));
    appendU16(tiff, 0);
    appendU32(tiff, 0);
    return makeAppSegment(jpeg::APP1, jpeg::exif(), tiff);
}

inline QByteArray insertAfterSoi(const QByteArray &jpegBytes, const QByteArray &segment)
{
    return jpegBytes.left(2) + segment + jpegBytes.mid(2);
}

// Offset of the first byte of the first APPn payload after `signature`, or -1.
inline qsizetype payloadOffset(const QByteArray &file, qsizetype imageStart, quint8 marker,
                               QByteArrayView signature)
{
    const JpegStream stream = walkJpeg(file, imageStart);
    for (const JpegSegment &s : stream.segments)
        if (s.marker == marker && file.sliced(s.payloadOffset).startsWith(signature))
            return s.payloadOffset + signature.size();
    return -1;
}

inline float pixel(const ImageBuffer &image, int x, int y, int c)
{
    return float(image.rowAs<qfloat16>(y)[4 * x + c]);
}

} // namespace orvanta::test
