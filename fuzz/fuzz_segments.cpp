// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the JPEG segment walker and the search for the gain map image.
#include "hdr/codec/JpegSegments.h"
#include "hdr/codec/UltraHdrLayout.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const orvanta::JpegStream stream = orvanta::walkJpeg(bytes);
    if (stream.end < stream.start || stream.end > bytes.size())
        __builtin_trap();
    orvanta::exifOrientation(bytes, stream);
    const orvanta::UltraHdrLayout layout = orvanta::inspectUltraHdr(bytes);
    if (layout.gainMap
        && (layout.gainMap->start < layout.primary.end || layout.gainMap->end > bytes.size()))
        __builtin_trap();
    return 0;
}
