// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Ultra HDR codec timings on a 24-megapixel picture, next to djpeg decoding
// the same primary (the floor any JPEG-based decoder pays).
//   bench_uhdr [WIDTH HEIGHT] [RUNS]     defaults 6000 4000 5
// Needs djpeg (scripts/install-bench-deps.sh) for the floor.
#include "hdr/HdrHistogram.h"
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/UltraHdrWriter.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>
#include <QtCore/qfloat16.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

using namespace orvanta;

namespace {

// A photo-like picture: broad gradients, a bright "sky" and fine texture, so
// the JPEG has realistic entropy (about 2 bits a pixel at quality 90).
QImage makeSdr(int w, int h)
{
    QImage image(w, h, QImage::Format_RGB888);
    QRandomGenerator random(24);
    for (int y = 0; y < h; ++y) {
        uchar *row = image.scanLine(y);
        for (int x = 0; x < w; ++x) {
            const int noise = int(random.bounded(24)) - 12;
            const double u = double(x) / w, v = double(y) / h;
            const double sky = v < 0.35 ? 200 : 90 + 60 * std::sin(u * 40) * std::cos(v * 25);
            row[3 * x] = uchar(std::clamp(sky * (0.8 + 0.2 * u) + noise, 0.0, 255.0));
            row[3 * x + 1] = uchar(std::clamp(sky * 0.9 + noise, 0.0, 255.0));
            row[3 * x + 2] = uchar(std::clamp(sky * (1.0 - 0.3 * v) + noise, 0.0, 255.0));
        }
    }
    return image;
}

// The HDR rendition: the decoded primary with its highlights boosted up to 3 stops.
ImageBuffer makeHdr(const QByteArray &primary)
{
    ImageBuffer hdr = decodeUltraHdr(primary, { 1.0, false }).image;
    for (int y = 0; y < hdr.height(); ++y) {
        qfloat16 *p = hdr.rowAs<qfloat16>(y);
        for (int x = 0; x < hdr.width(); ++x) {
            const float luma = 0.2126f * float(p[4 * x]) + 0.7152f * float(p[4 * x + 1])
                + 0.0722f * float(p[4 * x + 2]);
            const float boost = std::exp2(3.0f * std::clamp((luma - 0.4f) / 0.6f, 0.0f, 1.0f));
            for (int c = 0; c < 3; ++c)
                p[4 * x + c] = qfloat16(float(p[4 * x + c]) * boost);
        }
    }
    return hdr;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double timeMs(int runs, const std::function<void()> &work)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    return median(times);
}

bool save(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int w = args.size() > 2 ? args[1].toInt() : 6000;
    const int h = args.size() > 2 ? args[2].toInt() : 4000;
    const int runs = args.size() > 3 ? args[3].toInt() : 5;
    QTemporaryDir dir;

    std::printf("picture %d x %d (%.1f MP), %d runs each, median, %d threads\n", w, h, w * h / 1e6,
                runs, QThread::idealThreadCount());
    const QImage sdr = makeSdr(w, h);
    const QByteArray primary = encodeJpeg(sdr.constBits(), w, h, 3, sdr.bytesPerLine(), 90);
    const ImageBuffer hdr = makeHdr(primary);

    UltraHdrEncodeOptions options;
    options.mapScale = 4;
    options.mapQuality = 90;
    UltraHdrEncodeResult encoded;
    const double encodeMs
        = timeMs(runs, [&] { encoded = encodeUltraHdr(QByteArrayView(primary), hdr, options); });
    if (!encoded.error.isEmpty()) {
        std::fprintf(stderr, "encode failed: %s\n", qPrintable(encoded.error));
        return 1;
    }
    const QString uhdrPath = dir.filePath(QStringLiteral("bench.jpg"));
    const QString primaryPath = dir.filePath(QStringLiteral("primary.jpg"));
    save(uhdrPath, encoded.bytes);
    save(primaryPath, primary);
    std::printf("file: %.2f MB (primary %.2f MB, map %d x %d)\n", encoded.bytes.size() / 1e6,
                primary.size() / 1e6, encoded.mapWidth, encoded.mapHeight);

    bool applied = true;
    const double decodeMs = timeMs(runs, [&] {
        const UltraHdrDecodeResult r = decodeUltraHdrFile(uhdrPath);
        applied = applied && r.gainMapApplied;
    });
    const double sdrMs = timeMs(runs, [&] { decodeUltraHdrFile(uhdrPath, { 1.0, false }); });
    const double histogramMs = timeMs(runs, [&] { computeHistogram(uhdrPath, 3.0); });

    double djpegMs = -1;
    const QString djpeg = QStandardPaths::findExecutable(QStringLiteral("djpeg"));
    if (!djpeg.isEmpty()) {
        djpegMs = timeMs(runs, [&] {
            QProcess process;
            process.start(djpeg,
                          { QStringLiteral("-outfile"), QStringLiteral("/dev/null"), primaryPath });
            process.waitForFinished(-1);
        });
    }
    std::printf("encode (gain map from 24 MP HDR)   %8.1f ms\n", encodeMs);
    std::printf("decode to half floats, map applied %8.1f ms%s\n", decodeMs,
                applied ? "" : "  (MAP NOT APPLIED)");
    std::printf("decode to half floats, SDR only    %8.1f ms\n", sdrMs);
    std::printf("histogram from file                %8.1f ms\n", histogramMs);
    if (djpegMs > 0)
        std::printf("djpeg primary -> /dev/null         %8.1f ms   decode / djpeg = %.2fx\n",
                    djpegMs, decodeMs / djpegMs);
    else
        std::printf("djpeg not found: run scripts/install-bench-deps.sh\n");
    return 0;
}
