// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's settings for one invocation: the command line, completed by the
// shared configuration file for what has no flag. Parsed once on the main
// thread, then read by every worker.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta::engine {

// The five shaping values; see README "Tuning values".
struct Tuning
{
    double midTarget = 0.55;
    double powerMid = 0.45;
    double powerHi = 1.5;
    double chromaBoost = 0.28;
    double skinDamp = 0.4;
    double scale = 1.0; // overall strength of the lift, fixed per profile
};

struct RunOptions
{
    QString sourceDir;
    QString destDir;
    QString profileId = QStringLiteral("default");
    bool jsonStream = false;
    std::optional<double> midTarget, powerMid, powerHi, chromaBoost, skinDamp;
    QStringList stems;
    bool force = false;
    bool dryRun = false;
    bool backlitFill = false;
    int minRating = 0;
    QString namingTemplate = QStringLiteral("{original}_hdr");
    QString subfolderRule = QStringLiteral("none");
    int workers = 0; // 0: automatic
    bool noThrottle = false;
    // From the configuration file only.
    bool memoryThrottle = true;
    bool enableCanary = true;
    bool debugMasks = false;
};

enum class Command { Run, Watch, Doctor, Help, Version, Invalid };

struct ParsedCommandLine
{
    Command command = Command::Invalid;
    RunOptions options;
    bool doctorJson = false;
    QString error;
};

// `arguments` excludes the program name.
ParsedCommandLine parseCommandLine(const QStringList &arguments);

// Reads "workers" (when no -w was given), "memory_throttle", "enable_canary"
// and "export_debug_masks" from ~/.config/orvanta/config.json.
void applyConfigFile(RunOptions &options, const QString &configPath);
QString defaultConfigPath();

// The profile's values; for "custom", the defaults overridden by the flags.
// An unknown profile falls back to "default"; `known` says whether it did.
Tuning tuningFor(const RunOptions &options, bool *known = nullptr);

QString usageText();

} // namespace orvanta::engine
