// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The values that say how a gain map turns the SDR base into the HDR rendition,
// whichever block of the file (ISO 21496-1 or Adobe hdrgm XMP) they came from.
// Plain values; any thread.
#pragma once

#include <QString>

#include <array>

namespace orvanta {

enum class GainMapMetadataSource {
    Iso21496, // the binary ISO 21496-1 block of the gain map image
    Xmp, // the hdrgm properties of the gain map image's XMP
};

QString sourceName(GainMapMetadataSource source); // "iso21496-1" or "xmp"

// One colour channel of the map (or all three when the metadata has one).
// Boosts and capacities are log2 values; gamma and offsets are linear.
struct GainMapChannel
{
    double minLog2 = 0.0;
    double maxLog2 = 1.0;
    double gamma = 1.0;
    double offsetSdr = 1.0 / 64.0;
    double offsetHdr = 1.0 / 64.0;

    friend bool operator==(const GainMapChannel &, const GainMapChannel &) = default;
};

struct GainMapMetadata
{
    GainMapMetadataSource source = GainMapMetadataSource::Iso21496;
    // "1.0" for hdrgm, "<minimum>.<writer>" version numbers for ISO blocks.
    QString version = QStringLiteral("1.0");
    int channelCount = 1; // 1 or 3 sets of values
    std::array<GainMapChannel, 3> channels {};
    double hdrCapacityMinLog2 = 0.0; // ISO: base HDR headroom
    double hdrCapacityMaxLog2 = 1.0; // ISO: alternate HDR headroom
    bool useBaseColourSpace = true;
    bool baseIsHdr = false;

    const GainMapChannel &channel(int c) const { return channels[channelCount == 3 ? c : 0]; }

    // Empty when every value is usable; otherwise why not (English, for logs
    // and the command-line tool). Non-finite values, zero or negative gamma,
    // max below min, capacities out of order and absurd magnitudes all fail.
    QString validationError() const;
    bool isValid() const { return validationError().isEmpty(); }

    // How much of the map applies at a display headroom (linear ratio, >= 1):
    // 0 at or below the minimum capacity, 1 at or above the maximum.
    double weightForHeadroom(double displayHeadroom) const;

    friend bool operator==(const GainMapMetadata &, const GainMapMetadata &) = default;
};

} // namespace orvanta
