// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/DiagnosticsFolders.h"

#include <QDir>
#include <QFileInfo>

namespace orvanta::diagnostics {

using namespace Qt::StringLiterals;

QString logsFolder()
{
    // Qt 6.4 has no location for state files, so the XDG rule is applied
    // here: a relative value is invalid and falls back to the default.
    QString base = qEnvironmentVariable("XDG_STATE_HOME");
    if (base.isEmpty() || QDir::isRelativePath(base))
        base = QDir::homePath() + u"/.local/state"_s;
    return QDir::cleanPath(base + u"/Orvanta/logs"_s);
}

RevealTarget prepareLogsReveal()
{
    const QString folder = logsFolder();
    QDir().mkpath(folder);
    return { folder, false };
}

RevealTarget prepareStateDatabaseReveal(const QString &databasePath)
{
    const QFileInfo database(databasePath);
    if (database.exists())
        return { database.absoluteFilePath(), true };
    const QString folder = database.absolutePath();
    QDir().mkpath(folder);
    return { folder, false };
}

} // namespace orvanta::diagnostics
