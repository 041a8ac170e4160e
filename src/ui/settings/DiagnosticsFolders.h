// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Where the diagnostics buttons of the settings lead: the logs folder and the
// engine's state database, prepared so the file manager has something to
// show. Plain functions; main thread (they create folders).
#pragma once

#include <QString>

namespace orvanta::diagnostics {

// $XDG_STATE_HOME/Orvanta/logs, or ~/.local/state/Orvanta/logs when the
// variable is unset or not an absolute path.
QString logsFolder();

// What to show in the file manager: a folder to open, or a file to select.
struct RevealTarget
{
    QString path;
    bool selectItem = false;
};

// Creates the logs folder (with its parents; failures are ignored) and
// returns it.
RevealTarget prepareLogsReveal();
// The database itself when it exists; otherwise its folder, created first.
RevealTarget prepareStateDatabaseReveal(const QString &databasePath);

} // namespace orvanta::diagnostics
