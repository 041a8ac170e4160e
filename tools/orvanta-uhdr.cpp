// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// orvanta-uhdr: the Ultra HDR codec on the command line.
//   probe FILE                          metadata as JSON (exit 3 when not Ultra HDR)
//   decode FILE OUT.pfm [--headroom H]  linear light as a portable float map
//   encode SDR.jpg HDR.pfm OUT.jpg [--scale N] [--quality Q] [--multichannel]
#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/PortableFloatMap.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/UltraHdrWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

enum ExitCode { Ok = 0, Usage = 1, Failure = 2, NotUltraHdr = 3 };

constexpr const char *kUsage
    = "usage: orvanta-uhdr probe FILE\n"
      "       orvanta-uhdr decode FILE OUT.pfm [--headroom H]\n"
      "       orvanta-uhdr encode SDR.jpg HDR.pfm OUT.jpg [--scale N] [--quality Q] "
      "[--multichannel]\n"
      "       orvanta-uhdr --help | --version\n";

int usage()
{
    std::fputs(kUsage, stderr);
    return Usage;
}

// --help and --version anywhere answer at once; any other word that starts
// with "-" must be one of the options, so a typo is never taken for a file.
std::optional<int> answerStandardOptions(const QStringList &args)
{
    static const QStringList valued { u"--headroom"_s, u"--scale"_s, u"--quality"_s };
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString &arg = args[i];
        if (arg == u"--help" || arg == u"-h") {
            std::fputs(kUsage, stdout);
            return Ok;
        }
        if (arg == u"--version" || arg == u"-V") {
            std::printf("orvanta-uhdr %s\n", ORVANTA_VERSION);
            return Ok;
        }
        if (valued.contains(arg))
            ++i; // its value may itself start with "-"
        else if (arg.startsWith(u'-') && arg.size() > 1 && arg != u"--multichannel") {
            std::fprintf(stderr, "orvanta-uhdr: unknown option %s\nTry 'orvanta-uhdr --help'.\n",
                         qPrintable(arg));
            return Usage;
        }
    }
    return std::nullopt;
}

int fail(const QString &message)
{
    std::fprintf(stderr, "orvanta-uhdr: %s\n", qPrintable(message));
    return Failure;
}

bool readFile(const QString &path, QByteArray &bytes, QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = path + u": "_s + file.errorString();
        return false;
    }
    bytes = file.readAll();
    return true;
}

bool writeFile(const QString &path, const QByteArray &bytes, QString &error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        error = path + u": "_s + file.errorString();
        return false;
    }
    return true;
}

QJsonValue perChannel(const GainMapMetadata &m, double GainMapChannel::*field, bool exponent)
{
    QJsonArray values;
    for (int c = 0; c < m.channelCount; ++c) {
        const double v = m.channels[c].*field;
        values.append(exponent ? std::exp2(v) : v);
    }
    return values.size() == 1 ? values.first() : QJsonValue(values);
}

QJsonObject metadataJson(const GainMapMetadata &m)
{
    return {
        { u"source"_s, sourceName(m.source) },
        { u"version"_s, m.version },
        { u"channels"_s, m.channelCount },
        { u"gainMapMinLog2"_s, perChannel(m, &GainMapChannel::minLog2, false) },
        { u"gainMapMaxLog2"_s, perChannel(m, &GainMapChannel::maxLog2, false) },
        { u"minContentBoost"_s, perChannel(m, &GainMapChannel::minLog2, true) },
        { u"maxContentBoost"_s, perChannel(m, &GainMapChannel::maxLog2, true) },
        { u"gamma"_s, perChannel(m, &GainMapChannel::gamma, false) },
        { u"offsetSdr"_s, perChannel(m, &GainMapChannel::offsetSdr, false) },
        { u"offsetHdr"_s, perChannel(m, &GainMapChannel::offsetHdr, false) },
        { u"hdrCapacityMinLog2"_s, m.hdrCapacityMinLog2 },
        { u"hdrCapacityMaxLog2"_s, m.hdrCapacityMaxLog2 },
        { u"useBaseColourSpace"_s, m.useBaseColourSpace },
    };
}

// The gamut an ICC profile describes; "ICC" for other matrix profiles, empty for none.
QString colourSpaceName(const std::optional<Matrix3> &toXyz)
{
    if (!toXyz)
        return {};
    const std::optional<Gamut> gamut = gamutOf(*toXyz);
    return gamut ? QString::fromLatin1(gamutName(*gamut)) : u"ICC"_s;
}

