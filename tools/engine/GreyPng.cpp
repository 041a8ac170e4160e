// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "GreyPng.h"

#include <QFile>
#include <QtEndian>

#include <vector>
#include <zlib.h>

namespace orvanta::engine {

namespace {

// One chunk: length, type, data and the CRC over type and data.
void appendChunk(QByteArray &out, const char (&type)[5], const QByteArray &data)
{
    char word[4];
    qToBigEndian(quint32(data.size()), word);
    out.append(word, 4);
    const qsizetype start = out.size();
    out.append(type, 4);
    out.append(data);
    const uLong crc = crc32(0, reinterpret_cast<const Bytef *>(out.constData() + start),
                            uInt(out.size() - start));
    qToBigEndian(quint32(crc), word);
    out.append(word, 4);
}

} // namespace

QByteArray greyPng(const ImageBuffer &grey)
{
    if (grey.isNull() || grey.format() != PixelFormat::Gray8)
        return {};
    const int w = grey.width(), h = grey.height();
    // Each row starts with its filter type; 0 leaves the bytes as they are.
    std::vector<Bytef> raw(size_t(w + 1) * h);
    for (int y = 0; y < h; ++y) {
        raw[size_t(y) * (w + 1)] = 0;
        std::copy_n(grey.row(y), w, raw.data() + size_t(y) * (w + 1) + 1);
    }
    uLongf packedSize = compressBound(uLong(raw.size()));
    QByteArray packed(qsizetype(packedSize), Qt::Uninitialized);
    if (compress2(reinterpret_cast<Bytef *>(packed.data()), &packedSize, raw.data(),
                  uLong(raw.size()), Z_DEFAULT_COMPRESSION)
        != Z_OK)
        return {};
    packed.truncate(qsizetype(packedSize));

    QByteArray header(13, '\0');
    qToBigEndian(quint32(w), header.data());
    qToBigEndian(quint32(h), header.data() + 4);
    header[8] = 8; // bits per sample; colour type 0 (grey), deflate, no filter choice, no interlace
    QByteArray out("\x89PNG\r\n\x1a\n", 8);
    appendChunk(out, "IHDR", header);
    appendChunk(out, "IDAT", packed);
    appendChunk(out, "IEND", {});
    return out;
}

bool writeGreyPng(const ImageBuffer &grey, const QString &path)
{
    const QByteArray bytes = greyPng(grey);
    QFile file(path);
    return !bytes.isEmpty() && file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace orvanta::engine
