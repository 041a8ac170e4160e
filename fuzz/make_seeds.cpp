// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes a small starting corpus for each fuzz target: Ultra HDR files in
// their common layouts, and the metadata blocks alone.
//   orvanta_fuzz_seeds DIR   (creates DIR/<target>/seed-N)
#include "hdr/codec/IsoGainMapBlock.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/MpfIndex.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "hdr/codec/XmpGainMap.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cmath>
#include <cstdio>

using namespace orvanta;

namespace {

void write(const QString &dir, const QString &target, int n, const QByteArray &bytes)
{
    QDir().mkpath(dir + u'/' + target);
    QFile file(dir + u'/' + target + QStringLiteral("/seed-%1").arg(n));
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

ImageBuffer picture(int w, int h, PixelFormat format, float boost)
{
    ImageBuffer image(w, h, format);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const float rgb[3] = { float(x) / w * boost, float(y) / h * boost, 0.5f * boost };
            for (int c = 0; c < 3; ++c) {
                if (format == PixelFormat::Rgb8)
                    image.row(y)[3 * x + c]
                        = uchar(std::lround(std::clamp(rgb[c], 0.0f, 1.0f) * 255));
                else
                    image.rowAs<float>(y)[4 * x + c] = rgb[c];
            }
            if (format == PixelFormat::RgbaF32)
                image.rowAs<float>(y)[4 * x + 3] = 1.0f;
        }
    return image;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: orvanta_fuzz_seeds DIR\n", stderr);
        return 1;
    }
    const QString dir = QString::fromLocal8Bit(argv[1]);
    const ImageBuffer sdr = picture(24, 16, PixelFormat::Rgb8, 1.0f);
    const ImageBuffer hdr = picture(24, 16, PixelFormat::RgbaF32, 3.0f);
    int n = 0;
    for (const bool multi : { false, true }) {
        for (const auto &[xmp, iso] :
             { std::pair { true, true }, std::pair { false, true }, std::pair { true, false } }) {
            UltraHdrEncodeOptions options;
            options.multiChannel = multi;
            options.writeXmp = xmp;
            options.writeIso = iso;
            options.mapScale = 4;
            const UltraHdrEncodeResult file = encodeUltraHdr(sdr, hdr, options);
            write(dir, QStringLiteral("decode"), n, file.bytes);
            write(dir, QStringLiteral("segments"), n, file.bytes);
            write(dir, QStringLiteral("iso"), n, serializeIsoBlock(file.metadata));
            write(dir, QStringLiteral("xmp"), n, gainMapXmp(file.metadata));
            ++n;
        }
    }
    // Gains in another colour space: an ICC profile in the map, ISO flag 0.
    for (const Gamut gamut : { Gamut::Srgb, Gamut::DisplayP3, Gamut::Bt2100 }) {
        UltraHdrEncodeOptions options;
        options.multiChannel = true;
        options.alternateGamut = gamut;
        const UltraHdrEncodeResult file = encodeUltraHdr(sdr, hdr, options);
        write(dir, QStringLiteral("decode"), n, file.bytes);
        write(dir, QStringLiteral("icc"), n, makeIccProfile(gamut));
        write(dir, QStringLiteral("icc"), n + 100, file.bytes);
        ++n;
    }
    write(dir, QStringLiteral("xmp"), n, primaryXmp(1234));
    write(dir, QStringLiteral("iso"), n, isoVersionBlock());
    write(dir, QStringLiteral("mpf"), 0, buildMpf(1498, 883, 775));
    write(dir, QStringLiteral("decode"), n,
          encodeJpeg(sdr.bits(), sdr.width(), sdr.height(), 3, sdr.stride(), 80));
    return 0;
}
