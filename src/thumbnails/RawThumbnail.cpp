// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/RawThumbnail.h"

#include "thumbnails/ImageAdapter.h"
#include "thumbnails/JpegThumbnailDecoder.h"

#include <QByteArray>
#include <QFile>

#include <libraw/libraw.h>
#include <memory>

namespace orvanta {

namespace {

// Camera previews are at most a few megabytes; a larger length is a broken
// or hostile file.
constexpr qint64 MaxThumbnailBytes = 64 * 1024 * 1024;

QImage bitmapImage(const libraw_processed_image_t &bitmap)
{
    if (bitmap.bits != 8 || (bitmap.colors != 3 && bitmap.colors != 1))
        return {};
    const qint64 needed = qint64(bitmap.width) * bitmap.height * bitmap.colors;
    if (bitmap.width < 1 || bitmap.height < 1 || needed > qint64(bitmap.data_size))
        return {};
    const auto format = bitmap.colors == 3 ? QImage::Format_RGB888 : QImage::Format_Grayscale8;
    const QImage view(bitmap.data, bitmap.width, bitmap.height,
                      qsizetype(bitmap.width) * bitmap.colors, format);
    return view.convertToFormat(QImage::Format_RGB32); // a deep copy: LibRaw frees the data
}

QImage decodeWith(LibRaw &raw, const QString &path, int maxPixelSize)
{
    if (raw.open_file(QFile::encodeName(path).constData()) != LIBRAW_SUCCESS)
        return {};
    if (raw.imgdata.thumbnail.tlength == 0 || raw.imgdata.thumbnail.tlength > MaxThumbnailBytes)
        return {};
    if (raw.unpack_thumb() != LIBRAW_SUCCESS)
        return {};
    int error = LIBRAW_SUCCESS;
    libraw_processed_image_t *thumb = raw.dcraw_make_mem_thumb(&error);
    if (!thumb)
        return {};
    const std::unique_ptr<libraw_processed_image_t, void (*)(libraw_processed_image_t *)> owner(
        thumb, LibRaw::dcraw_clear_mem);
    const int orientation = exifOrientationFromLibRawFlip(raw.imgdata.sizes.flip);
    if (thumb->type == LIBRAW_IMAGE_JPEG) {
        const QByteArray jpeg = QByteArray::fromRawData(reinterpret_cast<const char *>(thumb->data),
                                                        qsizetype(thumb->data_size));
        return decodeJpegThumbnail(jpeg, maxPixelSize, orientation);
    }
    if (thumb->type != LIBRAW_IMAGE_BITMAP)
        return {};
    QImage image = bitmapImage(*thumb);
    const QSize target = fitWithin(image.size(), maxPixelSize);
    if (!image.isNull() && target != image.size())
        image = image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return applyExifOrientation(std::move(image), orientation);
}

} // namespace

int exifOrientationFromLibRawFlip(int flip)
{
    switch (flip) {
    case 3:
        return 3;
    case 5:
        return 8;
    case 6:
        return 6;
    default:
        return 1;
    }
}

QImage decodeRawThumbnail(const QString &path, int maxPixelSize)
{
    try {
        // LibRaw's state is several hundred kilobytes: keep it off the stack.
        const auto raw = std::make_unique<LibRaw>(0);
        return decodeWith(*raw, path, maxPixelSize);
    } catch (...) {
        // LibRaw reports through return codes, but allocation can still throw.
        return {};
    }
}

} // namespace orvanta
