// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/EdrShaders.h"

#include "hdr/EdrKernels.h"

namespace orvanta::edrshaders {

using namespace Qt::StringLiterals;

const char *const kVertexShader = R"(#version 330 core
void main() {
    vec2 corner = vec2(float((gl_VertexID << 1) & 2), float(gl_VertexID & 2));
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
}
)";

QString frameShader()
{
    QString source = u"#version 330 core\n"_s;
    source += edr::filmicRollOffGlsl();
    source += edr::zebraFilterGlsl();
    source += edr::shadowZebraFilterGlsl();
    source += uR"(
uniform sampler2D sdrTexture;
uniform sampler2D hdrTexture;
uniform vec4 placement;      // x, y, width, height in drawable pixels, y up
uniform float splitX;
uniform int mode;            // 0 split, 1 HDR only, 2 SDR only
uniform float zebraOn;
uniform float zebraThreshold;
uniform float shadowOn;
uniform float shadowThreshold;
uniform float filmicOn;
uniform float filmicGain;
uniform int encodeSrgb;
uniform float sdrLod;        // mipmap level, fixed per frame: the scale is the same everywhere
uniform float hdrLod;
uniform int toLayer;         // 1: sRGB picture without stripes, 1 - stripe kind / 255 in alpha
uniform vec2 layerShift;     // where the layer drawn into lies against the screen
out vec4 fragColor;

vec3 srgbEncode(vec3 c) {
    c = clamp(c, 0.0, 1.0);
    return mix(c * 12.92, 1.055 * pow(c, vec3(1.0 / 2.4)) - 0.055, step(vec3(0.0031308), c));
}

// 2: shadow stripes (they cover the highlight ones), 1: highlight stripes, 0: none.
float hdrStripeKind(vec4 hdr) {
    vec4 probe = vec4(-1.0);
    if (shadowZebraFilter(probe, hdr, ivec2(0), shadowThreshold, shadowOn) != probe)
        return 2.0;
    return zebraFilter(probe, hdr, ivec2(0), zebraThreshold, zebraOn) != probe ? 1.0 : 0.0;
}

void main() {
    vec2 p = gl_FragCoord.xy - layerShift;
    vec4 color = vec4(0.08, 0.09, 0.09, 1.0);
    vec2 uv = (p - placement.xy) / placement.zw;
    if (all(greaterThanEqual(uv, vec2(0.0))) && all(lessThan(uv, vec2(1.0)))) {
        vec2 tc = vec2(uv.x, 1.0 - uv.y);
        bool sdrSide = mode == 2 || (mode == 0 && p.x < splitX);
        // Each side reads only the textures it needs: one per pixel unless
        // the stripes need the HDR reference under the SDR side too.
        vec4 hdr = vec4(0.0);
        if (!sdrSide || zebraOn > 0.5 || shadowOn > 0.5)
            hdr = textureLod(hdrTexture, tc, hdrLod);
        vec4 picture;
        if (sdrSide)
            picture = textureLod(sdrTexture, tc, sdrLod);
        else
            picture = filmicOn > 0.5 ? filmicRollOff(vec4(hdr.rgb * filmicGain, hdr.a)) : hdr;
        if (toLayer != 0) {
            float kind = hdrStripeKind(hdr);
            color = vec4(picture.rgb * picture.a + color.rgb * (1.0 - picture.a), 1.0);
            fragColor = vec4(srgbEncode(color.rgb), 1.0 - kind / 255.0);
            return;
        }
        ivec2 pixel = ivec2(floor(p));
        picture = zebraFilter(picture, hdr, pixel, zebraThreshold, zebraOn);
        picture = shadowZebraFilter(picture, hdr, pixel, shadowThreshold, shadowOn);
        color = vec4(picture.rgb * picture.a + color.rgb * (1.0 - picture.a), 1.0);
    }
    if (toLayer != 0) {
        fragColor = vec4(srgbEncode(color.rgb), 1.0);
        return;
    }
    if (mode == 0 && p.x >= splitX - 1.0 && p.x < splitX + 1.0)
        color = vec4(vec3(0.95) + color.rgb * 0.05, 1.0);
    fragColor = encodeSrgb != 0 ? vec4(srgbEncode(color.rgb), 1.0) : color;
}
)"_s;
    return source;
}

// Puts the picture layer on screen, adding the stripes where its alpha says
// so: the stripes follow the screen, the layer follows the picture.
QString composeShader()
{
    QString source = u"#version 330 core\n"_s;
    source += edr::zebraFilterGlsl();
    source += edr::shadowZebraFilterGlsl();
    source += uR"(
uniform sampler2D layer;
uniform ivec2 origin;        // the layer's pixel under the screen's (0, 0); it wraps around
out vec4 fragColor;

vec3 srgbEncode(vec3 c) {
    c = clamp(c, 0.0, 1.0);
    return mix(c * 12.92, 1.055 * pow(c, vec3(1.0 / 2.4)) - 0.055, step(vec3(0.0031308), c));
}

void main() {
    ivec2 pixel = ivec2(floor(gl_FragCoord.xy));
    // Both terms lie within the size, so one subtraction wraps (cheaper than a modulo).
    ivec2 size = textureSize(layer, 0);
    ivec2 at = pixel + origin;
    vec4 stored = texelFetch(layer, at - size * ivec2(greaterThanEqual(at, size)), 0);
    int kind = int((1.0 - stored.a) * 255.0 + 0.5);
    vec4 color = vec4(stored.rgb, 1.0);
    // The kernels decide the stripe colour; a reference past any threshold asks for it.
    if (kind == 1)
        color = vec4(srgbEncode(zebraFilter(color, vec4(1.0), pixel, 0.0, 1.0).rgb), 1.0);
    else if (kind == 2)
        color = vec4(srgbEncode(shadowZebraFilter(color, vec4(0.0), pixel, 1.0, 1.0).rgb), 1.0);
    fragColor = color;
}
)"_s;
    return source;
}

} // namespace orvanta::edrshaders
