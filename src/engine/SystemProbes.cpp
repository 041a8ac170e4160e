// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/SystemProbes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <sys/statvfs.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// A volume that is not a mount of its own has no name here: the views call it
// the local disk in the user's language.
const QString kLocalDiskName;
constexpr double kBytesPerGiB = 1073741824.0;
constexpr double kMinimumFreeGiB = 0.5;

// Thresholds on the share of time (percent over the last 10 s) in which
// some or all tasks stalled waiting for memory. The kernel's own out-of-
// memory daemon acts at 60 % "full" sustained; we warn much earlier, while
// throttling still helps.
constexpr double kCriticalFull = 10.0;
constexpr double kCriticalSome = 50.0;
constexpr double kWarningSome = 10.0;
constexpr double kWarningFull = 1.0;

std::optional<double> avg10Of(QByteArrayView line)
{
    const qsizetype at = line.indexOf("avg10=");
    if (at < 0)
        return std::nullopt;
    QByteArrayView rest = line.sliced(at + 6);
    const qsizetype end = rest.indexOf(' ');
    if (end >= 0)
        rest = rest.first(end);
    bool ok = false;
    const double value = rest.toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

} // namespace

VolumeIdentity volumeIdentityForPath(const QString &path)
{
    const QStringList parts = path.split(u'/', Qt::SkipEmptyParts);
    auto named = [](const QString &name) { return VolumeIdentity { name, true }; };
    if (path.startsWith(u'/') && !parts.isEmpty()) {
        const QString &top = parts.at(0);
        if ((top == u"Volumes"_s || top == u"mnt"_s) && parts.size() >= 2)
            return named(parts.at(1));
        if (top == u"media"_s && parts.size() >= 3)
            return named(parts.at(2));
        if (top == u"run"_s && parts.size() >= 4 && parts.at(1) == u"media"_s)
            return named(parts.at(3));
    }
    return { kLocalDiskName, false };
}

QString nearestExistingAncestor(const QString &path)
{
    QString current = QDir::cleanPath(path.isEmpty() ? u"/"_s : path);
    if (!current.startsWith(u'/'))
        current = QDir::cleanPath(QDir::currentPath() + u'/' + current);
    while (current != u"/"_s && !QFileInfo::exists(current)) {
        const qsizetype slash = current.lastIndexOf(u'/');
        current = slash <= 0 ? u"/"_s : current.first(slash);
    }
    return current;
}

double freeGibibytesAt(const QString &existingPath)
{
    struct statvfs info
    {
    };
    if (::statvfs(QFile::encodeName(existingPath).constData(), &info) != 0)
        return 0.0;
    const std::uint64_t bytes = std::uint64_t(info.f_bavail) * std::uint64_t(info.f_frsize);
    return double(bytes) / kBytesPerGiB;
}

bool isVolumeSafeForBatch(double freeGiB)
{
    return freeGiB > kMinimumFreeGiB;
}

VolumeInfo probeVolume(const QString &destDir, const QString &homeDir)
{
    const QString path = destDir.isEmpty() ? homeDir : destDir;
    const VolumeIdentity identity = volumeIdentityForPath(path);
    VolumeInfo info;
    info.name = identity.name;
    info.external = identity.external;
    info.freeGiB = freeGibibytesAt(nearestExistingAncestor(path));
    info.safe = isVolumeSafeForBatch(info.freeGiB);
    return info;
}

EnvironmentVerdict checkEngineInstalled(const EngineLocatorContext &c)
{
    const QString resolved = resolveEngineBinary(c);
    if (QFileInfo(resolved).isAbsolute() && c.isExecutableFile(resolved))
        return {};
    const QStringList candidates = engineCandidates(c);
    const QString configured = candidates.isEmpty() ? resolved : candidates.first();
    const QFileInfo info(configured);
    if (info.exists() && !info.isDir())
        return { "env_engine_not_executable", configured };
    return { "env_engine_missing", configured };
}

EnvironmentVerdict librariesVerdict(const QStringList &missing)
{
    if (missing.isEmpty())
        return {};
    return { "env_missing_libraries", missing.join(u", "_s) };
}

std::optional<MemoryPressure> memoryPressureFromPsi(QByteArrayView text)
{
    std::optional<double> some;
    double full = 0.0;
    for (QByteArrayView line : QByteArray::fromRawData(text.data(), text.size()).split('\n')) {
        if (line.startsWith("some ")) {
            some = avg10Of(line);
            if (!some)
                return std::nullopt;
        } else if (line.startsWith("full ")) {
            const auto value = avg10Of(line);
            if (!value)
                return std::nullopt;
            full = *value;
        }
    }
    if (!some)
        return std::nullopt;
    if (full >= kCriticalFull || *some >= kCriticalSome)
        return MemoryPressure::Critical;
    if (*some >= kWarningSome || full >= kWarningFull)
        return MemoryPressure::Warning;
    return MemoryPressure::Normal;
}

std::optional<MemoryPressure> readMemoryPressure(const QString &path)
{
    QFile file(path.isEmpty() ? u"/proc/pressure/memory"_s : path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    // A /proc file reports size 0: read until the end instead.
    return memoryPressureFromPsi(file.readAll());
}

const char *memoryPressureKey(int level)
{
    if (level >= 4)
        return "pressure_critical";
    if (level == 2)
        return "pressure_warning";
    return "pressure_normal";
}

double installedMemoryGiB()
{
    const long pages = ::sysconf(_SC_PHYS_PAGES);
    const long pageSize = ::sysconf(_SC_PAGE_SIZE);
    if (pages <= 0 || pageSize <= 0)
        return 0.0;
    return double(std::uint64_t(pages) * std::uint64_t(pageSize)) / kBytesPerGiB;
}

} // namespace orvanta
