// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/CommandDispatcher.h"

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
constexpr std::pair<Command, QStringView> kNames[] = {
    { Command::OpenSettings, u"OpenOrvantaSettings" },
    { Command::SelectSourceFolder, u"SelectSourceFolder" },
    { Command::SelectDestFolder, u"SelectDestFolder" },
    { Command::StartBatchPipeline, u"StartBatchPipeline" },
    { Command::StopPipeline, u"StopPipeline" },
    { Command::PausePipeline, u"PausePipeline" },
    { Command::RefreshHistory, u"RefreshHistory" },
    { Command::OpenDonateView, u"OpenDonateView" },
};
} // namespace

QString commandName(Command command)
{
    for (const auto &[c, name] : kNames)
        if (c == command)
            return name.toString();
    return QString();
}

std::optional<Command> commandFromName(QStringView name)
{
    for (const auto &[c, n] : kNames)
        if (n == name)
            return c;
    return std::nullopt;
}

CommandDispatcher &CommandDispatcher::shared()
{
    static CommandDispatcher instance;
    return instance;
}

void CommandDispatcher::post(Command command)
{
    Q_EMIT posted(command);
}

} // namespace orvanta
