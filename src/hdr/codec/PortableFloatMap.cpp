// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/PortableFloatMap.h"

#include <QtCore/qfloat16.h>
#include <QtEndian>

#include <cctype>
#include <cmath>
#include <cstring>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// Reads one whitespace-separated header token starting at `pos`.
QByteArrayView token(QByteArrayView bytes, qsizetype &pos)
{
    while (pos < bytes.size() && std::isspace(static_cast<unsigned char>(bytes[pos])))
        ++pos;
    const qsizetype start = pos;
    while (pos < bytes.size() && !std::isspace(static_cast<unsigned char>(bytes[pos])))
        ++pos;
    return bytes.sliced(start, pos - start);
}

ImageBuffer failed(QString *error, const QString &why)
{
    if (error)
        *error = why;
    return {};
}

// One row as 3 floats a pixel, whatever the picture's format: half floats
// widen exactly, 8-bit codes are divided by 255.
void rowAsRgbFloats(const ImageBuffer &image, int y, float *out)
{
    const int w = image.width();
    switch (image.format()) {
    case PixelFormat::RgbaF32:
        for (int x = 0; x < w; ++x)
            std::memcpy(out + 3 * x, image.rowAs<float>(y) + 4 * x, 12);
        return;
    case PixelFormat::RgbaF16: {
        const qfloat16 *in = image.rowAs<qfloat16>(y);
        for (int x = 0; x < w; ++x)
            for (int c = 0; c < 3; ++c)
                out[3 * x + c] = float(in[4 * x + c]);
        return;
    }
    case PixelFormat::Rgbx16:
        for (int x = 0; x < 3 * w; ++x)
            out[x] = image.rowAs<quint16>(y)[(x / 3) * 4 + x % 3] / 65535.0f;
        return;
    case PixelFormat::Rgb8:
    case PixelFormat::Gray8: {
        const int n = image.bytesPerPixel();
        for (int x = 0; x < 3 * w; ++x)
            out[x] = image.row(y)[(x / 3) * n + (n == 3 ? x % 3 : 0)] / 255.0f;
        return;
    }
    }
}

} // namespace

ImageBuffer readPortableFloatMap(QByteArrayView bytes, QString *error)
{
    qsizetype pos = 0;
    const QByteArrayView magic = token(bytes, pos);
    const int channels = magic == "PF" ? 3 : magic == "Pf" ? 1 : 0;
    if (channels == 0)
        return failed(error, u"not a portable float map"_s);
    bool okW = false, okH = false, okS = false;
    const int width = token(bytes, pos).toInt(&okW);
    const int height = token(bytes, pos).toInt(&okH);
    const double scale = token(bytes, pos).toDouble(&okS);
    if (!okW || !okH || !okS || width <= 0 || height <= 0 || scale == 0.0 || !std::isfinite(scale)
        || qint64(width) * height > (1ll << 28))
        return failed(error, u"portable float map header is invalid"_s);
    ++pos; // the single whitespace byte after the scale
    const qint64 needed = qint64(width) * height * channels * 4;
    if (pos > bytes.size() || bytes.size() - pos < needed)
        return failed(error, u"portable float map is truncated"_s);
    const bool littleEndian = scale < 0.0;
    ImageBuffer image(width, height, PixelFormat::RgbaF32);
    if (image.isNull())
        return failed(error, u"not enough memory"_s);
    const char *data = bytes.data() + pos;
    for (int row = 0; row < height; ++row) {
        auto *out = image.rowAs<float>(height - 1 - row);
        const char *in = data + qint64(row) * width * channels * 4;
        for (int x = 0; x < width; ++x) {
            for (int c = 0; c < 3; ++c) {
                const char *p = in + (qint64(x) * channels + (channels == 3 ? c : 0)) * 4;
                const quint32 bits
                    = littleEndian ? qFromLittleEndian<quint32>(p) : qFromBigEndian<quint32>(p);
                std::memcpy(&out[4 * x + c], &bits, 4);
            }
            out[4 * x + 3] = 1.0f;
        }
    }
    return image;
}

QByteArray writePortableFloatMap(const ImageBuffer &image)
{
    if (image.isNull())
        return {};
    QByteArray out = "PF\n" + QByteArray::number(image.width()) + ' '
        + QByteArray::number(image.height()) + "\n-1.0\n";
    const qsizetype header = out.size();
    out.resize(header + qsizetype(image.width()) * image.height() * 12);
    char *dst = out.data() + header;
    std::vector<float> rgb(size_t(image.width()) * 3);
    for (int row = image.height() - 1; row >= 0; --row) {
        rowAsRgbFloats(image, row, rgb.data());
        for (const float value : rgb) {
            quint32 bits;
            std::memcpy(&bits, &value, 4);
            qToLittleEndian(bits, dst);
            dst += 4;
        }
    }
    return out;
}

} // namespace orvanta
