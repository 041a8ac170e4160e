// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EventLog.h"

#include <QDate>
#include <QDir>
#include <QJsonDocument>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

EventLog::EventLog(bool jsonStream)
    : m_jsonStream(jsonStream)
{
}

QString EventLog::logsFolder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (state.isEmpty() || QDir::isRelativePath(state))
        state = QDir::homePath() + u"/.local/state"_s;
    return state + u"/Orvanta/logs"_s;
}

void EventLog::openLogFile()
{
    QDir().mkpath(logsFolder());
    m_file.setFileName(logsFolder() + u"/engine-"_s + QDate::currentDate().toString(u"yyyy-MM-dd"_s)
                       + u".log"_s);
    if (!m_file.open(QIODevice::Append | QIODevice::Text))
        line(u"⚠️ Cannot write the log file "_s + m_file.fileName());
}

void EventLog::write(const QByteArray &bytes)
{
    std::lock_guard lock(m_mutex);
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
    if (m_file.isOpen()) {
        m_file.write(bytes);
        m_file.flush();
    }
}

void EventLog::line(const QString &text)
{
    write(text.toUtf8() + '\n');
}

void EventLog::event(const QString &type, QJsonObject fields)
{
    if (!m_jsonStream)
        return;
    fields.insert(u"type"_s, type);
    write("ORVANTA_EVENT: " + QJsonDocument(fields).toJson(QJsonDocument::Compact) + '\n');
}

} // namespace orvanta::engine
