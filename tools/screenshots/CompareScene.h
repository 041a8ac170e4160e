// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A generated landscape for the compare window's screenshots and its bench:
// a sky with a bright sun and glowing clouds above dark hills, as a camera's
// SDR JPEG and as the HDR scene the Ultra HDR file should reproduce.
#pragma once

#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "thumbnails/ImageAdapter.h"

#include <QFile>
#include <QImage>
#include <QString>
#include <QtCore/qfloat16.h>

#include <algorithm>
#include <cmath>

namespace orvanta::test {

struct SceneColor
{
    float r, g, b;
};

// Linear scene light at (u, v) in 0...1, y down; 1.0 is SDR white.
inline SceneColor sceneAt(double u, double v)
{
    const double horizon = 0.58 + 0.06 * std::sin(u * 7.0) + 0.03 * std::sin(u * 23.0 + 1.0);
    if (v > horizon) {
        const double depth = (v - horizon) / (1.0 - horizon);
        const double texture = 0.5 + 0.5 * std::sin(u * 180.0 + v * 40.0) * std::sin(v * 120.0);
        const float base = float(0.03 + 0.05 * (1.0 - depth) + 0.02 * texture);
        return { base * 0.8f, base * 1.1f, base * 0.6f };
    }
    const double dx = u - 0.7, dy = (v - 0.27) * 0.66;
    const double d = std::sqrt(dx * dx + dy * dy);
    const double sun = 10.0 * std::exp(-std::pow(d / 0.035, 4.0)) + 1.6 * std::exp(-d / 0.09);
    const double cloud = std::max(
        0.0, std::sin(u * 9.0 + 2.0 * std::sin(v * 13.0)) * std::sin(v * 17.0 + u * 3.0));
    const double cloudLight = cloud * cloud * (0.6 + 1.8 * std::exp(-d / 0.25));
    const double sky = 0.25 + 0.35 * v / horizon;
    return { float(sky * 0.75 + sun * 1.0 + cloudLight * 1.05),
             float(sky * 0.85 + sun * 0.85 + cloudLight * 0.95),
             float(sky * 1.25 + sun * 0.55 + cloudLight * 0.85) };
}

inline uchar srgbByte(float linear)
{
    const float c = std::clamp(linear, 0.0f, 1.0f);
    const float s = c <= 0.0031308f ? c * 12.92f : 1.055f * std::pow(c, 1.0f / 2.4f) - 0.055f;
    return uchar(std::lround(s * 255.0f));
}

// The camera's rendering: highlights clip at white.
inline QImage sceneSdr(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB888);
    for (int y = 0; y < height; ++y) {
        uchar *row = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            const SceneColor c = sceneAt((x + 0.5) / width, (y + 0.5) / height);
            row[3 * x] = srgbByte(c.r);
            row[3 * x + 1] = srgbByte(c.g);
            row[3 * x + 2] = srgbByte(c.b);
        }
    }
    return image;
}

inline QImage sceneHdr(int width, int height, QImage::Format format = QImage::Format_RGBA32FPx4)
{
    QImage image(width, height, format);
    const bool half = format == QImage::Format_RGBA16FPx4;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const SceneColor c = sceneAt((x + 0.5) / width, (y + 0.5) / height);
            if (half) {
                auto *p = reinterpret_cast<qfloat16 *>(image.scanLine(y)) + 4 * x;
                p[0] = qfloat16(c.r), p[1] = qfloat16(c.g), p[2] = qfloat16(c.b),
                p[3] = qfloat16(1.0f);
            } else {
                auto *p = reinterpret_cast<float *>(image.scanLine(y)) + 4 * x;
                p[0] = c.r, p[1] = c.g, p[2] = c.b, p[3] = 1.0f;
            }
        }
    }
    return image;
}

// Writes the camera JPEG and the Ultra HDR file; false when encoding failed.
inline bool writeScene(int width, int height, const QString &jpgPath, const QString &uhdrPath)
{
    const QImage sdr = sceneSdr(width, height);
    const QByteArray jpeg = encodeJpeg(sdr.constBits(), width, height, 3, sdr.bytesPerLine(), 92);
    const UltraHdrEncodeResult encoded = encodeUltraHdr(
        QByteArrayView(jpeg), toImageBuffer(sceneHdr(width, height), PixelFormat::RgbaF32));
    QFile camera(jpgPath), output(uhdrPath);
    if (encoded.bytes.isEmpty() || !camera.open(QIODevice::WriteOnly)
        || !output.open(QIODevice::WriteOnly))
        return false;
    camera.write(jpeg);
    output.write(encoded.bytes);
    return true;
}

} // namespace orvanta::test
