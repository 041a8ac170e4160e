// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media/MetadataService.h"

#include "media/ExivAdapter.h"

#include <QFileInfo>
#include <QThreadPool>

namespace orvanta {

namespace {

std::optional<QString> trimmed(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    // An all-blank value stays as an empty string rather than becoming absent.
    return text->trimmed();
}

} // namespace

QThreadPool &MetadataService::pool()
{
    // Never destroyed: a worker may still wait on a file or a lock when the
    // application exits, and nothing should wait for it then.
    static QThreadPool *const pool = [] {
        auto *p = new QThreadPool;
        p->setObjectName(QStringLiteral("orvanta.metadata"));
        p->setMaxThreadCount(2);
        return p;
    }();
    return *pool;
}

MetadataService &MetadataService::shared()
{
    static MetadataService instance;
    return instance;
}

MetadataService::MetadataService()
{
    exiv::initializeExiv2();
}

ProPhotoMetadata MetadataService::extractMetadata(const QString &path) const
{
    ProPhotoMetadata metadata;
    if (path.isNull())
        return metadata;

    const QFileInfo info(path);
    if (info.exists())
        metadata.fileSizeBytes = info.size();

    const std::optional<exiv::ExifTags> tags = exiv::readTags(path);
    if (!tags)
        return metadata;

    metadata.pixelWidth = tags->pixelWidth;
    metadata.pixelHeight = tags->pixelHeight;
    metadata.cameraMake = trimmed(tags->make);
    metadata.cameraModel = trimmed(tags->model);
    metadata.lensModel = trimmed(tags->lensModel);
    metadata.aperture = tags->fNumber;
    metadata.shutterSpeed = tags->exposureTime;
    metadata.focalLength = tags->focalLength;
    metadata.focalLength35mm = tags->focalLength35mm;
    metadata.exposureBias = tags->exposureBias;
    metadata.iso = tags->iso;
    // The capture time wins over the TIFF modification time; both as stored.
    metadata.dateTimeOriginal = tags->dateTimeOriginal ? tags->dateTimeOriginal : tags->dateTime;
    return metadata;
}

} // namespace orvanta
