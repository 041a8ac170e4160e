// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The batch run controller of AppViewModel, end to end: the model starts
// the scriptable test engine, follows its events and lines, stops it, and
// announces the end on our own desktop servers on a private bus.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "engine/BatchEvent.h"
#include "engine/DockProgressManager.h"
#include "engine/EngineScenario.h"
#include "engine/EngineService.h"
#include "engine/FakeDesktopServer.h"
#include "engine/NotificationManager.h"
#include "history/HistoryService.h"
#include "history/HistoryTestDatabase.h"
#include "i18n/LocalizationService.h"

#include <QGuiApplication>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <memory>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

QString eventLine(const char *json)
{
    return u"print ORVANTA_EVENT: "_s + QString::fromUtf8(json);
}

BatchEvent make(const QString &type)
{
    BatchEvent e;
    e.type = type;
    return e;
}

qsizetype countLines(const QStringList &logs, const QString &prefix)
{
    return std::count_if(logs.begin(), logs.end(),
                         [&](const QString &l) { return l.startsWith(prefix); });
}

} // namespace

class TestBatchController : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fullBatchDrivesProgressConsoleDockAndNotification();
    void progressFollowsItemEvents();
    void failedItemKeepsThePositionOfItsStart();
    void everythingUpToDateIsSaidSo();
    void exitStatusDecidesTheEnding_data();
    void exitStatusDecidesTheEnding();
    void stopWithACooperativeEngineCancels();
    void stopWatchdogForcesAStuckEngineDown();
    void missingEngineIsExplainedInsteadOfStarted();
    void consoleKeepsExactlyTheNewestThousandLines();
    void startWhileRunningDoesNothing();
    void elapsedSecondsCountWhileRunning();
    void modelGoneDuringARunLeavesNoEngineBehind();
    void reprocessRunsEachFolderAndRetryOnlyTheFailed();
    void pauseSuspendsTheEngineKeepsItsPhotoAndStopStillWorks();

private:
    std::unique_ptr<FakeDesktop> m_desktop;
    std::unique_ptr<AppViewModel> m_model;
    QTemporaryDir m_folders;
};

void TestBatchController::initTestCase()
{
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    QDir().mkpath(m_folders.filePath(u"in"_s));
    QDir().mkpath(m_folders.filePath(u"out"_s));
}

void TestBatchController::init()
{
    m_desktop = std::make_unique<FakeDesktop>();
    m_model = std::make_unique<AppViewModel>();
    m_model->setCurrentLanguage(AppLanguage::English);
    m_model->setSourceDir(m_folders.filePath(u"in"_s));
    m_model->setDestDir(m_folders.filePath(u"out"_s));
    m_model->setDryRunMode(false);
    m_model->setMinRating(0);
    m_model->setSelectedWorkers(0);
    m_model->clearLogs();
}

void TestBatchController::cleanup()
{
    m_model.reset();
    m_desktop.reset();
}

