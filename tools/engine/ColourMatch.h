// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fits the developed RAW's colours to the camera JPG's: a 3x3 matrix (with
// the exposure in it) and a tone correction along luminance, found over the
// pixels both pictures hold without clipping. Pure functions, any thread.
#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <vector>

namespace orvanta::engine {

struct ColourFit
{
    enum class Kind { Matrix, PerChannel, ExposureOnly };
    Kind kind = Kind::ExposureOnly;
    std::array<double, 9> matrix { 1, 0, 0, 0, 1, 0, 0, 0, 1 }; // row-major, RAW -> JPG
    // Tone correction in stops, sampled at log2 luminance kToneFirst + i * kToneStep.
    std::vector<float> tone;
    double exposureStops = 0.0; // what the matrix does to grey
    double residualStops = 0.0; // RMS per-channel error over the fitted pixels
    double inlierShare = 1.0; // of the well-exposed pixels, those the fit kept
    size_t samples = 0;
    bool matched = true; // false: the JPG is not a rendering of this RAW
    QString issue; // why it is not matched

    static constexpr float kToneFirst = -9.0f;
    static constexpr float kToneStep = 0.5f;
};

// `sdr`, `raw`: interleaved linear RGB of the same `n` pixels (RAW: 1 = the
// sensor's clip point); `brightness`: the JPG's brightest channel, encoded.
// `baselineStops`: the exposure the RAW asks for (DNG BaselineExposure), used
// only when the pictures share too few pixels to measure it.
ColourFit fitColour(const float *sdr, const float *raw, const float *brightness, size_t n,
                    double baselineStops = 0.0);

// Applies the fit to RAW pixels in place. Where the sensor clipped, the
// colour goes to neutral: a clipped channel's hue is unknown.
void applyColour(const ColourFit &fit, float *raw, size_t n);

} // namespace orvanta::engine
