// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EngineOptions.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

bool takeValue(const QStringList &args, qsizetype &i, QString &value, QString &error)
{
    if (i + 1 >= args.size()) {
        error = u"missing value after "_s + args[i];
        return false;
    }
    value = args[++i];
    return true;
}

bool toDouble(const QString &text, std::optional<double> &out, QString &error, const QString &flag)
{
    bool ok = false;
    const double v = text.toDouble(&ok);
    if (!ok || !std::isfinite(v)) {
        error = flag + u" needs a number, got \""_s + text + u'"';
        return false;
    }
    out = v;
    return true;
}

bool toInt(const QString &text, int &out, QString &error, const QString &flag)
{
    bool ok = false;
    const int v = text.toInt(&ok);
    if (!ok) {
        error = flag + u" needs a whole number, got \""_s + text + u'"';
        return false;
    }
    out = v;
    return true;
}

// One flag of the "run" command; false with `error` set on a bad flag.
bool parseRunFlag(const QStringList &args, qsizetype &i, RunOptions &o, QString &error)
{
    const QString &flag = args[i];
    QString v;
    const auto value = [&] { return takeValue(args, i, v, error); };
    if (flag == u"-s"_s || flag == u"--source"_s)
        return value() && (o.sourceDir = v, true);
    if (flag == u"-d"_s || flag == u"--dest"_s)
        return value() && (o.destDir = v, true);
    if (flag == u"--profile-id"_s)
        return value() && (o.profileId = v, true);
    if (flag == u"--json-stream"_s)
        return o.jsonStream = true;
    if (flag == u"--mid-target"_s)
        return value() && toDouble(v, o.midTarget, error, flag);
    if (flag == u"--power-mid"_s)
        return value() && toDouble(v, o.powerMid, error, flag);
    if (flag == u"--power-hi"_s)
        return value() && toDouble(v, o.powerHi, error, flag);
    if (flag == u"--chroma-boost"_s)
        return value() && toDouble(v, o.chromaBoost, error, flag);
    if (flag == u"--skin-damp"_s)
        return value() && toDouble(v, o.skinDamp, error, flag);
    if (flag == u"--stem"_s) {
        if (!value())
            return false;
        for (const QString &stem : v.split(u',', Qt::SkipEmptyParts))
            if (!stem.trimmed().isEmpty())
                o.stems << stem.trimmed();
        return true;
    }
    if (flag == u"-f"_s || flag == u"--force"_s)
        return o.force = true;
    if (flag == u"-n"_s || flag == u"--dry-run"_s)
        return o.dryRun = true;
    if (flag == u"--backlit-fill"_s)
        return o.backlitFill = true;
    if (flag == u"--min-rating"_s)
        return value() && toInt(v, o.minRating, error, flag);
    if (flag == u"--naming-template"_s)
        return value() && (o.namingTemplate = v, true);
    if (flag == u"--subfolder-rule"_s)
        return value() && (o.subfolderRule = v, true);
    if (flag == u"-w"_s || flag == u"--workers"_s)
        return value() && toInt(v, o.workers, error, flag);
    if (flag == u"--no-throttle"_s)
        return o.noThrottle = true;
    error = u"unknown option "_s + flag;
    return false;
}

} // namespace

ParsedCommandLine parseCommandLine(const QStringList &args)
{
    ParsedCommandLine parsed;
    if (args.isEmpty()) {
        parsed.error = u"no command given"_s;
        return parsed;
    }
    const QString &first = args.first();
    if (first == u"--help"_s || first == u"-h"_s || first == u"help"_s) {
        parsed.command = Command::Help;
        return parsed;
    }
    if (first == u"--version"_s || first == u"-V"_s) {
        parsed.command = Command::Version;
        return parsed;
    }
    if (first == u"doctor"_s) {
        parsed.command = Command::Doctor;
        for (qsizetype i = 1; i < args.size(); ++i) {
            if (args[i] != u"--json"_s) {
                parsed.command = Command::Invalid;
                parsed.error = u"unknown option "_s + args[i];
                return parsed;
            }
            parsed.doctorJson = true;
        }
        return parsed;
    }
    const bool watch = first == u"watch"_s;
    if (first != u"run"_s && !watch) {
        parsed.error
            = (first.startsWith(u'-') ? u"unknown option "_s : u"unknown command "_s) + first;
        return parsed;
    }
    RunOptions &o = parsed.options;
    for (qsizetype i = 1; i < args.size(); ++i) {
        if (args[i] == u"--help"_s || args[i] == u"-h"_s) {
            parsed.command = Command::Help;
            return parsed;
        }
        if (!parseRunFlag(args, i, o, parsed.error))
            return parsed;
    }
    if (o.sourceDir.isEmpty() || o.destDir.isEmpty()) {
        parsed.error = first + u" needs both -s SOURCE and -d DEST"_s;
        return parsed;
    }
    if (o.workers < 0)
        o.workers = 0;
    o.namingTemplate = o.namingTemplate.trimmed();
    if (o.namingTemplate.isEmpty())
        o.namingTemplate = u"{original}_hdr"_s;
    parsed.command = watch ? Command::Watch : Command::Run;
    return parsed;
}

