// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds the pieces of an Ultra HDR file in an untrusted buffer: the primary
// JPEG, the gain map JPEG (through the MPF index, then the XMP container
// directory, then the next image after the primary) and the metadata that
// drives the map, preferring a valid ISO 21496-1 block over hdrgm XMP.
// Pure functions; any thread.
#pragma once

#include "hdr/codec/GainMapMetadata.h"
#include "hdr/codec/JpegSegments.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta {

enum class GainMapLocator {
    None,
    Mpf, // the MPF index of the primary
    Container, // the GContainer directory in the primary's XMP
    Scan, // the next complete JPEG after the primary
};

QString locatorName(GainMapLocator locator); // "none", "mpf", "container", "scan"

struct UltraHdrLayout
{
    QString error; // set when the buffer is not a JPEG at all
    JpegStream primary;
    std::optional<JpegStream> gainMap;
    GainMapLocator locatedBy = GainMapLocator::None;
    std::optional<GainMapMetadata> metadata; // the values that will be applied
    int orientation = 1; // EXIF orientation of the primary
    QString primaryHdrgmVersion; // hdrgm:Version of the primary XMP, if any
    bool primaryHasIsoVersion = false; // the primary carries the ISO version block
    int imagesAfterPrimary = 0; // complete JPEG streams seen after the primary
    QStringList issues; // what was rejected on the way, in order

    bool isJpeg() const { return error.isEmpty(); }
    bool isUltraHdr() const { return gainMap.has_value() && metadata.has_value(); }
    // Why the file has no usable gain map (empty when it has one).
    QString gainMapIssue() const;
};

UltraHdrLayout inspectUltraHdr(QByteArrayView data);

// The gain-map metadata one image carries: its ISO block when that parses and
// validates, else its hdrgm XMP; std::nullopt otherwise (reasons in `issues`).
// `carriesMetadata` tells whether there was any gain-map block at all.
std::optional<GainMapMetadata> gainMapMetadataOf(QByteArrayView data, const JpegStream &image,
                                                 QStringList &issues, bool *carriesMetadata);

} // namespace orvanta
