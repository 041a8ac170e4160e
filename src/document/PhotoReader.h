// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How each stage of a photo document is read from its file: metadata by
// exiv2, the gain map's description by the codec's parser, the viewer's
// renditions by the Ultra HDR decoder, the histogram and the quick preview.
// Blocking, stateless and thread-safe: the document calls it on its pools.
#pragma once

#include "hdr/HdrHistogram.h"
#include "media/ProPhotoMetadata.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <optional>

namespace orvanta {

// What the inspector shows of a file's gain map.
struct GainMapSummary
{
    bool present = false;
    QString kind; // "ISO 21496-1", or "XMP hdrgm" with its version
    double minStops = 0;
    double maxStops = 0;
    int channels = 0;
};

// A decoded picture for the viewer: linear RGBA half floats, oriented.
struct Rendition
{
    QImage image;
    QString gainMapIssue; // HDR rendition only: why the map was not applied
};

// A stage's outcome: `error` set means the stage failed and `value` is empty.
template<typename T> struct ReadResult
{
    T value {};
    QString error;
};

class PhotoReader
{
public:
    virtual ~PhotoReader() = default;

    virtual ReadResult<ProPhotoMetadata> metadata(const QString &path) const;
    virtual ReadResult<GainMapSummary> gainMap(const QString &path) const;
    // The SDR primary, or the picture with its gain map applied at full weight.
    virtual ReadResult<Rendition> rendition(const QString &path, bool hdr) const;
    virtual ReadResult<HDRHistogramData> histogram(const QString &path,
                                                   std::optional<double> peakStops) const;
    // 8-bit, oriented as displayed, scaled by the decoder to fit `bounds`
    // (never enlarged).
    virtual ReadResult<QImage> preview(const QString &path, QSize bounds) const;
};

} // namespace orvanta
