// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/GainMapApplier.h"

#include "hdr/codec/UltraHdrDecoder.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

namespace {

// Largest finite half float: brighter values would become infinity.
constexpr float kHalfMax = 65504.0f;

// Sample position in the map for a pixel centre of the base, clamped at the edges.
float mapCoordinate(int pixel, int baseSize, int mapSize)
{
    const float at = (float(pixel) + 0.5f) * float(mapSize) / float(baseSize) - 0.5f;
    return std::clamp(at, 0.0f, float(mapSize - 1));
}

} // namespace

GainMapApplier::GainMapApplier(int baseWidth, int baseHeight, const GainMapMetadata *metadata,
                               double weight, const GainMapPlane *map)
    : m_width(baseWidth)
    , m_height(baseHeight)
{
    for (int v = 0; v < 256; ++v)
        m_linear[v] = srgbToLinear(float(v) / 255.0f);
    if (!metadata || !map || !(weight > 0.0) || map->width <= 0 || map->height <= 0)
        return;
    m_map = map;
    m_gain.resize(3 * kLutSize);
    for (int c = 0; c < 3; ++c) {
        const GainMapChannel &ch = metadata->channel(c);
        m_offsetSdr[c] = float(ch.offsetSdr);
        m_offsetHdr[c] = float(ch.offsetHdr);
        for (int q = 0; q < kLutSize; ++q) {
            const double recovery = std::pow(double(q) / (kLutSize - 1), 1.0 / ch.gamma);
            const double logBoost = ch.minLog2 * (1.0 - recovery) + ch.maxLog2 * recovery;
            m_gain[c * kLutSize + q] = float(std::exp2(std::clamp(logBoost * weight, -24.0, 24.0)));
        }
    }
    m_sharedGain = metadata->channelCount == 1;
    m_x0.resize(baseWidth);
    m_x1.resize(baseWidth);
    m_fx.resize(baseWidth);
    for (int x = 0; x < baseWidth; ++x) {
        const float at = mapCoordinate(x, baseWidth, map->width);
        m_x0[x] = int(at);
        m_x1[x] = std::min(m_x0[x] + 1, map->width - 1);
        m_fx[x] = at - float(m_x0[x]);
    }
}

int GainMapApplier::scratchSize() const
{
    return m_map ? m_map->width * m_map->components : 0;
}

// The map row for base row `y`, interpolated vertically into `scratch`.
void GainMapApplier::mapRow(int y, float *scratch) const
{
    const float at = mapCoordinate(y, m_height, m_map->height);
    const int y0 = int(at);
    const int y1 = std::min(y0 + 1, m_map->height - 1);
    const float fy = at - float(y0);
    const qsizetype stride = qsizetype(m_map->width) * m_map->components;
    const std::uint8_t *r0 = m_map->pixels.data() + y0 * stride;
    const std::uint8_t *r1 = m_map->pixels.data() + y1 * stride;
    for (qsizetype i = 0; i < stride; ++i)
        scratch[i] = float(r0[i]) + (float(r1[i]) - float(r0[i])) * fy;
}

void GainMapApplier::convertRow(const std::uint8_t *rgb, int y, float *out, float *scratch) const
{
    if (!m_map) {
        for (int x = 0; x < m_width; ++x) {
            out[4 * x] = m_linear[rgb[3 * x]];
            out[4 * x + 1] = m_linear[rgb[3 * x + 1]];
            out[4 * x + 2] = m_linear[rgb[3 * x + 2]];
            out[4 * x + 3] = 1.0f;
        }
        return;
    }
    mapRow(y, scratch);
    constexpr float toIndex = float(kLutSize - 1) / 255.0f;
    const int comps = m_map->components;
    const float *lut[3] = { m_gain.data(), m_gain.data() + kLutSize, m_gain.data() + 2 * kLutSize };
    if (comps == 1 && m_sharedGain) { // one gain for all three channels: look it up once
        for (int x = 0; x < m_width; ++x) {
            const float f = m_fx[x];
            const float v = scratch[m_x0[x]] + (scratch[m_x1[x]] - scratch[m_x0[x]]) * f;
            const float gain = lut[0][int(v * toIndex + 0.5f)];
            for (int c = 0; c < 3; ++c) {
                const float hdr
                    = (m_linear[rgb[3 * x + c]] + m_offsetSdr[c]) * gain - m_offsetHdr[c];
                out[4 * x + c] = std::min(std::max(hdr, 0.0f), kHalfMax);
            }
            out[4 * x + 3] = 1.0f;
        }
        return;
    }
    for (int x = 0; x < m_width; ++x) {
        const int i0 = m_x0[x] * comps, i1 = m_x1[x] * comps;
        const float f = m_fx[x];
        for (int c = 0; c < 3; ++c) {
            const int k = comps == 3 ? c : 0;
            const float v = scratch[i0 + k] + (scratch[i1 + k] - scratch[i0 + k]) * f;
            const float gain = lut[c][int(v * toIndex + 0.5f)];
            const float hdr = (m_linear[rgb[3 * x + c]] + m_offsetSdr[c]) * gain - m_offsetHdr[c];
            out[4 * x + c] = std::min(std::max(hdr, 0.0f), kHalfMax);
        }
        out[4 * x + 3] = 1.0f;
    }
}

} // namespace orvanta