void TestBatchController::fullBatchDrivesProgressConsoleDockAndNotification()
{
    EngineScenario scenario({
        u"print [engine] starting"_s,
        eventLine(R"({"type":"scan","pairs":3,"orphans":1,"skipped":0,"pending":3})"),
        eventLine(R"({"type":"item_start","stem":"IMG_1","index":1,"total":3})"),
        u"db IMG_1 SUCCESS"_s,
        eventLine(R"({"type":"item_done","stem":"IMG_1","index":1,"total":3,"faces":2,)"
                  R"("peak_stops":2.5,"bayer_clip":0.5,"duration":1.5})"),
        eventLine(R"({"type":"item_start","stem":"IMG_2","index":2})"),
        eventLine(R"({"type":"item_failed","stem":"IMG_2","error":"bad raw"})"),
        eventLine(R"({"type":"item_start","stem":"IMG_3","index":3})"),
        u"db IMG_3 SUCCESS"_s,
        eventLine(
            R"({"type":"item_done","stem":"IMG_3","index":3,"peak_stops":1.25,"duration":2.25})"),
        eventLine(R"({"type":"batch_done","success":2,"failed":1})"),
        u"print [engine] bye"_s,
    });
    AppViewModel &m = *m_model;
    m.setMinRating(3);
    m.setSelectedWorkers(4);
    m.setMemoryThrottleEnabled(false);
    QSignalSpy running(&m, &AppViewModel::isRunningChanged);

    m.startProcessing();
    QVERIFY(m.isRunning());
    // The header names the free space as the batch starts; it is measured
    // again at the end, and other programs may write to the disk meanwhile.
    const QString volume = u"   Target Volume: ["_s + m.volumeDisplayName() + u"] ("_s
        + QString::number(m.volumeFreeGB(), 'f', 1) + u" GB free)"_s;
    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 20000);

    // The header, the engine's own lines, then the summary.
    const QStringList logs = m.consoleLogs();
    QCOMPARE(
        logs.first(7),
        (QStringList { u"🚀 Starting Orvanta Ultra HDR pipeline..."_s,
                       u"   Source: "_s + m.sourceDir(), u"   Destination: "_s + m.destDir(),
                       u"   Style Preset: ["_s + displayName(m.selectedProfile()) + u"] • "_s
                           + subtitle(m.selectedProfile()),
                       u"   Star Filter: ≥ 3★ Only (3+ Stars) "_s,
                       u"   Workers: 4 workers (Explicit Override) • Throttle: OFF"_s, volume }));
    QCOMPARE(logs.sliced(7),
             (QStringList { u"[engine] starting"_s, u"[engine] bye"_s,
                            u"✅ Pipeline execution completed successfully."_s }));

    // The settings reached the engine.
    const QStringList args = scenario.arguments();
    QVERIFY(args.join(u' ').contains(u"--min-rating 3 "_s));
    QVERIFY(args.join(u' ').endsWith(u"-w 4 --no-throttle"_s));

    QCOMPARE(m.scanPairs(), 3);
    QCOMPARE(m.scanOrphans(), 1);
    QCOMPARE(m.currentStem(), u"IMG_3"_s);
    QCOMPARE(m.currentIndex(), 3);
    QCOMPARE(m.totalPending(), 3);
    QCOMPARE(m.currentPeakStops(), 1.25);
    QCOMPARE(m.currentFaces(), 0); // absent in the last item
    QCOMPARE(m.progressFraction(), 1.0);
    QCOMPARE(m.statusMessage(), u"Batch completed (Success: 2, Failed: 1)"_s);
    QCOMPARE(running.size(), 2);

    // The end is announced: badge, notification with the last item's duration.
    QTRY_COMPARE(DockProgressManager::shared().badge(), 2);
    QTRY_COMPARE(m_desktop->notifications.received.size(), 1);
    QCOMPARE(m_desktop->notifications.received.first().body, u"2 succeeded, 1 failed."_s);
    QVERIFY(!DockProgressManager::shared().overlayProgress());

    // The rows the engine wrote are in the history.
    QTRY_COMPARE_WITH_TIMEOUT(m.historyRecords().size(), 2, 10000);
}

void TestBatchController::progressFollowsItemEvents()
{
    AppViewModel &m = *m_model;
    BatchEvent start = make(u"item_start"_s);
    start.index = 1;
    start.total = 4;
    start.stem = u"A"_s;
    m.handleBatchEvent(start);
    QCOMPARE(m.progressFraction(), 0.0);
    QCOMPARE(m.statusMessage(), u"Processing [1/4] A..."_s);

    BatchEvent done = make(u"item_done"_s);
    done.index = 1;
    done.peakStops = 2.345;
    m.handleBatchEvent(done);
    QCOMPARE(m.progressFraction(), 0.25);
    QCOMPARE(m.statusMessage(), u"Completed [1/4] A (+2.35st)"_s);

    m.handleBatchEvent(make(u"heartbeat"_s)); // unknown: nothing at all
    QCOMPARE(m.statusMessage(), u"Completed [1/4] A (+2.35st)"_s);

    m.handleBatchEvent(make(u"batch_done"_s));
    QCOMPARE(m.progressFraction(), 1.0);

    // Without a total, item events leave the fraction alone.
    m.batch()->setStateForTest([](BatchRunState &s) {
        s.totalPending = 0;
        s.progressFraction = 0.5;
    });
    BatchEvent loose = make(u"item_done"_s);
    loose.index = 7;
    m.handleBatchEvent(loose);
    QCOMPARE(m.progressFraction(), 0.5);

    BatchEvent scan = make(u"scan"_s);
    scan.pairs = 3;
    m.handleBatchEvent(scan);
    QCOMPARE(m.scanPending(), 0);
    QCOMPARE(m.totalPending(), 0);
    QCOMPARE(m.statusMessage(), u"Scan complete: 0 pending"_s);
}

