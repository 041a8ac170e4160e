// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// orvanta-sample-pairs [--camera-look] DIR [COUNT] [WIDTH HEIGHT]: writes
// COUNT RAW+JPG pairs (Bayer DNG + JPG) of a synthetic scene with a sun the
// JPG clips and the RAW keeps, for trying the engine without a camera. With
// --camera-look the JPG is rendered the way a camera would (its own white
// balance, saturation, tone curve and crop) and the scene holds a colour chart.
#include "SamplePairs.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace orvanta::samples;
using namespace Qt::StringLiterals;

namespace {

constexpr const char *kUsage
    = "usage: orvanta-sample-pairs [--camera-look] DIR [COUNT] [WIDTH HEIGHT]\n"
      "       orvanta-sample-pairs --help | --version\n"
      "Writes COUNT (default 4) RAW+JPG pairs of a synthetic scene into DIR,\n"
      "WIDTH x HEIGHT pixels (default 1536 x 1024), for trying the engine.\n"
      "--camera-look renders each JPG the way a camera might, unlike the RAW:\n"
      "its own white balance, saturation, tone curve and crop.\n";

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments();
    const bool cameraLook = args.removeAll(u"--camera-look"_s) > 0;
    // Options come before any folder is made, so "--help" never becomes one.
    for (const QString &arg : args.sliced(1)) {
        if (arg == u"--help" || arg == u"-h") {
            std::fputs(kUsage, stdout);
            return 0;
        }
        if (arg == u"--version" || arg == u"-V") {
            std::printf("orvanta-sample-pairs %s\n", ORVANTA_VERSION);
            return 0;
        }
        if (arg.startsWith(u'-') && arg.size() > 1) {
            std::fprintf(stderr,
                         "orvanta-sample-pairs: unknown option %s\n"
                         "Try 'orvanta-sample-pairs --help'.\n",
                         qPrintable(arg));
            return 1;
        }
    }
    if (args.size() < 2 || args.size() == 4 || args.size() > 5) {
        std::fputs(kUsage, stderr);
        return 1;
    }
    const int count = args.size() > 2 ? args[2].toInt() : 4;
    SampleScene scene;
    scene.bayer = true;
    if (cameraLook)
        scene.look = JpegLook { 1.2, 0.85, 1.25, 0.4, 0.92, 0.1 };
    if (args.size() > 4) {
        scene.width = args[3].toInt() & ~1;
        scene.height = args[4].toInt() & ~1;
    } else {
        scene.width = 1536;
        scene.height = 1024;
    }
    if (count < 1 || scene.width < 64 || scene.height < 64) {
        std::fputs("orvanta-sample-pairs: COUNT >= 1, WIDTH and HEIGHT >= 64\n", stderr);
        return 1;
    }
    for (int i = 0; i < count; ++i) {
        scene.face = i % 2 == 1;
        scene.orientation = i % 4 == 3 ? 6 : 1;
        scene.exifRating = i % 5 + 1;
        const QString stem = u"SAMPLE_%1"_s.arg(i + 1, 4, 10, QLatin1Char('0'));
        if (!writePair(args[1], stem, scene)) {
            std::fprintf(stderr, "orvanta-sample-pairs: cannot write %s\n", qPrintable(args[1]));
            return 2;
        }
        std::printf("%s/%s.DNG + .JPG\n", qPrintable(args[1]), qPrintable(stem));
    }
    return 0;
}
