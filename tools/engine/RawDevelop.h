// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Develops a camera RAW with LibRaw into linear light (camera white balance,
// sRGB primaries, highlights up to the sensor's clip point) and lays it over
// the camera JPG: same orientation, same framing, same size. Any thread.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace orvanta::engine {

struct RawDevelopment
{
    QImage image; // Format_RGBX64, linear, 65535 = the sensor's clip point
    double clipPct = 0.0; // share of sensor samples at the clip point, in percent
    QString error;
};

// `target`: the size of the JPG as stored; `jpgOrientation`: its Exif
// orientation, so the RAW is turned into the JPG's stored pixel order.
RawDevelopment developRaw(const QString &path, QSize target, int jpgOrientation);

// The Exif orientation that undoes `orientation`.
int inverseOrientation(int orientation);

} // namespace orvanta::engine