int probe(const QString &path)
{
    QByteArray bytes;
    QString error;
    if (!readFile(path, bytes, error))
        return fail(error);
    const UltraHdrLayout layout = inspectUltraHdr(bytes);
    QJsonObject out { { u"file"_s, path }, { u"ultrahdr"_s, layout.isUltraHdr() } };
    if (layout.isJpeg()) {
        out[u"primary"_s] = QJsonObject {
            { u"width"_s, layout.primary.width },
            { u"height"_s, layout.primary.height },
            { u"bytes"_s, qint64(layout.primary.end - layout.primary.start) },
            { u"orientation"_s, layout.orientation },
            { u"hdrgmVersion"_s, layout.primaryHdrgmVersion },
            { u"isoVersionBlock"_s, layout.primaryHasIsoVersion },
        };
    }
    if (layout.gainMap) {
        out[u"gainMap"_s] = QJsonObject {
            { u"offset"_s, qint64(layout.gainMap->start) },
            { u"bytes"_s, qint64(layout.gainMap->end - layout.gainMap->start) },
            { u"width"_s, layout.gainMap->width },
            { u"height"_s, layout.gainMap->height },
            { u"components"_s, layout.gainMap->components },
            { u"locatedBy"_s, locatorName(layout.locatedBy) },
            { u"colourSpace"_s, colourSpaceName(layout.gainMapToXyz) },
        };
        // Where the gains apply: the base's primaries, or the alternate
        // (HDR) image's that the map's ICC profile names.
        out[u"alternateColourSpace"_s] = layout.usesAlternateColourSpace();
    }
    if (layout.metadata)
        out[u"metadata"_s] = metadataJson(*layout.metadata);
    if (!layout.isUltraHdr())
        out[u"reason"_s] = layout.gainMapIssue();
    out[u"issues"_s] = QJsonArray::fromStringList(layout.issues);
    std::fputs(QJsonDocument(out).toJson(QJsonDocument::Indented).constData(), stdout);
    if (!layout.isUltraHdr()) {
        std::fprintf(stderr, "orvanta-uhdr: %s is not Ultra HDR: %s\n", qPrintable(path),
                     qPrintable(layout.gainMapIssue()));
        return NotUltraHdr;
    }
    return Ok;
}

// Value of `--name V` in `args` (removed from it), or `fallback`; false on a bad value.
bool takeNumber(QStringList &args, const QString &name, double &value)
{
    const qsizetype at = args.indexOf(name);
    if (at < 0)
        return true;
    if (at + 1 >= args.size())
        return false;
    bool ok = false;
    value = args[at + 1].toDouble(&ok);
    args.remove(at, 2);
    return ok && std::isfinite(value);
}

int decode(QStringList args)
{
    double headroom = std::numeric_limits<double>::infinity();
    if (!takeNumber(args, u"--headroom"_s, headroom) || args.size() != 2 || !(headroom >= 1.0))
        return usage();
    UltraHdrDecodeOptions options;
    options.displayHeadroom = headroom;
    const UltraHdrDecodeResult result = decodeUltraHdrFile(args[0], options);
    if (result.image.isNull())
        return fail(args[0] + u": "_s + result.error);
    if (!result.gainMapApplied)
        std::fprintf(stderr, "orvanta-uhdr: gain map not applied (%s); wrote the SDR picture\n",
                     qPrintable(result.gainMapIssue));
    // Written row by row: the picture is never held a second time as bytes.
    QSaveFile file(args[1]);
    if (!file.open(QIODevice::WriteOnly) || !writePortableFloatMap(result.image, file)
        || !file.commit())
        return fail(args[1] + u": "_s + file.errorString());
    return Ok;
}

int encode(QStringList args)
{
    double scale = 4, quality = 90;
    const bool multiChannel = args.removeAll(u"--multichannel"_s) > 0;
    if (!takeNumber(args, u"--scale"_s, scale) || !takeNumber(args, u"--quality"_s, quality)
        || args.size() != 3 || scale < 1 || scale > 128 || quality < 1 || quality > 100)
        return usage();
    QByteArray sdr;
    QString error;
    if (!readFile(args[0], sdr, error))
        return fail(error);
    // The float map is read a row at a time as the gains are measured, never whole.
    PortableFloatMapReader hdr;
    if (!hdr.open(args[1], &error))
        return fail(args[1] + u": "_s + error);
    UltraHdrEncodeOptions options;
    options.mapScale = int(scale);
    options.mapQuality = int(quality);
    options.multiChannel = multiChannel;
    options.threads = std::max(1, QThread::idealThreadCount());
    const UltraHdrEncodeResult result = encodeUltraHdr(
        QByteArrayView(sdr), hdr.width(), hdr.height(),
        [&hdr](int y, float *rgba) { return hdr.readRow(y, rgba); }, options);
    if (!result.error.isEmpty())
        return fail(result.error);
    if (!writeFile(args[2], result.bytes, error))
        return fail(error);
    return Ok;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments().mid(1);
    if (const std::optional<int> answered = answerStandardOptions(args))
        return *answered;
    if (args.isEmpty())
        return usage();
    const QString command = args.takeFirst();
    if (command == u"probe" && args.size() == 1)
        return probe(args[0]);
    if (command == u"decode")
        return decode(args);
    if (command == u"encode")
        return encode(args);
    return usage();
}
