// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// EngineService against a real child process: the scriptable test engine.
#include "common/TestEnvironment.h"
#include "engine/EngineDoctor.h"
#include "engine/EngineScenario.h"
#include "engine/EngineService.h"

#include <QScopeGuard>
#include <QtTest>

#include <csignal>
#include <sys/types.h>
#include <unistd.h>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

// Collects everything a run reports, in order: "log:..", "event:..",
// "finished:<status>[:crash]".
struct Recorder
{
    QStringList items;
    QList<BatchEvent> events;
    int finishedCount = 0;
    EngineExit exit;

    EngineCallbacks callbacks()
    {
        EngineCallbacks c;
        c.onEvent = [this](const BatchEvent &e) {
            items << u"event:"_s + e.type;
            events << e;
        };
        c.onLogLine = [this](const QString &l) { items << u"log:"_s + l; };
        c.onFinished = [this](EngineExit e) {
            ++finishedCount;
            exit = e;
            items << u"finished:"_s + QString::number(e.status) + (e.crashed ? u":crash"_s : u""_s);
        };
        return c;
    }
    bool finished() const { return finishedCount > 0; }
    bool hasLog(const QString &line) const { return items.contains(u"log:"_s + line); }
};

EngineRunOptions someOptions()
{
    EngineRunOptions o;
    o.sourceDir = u"/photos/in with space"_s;
    o.destDir = u"/photos/out"_s;
    o.profile = StyleProfile::Custom;
    o.customMidTarget = 0.55;
    o.customSkinDamp = 0.4;
    o.stem = u"IMG_0001"_s;
    o.workers = 3;
    o.minRating = 2;
    o.subfolderRule = u"date"_s;
    return o;
}

// The pid a scenario's stubborn worker wrote, 0 while not written yet.
pid_t workerPid(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? pid_t(file.readAll().trimmed().toLongLong()) : 0;
}

// Gone, or a zombie nobody has reaped yet (it runs nothing any more).
bool processGone(pid_t pid)
{
    if (::kill(pid, 0) != 0)
        return errno == ESRCH;
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return true;
    const QByteArray text = stat.readAll();
    const qsizetype close = text.lastIndexOf(')');
    return close > 0 && text.mid(close + 2, 1) == "Z";
}

} // namespace

class TestEngineService : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void commandLineAndEnvironmentReachTheEngine();
    void outputArrivesInOrderWithFinishedLast();
    void stopWithAnEngineThatHonoursSigintSendsOnlySigint();
    void stopEscalatesToTerminate();
    void stopEscalatesToKillWhenTerminateIsIgnored();
    void exitCodesAndCrashesArePassedOn();
    void missingEngineIsReportedAsALaunchFailure();
    void secondStartWhileRunningIsIgnored();
    void forceKillSilencesOutputButStillFinishes();
    void forceKillReachesTheEnginesChildren();
    void floodArrivesCompleteAndInOrder();
    void noProcessOfTheGroupSurvivesARun();
    void healthCheckEndsItsWholeGroup_data();
    void healthCheckEndsItsWholeGroup();
};

void TestEngineService::commandLineAndEnvironmentReachTheEngine()
{
    EngineScenario scenario({ u"print hello"_s });
    qputenv("PATH", "/usr/bin:/bin");
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.finished());
    QCOMPARE(service.binPath(), QStringLiteral(ORVANTA_SCRIPTED_ENGINE));
    QCOMPARE(scenario.arguments(), engineArguments(someOptions()));
    const auto env = scenario.environment();
    QCOMPARE(env.value(u"PATH"_s),
             u"/opt/homebrew/bin:/usr/local/bin:/opt/homebrew/sbin:/usr/bin:/bin"_s);
    QCOMPARE(env.value(u"HOME"_s), QDir::homePath()); // the rest is inherited
    // The engine leads its own process group, so stopping it reaches its workers.
    QCOMPARE(scenario.pgid(), scenario.pid());
    QCOMPARE(r.items, (QStringList { u"log:hello"_s, u"finished:0"_s }));
    QVERIFY(!service.isRunning());
}

void TestEngineService::outputArrivesInOrderWithFinishedLast()
{
    EngineScenario scenario({
        u"print [w1] one"_s,
        u"stderr err two"_s,
        uR"(print ORVANTA_EVENT: {"type":"scan","pairs":2,"pending":2})"_s,
        u"write par"_s,
        u"pause 100"_s,
        u"write tial line\\n"_s,
        u"write \\xe5\\x86"_s, // the first two bytes of 写
        u"pause 100"_s,
        u"write \\x99 photo\\n"_s,
        uR"(print DRAVIK_EVENT: {"type":"item_start","index":1.5})"_s, // dropped
        u"print    \t "_s, // blank
        u"write last line without newline"_s,
        u"exit 3"_s,
    });
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.finished());
    QCOMPARE(
        r.items,
        (QStringList { u"log:[w1] one"_s, u"log:err two"_s, u"event:scan"_s, u"log:partial line"_s,
                       u"log:写 photo"_s, u"log:last line without newline"_s, u"finished:3"_s }));
    QCOMPARE(r.events.first().pairs, 2);
    QCOMPARE(r.finishedCount, 1);
}

