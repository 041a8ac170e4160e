// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the JPEG segment walker, the search for the gain map image, and the
// writer's splicing of a camera JPG, kept byte for byte as the primary, with
// a gain map: whatever the JPG holds, the file either is not made or reads
// back with its map.
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/JpegSegments.h"
#include "hdr/codec/UltraHdrLayout.h"
#include "hdr/codec/UltraHdrWriter.h"

#include <cstddef>
#include <cstdint>

namespace {

const QByteArray &mapJpeg()
{
    static const QByteArray bytes = [] {
        unsigned char grey[8 * 8];
        for (int i = 0; i < 64; ++i)
            grey[i] = static_cast<unsigned char>(i * 4);
        return orvanta::encodeJpeg(grey, 8, 8, 1, 8, 90);
    }();
    return bytes;
}

} // namespace

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

    orvanta::GainMapMetadata metadata;
    metadata.channels[0].maxLog2 = 2.0;
    metadata.hdrCapacityMaxLog2 = 2.0;
    orvanta::UltraHdrAssembly assembly;
    assembly.xmp = metadata;
    assembly.iso = metadata;
    const QByteArray file = orvanta::assembleUltraHdr(bytes, mapJpeg(), assembly);
    if (!file.isEmpty() && !orvanta::inspectUltraHdr(file).gainMap)
        __builtin_trap();
    return 0;
}