QString defaultConfigPath()
{
    return QDir::homePath() + u"/.config/orvanta/config.json"_s;
}

void applyConfigFile(RunOptions &options, const QString &configPath)
{
    QFile file(configPath);
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonObject config = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonValue workers = config.value(u"workers"_s);
    if (options.workers == 0 && workers.isDouble() && workers.toDouble() >= 1
        && workers.toDouble() == std::floor(workers.toDouble()))
        options.workers = workers.toInt();
    const auto flag = [&](const QString &key, bool &target) {
        const QJsonValue v = config.value(key);
        if (v.isBool())
            target = v.toBool();
    };
    flag(u"memory_throttle"_s, options.memoryThrottle);
    flag(u"enable_canary"_s, options.enableCanary);
    flag(u"export_debug_masks"_s, options.debugMasks);
}

Tuning tuningFor(const RunOptions &options, bool *known)
{
    Tuning t;
    const QString &p = options.profileId;
    if (known)
        *known = true;
    if (p == u"portrait_soft"_s)
        return { 0.50, 0.55, 1.25, 0.20, 0.70, 0.75 };
    if (p == u"landscape_punchy"_s)
        return { 0.65, 0.38, 1.60, 0.28, 0.20, 1.00 };
    if (p == u"cinematic_film"_s)
        return { 0.45, 0.60, 1.20, 0.15, 0.40, 0.65 };
    if (p == u"custom"_s) {
        t.midTarget = options.midTarget.value_or(t.midTarget);
        t.powerMid = options.powerMid.value_or(t.powerMid);
        t.powerHi = options.powerHi.value_or(t.powerHi);
        t.chromaBoost = options.chromaBoost.value_or(t.chromaBoost);
        t.skinDamp = options.skinDamp.value_or(t.skinDamp);
        return t;
    }
    if (known && p != u"default"_s)
        *known = false;
    return t;
}

QString usageText()
{
    return uR"(usage: orvanta_engine run -s SOURCE -d DEST [options]
       orvanta_engine watch -s SOURCE -d DEST [options]
       orvanta_engine doctor [--json]
       orvanta_engine --help | --version

Converts the RAW+JPG pairs of SOURCE into Ultra HDR photos in DEST: the camera
JPG is the picture every screen shows, the RAW adds the highlights above white.

run options:
  --profile-id ID        default, portrait_soft, landscape_punchy, cinematic_film, custom
  --json-stream          write machine-readable progress lines (ORVANTA_EVENT: {...})
  --mid-target V         custom: lift of the bright mid-tones, in stops
  --power-mid V          custom: how the mid-tone lift spreads (lower: only the brightest)
  --power-hi V           custom: highlight knee (higher: brighter, harder specular roll-off)
  --chroma-boost V       custom: colour kept in lifted highlights
  --skin-damp V          custom: share of the lift taken away from skin (0..1)
  --stem A[,B...]        only these photo stems
  -f                     process pairs again even when already delivered
  -n                     dry run: scan and report, write nothing
  --backlit-fill         lift the shadows of back-lit subjects
  --min-rating N         only photos rated N stars or more
  --naming-template T    output name; {original}, {profile}, {date}, {time}, {camera}
  --subfolder-rule R     none, date, camera, rating
  -w N                   worker count (default: from cores and available memory)
  --no-throttle          keep all workers busy under memory pressure
watch converts what SOURCE holds, then keeps watching it and converts each new
pair once both files exist and have stayed closed and unchanged for a second;
a lone RAW waits for its JPG. Ctrl+C (SIGINT) ends it: 0 when it was idle,
130 when photos were being converted (those in flight are finished first).
If SOURCE disappears (a disk unplugged) it waits for it to come back.
--json-stream records: run and watch send "scan", "item_start", "item_done",
"item_failed" {reason: jpg_unreadable|raw_unreadable|colour_unmatched|
encode_failed|write_failed|destination_gone} and at the end "batch_done"; watch
adds "watch_started" {folder}, "watch_waiting" {stem, waiting_for:
raw|jpg|write}, "watch_idle" {success, failed}, "watch_lost" {folder, reason}
and "watch_back" {folder}.
Exit status: 0 batch finished (failed items are counted, not fatal), 1 usage or
set-up error, 2 stopped by the storage canary, 130 interrupted, 143 terminated.
)"_s;
}

} // namespace orvanta::engine
