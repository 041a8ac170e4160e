// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/EdrKernels.h"

#include <QFloat16>

#include <algorithm>

namespace orvanta::edr {

using namespace Qt::StringLiterals;

float filmicCurve(float value)
{
    const float c = std::max(0.0f, value);
    return std::clamp(c / (1.0f + 0.35f * c) * 1.35f, 0.0f, 1.0f);
}

Rgba filmicRollOff(Rgba pixel)
{
    return { filmicCurve(pixel.r), filmicCurve(pixel.g), filmicCurve(pixel.b), pixel.a };
}

Rgba zebraFilter(Rgba display, Rgba hdrReference, int x, int y, float threshold, float enabled)
{
    if (enabled < 0.5f)
        return display;
    const float luma
        = 0.2126f * hdrReference.r + 0.7152f * hdrReference.g + 0.0722f * hdrReference.b;
    if (!(luma >= threshold))
        return display;
    const int phase = ((x + y) % 16 + 16) % 16;
    return phase < 8 ? Rgba { 1.0f, 0.82f, 0.0f, 1.0f } : Rgba { 0.06f, 0.06f, 0.06f, 1.0f };
}

Rgba shadowZebraFilter(Rgba display, Rgba hdrReference, int x, int y, float threshold,
                       float enabled)
{
    if (enabled < 0.5f)
        return display;
    const float luma
        = 0.2126f * hdrReference.r + 0.7152f * hdrReference.g + 0.0722f * hdrReference.b;
    if (!(luma < threshold))
        return display;
    const int phase = ((x - y) % 16 + 16) % 16;
    return phase < 8 ? Rgba { 0.1f, 0.45f, 1.0f, 1.0f } : Rgba { 0.06f, 0.06f, 0.06f, 1.0f };
}

namespace {

QImage halved(const QImage &in)
{
    const int inWidth = in.width(), inHeight = in.height();
    const int width = std::max(1, inWidth / 2), height = std::max(1, inHeight / 2);
    QImage out(width, height, QImage::Format_RGBA16FPx4);
    std::vector<float> upper(std::size_t(inWidth) * 4), lower(upper.size());
    std::vector<float> row(std::size_t(width) * 4);
    for (int y = 0; y < height; ++y) {
        qFloatFromFloat16(upper.data(), reinterpret_cast<const qfloat16 *>(in.constScanLine(2 * y)),
                          qsizetype(upper.size()));
        qFloatFromFloat16(
            lower.data(),
            reinterpret_cast<const qfloat16 *>(in.constScanLine(std::min(2 * y + 1, inHeight - 1))),
            qsizetype(lower.size()));
        for (int x = 0; x < width; ++x) {
            const std::size_t left = std::size_t(2 * x) * 4;
            const std::size_t right = std::size_t(std::min(2 * x + 1, inWidth - 1)) * 4;
            for (std::size_t c = 0; c < 4; ++c)
                row[std::size_t(x) * 4 + c] = 0.25f
                    * (upper[left + c] + upper[right + c] + lower[left + c] + lower[right + c]);
        }
        qFloatToFloat16(reinterpret_cast<qfloat16 *>(out.scanLine(y)), row.data(),
                        qsizetype(row.size()));
    }
    return out;
}

} // namespace

std::vector<QImage> reducedLevels(const QImage &picture)
{
    std::vector<QImage> levels;
    const QImage *previous = &picture;
    while (previous->width() > 1 || previous->height() > 1) {
        levels.push_back(halved(*previous));
        previous = &levels.back();
    }
    return levels;
}

QString filmicRollOffGlsl()
{
    return uR"(vec4 filmicRollOff(vec4 pixel) {
    vec3 c = max(pixel.rgb, vec3(0.0));
    vec3 mapped = c / (vec3(1.0) + 0.35 * c) * 1.35;
    return vec4(clamp(mapped, 0.0, 1.0), pixel.a);
}
)"_s;
}

QString zebraFilterGlsl()
{
    return uR"(vec4 zebraFilter(vec4 display, vec4 hdrReference, ivec2 pixel, float threshold, float enabled) {
    if (enabled < 0.5)
        return display;
    float luma = dot(hdrReference.rgb, vec3(0.2126, 0.7152, 0.0722));
    if (!(luma >= threshold))
        return display;
    int phase = ((pixel.x + pixel.y) % 16 + 16) % 16;
    return phase < 8 ? vec4(1.0, 0.82, 0.0, 1.0) : vec4(0.06, 0.06, 0.06, 1.0);
}
)"_s;
}

QString shadowZebraFilterGlsl()
{
    return uR"(vec4 shadowZebraFilter(vec4 display, vec4 hdrReference, ivec2 pixel, float threshold, float enabled) {
    if (enabled < 0.5)
        return display;
    float luma = dot(hdrReference.rgb, vec3(0.2126, 0.7152, 0.0722));
    if (!(luma < threshold))
        return display;
    int phase = ((pixel.x - pixel.y) % 16 + 16) % 16;
    return phase < 8 ? vec4(0.1, 0.45, 1.0, 1.0) : vec4(0.06, 0.06, 0.06, 1.0);
}
)"_s;
}

} // namespace orvanta::edr
