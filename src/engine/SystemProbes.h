// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The environment, storage and memory probes behind the footer and the
// start checks: which tools are installed, how much room the destination's
// volume has, installed memory and memory pressure. Pure functions over
// explicit inputs plus thin readers of the real system; any thread.
#pragma once

#include "engine/EngineLaunch.h"

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace orvanta {

// ---- Volumes ----

struct VolumeIdentity
{
    QString name;
    bool external = false;
};

// Removable and network volumes are mounted under /media/<user>/<name>,
// /run/media/<user>/<name>, /mnt/<name> (and /Volumes/<name> on the other
// platform); anything else is the local disk.
VolumeIdentity volumeIdentityForPath(const QString &path);

// `path`, or its nearest ancestor that exists ("/" at the latest), so that a
// destination still to be created is measured on its volume.
QString nearestExistingAncestor(const QString &path);

// Free space for unprivileged users in GiB, 0.0 when it cannot be read.
double freeGibibytesAt(const QString &existingPath);

// A volume with more than half a GiB free may receive a batch.
bool isVolumeSafeForBatch(double freeGiB);

struct VolumeInfo
{
    QString name;
    double freeGiB = 0;
    bool external = false;
    bool safe = false;
};

// The whole probe for a destination (empty: the home folder).
VolumeInfo probeVolume(const QString &destDir, const QString &homeDir);

// ---- The engine ----

// What the environment check found wrong, as a text key with its argument;
// no key when all is well.
struct EnvironmentVerdict
{
    const char *key = nullptr; // "env_engine_missing", ...
    QString detail; // the engine's path or the missing libraries' names

    bool healthy() const { return key == nullptr; }
};

// The engine itself: fine when the locator finds an executable; otherwise
// the configured path (the ORVANTA_BIN override when set, else where the
// installation puts the engine) and whether it is missing or merely not
// executable. The engine needs no external tool on this platform (it writes
// Ultra HDR and metadata itself), so no tool is looked for.
EnvironmentVerdict checkEngineInstalled(const EngineLocatorContext &context);
// What the engine's own health check reported missing, by name.
EnvironmentVerdict librariesVerdict(const QStringList &missing);

// ---- Memory ----

// The pressure classes: 1 normal, 2 warning (throttling), 4 critical.
enum class MemoryPressure { Normal = 1, Warning = 2, Critical = 4 };

// Classifies the kernel's pressure stall information for memory (the text
// of /proc/pressure/memory). Nothing when the text cannot be read as such.
std::optional<MemoryPressure> memoryPressureFromPsi(QByteArrayView text);
// Reads /proc/pressure/memory (or `path`); nothing when missing or unreadable.
std::optional<MemoryPressure> readMemoryPressure(const QString &path = QString());

// The description key for a pressure level as the engine reports it:
// "pressure_critical" from 4 up, "pressure_warning" for exactly 2,
// "pressure_normal" for everything else.
const char *memoryPressureKey(int level);

// Installed physical memory in GiB (0 when unknown).
double installedMemoryGiB();

} // namespace orvanta