void TestEngineService::stopWithAnEngineThatHonoursSigintSendsOnlySigint()
{
    EngineScenario scenario(
        { u"on-sigint exit130"_s, u"on-sigterm ignore"_s, u"print started"_s, u"wait-signal"_s });
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    service.stop();
    QTRY_VERIFY(r.finished());
    // 130 is the engine's own exit after the interrupt: it was neither
    // terminated nor killed.
    QCOMPARE(r.exit.status, 130);
    QVERIFY(!r.exit.crashed);
    QCOMPARE(r.items.at(r.items.size() - 2),
             u"log:test engine: interrupted, finishing in-flight work"_s);
    service.stop(); // nothing left to stop
    QCOMPARE(r.finishedCount, 1);
}

void TestEngineService::stopEscalatesToTerminate()
{
    EngineScenario scenario({ u"on-sigint ignore"_s, u"print started"_s, u"wait-signal"_s });
    EngineService service;
    service.setStopDelays(std::chrono::milliseconds(200), std::chrono::milliseconds(200));
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    service.stop();
    QTRY_VERIFY(r.finished());
    QCOMPARE(r.exit.status, int(SIGTERM));
    QVERIFY(r.exit.crashed);
}

void TestEngineService::stopEscalatesToKillWhenTerminateIsIgnored()
{
    EngineScenario scenario(
        { u"on-sigint ignore"_s, u"on-sigterm ignore"_s, u"print started"_s, u"wait-signal"_s });
    EngineService service;
    service.setStopDelays(std::chrono::milliseconds(200), std::chrono::milliseconds(200));
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    service.stop();
    QTRY_VERIFY(r.finished());
    QCOMPARE(r.exit.status, int(SIGKILL));
    QVERIFY(r.exit.crashed);
    QCOMPARE(r.finishedCount, 1);
}

void TestEngineService::exitCodesAndCrashesArePassedOn()
{
    {
        EngineScenario scenario({ u"crash 11"_s });
        EngineService service;
        Recorder r;
        service.startRun(someOptions(), r.callbacks());
        QTRY_VERIFY(r.finished());
        QCOMPARE(r.items.last(), u"finished:11:crash"_s);
    }
    {
        EngineScenario scenario({ u"exit 130"_s });
        EngineService service;
        Recorder r;
        service.startRun(someOptions(), r.callbacks());
        QTRY_VERIFY(r.finished());
        QCOMPARE(r.items.last(), u"finished:130"_s);
    }
}

void TestEngineService::missingEngineIsReportedAsALaunchFailure()
{
    qputenv("ORVANTA_BIN", "/no/such/orvanta_engine");
    qputenv("PATH", "/no/such/folder");
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.finished());
    QCOMPARE(r.items.size(), 2);
    QVERIFY2(r.items.at(0).startsWith(u"log:❌ Failed to start processing engine: "_s),
             qPrintable(r.items.at(0)));
    QCOMPARE(r.items.at(1), u"finished:1"_s);
    QVERIFY(!service.isRunning());
    // Reported once, not again by a late error signal.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    QCOMPARE(r.finishedCount, 1);
    qunsetenv("ORVANTA_BIN");
    qputenv("PATH", "/usr/bin:/bin");
}

void TestEngineService::secondStartWhileRunningIsIgnored()
{
    EngineScenario scenario({ u"print started"_s, u"wait-signal"_s });
    EngineService service;
    Recorder first;
    Recorder second;
    service.startRun(someOptions(), first.callbacks());
    QTRY_VERIFY(first.hasLog(u"started"_s));
    const qint64 pid = service.processId();
    service.startRun(someOptions(), second.callbacks());
    QCOMPARE(service.processId(), pid);
    service.forceKill();
    QTRY_VERIFY(first.finished());
    QVERIFY(second.items.isEmpty());
}

void TestEngineService::forceKillSilencesOutputButStillFinishes()
{
    EngineScenario scenario({ u"print started"_s, u"wait-signal"_s });
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    service.forceKill();
    QVERIFY(!service.isRunning());
    QTRY_VERIFY(r.finished());
    QCOMPARE(r.items, (QStringList { u"log:started"_s, u"finished:9:crash"_s }));

    // A new run may start at once.
    EngineScenario next({ u"print again"_s });
    Recorder r2;
    service.startRun(someOptions(), r2.callbacks());
    QTRY_VERIFY(r2.finished());
    QCOMPARE(r2.items, (QStringList { u"log:again"_s, u"finished:0"_s }));
}

