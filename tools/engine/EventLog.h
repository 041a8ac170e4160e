// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's output: human log lines and, with --json-stream, one-line JSON
// progress records, both on standard output and (log lines and records alike)
// in the day's log file. Thread-safe: workers write through one mutex.
#pragma once

#include <QFile>
#include <QJsonObject>
#include <QString>

#include <mutex>

namespace orvanta::engine {

class EventLog
{
public:
    explicit EventLog(bool jsonStream);

    // $XDG_STATE_HOME/Orvanta/logs (default ~/.local/state/Orvanta/logs).
    static QString logsFolder();
    void openLogFile();

    void line(const QString &text);
    void event(const QString &type, QJsonObject fields);

private:
    void write(const QByteArray &bytes);

    bool m_jsonStream;
    QFile m_file;
    std::mutex m_mutex;
};

} // namespace orvanta::engine
