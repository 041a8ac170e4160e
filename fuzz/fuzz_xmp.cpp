// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the XMP reader and the hdrgm value checks.
#include "hdr/codec/XmpGainMap.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const orvanta::XmpPacket packet
        = orvanta::parseXmp(QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)));
    QString why;
    const std::optional<orvanta::GainMapMetadata> metadata
        = orvanta::gainMapMetadataFromXmp(packet, &why);
    if (metadata && !metadata->isValid())
        __builtin_trap(); // only validated values leave the reader
    return 0;
}
