// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the MPF index parser.
#include "hdr/codec/MpfIndex.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const orvanta::MpfIndex index
        = orvanta::parseMpf(QByteArrayView(reinterpret_cast<const char *>(data), qsizetype(size)));
    if (!index.error.isEmpty() && !index.entries.isEmpty())
        __builtin_trap(); // a rejected index must not leak entries
    return 0;
}
