// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Small images from JPEGs without a full-size decode: libjpeg-turbo's DCT
// scaling picks the smallest 1/8 step at or above the requested size, then an
// area-averaging resize gives the exact size and the EXIF orientation is
// applied. Pure functions, any thread.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace orvanta {

// The libjpeg scale numerator (over 8, 1..8) whose output's longer side is
// the smallest one that still reaches `maxPixelSize`; 8 when even the full
// size is smaller (thumbnails are never enlarged).
int jpegScaleNumerator(int width, int height, int maxPixelSize);

// The size that fits in `maxPixelSize` × `maxPixelSize` keeping the aspect
// ratio; `size` itself when it already fits.
QSize fitWithin(QSize size, int maxPixelSize);

// A null image on any failure. The orientation comes from the file's own
// Exif block unless `orientation` (1..8) is given.
QImage decodeJpegThumbnail(const QString &path, int maxPixelSize);
QImage decodeJpegThumbnail(const QByteArray &data, int maxPixelSize, int orientation = 0);

// True when the bytes begin with a JPEG start-of-image marker.
bool looksLikeJpeg(const QByteArray &head);

} // namespace orvanta
