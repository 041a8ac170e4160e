// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the whole decode path: locating the map, parsing its metadata,
// libjpeg decoding of both images and the gain-map arithmetic.
#include "hdr/codec/UltraHdrDecoder.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    orvanta::UltraHdrDecodeOptions options;
    options.maxPixels = 1 << 18; // big frames only cost time here; the parsers are the target
    options.threads = 2;
    const orvanta::UltraHdrDecodeResult result = orvanta::decodeUltraHdr(
        QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)), options);
    if (result.image.isNull() == result.error.isEmpty())
        __builtin_trap(); // either a picture or a reason, never both or neither
    return 0;
}
