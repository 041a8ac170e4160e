// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes Ultra HDR files: computes a gain map from an SDR picture and a linear
// HDR picture of the same size, encodes it, and assembles primary + gain map
// with hdrgm XMP, the container directory, ISO 21496-1 blocks and an MPF
// index. Used by the command-line tool, test fixtures and the reference
// engine. Pure functions; any thread.
#pragma once

#include "hdr/codec/ColourPrimaries.h"
#include "hdr/codec/GainMapMetadata.h"
#include "hdr/codec/ImageBuffer.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace orvanta {

struct UltraHdrEncodeOptions
{
    int mapScale = 4; // the map is 1/scale of the picture on each side (rounded up)
    int mapQuality = 90; // JPEG quality of the gain map
    int baseQuality = 95; // JPEG quality of the primary when it is encoded here
    bool multiChannel = false; // one map per colour channel instead of one for luminance
    bool writeXmp = true;
    bool writeIso = true;
    double gamma = 1.0;
    double offsetSdr = 1.0 / 64.0;
    double offsetHdr = 1.0 / 64.0;
    // When set, the gains are measured and applied in this colour space (the
    // HDR rendition's), which the map's ICC profile names, and the ISO block
    // says so (use-base-colour-space 0). The pictures stay in sRGB primaries.
    std::optional<Gamut> alternateGamut;
    // Threads measuring the gains (1: only the calling one). The file is the
    // same for any count.
    int threads = 1;
};

// Hands the writer one row of the HDR picture at a time, so no caller has to
// hold the whole picture: fills `rgba` (4 floats a pixel, alpha ignored) with
// row `y`. Each row is asked for once; with several threads, rows of
// different bands are asked for at the same time. False stops the encoding.
using HdrRowSource = std::function<bool(int y, float *rgba)>;

struct UltraHdrEncodeResult
{
    QByteArray bytes; // the file; empty on failure
    GainMapMetadata metadata; // exactly what a reader will get back
    int mapWidth = 0;
    int mapHeight = 0;
    QString error;
};

// `sdr`: an Rgb8 picture, taken as sRGB. `hdr`: an RgbaF16 or RgbaF32
// picture, linear light in the same primaries, 1.0 = SDR white, in the same
// pixel order as the stored primary.
UltraHdrEncodeResult encodeUltraHdr(const ImageBuffer &sdr, const ImageBuffer &hdr,
                                    const UltraHdrEncodeOptions &options = {});
// As above, but the primary is these JPEG bytes, kept as they are (Exif, ICC).
UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, const ImageBuffer &hdr,
                                    const UltraHdrEncodeOptions &options = {});
// As above, with the HDR rows from `rows` (`width` × `height` pixels). When the
// caller has decoded `sdrJpeg` already (JpegDecoder, default options: RGB,
// exact IDCT), `decodedSdr` saves decoding it again.
UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, int width, int height,
                                    const HdrRowSource &rows, const UltraHdrEncodeOptions &options,
                                    const ImageBuffer *decodedSdr = nullptr);

// Gains a caller measured itself, already at the map's size: `width` × `height`
// cells of `channels` values (1: one gain for luminance, 3: one per colour),
// log2 of (HDR + offset) / (SDR + offset), row by row.
struct GainMapCells
{
    int width = 0;
    int height = 0;
    int channels = 1;
    std::vector<float> log2Gains;
};
// As above, with the map given: the primary is `sdrJpeg` as it is, and the
// options' map scale, channel choice and thread count do not apply. Gains are
// clipped to ±16 stops; a value that is not a number counts as no gain.
UltraHdrEncodeResult encodeUltraHdr(QByteArrayView sdrJpeg, GainMapCells cells,
                                    const UltraHdrEncodeOptions &options);

// Splices an existing primary and gain map JPEG into one file. Each block is
// written only when asked for, which also lets tests build conflicting or
// partial files. Existing XMP, MPF and ISO blocks of the inputs are dropped.
struct UltraHdrAssembly
{
    std::optional<GainMapMetadata> xmp; // hdrgm in the map + container directory in the primary
    std::optional<GainMapMetadata> iso; // version block in the primary, full block in the map
    bool mpf = true;
    QByteArray gainMapIcc; // an ICC profile for the gain map image, if any
};
QByteArray assembleUltraHdr(QByteArrayView primaryJpeg, QByteArrayView gainMapJpeg,
                            const UltraHdrAssembly &assembly);

} // namespace orvanta
