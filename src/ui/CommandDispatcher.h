// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The process-wide channel for menu commands: menus post a named command, the
// main window subscribes while it is shown and performs it. Main thread.
#pragma once

#include <QObject>
#include <QString>

#include <optional>

namespace orvanta {

enum class Command {
    OpenSettings, // "OpenOrvantaSettings"
    SelectSourceFolder, // "SelectSourceFolder"
    SelectDestFolder, // "SelectDestFolder"
    StartBatchPipeline, // "StartBatchPipeline"
    StopPipeline, // "StopPipeline"
    PausePipeline, // "PausePipeline": pauses a running batch or resumes a paused one
    RefreshHistory, // "RefreshHistory"
    OpenDonateView, // "OpenDonateView"
};

QString commandName(Command command);
std::optional<Command> commandFromName(QStringView name);

class CommandDispatcher : public QObject
{
    Q_OBJECT
public:
    static CommandDispatcher &shared();

    // Delivers `command` synchronously to every subscriber.
    void post(Command command);

Q_SIGNALS:
    void posted(orvanta::Command command);

private:
    CommandDispatcher() = default;
};

} // namespace orvanta
