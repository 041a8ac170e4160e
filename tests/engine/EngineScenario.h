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
    QStringList arguments() const { return recorded(QStringLiteral("arg")); }
    QHash<QString, QString> environment() const
    {
        QHash<QString, QString> env;
        for (const QString &entry : recorded(QStringLiteral("env"))) {
            const qsizetype eq = entry.indexOf(u'=');
            env.insert(entry.left(eq), entry.mid(eq + 1));
        }
        return env;
    }
    qint64 pid() const { return recorded(QStringLiteral("pid")).value(0).toLongLong(); }
    qint64 pgid() const { return recorded(QStringLiteral("pgid")).value(0).toLongLong(); }

private:
    QStringList recorded(const QString &kind) const
    {
        QFile file(recordPath());
        QStringList out;
        if (!file.open(QIODevice::ReadOnly))
            return out;
        for (const QByteArray &line : file.readAll().split('\n')) {
            const qsizetype tab = line.indexOf('\t');
            if (tab > 0 && line.left(tab) == kind.toUtf8())
                out << QString::fromUtf8(line.mid(tab + 1));
        }
        return out;
    }

    QTemporaryDir m_dir;
};

} // namespace orvanta::test