void TestEngineService::forceKillReachesTheEnginesChildren()
{
    // An engine that starts a helper of its own (as it does for decoding)
    // and waits for it.
    QTemporaryDir dir;
    const QString engine = dir.filePath(u"orvanta_engine"_s), childFile = engine + u".child"_s;
    QFile script(engine);
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("#!/bin/sh\nsleep 600 >/dev/null 2>&1 &\necho $! > \"$0.child\"\n"
                 "echo started\nwait\n");
    script.close();
    script.setPermissions(script.permissions() | QFile::ExeOwner);
    qputenv("ORVANTA_BIN", QFile::encodeName(engine));
    const auto unset = qScopeGuard([] { qunsetenv("ORVANTA_BIN"); });

    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    QFile file(childFile);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const pid_t child = pid_t(file.readAll().trimmed().toInt());
    QVERIFY(child > 0);
    const auto reap = qScopeGuard([child] { ::kill(child, SIGKILL); });
    // Gone, or a zombie waiting for whoever adopted it.
    const auto alive = [child] {
        QFile stat(u"/proc/%1/stat"_s.arg(child));
        return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
    };
    QVERIFY(alive());
    service.forceKill();
    QTRY_VERIFY(r.finished());
    QTRY_VERIFY(!alive());
}

void TestEngineService::floodArrivesCompleteAndInOrder()
{
    EngineScenario scenario({ u"flood 20000 10"_s });
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY_WITH_TIMEOUT(r.finished(), 30000);
    QCOMPARE(r.items.size(), 20001);
    QCOMPARE(r.events.size(), 2000);
    QCOMPARE(r.items.at(0), u"log:[worker-1] line 1"_s);
    QCOMPARE(r.items.at(9), u"event:item_start"_s);
    QCOMPARE(r.items.at(19), u"event:item_done"_s);
    QCOMPARE(r.events.last().index, 1000);
    QCOMPARE(r.items.at(19998), u"log:[worker-7] line 19999"_s);
}

void TestEngineService::noProcessOfTheGroupSurvivesARun()
{
    QTemporaryDir dir;
    const QString pidFile = dir.filePath(u"worker"_s);
    EngineScenario scenario({ u"on-sigint exit130"_s, u"spawn-stubborn "_s + pidFile,
                              u"print started"_s, u"wait-signal"_s });
    EngineService service;
    Recorder r;
    service.startRun(someOptions(), r.callbacks());
    QTRY_VERIFY(r.hasLog(u"started"_s));
    const pid_t worker = workerPid(pidFile);
    QVERIFY(worker > 0);
    QVERIFY(!processGone(worker));
    // The engine ends cleanly on SIGINT; its worker ignores INT and TERM.
    service.stop();
    QTRY_VERIFY(r.finished());
    QCOMPARE(r.exit.status, 130);
    QVERIFY(!r.exit.crashed);
    QTRY_VERIFY(processGone(worker));
}

void TestEngineService::healthCheckEndsItsWholeGroup_data()
{
    QTest::addColumn<QStringList>("tail"); // after the worker is started
    QTest::addColumn<QStringList>("answer"); // empty: no answer expected
    QTest::newRow("answers") << QStringList { u"print {\"missing\":[\"libraw\"]}"_s, u"exit 1"_s }
                             << QStringList { u"libraw"_s };
    QTest::newRow("prints without end") << QStringList { u"endless"_s } << QStringList();
    // Hangs until its owner goes (the application quitting mid-check); the
    // time-out ends a check the same way.
    QTest::newRow("hangs") << QStringList { u"wait-signal"_s } << QStringList();
}

void TestEngineService::healthCheckEndsItsWholeGroup()
{
    QFETCH(QStringList, tail);
    QFETCH(QStringList, answer);
    QTemporaryDir dir;
    const QString pidFile = dir.filePath(u"worker"_s);
    EngineScenario scenario(QStringList { u"on-sigint ignore"_s, u"on-sigterm ignore"_s,
                                          u"spawn-stubborn "_s + pidFile }
                            + tail);
    // Only an engine of our own name is asked.
    const QString engine = dir.filePath(u"orvanta_engine"_s);
    QVERIFY(QFile::link(QStringLiteral(ORVANTA_SCRIPTED_ENGINE), engine));
    QObject owner;
    QPointer<EngineDoctorQuery> query = EngineDoctorQuery::start(engine, &owner);
    QVERIFY(query);
    QList<QStringList> answers;
    connect(query, &EngineDoctorQuery::answered, &owner,
            [&answers](const QStringList &missing) { answers << missing; });
    if (QTest::currentDataTag() == QByteArray("hangs")) {
        QTRY_VERIFY(workerPid(pidFile) > 0);
        delete query;
    }
    QTRY_VERIFY_WITH_TIMEOUT(!query, 60000);
    QCOMPARE(answers, answer.isEmpty() ? QList<QStringList>() : QList<QStringList> { answer });
    QVERIFY(scenario.pid() > 0);
    QTRY_VERIFY(processGone(pid_t(scenario.pid())));
    // Killed for printing without end, the engine may not have got to its
    // worker; any worker it started is gone.
    if (const pid_t worker = workerPid(pidFile))
        QTRY_VERIFY(processGone(worker));
}

ORVANTA_TEST_GUILESS_MAIN(TestEngineService)
#include "tst_engineservice.moc"
