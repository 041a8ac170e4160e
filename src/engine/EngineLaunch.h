// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Everything that decides how the engine is started: where its executable
// is, the command line built from the batch settings and the environment it
// gets. Pure functions over explicit inputs; safe on any thread.
#pragma once

#include "styles/StyleProfile.h"

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace orvanta {

inline constexpr const char *kEngineName = "orvanta_engine";

// The settings of one run, as the batch controller hands them over.
struct EngineRunOptions
{
    QString sourceDir;
    QString destDir;
    std::optional<QString> stem;
    StyleProfile profile = StyleProfile::Default;
    std::optional<double> customMidTarget;
    std::optional<double> customPowerMid;
    std::optional<double> customPowerHi;
    std::optional<double> customChromaBoost;
    std::optional<double> customSkinDamp;
    bool force = false;
    bool dryRun = false;
    bool backlitFill = false;
    qint64 workers = 0;
    bool noThrottle = false;
    qint64 minRating = 0;
    std::optional<QString> namingTemplate;
    std::optional<QString> subfolderRule;
    // Keep watching the source folder after the first pass, until stopped.
    bool watch = false;
};

// The engine's arguments, in the order it documents.
QStringList engineArguments(const EngineRunOptions &options);

// Removes spaces, tabs and other space separators at both ends, but not
// line breaks.
QString trimmedHorizontal(const QString &text);

// What the locator may look at; the real values come from system().
struct EngineLocatorContext
{
    std::function<std::optional<QString>(const QString &name)> environment;
    std::function<bool(const QString &path)> isExecutableFile;
    std::function<QString(const QString &name)> findOnPath; // empty when not found
    QString applicationDir; // the folder of our own executable
    QString applicationFile; // our own executable: never taken for the engine
    QString homeDir;

    static EngineLocatorContext system();
};

// The folder the installation puts data files in (next to bin/, in share/).
QString resourcesDirFor(const QString &applicationDir);

// Every place the engine may be, in the order they are tried.
QStringList engineCandidates(const EngineLocatorContext &context);
// The first executable candidate, then the engine found on PATH, then the
// bare name (whose launch then fails and is reported).
QString resolveEngineBinary(const EngineLocatorContext &context);

// The child's environment: ours, with the usual tool folders put in front
// of PATH and the resources folder announced under every name the engine
// has ever read. `resourcesDir` empty: no resources variables.
QProcessEnvironment engineEnvironment(QProcessEnvironment base, const QString &resourcesDir);

// Runs in the forked child before the engine is executed: the engine gets a
// process group of its own (Ctrl+C in our terminal does not reach it, and a
// kill of the group reaches every worker it started), and should the
// application die without a word, the kernel sends it SIGINT, the same
// "finish the photo in flight, then stop" request as the stop button.
void prepareEngineChild();

// Ends whatever is left of an engine's process group (workers that ignore
// INT and TERM) once the engine itself has ended. 0 does nothing.
void endProcessGroup(qint64 group);

} // namespace orvanta
