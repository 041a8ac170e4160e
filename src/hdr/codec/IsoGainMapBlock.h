// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The binary gain-map metadata of ISO 21496-1 as carried in a JPEG APP2 block:
// reading (full layout and the common-denominator layout some writers use),
// validating, and writing the full layout. Pure functions; any thread.
#pragma once

#include "hdr/codec/GainMapMetadata.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace orvanta {

struct IsoBlock
{
    bool versionOnly = false; // the 4-byte block a primary image carries
    std::optional<GainMapMetadata> metadata; // set for a full block that parsed and validated
    QString error; // why the block was rejected
};

// `payload` follows the "urn:iso:std:iso:ts:21496:-1\0" signature.
IsoBlock parseIsoBlock(QByteArrayView payload);

// The 4-byte version block for the primary image (both versions 0).
QByteArray isoVersionBlock();
// The full layout with every numerator and denominator written out and no
// reserved flag bit set. Values are stored as fractions over a power of two;
// quantizeForIso() gives the value a reader will get back.
QByteArray serializeIsoBlock(const GainMapMetadata &metadata);
double quantizeForIso(double value);

} // namespace orvanta
