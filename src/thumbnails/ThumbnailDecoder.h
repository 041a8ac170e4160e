// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Turns one image file into a thumbnail whose longer side is at most the
// requested size, choosing the cheapest faithful route for the format. Runs on
// the thumbnail loader thread; a pure function.
#pragma once

#include "thumbnails/ThumbnailResult.h"

#include <QString>

namespace orvanta {

// JPEG (by content, whatever the name): DCT-scaled decode. RAW (by file name
// suffix): the embedded preview, through exiv2, else LibRaw. Anything else
// Qt reads (PNG, TIFF, WebP...): Qt's reader at the target size. The EXIF
// orientation is applied on every route. Never a full RAW demosaic.
ThumbnailResult decodeThumbnail(const QString &path, int maxPixelSize);

// Whether the file name carries a camera RAW suffix (case-insensitive).
bool isRawFileName(const QString &path);

} // namespace orvanta
