// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Turns one RAW+JPG pair into an Ultra HDR file: the camera JPG stays the SDR
// picture, the RAW (developed linearly) supplies the highlights above white.
// Pure function of its inputs; each worker thread calls it for its own pair.
#pragma once

#include "EngineOptions.h"
#include "hdr/codec/ImageBuffer.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace orvanta::engine {

struct RenderRequest
{
    QString rawPath;
    QString jpgPath;
    Tuning tuning;
    bool backlitFill = false;
    bool wantMasks = false; // keep the gain map and the face/skin mask pictures
    // Face finder over an 8-bit grey picture; returns a 0..1 skin weight per
    // pixel of that picture (Gray8) and the face count. Optional; it may run
    // on a thread of its own.
    using SkinFinder
        = std::function<ImageBuffer(const ImageBuffer &grey, const ImageBuffer &rgb, int *faces)>;
    SkinFinder findSkin;
    // Threads this photo may use for its per-pixel gains.
    int threads = 1;
};

struct RenderResult
{
    QByteArray bytes; // the Ultra HDR file; empty on failure
    QString error;
    double peakStops = 0.0;
    double rawClipPct = 0.0;
    int faces = 0;
    // How well the RAW's colours were fitted to the JPG's: RMS error in stops
    // over the pixels both hold; empty when the RAW was never developed.
    std::optional<double> colourResidual;
    QString colourFit; // "matrix", "per_channel" or "exposure"
    // What failed, for the progress records: "jpg_unreadable", "raw_unreadable",
    // "colour_unmatched" (the JPG is not a rendering of the RAW) or
    // "encode_failed"; empty on success.
    QString failure;
    // Seconds spent in each step, in the order they ran, for the progress records.
    QList<std::pair<QString, double>> stages;
    bool backlit = false; // the fill light was applied
    ImageBuffer gainMask; // when asked for: the lift in stops, 0..4 mapped to 0..255
    ImageBuffer skinMask; // when asked for: the skin weight
};

RenderResult renderPair(const RenderRequest &request);

// The lift in stops at one pixel, before skin damping and backlit fill.
// `sdrLum`: linear luminance of the JPG (1 = white); `excessStops`: how far
// the exposure-matched RAW lies above it; `brightness`: the JPG's brightest
// channel, encoded (0..1), which gates the highlight part.
double liftStops(const Tuning &tuning, double sdrLum, double excessStops, double brightness);

} // namespace orvanta::engine
