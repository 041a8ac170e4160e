// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the scriptable test engine: writes a scenario, points the engine
// locator at the test engine and reads back what the engine received.
#pragma once

#include <QFile>
#include <QHash>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

namespace orvanta::test {

class EngineScenario
{
public:
    // `lines`: the scenario, one command per entry (see ScriptedEngine.cpp).
    explicit EngineScenario(const QStringList &lines)
    {
        QFile file(scenarioPath());
        if (file.open(QIODevice::WriteOnly))
            file.write(lines.join(u'\n').toUtf8() + '\n');
        qputenv("ORVANTA_TEST_SCENARIO", scenarioPath().toUtf8());
        qputenv("ORVANTA_TEST_RECORD", recordPath().toUtf8());
        qputenv("ORVANTA_BIN", ORVANTA_SCRIPTED_ENGINE);
    }

    ~EngineScenario()
    {
        qunsetenv("ORVANTA_TEST_SCENARIO");
        qunsetenv("ORVANTA_TEST_RECORD");
        qunsetenv("ORVANTA_BIN");
    }

    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString scenarioPath() const { return path(QStringLiteral("scenario.txt")); }
    QString recordPath() const { return path(QStringLiteral("record.txt")); }

    // What the engine recorded: its arguments and its environment.
    bool hasRecord() const { return QFile::exists(recordPath()); }
    // What one start of the engine received.
    struct Start
    {
        qint64 pid = 0;
        qint64 pgid = 0;
        QStringList arguments;
        QStringList environment;
    };
    // Every start in order, normally leaving out the environment's doctor probe.
    QList<Start> starts(bool withDoctor = false) const
    {
        QFile file(recordPath());
        QList<Start> out;
        if (!file.open(QIODevice::ReadOnly))
            return out;
        for (const QByteArray &line : file.readAll().split('\n')) {
            const qsizetype tab = line.indexOf('\t');
            const QByteArray kind = line.left(tab);
            const QString value = QString::fromUtf8(line.mid(tab + 1));
            if (kind == "pid")
                out.append(Start { value.toLongLong() });
            else if (out.isEmpty())
                continue;
            else if (kind == "pgid")
                out.last().pgid = value.toLongLong();
            else if (kind == "arg")
                out.last().arguments << value;
            else if (kind == "env")
                out.last().environment << value;
        }
        if (!withDoctor)
            out.removeIf(
                [](const Start &s) { return s.arguments.value(0) == QStringLiteral("doctor"); });
        return out;
    }
    // The latest start.
    QStringList arguments() const { return starts().value(starts().size() - 1).arguments; }
    QHash<QString, QString> environment() const
    {
        QHash<QString, QString> env;
        for (const QString &entry : starts().value(starts().size() - 1).environment) {
            const qsizetype eq = entry.indexOf(u'=');
            env.insert(entry.left(eq), entry.mid(eq + 1));
        }
        return env;
    }
    // The latest batch start, or the latest doctor probe when there was none.
    Start latest() const
    {
        const QList<Start> all = starts(!hasBatchStart());
        return all.value(all.size() - 1);
    }
    bool hasBatchStart() const { return !starts().isEmpty(); }
    qint64 pid() const { return latest().pid; }
    qint64 pgid() const { return latest().pgid; }

private:
    QTemporaryDir m_dir;
};

} // namespace orvanta::test
