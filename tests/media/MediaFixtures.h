// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Image files the media tests write for themselves: JPEGs and PNGs from
// QImage, Exif tags written through exiv2, and a small DNG (a TIFF container
// with a DNG version tag, a tiny RGB strip and an embedded JPEG preview).
#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QList>
#include <QString>

namespace orvanta::test {

// One Exif tag: its exiv2 key, its TIFF type name as exiv2 spells it
// ("Ascii", "Short", "Rational", "SRational", "Long") and its value as text
// ("14/5", "200 400").
struct ExifTag
{
    const char *key;
    const char *type;
    QString value;
};

// Left half `left`, right half `right`: orientation tests can tell the sides apart.
QImage twoToneImage(int width, int height, QColor left, QColor right);

bool writeJpeg(const QString &path, const QImage &image, int quality = 90);
bool writePng(const QString &path, const QImage &image);
bool writeFile(const QString &path, const QByteArray &bytes);

// Adds or replaces the tags in an existing file; false on any exiv2 error.
bool writeExif(const QString &path, const QList<ExifTag> &tags);
// Embeds `jpeg` as the file's Exif thumbnail (IFD1).
bool writeExifThumbnail(const QString &path, const QByteArray &jpeg);

// A DNG of `width` × `height` RGB pixels whose Exif carries `tags` and whose
// embedded preview is `preview` (JPEG-encoded); empty preview: none embedded.
bool writeDng(const QString &path, int width, int height, const QList<ExifTag> &tags,
              const QImage &preview);

QByteArray jpegBytes(const QImage &image, int quality = 90);

} // namespace orvanta::test
