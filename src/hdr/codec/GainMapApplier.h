// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Turns decoded 8-bit rows of the primary into linear light, boosted by the
// gain map: the per-pixel arithmetic of Ultra HDR decoding, with the map
// upsampled bilinearly and every transcendental function in a lookup table.
// Immutable after construction, so several threads may convert rows at once.
#pragma once

#include "hdr/codec/GainMapMetadata.h"

#include <array>
#include <cstdint>
#include <vector>

namespace orvanta {

struct GainMapPlane
{
    std::vector<std::uint8_t> pixels; // rows of width × components bytes
    int width = 0;
    int height = 0;
    int components = 0; // 1 or 3
};

class GainMapApplier
{
public:
    // Without a map (or with weight 0) rows are only linearised.
    GainMapApplier(int baseWidth, int baseHeight, const GainMapMetadata *metadata, double weight,
                   const GainMapPlane *map);

    // Floats of scratch space convertRow() needs.
    int scratchSize() const;
    // `rgb`: one source row (3 bytes a pixel); `out`: 4 floats a pixel (alpha 1).
    void convertRow(const std::uint8_t *rgb, int y, float *out, float *scratch) const;

private:
    static constexpr int kLutSize = 4096;
    void mapRow(int y, float *scratch) const;

    int m_width = 0;
    int m_height = 0;
    const GainMapPlane *m_map = nullptr;
    bool m_sharedGain = false; // one set of values for all channels
    std::array<float, 256> m_linear {};
    std::vector<float> m_gain; // 3 × kLutSize factors, by map value
    std::array<float, 3> m_offsetSdr {};
    std::array<float, 3> m_offsetHdr {};
    std::vector<int> m_x0, m_x1;
    std::vector<float> m_fx;
};

} // namespace orvanta
