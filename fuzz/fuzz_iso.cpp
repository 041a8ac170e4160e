// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the ISO 21496-1 block reader; whatever it accepts must survive
// being written and read again.
#include "hdr/codec/IsoGainMapBlock.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const orvanta::IsoBlock block = orvanta::parseIsoBlock(
        QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (!block.metadata)
        return 0;
    if (!block.metadata->isValid())
        __builtin_trap();
    const orvanta::IsoBlock again
        = orvanta::parseIsoBlock(orvanta::serializeIsoBlock(*block.metadata));
    if (!again.metadata || again.metadata->channelCount != block.metadata->channelCount)
        __builtin_trap();
    return 0;
}
