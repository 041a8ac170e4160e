// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every command-line tool answers --help and --version and refuses an
// unknown option, run as real processes in an empty working folder.
#include "common/TestEnvironment.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class CommandLineToolsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standardOptions_data()
    {
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QString>("option");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("expected"); // start of stdout, or text in stderr
        for (const QString &tool :
             { u"orvanta_engine"_s, u"orvanta-uhdr"_s, u"orvanta-sample-pairs"_s }) {
            const QByteArray name = tool.toUtf8();
            QTest::addRow("%s --help", name.constData())
                << tool << u"--help"_s << 0 << u"usage: "_s;
            QTest::addRow("%s --version", name.constData())
                << tool << u"--version"_s << 0 << tool + u' ' + QStringLiteral(ORVANTA_VERSION);
            QTest::addRow("%s --frobnicate", name.constData())
                << tool << u"--frobnicate"_s << 1 << u"unknown option --frobnicate"_s;
        }
    }
    void standardOptions()
    {
        QFETCH(QString, tool);
        QFETCH(QString, option);
        QFETCH(int, exitCode);
        QFETCH(QString, expected);
        const QString program = QStandardPaths::findExecutable(
            tool, QString::fromUtf8(ORVANTA_TOOL_DIRS).split(u':'));
        QVERIFY2(!program.isEmpty(), qPrintable(tool));
        QTemporaryDir cwd;
        QProcess process;
        process.setWorkingDirectory(cwd.path());
        process.start(program, { option });
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), exitCode);
        const QString out = QString::fromUtf8(process.readAllStandardOutput());
        const QString err = QString::fromUtf8(process.readAllStandardError());
        if (exitCode == 0)
            QVERIFY2(out.startsWith(expected), qPrintable(out));
        else
            QVERIFY2(err.contains(expected) && out.isEmpty(), qPrintable(err));
        // An option is never taken for the name of something to create.
        QCOMPARE(QDir(cwd.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList());
    }
};

ORVANTA_TEST_GUILESS_MAIN(CommandLineToolsTest)
#include "tst_commandlinetools.moc"
