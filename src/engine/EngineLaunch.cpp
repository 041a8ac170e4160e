// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineLaunch.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <csignal>
#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

const QString kPathPrefix = u"/opt/homebrew/bin:/usr/local/bin:/opt/homebrew/sbin:"_s;
const QString kDefaultPath
    = u"/opt/homebrew/bin:/usr/local/bin:/opt/homebrew/sbin:/usr/bin:/bin:/usr/sbin:/sbin"_s;

bool isHorizontalSpace(QChar c)
{
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

QString twoDecimals(double value)
{
    return QString::number(value, 'f', 2);
}

void addTuning(QStringList &args, const char *flag, const std::optional<double> &value)
{
    if (value)
        args << QString::fromLatin1(flag) << twoDecimals(*value);
}

bool hasText(const std::optional<QString> &value)
{
    return value && !trimmedHorizontal(*value).isEmpty();
}

} // namespace

QString trimmedHorizontal(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && isHorizontalSpace(text.at(begin)))
        ++begin;
    while (end > begin && isHorizontalSpace(text.at(end - 1)))
        --end;
    return text.sliced(begin, end - begin);
}

QStringList engineArguments(const EngineRunOptions &o)
{
    QStringList args { o.watch ? u"watch"_s : u"run"_s,
                       u"-s"_s,
                       o.sourceDir,
                       u"-d"_s,
                       o.destDir,
                       u"--profile-id"_s,
                       rawValue(o.profile),
                       u"--json-stream"_s };
    // The tuning values belong to the custom style only; other styles carry
    // their own and ignore any that are given.
    if (o.profile == StyleProfile::Custom) {
        addTuning(args, "--mid-target", o.customMidTarget);
        addTuning(args, "--power-mid", o.customPowerMid);
        addTuning(args, "--power-hi", o.customPowerHi);
        addTuning(args, "--chroma-boost", o.customChromaBoost);
        addTuning(args, "--skin-damp", o.customSkinDamp);
    }
    // The stem goes out as typed (file stems may end in spaces); the
    // template and the rule are trimmed, and the rule is compared with
    // "none" before trimming, as the engine has always received it.
    if (hasText(o.stem))
        args << u"--stem"_s << *o.stem;
    if (o.force)
        args << u"-f"_s;
    if (o.dryRun)
        args << u"-n"_s;
    if (o.backlitFill)
        args << u"--backlit-fill"_s;
    if (o.minRating >= 1)
        args << u"--min-rating"_s << QString::number(o.minRating);
    if (hasText(o.namingTemplate))
        args << u"--naming-template"_s << trimmedHorizontal(*o.namingTemplate);
    if (o.subfolderRule && *o.subfolderRule != u"none"_s && hasText(o.subfolderRule))
        args << u"--subfolder-rule"_s << trimmedHorizontal(*o.subfolderRule);
    if (o.workers >= 1)
        args << u"-w"_s << QString::number(o.workers);
    if (o.noThrottle)
        args << u"--no-throttle"_s;
    return args;
}

EngineLocatorContext EngineLocatorContext::system()
{
    EngineLocatorContext c;
    c.environment = [](const QString &name) -> std::optional<QString> {
        const QByteArray key = name.toLatin1();
        if (!qEnvironmentVariableIsSet(key.constData()))
            return std::nullopt;
        return qEnvironmentVariable(key.constData());
    };
    c.isExecutableFile = [](const QString &path) {
        const QFileInfo info(path);
        return info.isFile() && info.isExecutable();
    };
    c.findOnPath = [](const QString &name) { return QStandardPaths::findExecutable(name); };
    c.applicationDir = QCoreApplication::applicationDirPath();
    c.applicationFile = QCoreApplication::applicationFilePath();
    c.homeDir = QDir::homePath();
    return c;
}

QString resourcesDirFor(const QString &applicationDir)
{
    return QDir::cleanPath(applicationDir + u"/../share/orvanta"_s);
}

QStringList engineCandidates(const EngineLocatorContext &c)
{
    QStringList out;
    // One override only: the first variable that is set wins, even when
    // what it names is unusable.
    for (const QString &name : { u"ORVANTA_BIN"_s, u"DRAVIK_BIN"_s, u"TARNE_BIN"_s }) {
        if (const auto value = c.environment(name)) {
            out << *value;
            break;
        }
    }
    const QString appDir = QDir::cleanPath(c.applicationDir);
    for (const char *name : { "orvanta_engine", "dravik_engine", "tarne_engine" })
        out << appDir + u'/' + QLatin1StringView(name);
    // An installed package keeps the engine out of PATH, as a helper of ours.
    out << QDir::cleanPath(appDir + u"/../libexec/orvanta/"_s + QLatin1StringView(kEngineName));
    const QString resources = resourcesDirFor(appDir);
    for (const char *name : { "orvanta_engine", "pemvira_engine", "dravik_engine", "tarne_engine" })
        out << resources + u'/' + QLatin1StringView(name);

    const QString outer = QDir::cleanPath(appDir + u"/.."_s);
    const QString outerParent = QDir::cleanPath(outer + u"/.."_s);
    for (const char *name :
         { "orvanta_engine", "dravik_engine", "tarne_engine", "orvanta", "dravik", "tarne" })
        out << QDir::cleanPath(outer + u"/bin/"_s + QLatin1StringView(name));
    for (const char *name : { "orvanta", "dravik", "tarne" })
        out << QDir::cleanPath(outerParent + u"/bin/"_s + QLatin1StringView(name));
    for (const char *name : { "orvanta", "dravik", "tarne" })
        out << c.homeDir + u"/Desktop/hdr_workflow/bin/"_s + QLatin1StringView(name);
    out << c.homeDir + u"/.local/bin/orvanta"_s << u"/usr/local/bin/orvanta"_s
        << u"/opt/homebrew/bin/orvanta"_s;
    return out;
}

QString resolveEngineBinary(const EngineLocatorContext &c)
{
    const QString self = c.applicationFile.isEmpty()
        ? QString()
        : QFileInfo(c.applicationFile).canonicalFilePath();
    for (const QString &candidate : engineCandidates(c)) {
        if (candidate.isEmpty() || !c.isExecutableFile(candidate))
            continue;
        // Installed as /usr/bin/orvanta, this program is itself one of the
        // "bin/orvanta" candidates; starting it as the engine would open a
        // second window instead of running a batch.
        if (!self.isEmpty() && QFileInfo(candidate).canonicalFilePath() == self)
            continue;
        return candidate;
    }
    if (const QString onPath = c.findOnPath(QString::fromLatin1(kEngineName)); !onPath.isEmpty())
        return onPath;
    return QString::fromLatin1(kEngineName);
}

QProcessEnvironment engineEnvironment(QProcessEnvironment env, const QString &resourcesDir)
{
    const QString path = env.value(u"PATH"_s);
    env.insert(u"PATH"_s, env.contains(u"PATH"_s) ? kPathPrefix + path : kDefaultPath);
    if (!resourcesDir.isEmpty()) {
        for (const QString &name :
             { u"ORVANTA_RESOURCES_DIR"_s, u"DRAVIK_RESOURCES_DIR"_s, u"TARNE_RESOURCES_DIR"_s })
            env.insert(name, resourcesDir);
    }
    return env;
}

void prepareEngineChild()
{
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGINT);
}

void endProcessGroup(qint64 group)
{
    if (group > 0)
        ::kill(-pid_t(group), SIGKILL);
}

} // namespace orvanta
