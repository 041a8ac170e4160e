// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The real photo reader, counting the reads of each stage: how the tests see
// that a file is read once however many views show it. Any thread.
#pragma once

#include "document/PhotoDocument.h"

#include <atomic>

namespace orvanta::test {

// The real reader, counting what it is asked to read.
class CountingReader : public PhotoReader
{
public:
    mutable std::atomic<int> reads[6] {};
    int count(PhotoStage stage) const { return reads[int(stage)]; }

    ReadResult<ProPhotoMetadata> metadata(const QString &path) const override
    {
        ++reads[int(PhotoStage::Metadata)];
        return PhotoReader::metadata(path);
    }
    ReadResult<GainMapSummary> gainMap(const QString &path) const override
    {
        ++reads[int(PhotoStage::GainMap)];
        return PhotoReader::gainMap(path);
    }
    ReadResult<Rendition> rendition(const QString &path, bool hdr) const override
    {
        ++reads[int(hdr ? PhotoStage::HdrRendition : PhotoStage::SdrRendition)];
        return PhotoReader::rendition(path, hdr);
    }
    ReadResult<HDRHistogramData> histogram(const QString &path,
                                           std::optional<double> peakStops) const override
    {
        ++reads[int(PhotoStage::Histogram)];
        return PhotoReader::histogram(path, peakStops);
    }
    ReadResult<QImage> preview(const QString &path, QSize bounds) const override
    {
        ++reads[int(PhotoStage::Preview)];
        return PhotoReader::preview(path, bounds);
    }
};

} // namespace orvanta::test