void TestBatchController::failedItemKeepsThePositionOfItsStart()
{
    AppViewModel &m = *m_model;
    BatchEvent start = make(u"item_start"_s);
    start.index = 3;
    start.total = 4;
    start.stem = u"IMG_3"_s;
    m.handleBatchEvent(start);
    BatchEvent failed = make(u"item_failed"_s);
    failed.index = 9; // not read: the position is the start's
    failed.total = 99;
    m.handleBatchEvent(failed);
    QCOMPARE(m.statusMessage(), u"Failed [3/4] IMG_3"_s);
    QCOMPARE(m.progressFraction(), 0.75);
}

void TestBatchController::everythingUpToDateIsSaidSo()
{
    EngineScenario scenario({
        eventLine(R"({"type":"scan","pairs":12,"skipped":12,"pending":0})"),
        eventLine(R"({"type":"batch_done","success":0,"failed":0})"),
    });
    m_model->startProcessing();
    QTRY_VERIFY(!m_model->isRunning());
    QCOMPARE(m_model->statusMessage(),
             u"All items are already up-to-date (skipped 12, no pending files)"_s);
    QCOMPARE(m_model->consoleLogs().last(),
             u"🎉 All scanned files are already up-to-date (skipped 12)."_s);
}

void TestBatchController::exitStatusDecidesTheEnding_data()
{
    QTest::addColumn<QStringList>("scenario");
    QTest::addColumn<bool>("dryRun");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("lastLine");
    QTest::newRow("130 is a cancel")
        << QStringList { u"exit 130"_s } << false << u"Cancelled by user"_s
        << u"⚠️ Pipeline cancelled by user. In-flight tasks saved safely."_s;
    QTest::newRow("other codes are abnormal")
        << QStringList { u"exit 2"_s } << false << u"Terminated abnormally (Exit code 2)"_s
        << u"❌ Pipeline exited with code 2"_s;
    QTest::newRow("a crash names its signal")
        << QStringList { u"crash 6"_s } << false << u"Terminated abnormally (Exit code 6)"_s
        << u"❌ Pipeline exited with code 6 (killed by signal SIGABRT)"_s;
    QTest::newRow("dry run ignores the status")
        << QStringList { eventLine(R"({"type":"scan","pairs":5,"skipped":3,"pending":2})"),
                         u"exit 2"_s }
        << true << u"Dry-Run simulated: 5 total, 2 pending, 3 skipped"_s
        << u"🔎 Dry-run completed: Scanned 5, Pending 2, Skipped 3."_s;
}

void TestBatchController::exitStatusDecidesTheEnding()
{
    QFETCH(QStringList, scenario);
    QFETCH(bool, dryRun);
    QFETCH(QString, status);
    QFETCH(QString, lastLine);
    EngineScenario run(scenario);
    m_model->setDryRunMode(dryRun);
    m_model->startProcessing();
    if (dryRun)
        QCOMPARE(m_model->consoleLogs().first(), u"🔎 "_s + orvanta::t("log_dry_run_activated"));
    QTRY_VERIFY(!m_model->isRunning());
    QCOMPARE(m_model->statusMessage(), status);
    QCOMPARE(m_model->consoleLogs().last(), lastLine);
    // No batch_done event: no badge, no notification. A round trip to the
    // server first, so a notification sent earlier would have arrived.
    QSignalSpy roundTrip(&NotificationManager::shared(),
                         &NotificationManager::capabilitiesReceived);
    NotificationManager::shared().requestAuthorization();
    QVERIFY(roundTrip.wait(5000));
    QVERIFY(m_desktop->notifications.received.isEmpty());
    QVERIFY(!DockProgressManager::shared().badge());
}

