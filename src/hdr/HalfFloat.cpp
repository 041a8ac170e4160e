#include "HalfFloat.h"

#include <QtCore/qfloat16.h>

#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#define ORVANTA_HAVE_F16C_PATH 1
#endif

namespace orvanta {

namespace {

#ifdef ORVANTA_HAVE_F16C_PATH
// Compiled for F16C alone and only called after the CPU said it has it, so
// the rest of the program keeps running on CPUs without it.
__attribute__((target("avx,f16c"))) void convertF16c(quint16 *dst, const float *src, qsizetype count)
{
    qsizetype i = 0;
    for (; i + 8 <= count; i += 8) {
        const __m128i halves = _mm256_cvtps_ph(_mm256_loadu_ps(src + i), _MM_FROUND_TO_NEAREST_INT);
        _mm_storeu_si128(reinterpret_cast<__m128i *>(dst + i), halves);
    }
    for (; i < count; ++i)
        dst[i] = _cvtss_sh(src[i], _MM_FROUND_TO_NEAREST_INT);
}

bool cpuHasF16c()
{
    static const bool has = __builtin_cpu_supports("avx") && __builtin_cpu_supports("f16c");
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
