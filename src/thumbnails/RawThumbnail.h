// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The camera's own preview inside a RAW file, read with LibRaw (thread-safe
// build) when exiv2 finds none large enough. Never demosaics. Any thread.
#pragma once

#include <QImage>
#include <QString>

namespace orvanta {

// The embedded thumbnail fitted within `maxPixelSize` and turned upright;
// a null image when LibRaw cannot open the file or it embeds no preview.
QImage decodeRawThumbnail(const QString &path, int maxPixelSize);

// LibRaw's `flip` value as an EXIF orientation (LibRaw: 3 = 180°,
// 5 = 90° counter-clockwise, 6 = 90° clockwise).
int exifOrientationFromLibRawFlip(int flip);

} // namespace orvanta
