// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/GainMapMetadata.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

namespace {

// Boosts beyond 2^24 or offsets beyond 16× SDR white are not photographs;
// bounding them keeps every exp2 and product finite in float arithmetic.
constexpr double kMaxLog2Magnitude = 24.0;
constexpr double kMaxOffset = 16.0;

bool isFiniteIn(double value, double low, double high)
{
    return std::isfinite(value) && value >= low && value <= high;
}

} // namespace

QString sourceName(GainMapMetadataSource source)
{
    return source == GainMapMetadataSource::Iso21496 ? QStringLiteral("iso21496-1")
                                                     : QStringLiteral("xmp");
}

QString GainMapMetadata::validationError() const
{
    if (channelCount != 1 && channelCount != 3)
        return QStringLiteral("channel count must be 1 or 3");
    for (int c = 0; c < channelCount; ++c) {
        const GainMapChannel &ch = channels[c];
        if (!isFiniteIn(ch.minLog2, -kMaxLog2Magnitude, kMaxLog2Magnitude)
            || !isFiniteIn(ch.maxLog2, -kMaxLog2Magnitude, kMaxLog2Magnitude))
            return QStringLiteral("gain map min/max out of range");
        if (ch.maxLog2 < ch.minLog2)
            return QStringLiteral("gain map max is below gain map min");
        if (!isFiniteIn(ch.gamma, 1e-6, 1e6) || ch.gamma <= 0.0)
            return QStringLiteral("gamma must be positive");
        if (!isFiniteIn(ch.offsetSdr, 0.0, kMaxOffset)
            || !isFiniteIn(ch.offsetHdr, 0.0, kMaxOffset))
            return QStringLiteral("offsets must lie between 0 and 16");
    }
    if (!isFiniteIn(hdrCapacityMinLog2, 0.0, kMaxLog2Magnitude)
        || !isFiniteIn(hdrCapacityMaxLog2, 0.0, kMaxLog2Magnitude))
        return QStringLiteral("HDR capacity out of range");
    if (baseIsHdr)
        return QStringLiteral("base rendition is HDR (not supported)");
    if (hdrCapacityMaxLog2 <= hdrCapacityMinLog2)
        return QStringLiteral("HDR capacity max must exceed capacity min");
    return {};
}

double GainMapMetadata::weightForHeadroom(double displayHeadroom) const
{
    const double span = hdrCapacityMaxLog2 - hdrCapacityMinLog2;
    if (!(span > 0.0) || std::isnan(displayHeadroom))
        return 0.0;
    if (std::isinf(displayHeadroom))
        return displayHeadroom > 0.0 ? 1.0 : 0.0;
    const double headroomLog2 = std::log2(std::max(displayHeadroom, 1.0));
    return std::clamp((headroomLog2 - hdrCapacityMinLog2) / span, 0.0, 1.0);
}

} // namespace orvanta
