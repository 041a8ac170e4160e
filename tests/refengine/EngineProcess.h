// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the real orvanta_engine as a child process and splits what it prints
// into progress records and log lines, the way the application does.
#pragma once

#include "SamplePairs.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QStringList>
#include <QtTest>

namespace orvanta::test {

class EngineProcess
{
public:
    explicit EngineProcess(QStringList arguments)
        : m_arguments(std::move(arguments))
    {
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process,
                         [this] { readAvailable(); });
    }

    void start() { m_process.start(QStringLiteral(ORVANTA_ENGINE_PATH), m_arguments); }

    // Starts (unless started), waits for the end and returns the exit code.
    int run()
    {
        if (m_process.state() == QProcess::NotRunning)
            start();
        if (!m_process.waitForFinished(240000))
            return -1;
        readAvailable();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -2;
    }

    qint64 pid() const { return m_process.processId(); }
    QProcess &process() { return m_process; }

    QList<QJsonObject> events(const QString &type = {}) const
    {
        QList<QJsonObject> out;
        for (const QJsonObject &e : m_events)
            if (type.isEmpty() || e.value(QStringLiteral("type")).toString() == type)
                out << e;
        return out;
    }
    QJsonObject event(const QString &type) const { return events(type).value(0); }
    QStringList logLines() const { return m_lines; }
    QString log() const { return m_lines.join(QLatin1Char('\n')); }

private:
    void readAvailable()
    {
        m_buffer += m_process.readAllStandardOutput();
        qsizetype nl;
        while ((nl = m_buffer.indexOf('\n')) >= 0) {
            const QByteArray line = m_buffer.left(nl).trimmed();
            m_buffer.remove(0, nl + 1);
            if (line.startsWith("ORVANTA_EVENT: "))
                m_events << QJsonDocument::fromJson(line.mid(15)).object();
            else if (!line.isEmpty())
                m_lines << QString::fromUtf8(line);
        }
    }

    QStringList m_arguments;
    QProcess m_process;
    QByteArray m_buffer;
    QList<QJsonObject> m_events;
    QStringList m_lines;
};

// Writes `count` pairs into `source`, large enough that the batch still runs
// when the test acts, starts `engine` and waits for its first `event`.
inline bool startOnLargePairs(EngineProcess &engine, const QString &source, int count, int width,
                              const QString &event)
{
    samples::SampleScene big;
    big.width = width;
    big.height = width * 2 / 3;
    for (int i = 0; i < count; ++i)
        if (!samples::writePair(source, QStringLiteral("big%1").arg(i), big))
            return false;
    engine.start();
    return QTest::qWaitFor([&] { return !engine.events(event).isEmpty(); }, 120000);
}

} // namespace orvanta::test
