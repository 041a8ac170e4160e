// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Develops a camera RAW with LibRaw into linear light (camera white balance,
// sRGB primaries, highlights up to the sensor's clip point) and lays it over
// the camera JPG: same orientation, same framing, same size. Any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QSize>
#include <QString>

namespace orvanta::engine {

struct RawDevelopment
{
    ImageBuffer image; // Rgbx16, linear, 65535 = the sensor's clip point
    double clipPct = 0.0; // share of sensor samples at the clip point, in percent
    double baselineStops = 0.0; // DNG BaselineExposure: how much brighter the maker meant it
    double decodeSec = 0.0, developSec = 0.0, alignSec = 0.0; // time of each step
    QString error;
};

// `jpg`: the JPG as stored (Rgb8, any size: the RAW is framed and scaled
// to it); `jpgOrientation`: its Exif orientation, so the RAW is turned into
// the JPG's stored pixel order. `threads`: how many the search for the JPG's
// frame may use.
RawDevelopment developRaw(const QString &path, const ImageBuffer &jpg, int jpgOrientation,
                          int threads = 1);

// The Exif orientation that undoes `orientation`.
int inverseOrientation(int orientation);

} // namespace orvanta::engine