void TestBatchController::stopWithACooperativeEngineCancels()
{
    EngineScenario scenario({ u"on-sigint exit130"_s, u"print started"_s, u"wait-signal"_s });
    AppViewModel &m = *m_model;
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    m.stopProcessing();
    m.stopProcessing(); // a second press sends nothing more
    QVERIFY(m.isStopping());
    QCOMPARE(m.statusMessage(), u"Stopping..."_s);
    QTRY_VERIFY(!m.isRunning());
    QVERIFY(!m.isStopping());
    const QStringList logs = m.consoleLogs();
    QCOMPARE(countLines(logs, u"⚠️ Stop requested by user"_s), 1);
    QCOMPARE(logs.last(), u"⚠️ Pipeline cancelled by user. In-flight tasks saved safely."_s);
    QCOMPARE(m.statusMessage(), u"Cancelled by user"_s);
}

void TestBatchController::stopWatchdogForcesAStuckEngineDown()
{
    EngineScenario scenario(
        { u"on-sigint ignore"_s, u"on-sigterm ignore"_s, u"print started"_s, u"wait-signal"_s });
    AppViewModel &m = *m_model;
    // Slow the engine's own escalation down so the model's watchdog acts first.
    m.batch()->engineService()->setStopDelays(std::chrono::seconds(30), std::chrono::seconds(30));
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    m.stopProcessing();
    QTRY_VERIFY_WITH_TIMEOUT(
        m.consoleLogs().contains(
            u"⚠️ Process shutdown timed out, force terminating engine..."_s),
        10000);
    QVERIFY(!m.isRunning());
    QVERIFY(!m.isStopping());
    // The killed engine is reaped afterwards and its end is reported too.
    QTRY_COMPARE(m.consoleLogs().last(),
                 u"❌ Pipeline exited with code 9 (killed by signal SIGKILL)"_s);
    QCOMPARE(m.statusMessage(), u"Terminated abnormally (Exit code 9)"_s);
}

void TestBatchController::missingEngineIsExplainedInsteadOfStarted()
{
    const QByteArray path = qgetenv("PATH");
    qputenv("ORVANTA_BIN", "/no/such/engine");
    qputenv("PATH", "/no/such/folder");
    m_model->clearLogs();
    m_model->startProcessing();
    qputenv("PATH", path);
    qunsetenv("ORVANTA_BIN");
    QVERIFY(!m_model->isRunning());
    // The configured path is named in the header's text, the status and the
    // console (first the check's finding, then why nothing started).
    QCOMPARE(m_model->missingDependencyMessage(), u"Engine not found: /no/such/engine"_s);
    QVERIFY(!m_model->isEnvironmentHealthy());
    QCOMPARE(m_model->statusMessage(), u"Engine not found: /no/such/engine"_s);
    QCOMPARE(m_model->consoleLogs(),
             (QStringList { u"❌ Engine not found: /no/such/engine"_s,
                            u"❌ Cannot start: no engine at /no/such/engine. Install "
                            u"orvanta_engine or set ORVANTA_BIN to its path."_s }));
}

void TestBatchController::consoleKeepsExactlyTheNewestThousandLines()
{
    AppViewModel &m = *m_model;
    for (int i = 1; i <= 1001; ++i)
        m.appendLog(QString::number(i));
    QCOMPARE(m.consoleLogs().size(), 1000);
    QCOMPARE(m.consoleLogs().first(), u"2"_s);
    for (int i = 1002; i <= 5000; ++i)
        m.appendLog(QString::number(i));
    QStringList expected;
    for (int i = 4001; i <= 5000; ++i)
        expected << QString::number(i);
    QCOMPARE(m.consoleLogs(), expected);
    m.clearLogs();
    QVERIFY(m.consoleLogs().isEmpty());

    // The same through a chatty engine.
    EngineScenario scenario({ u"flood 5000 0"_s });
    m.startProcessing();
    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 20000);
    const QStringList logs = m.consoleLogs();
    QCOMPARE(logs.size(), 1000);
    QCOMPARE(logs.first(), u"[worker-2] line 4002"_s);
    QCOMPARE(logs.at(998), u"[worker-0] line 5000"_s);
    QCOMPARE(logs.last(), u"✅ Pipeline execution completed successfully."_s);
}

