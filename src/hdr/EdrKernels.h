// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The viewer's two per-pixel kernels as plain C++: the filmic roll-off that
// compresses HDR highlights for an SDR display, and the zebra overlay that
// marks pixels whose HDR luminance passes a threshold. The GLSL versions the
// renderer runs (also here) are checked against these. Pure; any thread.
#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace orvanta::edr {

struct Rgba
{
    float r = 0, g = 0, b = 0, a = 1;
    friend bool operator==(const Rgba &, const Rgba &) = default;
};

// max(0, c) / (1 + 0.35 c) × 1.35, clamped to 0...1; alpha kept.
float filmicCurve(float value);
Rgba filmicRollOff(Rgba pixel);

// Amber (1, 0.82, 0) or near-black (0.06, 0.06, 0.06) diagonal stripes, 8
// pixels wide, where the HDR reference's luminance reaches `threshold`;
// otherwise (or when `enabled` < 0.5) the display pixel unchanged.
Rgba zebraFilter(Rgba display, Rgba hdrReference, int x, int y, float threshold, float enabled);

// Shadow stripes: blue (0.1, 0.45, 1) or near-black on the other diagonal,
// 8 pixels wide, where the HDR reference's luminance lies below `threshold`.
Rgba shadowZebraFilter(Rgba display, Rgba hdrReference, int x, int y, float threshold,
                       float enabled);

// The mipmap levels 1, 2, ... down to 1x1 of an RGBA16FPx4 picture, each half
// the size of the one before (rounded down, at least 1, as OpenGL sizes them),
// every pixel the mean of the 2x2 block it covers (an odd last row or column
// is left out). Computed here because software OpenGL builds them slowly.
std::vector<QImage> reducedLevels(const QImage &picture);

// GLSL ES 3.0 / GLSL 3.30 function bodies with the same arithmetic.
QString filmicRollOffGlsl();
QString zebraFilterGlsl();
QString shadowZebraFilterGlsl();

} // namespace orvanta::edr
