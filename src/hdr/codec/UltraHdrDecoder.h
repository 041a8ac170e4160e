// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Decodes an Ultra HDR file (or any JPEG) into linear, extended-range RGBA
// half floats, applying the gain map at a chosen display headroom and the
// EXIF orientation. Runs on the calling thread and one helper thread per extra
// core; safe to call from any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"
#include "hdr/codec/UltraHdrLayout.h"

#include <QByteArrayView>
#include <QString>

#include <limits>

namespace orvanta {

struct UltraHdrDecodeOptions
{
    // Display headroom (HDR white / SDR white). Infinity applies the map at
    // full weight, as the viewer does; 1.0 gives the SDR rendition.
    double displayHeadroom = std::numeric_limits<double>::infinity();
    bool applyGainMap = true;
    qint64 maxPixels = 1ll << 28; // larger primaries or maps are refused
    int threads = 0; // 0: one per core
};

struct UltraHdrDecodeResult
{
    // RgbaF16, linear light in the base image's primaries, 1.0 = SDR white,
    // oriented for display; null when decoding failed.
    ImageBuffer image;
    UltraHdrLayout layout;
    bool gainMapApplied = false;
    double weight = 0.0; // how much of the map was applied (0...1)
    QString gainMapIssue; // why the map was not applied, when it was not
    QString error; // why there is no image at all
};

UltraHdrDecodeResult decodeUltraHdr(QByteArrayView data, const UltraHdrDecodeOptions &options = {});
UltraHdrDecodeResult decodeUltraHdrFile(const QString &path,
                                        const UltraHdrDecodeOptions &options = {});

// sRGB transfer: 8-bit code value to linear light, and linear back to a code value.
float srgbToLinear(float encoded);
float linearToSrgb(float linear);

} // namespace orvanta