void TestBatchController::startWhileRunningDoesNothing()
{
    EngineScenario scenario({ u"print started"_s, u"wait-signal"_s });
    AppViewModel &m = *m_model;
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    const qint64 pid = m.batch()->engineService()->processId();
    m.startProcessing();
    QCOMPARE(countLines(m.consoleLogs(), u"🚀 "_s), 1);
    QCOMPARE(m.batch()->engineService()->processId(), pid);
    m.batch()->engineService()->forceKill();
    QTRY_VERIFY(!m.isRunning());
}

void TestBatchController::elapsedSecondsCountWhileRunning()
{
    EngineScenario scenario({ u"print started"_s, u"wait-signal"_s });
    AppViewModel &m = *m_model;
    m.batch()->setStateForTest([](BatchRunState &s) { s.batchElapsedSeconds = 42; });
    m.startProcessing();
    QCOMPARE(m.batchElapsedSeconds(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(m.batchElapsedSeconds() >= 2, 10000);
    m.batch()->engineService()->forceKill();
    QTRY_VERIFY(!m.isRunning());
}

void TestBatchController::modelGoneDuringARunLeavesNoEngineBehind()
{
    EngineScenario scenario(
        { u"on-sigint ignore"_s, u"on-sigterm ignore"_s, u"print started"_s, u"wait-signal"_s });
    m_model->startProcessing();
    QTRY_VERIFY(m_model->consoleLogs().contains(u"started"_s));
    m_model->stopProcessing();
    const pid_t pid = pid_t(scenario.pid());
    QVERIFY(pid > 0);
    // The watchdog and the callbacks are tied to the model and go with it;
    // the engine is killed and reaped, not left running.
    m_model.reset();
    QCOMPARE(::kill(pid, 0), -1);
    QCOMPARE(errno, ESRCH);
}

void TestBatchController::reprocessRunsEachFolderAndRetryOnlyTheFailed()
{
    // Rows from two shoots in other folders than the current source; one
    // row has no recorded paths and comes from the current source.
    const QString shootA = m_folders.filePath(u"shootA"_s);
    const QString shootB = m_folders.filePath(u"shootB"_s);
    QDir().mkpath(QFileInfo(HistoryService::defaultDbPath()).absolutePath());
    {
        TestDatabase db(HistoryService::defaultDbPath());
        db.insert({ .fingerprint = u"rp-a1"_s,
                    .stem = u"A1"_s,
                    .processedAt = u"5"_s,
                    .rawPath = shootA + u"/A1.ARW"_s });
        db.insert({ .fingerprint = u"rp-b1"_s,
                    .stem = u"B1"_s,
                    .processedAt = u"4"_s,
                    .jpgPath = shootB + u"/B1.JPG"_s });
        db.insert({ .fingerprint = u"rp-a2"_s,
                    .stem = u"A2"_s,
                    .processedAt = u"3"_s,
                    .rawPath = shootA + u"/A2.ARW"_s });
        db.insert({ .fingerprint = u"rp-a2old"_s,
                    .stem = u"A2"_s,
                    .processedAt = u"2"_s,
                    .rawPath = shootA + u"/A2.ARW"_s });
        db.insert({ .fingerprint = u"rp-x"_s, .stem = u"X"_s, .processedAt = u"1"_s });
    }
    // Each run fails its second photo and delivers nothing.
    EngineScenario scenario({
        eventLine(R"({"type":"scan","pairs":2,"pending":2})"),
        eventLine(R"({"type":"item_start","stem":"A2","index":2,"total":2})"),
        eventLine(
            R"({"type":"item_failed","stem":"A2","error":"unreadable raw","reason":"raw_unreadable"})"),
        eventLine(R"({"type":"batch_done","success":0,"failed":1})"),
    });
    AppViewModel &m = *m_model;
    const QString source = m.sourceDir();
    m.refreshHistory();
    QTRY_VERIFY(std::count_if(m.historyRecords().cbegin(), m.historyRecords().cend(),
                              [](const PhotoRecord &r) { return r.id().startsWith(u"rp-"_s); })
                == 5);
    for (const QString &id : { u"rp-a1"_s, u"rp-b1"_s, u"rp-a2"_s, u"rp-a2old"_s, u"rp-x"_s })
        m.toggleRecordSelection(id);

    m.reprocessSelectedRecords();
    QTRY_COMPARE_WITH_TIMEOUT(scenario.starts().size(), 3, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 20000);
    QList<QStringList> runs;
    for (const auto &start : scenario.starts())
        runs << start.arguments;
    auto value = [](const QStringList &args, const QString &flag) {
        return args.value(args.indexOf(flag) + 1);
    };
    // One run per folder, in list order, each stem once, forced.
    QCOMPARE(value(runs[0], u"-s"_s), shootA);
    QCOMPARE(value(runs[0], u"--stem"_s), u"A1,A2"_s);
    QCOMPARE(value(runs[1], u"-s"_s), shootB);
    QCOMPARE(value(runs[1], u"--stem"_s), u"B1"_s);
    QCOMPARE(value(runs[2], u"-s"_s), source);
    QCOMPARE(value(runs[2], u"--stem"_s), u"X"_s);
    for (const QStringList &args : runs)
        QVERIFY(args.contains(u"-f"_s));
    // The user's batch options are as they were.
    QCOMPARE(m.sourceDir(), source);
    QVERIFY(m.targetStem().isEmpty());
    QVERIFY(!m.forceReprocess());

    // The last run's failure, with the engine's reason; a retry runs
    // exactly that photo again from the folder it failed in.
    QCOMPARE(
        m.batch()->runFailures(),
        (QList<FailedPhoto> { { u"A2"_s, u"unreadable raw"_s, source, u"raw_unreadable"_s } }));
    m.batch()->retryFailed();
    QTRY_COMPARE_WITH_TIMEOUT(scenario.starts().size(), 4, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 20000);
    const QStringList retry = scenario.starts().last().arguments;
    QCOMPARE(value(retry, u"-s"_s), source);
    QCOMPARE(value(retry, u"--stem"_s), u"A2"_s);
    QVERIFY(retry.contains(u"-f"_s));
}

namespace {
// The state letter of /proc/PID/stat: 'T' while stopped by a signal.
char processState(qint64 pid)
{
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return '?';
    const QByteArray text = stat.readAll();
    const qsizetype paren = text.lastIndexOf(')');
    return paren > 0 && paren + 2 < text.size() ? text.at(paren + 2) : '?';
}
} // namespace

void TestBatchController::pauseSuspendsTheEngineKeepsItsPhotoAndStopStillWorks()
{
    const QString go = m_folders.filePath(u"go"_s);
    QFile::remove(go);
    EngineScenario scenario({
        u"on-sigint exit130"_s,
        eventLine(R"({"type":"scan","pairs":2,"pending":2})"),
        eventLine(R"({"type":"item_start","stem":"P1","index":1,"total":2})"),
        u"wait-file "_s + go,
        eventLine(R"({"type":"item_done","stem":"P1","index":1,"total":2,"duration":1.0})"),
        eventLine(R"({"type":"item_start","stem":"P2","index":2,"total":2})"),
        u"wait-signal"_s,
    });
    AppViewModel &m = *m_model;
    m.startProcessing();
    QTRY_COMPARE_WITH_TIMEOUT(m.currentStem(), u"P1"_s, 20000);
    const qint64 pid = m.batch()->engineService()->processId();

    m.setBatchPaused(true);
    QVERIFY(m.isPaused());
    QCOMPARE(m.statusMessage(), u"Paused at [1 / 2]"_s);
    QTRY_COMPARE(processState(pid), 'T');
    // The elapsed clock stands still while paused.
    auto *clock = m.batch()->findChild<QTimer *>();
    QVERIFY(clock && !clock->isActive());
    QFile(go).open(QIODevice::WriteOnly);

    m.setBatchPaused(false);
    QVERIFY(!m.isPaused());
    QVERIFY(clock->isActive());
    // The photo in flight carries on where it was.
    QTRY_COMPARE_WITH_TIMEOUT(m.currentStem(), u"P2"_s, 20000);
    QCOMPARE(m.batch()->runSuccessCount(), 1);

    // Paused again, Stop resumes the engine first so it can end normally.
    m.setBatchPaused(true);
    QTRY_COMPARE(processState(pid), 'T');
    m.stopProcessing();
    QVERIFY(!m.isPaused());
    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 20000);
    QCOMPARE(m.statusMessage(), u"Cancelled by user"_s);
}

ORVANTA_TEST_GUI_MAIN(TestBatchController)
#include "tst_batchcontroller.moc"
