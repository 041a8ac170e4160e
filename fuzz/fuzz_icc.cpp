// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Fuzzes the ICC reading behind the alternate colour space: the profile's
// tag table and colourants, and joining a JPEG's ICC_PROFILE chunks.
#include "hdr/codec/ColourPrimaries.h"

#include <cmath>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayView bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    if (const std::optional<orvanta::Matrix3> m = orvanta::iccToXyz(bytes)) {
        for (double v : *m)
            if (!std::isfinite(v))
                __builtin_trap(); // a matrix is only returned when it can be used
        if (!orvanta::inverse(*m))
            __builtin_trap();
    }
    const orvanta::JpegStream stream = orvanta::walkJpeg(bytes, 0);
    const QByteArray profile = orvanta::iccProfileOf(bytes, stream);
    if (profile.size() > bytes.size())
        __builtin_trap(); // chunks are slices of the input
    return 0;
}
