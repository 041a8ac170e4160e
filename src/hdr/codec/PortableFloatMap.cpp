// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/PortableFloatMap.h"

#include <QBuffer>
#include <QtCore/qfloat16.h>
#include <QtEndian>

#include <cctype>
#include <cmath>
#include <cstring>
#include <unistd.h>
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

// Little-endian RGB floats of row `y`, as the writer stores them.
void encodeRow(const ImageBuffer &image, int y, float *rgb, char *dst)
{
    rowAsRgbFloats(image, y, rgb);
    for (qsizetype i = 0; i < qsizetype(image.width()) * 3; ++i) {
        quint32 bits;
        std::memcpy(&bits, &rgb[i], 4);
        qToLittleEndian(bits, dst + 4 * i);
    }
}

bool parseHeader(QByteArrayView bytes, PortableFloatMapHeader &header, QString *error)
{
    qsizetype pos = 0;
    const QByteArrayView magic = token(bytes, pos);
    header.channels = magic == "PF" ? 3 : magic == "Pf" ? 1 : 0;
    if (header.channels == 0) {
        failed(error, u"not a portable float map"_s);
        return false;
    }
    bool okW = false, okH = false, okS = false;
    header.width = token(bytes, pos).toInt(&okW);
    header.height = token(bytes, pos).toInt(&okH);
    const double scale = token(bytes, pos).toDouble(&okS);
    if (!okW || !okH || !okS || header.width <= 0 || header.height <= 0 || scale == 0.0
        || !std::isfinite(scale) || qint64(header.width) * header.height > (1ll << 28)) {
        failed(error, u"portable float map header is invalid"_s);
        return false;
    }
    header.littleEndian = scale < 0.0;
    header.dataOffset = pos + 1; // the single whitespace byte after the scale
    return true;
}

} // namespace

void PortableFloatMapHeader::decodeRow(const char *in, float *rgba) const
{
    for (int x = 0; x < width; ++x) {
        for (int c = 0; c < 3; ++c) {
            const char *p = in + (qint64(x) * channels + (channels == 3 ? c : 0)) * 4;
            const quint32 bits
                = littleEndian ? qFromLittleEndian<quint32>(p) : qFromBigEndian<quint32>(p);
            std::memcpy(&rgba[4 * x + c], &bits, 4);
        }
        rgba[4 * x + 3] = 1.0f;
    }
}

ImageBuffer readPortableFloatMap(QByteArrayView bytes, QString *error)
{
    PortableFloatMapHeader header;
    if (!parseHeader(bytes, header, error))
        return {};
    if (bytes.size() - header.dataOffset < header.dataSize())
        return failed(error, u"portable float map is truncated"_s);
    ImageBuffer image(header.width, header.height, PixelFormat::RgbaF32);
    if (image.isNull())
        return failed(error, u"not enough memory"_s);
    for (int y = 0; y < header.height; ++y)
        header.decodeRow(bytes.data() + header.dataOffset + header.rowOffset(y),
                         image.rowAs<float>(y));
    return image;
}

bool PortableFloatMapReader::open(const QString &path, QString *error)
{
    m_file.setFileName(path);
    if (!m_file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = m_file.errorString();
        return false;
    }
    // Headers are a few dozen bytes; whatever follows them is pixels.
    const QByteArray start = m_file.read(256);
    if (!parseHeader(start, m_header, error))
        return false;
    if (m_file.size() - m_header.dataOffset < m_header.dataSize()) {
        if (error)
            *error = u"portable float map is truncated"_s;
        return false;
    }
    return true;
}

bool PortableFloatMapReader::readRow(int y, float *rgba) const
{
    const qsizetype size = qsizetype(m_header.width) * m_header.channels * 4;
    std::vector<char> raw(size_t(size), 0);
    const qint64 offset = m_header.dataOffset + m_header.rowOffset(y);
    qsizetype done = 0;
    while (done < size) {
        // pread leaves the file position alone, so threads may read rows at once.
        const ssize_t n = ::pread(m_file.handle(), raw.data() + done, size_t(size - done),
                                  off_t(offset + done));
        if (n <= 0)
            return false;
        done += n;
    }
    m_header.decodeRow(raw.data(), rgba);
    return true;
}

bool writePortableFloatMap(const ImageBuffer &image, QIODevice &device)
{
    if (image.isNull())
        return false;
    const QByteArray header = "PF\n" + QByteArray::number(image.width()) + ' '
        + QByteArray::number(image.height()) + "\n-1.0\n";
    if (device.write(header) != header.size())
        return false;
    QByteArray row(qsizetype(image.width()) * 12, Qt::Uninitialized);
    std::vector<float> rgb(size_t(image.width()) * 3);
    for (int y = image.height() - 1; y >= 0; --y) {
        encodeRow(image, y, rgb.data(), row.data());
        if (device.write(row) != row.size())
            return false;
    }
    return true;
}

QByteArray writePortableFloatMap(const ImageBuffer &image)
{
    QByteArray out;
    QBuffer buffer(&out);
    buffer.open(QIODevice::WriteOnly);
    if (!writePortableFloatMap(image, buffer))
        return {};
    return out;
}

} // namespace orvanta
