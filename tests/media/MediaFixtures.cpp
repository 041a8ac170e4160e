// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "MediaFixtures.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QPainter>

#include <exiv2/exiv2.hpp>

namespace orvanta::test {

QImage twoToneImage(int width, int height, QColor left, QColor right)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(right);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height, left);
    return image;
}

bool writeJpeg(const QString &path, const QImage &image, int quality)
{
    return image.save(path, "JPEG", quality);
}

bool writePng(const QString &path, const QImage &image)
{
    return image.save(path, "PNG");
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray jpegBytes(const QImage &image, int quality)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", quality);
    return bytes;
}

namespace {

void addTags(Exiv2::ExifData &exif, const QList<ExifTag> &tags)
{
    for (const ExifTag &tag : tags) {
        const Exiv2::ExifKey key(tag.key);
        auto value = Exiv2::Value::create(Exiv2::TypeInfo::typeId(tag.type));
        value->read(tag.value.toStdString());
        exif.erase(std::remove_if(exif.begin(), exif.end(),
                                  [&](const Exiv2::Exifdatum &d) { return d.key() == key.key(); }),
                   exif.end());
        exif.add(key, value.get());
    }
}

// A minimal little-endian TIFF: IFD0 with an uncompressed RGB strip and the
// DNG version tag, which is what makes readers treat it as a DNG.
QByteArray minimalDng(int width, int height)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    const quint32 pixelBytes = quint32(width * height * 3);
    struct Entry
    {
        quint16 tag, type;
        quint32 count, value;
    };
    const quint32 stripOffset = 8;
    const quint32 bitsOffset = stripOffset + pixelBytes;
    const quint32 ifdOffset = bitsOffset + 6;
    const QList<Entry> entries = {
        { 254, 4, 1, 0 }, // NewSubfileType: the main image
        { 256, 4, 1, quint32(width) }, // ImageWidth
        { 257, 4, 1, quint32(height) }, // ImageLength
        { 258, 3, 3, bitsOffset }, // BitsPerSample 8,8,8
        { 259, 3, 1, 1 }, // Compression: none
        { 262, 3, 1, 34892 }, // Photometric: LinearRaw (demosaiced RGB)
        { 273, 4, 1, stripOffset }, // StripOffsets
        { 277, 3, 1, 3 }, // SamplesPerPixel
        { 278, 4, 1, quint32(height) }, // RowsPerStrip
        { 279, 4, 1, pixelBytes }, // StripByteCounts
        { 50706, 1, 4, 0x00000401 }, // DNGVersion 1.4.0.0
    };
    out.writeRawData("II", 2);
    out << quint16(42) << ifdOffset;
    for (quint32 i = 0; i < pixelBytes; ++i)
        out << quint8(i % 3 == 0 ? 200 : 40);
    out << quint16(8) << quint16(8) << quint16(8);
    out << quint16(entries.size());
    for (const Entry &e : entries) {
        out << e.tag << e.type << e.count;
        if (e.type == 3 && e.count == 1)
            out << quint16(e.value) << quint16(0);
        else
            out << e.value;
    }
    out << quint32(0);
    return bytes;
}

} // namespace

bool writeExif(const QString &path, const QList<ExifTag> &tags)
{
    try {
        auto image = Exiv2::ImageFactory::open(path.toStdString());
        image->readMetadata();
        Exiv2::ExifData exif = image->exifData();
        addTags(exif, tags);
        image->setExifData(exif);
        image->writeMetadata();
        return true;
    } catch (const std::exception &e) {
        qWarning("exiv2: %s", e.what());
        return false;
    }
}

bool writeExifThumbnail(const QString &path, const QByteArray &jpeg)
{
    try {
        auto image = Exiv2::ImageFactory::open(path.toStdString());
        image->readMetadata();
        Exiv2::ExifData exif = image->exifData();
        Exiv2::ExifThumb thumb(exif);
        thumb.setJpegThumbnail(reinterpret_cast<const Exiv2::byte *>(jpeg.constData()),
                               long(jpeg.size()));
        image->setExifData(exif);
        image->writeMetadata();
        return true;
    } catch (const std::exception &e) {
        qWarning("exiv2: %s", e.what());
        return false;
    }
}

bool writeDng(const QString &path, int width, int height, const QList<ExifTag> &tags,
              const QImage &preview)
{
    if (!writeFile(path, minimalDng(width, height)) || !writeExif(path, tags))
        return false;
    return preview.isNull() || writeExifThumbnail(path, jpegBytes(preview));
}

} // namespace orvanta::test
