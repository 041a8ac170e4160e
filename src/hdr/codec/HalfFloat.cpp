// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/HalfFloat.h"

#include <QtCore/qfloat16.h>

#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#include <immintrin.h>
#define ORVANTA_HAVE_F16C_PATH 1
#endif

namespace orvanta {

namespace {

#ifdef ORVANTA_HAVE_F16C_PATH
// Compiled for F16C alone and only called after the CPU said it has it, so
// the rest of the program keeps running on CPUs without it.
__attribute__((target("avx,f16c"))) void convertF16c(quint16 *dst, const float *src,
                                                     qsizetype count)
{
    qsizetype i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i halves = _mm256_cvtps_ph(_mm256_loadu_ps(src + i), _MM_FROUND_TO_NEAREST_INT);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(dst + i), halves);
    }
    for (; i < count; ++i)
        dst[i] = _cvtss_sh(src[i], _MM_FROUND_TO_NEAREST_INT);
}

// Asked through CPUID directly: not every compiler knows "f16c" as a
// __builtin_cpu_supports feature. AVX registers must also be enabled by the
// operating system (OSXSAVE, and XCR0 saving the XMM and YMM state).
bool cpuHasF16c()
{
    static const bool has = [] {
        unsigned a = 0, b = 0, c = 0, d = 0;
        if (!__get_cpuid(1, &a, &b, &c, &d))
            return false;
        constexpr unsigned kOsxsave = 1u << 27, kAvx = 1u << 28, kF16c = 1u << 29;
        if ((c & (kOsxsave | kAvx | kF16c)) != (kOsxsave | kAvx | kF16c))
            return false;
        unsigned lo = 0, hi = 0;
        __asm__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
        return (lo & 0x6u) == 0x6u;
    }();
    return has;
}
#endif

} // namespace

void floatsToHalves(quint16 *dst, const float *src, qsizetype count)
{
#ifdef ORVANTA_HAVE_F16C_PATH
    if (cpuHasF16c()) {
        convertF16c(dst, src, count);
        return;
    }
#endif
    static_assert(sizeof(qfloat16) == sizeof(quint16));
    for (qsizetype i = 0; i < count; ++i) {
        const qfloat16 h(src[i]);
        std::memcpy(dst + i, &h, sizeof h);
    }
}

} // namespace orvanta
