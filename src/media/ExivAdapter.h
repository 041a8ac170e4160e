// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every call into exiv2 lives behind these functions, so a move to exiv2 0.28
// (renamed accessors, new error types) touches one file. Nothing here throws;
// a file exiv2 cannot read gives "none". Any thread, after initializeExiv2().
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvanta::exiv {

// Mutes exiv2's console output, enables ISO base media (CR3) parsing and gives
// the XMP toolkit a lock, which it needs before two threads may read files
// with XMP. Idempotent and thread-safe; call it early on the main thread.
void initializeExiv2();

// The raw TIFF and Exif tags the application uses. A tag whose value has the
// wrong type (text where a number belongs, say) is left absent.
struct ExifTags
{
    std::optional<int> pixelWidth;
    std::optional<int> pixelHeight;
    std::optional<QString> make; // untrimmed, cut at the first NUL
    std::optional<QString> model;
    std::optional<QString> lensModel;
    std::optional<QString> dateTime; // Exif.Image.DateTime
    std::optional<QString> dateTimeOriginal;
    std::optional<double> fNumber;
    std::optional<double> exposureTime;
    std::optional<double> focalLength;
    std::optional<double> focalLength35mm;
    std::optional<double> exposureBias;
    std::optional<int> iso; // the first value when the tag holds several
    std::optional<int> orientation; // 1..8
};

std::optional<ExifTags> readTags(const QString &path);

// An image embedded in the file (a RAW's JPEG preview, an Exif thumbnail).
struct EmbeddedPreview
{
    QByteArray data;
    QByteArray mimeType; // "image/jpeg", "image/tiff", ...
    int width = 0; // 0 when the container does not say
    int height = 0;
    int orientation = 1; // the file's Exif orientation; previews carry none of their own
    bool largeEnough = false; // its longer side reaches the requested size
};

// The smallest embedded preview whose longer side is at least `minLongSide`,
// else the largest there is; none when the file embeds none or cannot be read.
std::optional<EmbeddedPreview> embeddedPreview(const QString &path, int minLongSide);

} // namespace orvanta::exiv
