// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The HDR histogram's numbers: an 8-bit rendition of the photo (long side at
// most 512, oriented) counted into a standard zone (bins 0-159) and a bright
// zone (160-255) stretched by the photo's recorded peak gain, smoothed and
// normalised for drawing; plus the curve's geometry. Pure functions, any
// thread (the photo's document runs them on its pool).
#pragma once

#include <QImage>
#include <QList>
#include <QPainterPath>
#include <QSizeF>
#include <QString>

#include <array>
#include <optional>

namespace orvanta {

struct HDRHistogramData
{
    static constexpr int binCount = 256;
    QList<float> lumaBins; // each 0...1; all four empty before the first computation
    QList<float> redBins;
    QList<float> greenBins;
    QList<float> blueBins;
    float peakLuma = 0.0f; // reserved, always 0
    float edrPixelRatio = 0.0f; // reserved, always 0

    bool isEmpty() const { return lumaBins.isEmpty(); }
};

enum class HistogramChannelMode { Luma, Rgb };
QString rawValue(HistogramChannelMode mode); // "Luma", "RGB" (also the title)
const QList<HistogramChannelMode> &allHistogramChannelModes();

// Bins 0...159 are the standard zone; the boundary sits at 160/256 of the width.
inline constexpr int kHistogramStandardBins = 160;
inline constexpr double kHistogramBoundaryFraction = 160.0 / 256.0;

// The bin of a value in 0...1 for a photo with `peakStops` of peak gain (0 when unknown).
int histogramBin(float value, float peakStops);

struct HistogramCounts
{
    std::array<qint64, 256> luma {}, red {}, green {}, blue {};
};
// Counts every pixel of an RGBA8888 picture (premultiplied or not; alpha ignored).
HistogramCounts countHistogram(const QImage &rgba, std::optional<double> peakStops);

// Smooths twice with (1/4, 1/2, 1/4), edges repeated, then normalises to the
// maximum and lifts with a 0.85 power; all zeros when every count is 0.
QList<float> postProcess(const QList<qint64> &counts);
QList<float> postProcess(const std::array<qint64, 256> &counts);

// The picture the histogram is taken from: long side at most 512 pixels,
// oriented as displayed, RGBA8888 premultiplied. Null when the file cannot be read.
QImage histogramRendition(const QString &path);
std::optional<HDRHistogramData> computeHistogram(const QString &path,
                                                 std::optional<double> peakStops);

// The drawn curve for `bins` in a plot of `size`: a Catmull-Rom spline through
// (i × width / (n − 1), height − min(bin, 1) × height), and the same curve
// closed along the bottom edge for the translucent fill.
struct HistogramCurve
{
    QPainterPath stroke;
    QPainterPath fill;
};
HistogramCurve histogramCurve(const QList<float> &bins, QSizeF size);

} // namespace orvanta
