// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/ThumbnailDecoder.h"

#include "media/ExivAdapter.h"
#include "thumbnails/ImageAdapter.h"
#include "thumbnails/JpegThumbnailDecoder.h"
#include "thumbnails/RawThumbnail.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSet>

namespace orvanta {

namespace {

using namespace Qt::StringLiterals;

QImage fitted(QImage image, int maxPixelSize)
{
    const QSize target = fitWithin(image.size(), maxPixelSize);
    if (image.isNull() || target == image.size())
        return image;
    return image.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage decodePreview(const exiv::EmbeddedPreview &preview, int maxPixelSize)
{
    // Embedded previews carry no orientation of their own: the file's applies.
    if (looksLikeJpeg(preview.data.left(3)))
        return decodeJpegThumbnail(preview.data, maxPixelSize, preview.orientation);
    QImage image;
    if (!image.loadFromData(preview.data))
        return {};
    return applyExifOrientation(fitted(std::move(image), maxPixelSize), preview.orientation);
}

QImage decodeRaw(const QString &path, int maxPixelSize)
{
    const std::optional<exiv::EmbeddedPreview> preview = exiv::embeddedPreview(path, maxPixelSize);
    if (preview && preview->largeEnough) {
        if (QImage image = decodePreview(*preview, maxPixelSize); !image.isNull())
            return image;
    }
    if (QImage image = decodeRawThumbnail(path, maxPixelSize); !image.isNull())
        return image;
    // A preview smaller than asked for still beats a placeholder.
    if (preview && !preview->largeEnough)
        return decodePreview(*preview, maxPixelSize);
    return {};
}

// Formats Qt decodes only in full (PNG, TIFF, WebP): the reader scales after
// decoding. Its allocation limit keeps hostile headers from exhausting memory.
QImage decodeWithQt(const QString &path, int maxPixelSize)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QSize stored = reader.size();
    if (stored.isValid()) {
        // The scaled size applies before the orientation, so fit the stored size.
        const QSize target = fitWithin(stored, maxPixelSize);
        if (target != stored)
            reader.setScaledSize(target);
    }
    QImage image = reader.read();
    if (image.isNull())
        return {};
    // Readers without a size up front (or that ignore the scaled size) still
    // must not hand back more than was asked for.
    return fitted(std::move(image), maxPixelSize);
}

} // namespace

bool isRawFileName(const QString &path)
{
    static const QSet<QString> suffixes = {
        u"3fr"_s, u"arw"_s, u"cr2"_s, u"cr3"_s, u"crw"_s, u"dcr"_s, u"dng"_s, u"erf"_s, u"iiq"_s,
        u"k25"_s, u"kdc"_s, u"mef"_s, u"mos"_s, u"mrw"_s, u"nef"_s, u"nrw"_s, u"orf"_s, u"pef"_s,
        u"raf"_s, u"raw"_s, u"rw2"_s, u"rwl"_s, u"sr2"_s, u"srf"_s, u"srw"_s, u"x3f"_s,
    };
    return suffixes.contains(QFileInfo(path).suffix().toLower());
}

ThumbnailResult decodeThumbnail(const QString &path, int maxPixelSize)
{
    if (maxPixelSize < 1)
        return ThumbnailResult::decodeError();
    QByteArray head;
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return QFileInfo::exists(path) ? ThumbnailResult::decodeError()
                                           : ThumbnailResult::missingOnDisk();
        head = file.read(16);
    }
    QImage image;
    if (looksLikeJpeg(head))
        image = decodeJpegThumbnail(path, maxPixelSize);
    else if (isRawFileName(path))
        image = decodeRaw(path, maxPixelSize);
    else
        image = decodeWithQt(path, maxPixelSize);
    if (image.isNull())
        return ThumbnailResult::decodeError();
    return ThumbnailResult::success(std::move(image));
}

} // namespace orvanta
