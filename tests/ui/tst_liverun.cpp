// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The live-run views: the console's colours, cap, scrolling, copy and clear,
// and the progress card's texts in every phase of a batch.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "db/ProcessedFiles.h"
#include "db/Sqlite.h"
#include "engine/BatchEvent.h"
#include "engine/EngineScenario.h"
#include "history/HistoryService.h"
#include "i18n/LocalizationService.h"
#include "ui/ConsoleLineDelegate.h"
#include "ui/ConsoleLogModel.h"
#include "ui/ConsoleLogView.h"
#include "ui/FailureListDialog.h"
#include "ui/ProgressText.h"
#include "ui/QuitGuard.h"
#include "ui/TaskProgressCard.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTreeWidget>

#include <sqlite3.h>

using namespace orvanta;
using orvanta::test::EngineScenario;
using namespace Qt::StringLiterals;

namespace {

QColor white(float alpha)
{
    QColor c(Qt::white);
    c.setAlphaF(alpha);
    return c;
}

QString labelText(const QWidget *parent, const QString &name)
{
    const auto *label = parent->findChild<QLabel *>(name);
    return label ? label->text() : u"<missing %1>"_s.arg(name);
}

} // namespace

class LiveRunTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void lineColourFollowsTheFirstMatchingRule_data();
    void lineColourFollowsTheFirstMatchingRule();
    void leadingEmojiMarkerIsDrawnApart_data();
    void leadingEmojiMarkerIsDrawnApart();
    void consoleKeepsTheNewestThousandRowsWithoutResetting();
    void autoScrollFollowsTheNewestLineOnlyWhenOn();
    void copyAllPutsTheJoinedLogOnTheClipboardAndConfirmsBriefly();
    void copyingAnEmptyLogStillConfirms();
    void quittingDuringABatchAsksAndStopsGracefully();
    void quitWhenTheBatchEndsWaitsForItsEnd();
    void logoutStopsTheBatchTheNormalWay();
    void clearEmptiesTheListAndShowsThePlaceholder();

    void progressLineShowsRatioPairsOrNothing_data();
    void progressLineShowsRatioPairsOrNothing();
    void elapsedMinutesDoNotWrap_data();
    void elapsedMinutesDoNotWrap();
    void timeBadgeFollowsTheRunState();
    void timeLeftAppearsOnceTwoItemsAreDone_data();
    void timeLeftAppearsOnceTwoItemsAreDone();
    void cardBeforeAnyBatchIsIdle();
    void cardShowsThePairsFoundDuringTheScan();
    void failuresAreOfferedAfterTheBatchWithTheirReasons();
    void cardTotalsComeFromTheHistoryStatistics();
    void badgesFormAGridWhenOneRowDoesNotFit();
    void watchingCardFollowsTheWatchUntilStop();

private:
    std::unique_ptr<AppViewModel> m_model;
};

void LiveRunTest::init()
{
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    m_model = std::make_unique<AppViewModel>();
    m_model->setCurrentLanguage(AppLanguage::English);
    m_model->clearLogs();
}

void LiveRunTest::cleanup()
{
    m_model.reset();
}

void LiveRunTest::lineColourFollowsTheFirstMatchingRule_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("SUCCESS beats ERROR") << u"SUCCESS after ERROR retry"_s << theme::kGreen;
    QTest::newRow("check mark") << u"✅ Pipeline execution completed successfully."_s
                                << theme::kGreen;
    QTest::newRow("exit code line") << u"❌ Pipeline exited with code 3"_s << theme::kRed;
    QTest::newRow("FAILED") << u"[w2] DSC1 FAILED"_s << theme::kRed;
    QTest::newRow("ERROR beats WARN") << u"WARN then ERROR"_s << theme::kRed;
    QTest::newRow("WARNING in capitals") << u"WARNING: low memory"_s << theme::kYellow;
    QTest::newRow("stop line") << u"⚠️ Stop requested by user"_s << theme::kYellow;
    QTest::newRow("star banner") << u"🌟 Batch summary"_s << theme::kCyan;
    QTest::newRow("=== banner") << u"=== Rendering 8 pairs ==="_s << theme::kCyan;
    QTest::newRow("bracketed tag dimmed") << u"[09:41:02] worker-1 DSC04211"_s << white(0.70f);
    QTest::newRow("indented bracketed tag dimmed") << u"   [09:41] done"_s << white(0.70f);
    QTest::newRow("bracket never closed") << u"   [09:41 still running"_s << white(0.88f);
    QTest::newRow("warning in lower case") << u"a warning in lower case"_s << white(0.88f);
    QTest::newRow("start header") << u"🚀 Starting Orvanta Ultra HDR pipeline..."_s << white(0.88f);
    QTest::newRow("empty line") << QString() << white(0.88f);
}

void LiveRunTest::lineColourFollowsTheFirstMatchingRule()
{
    QFETCH(QString, line);
    QFETCH(QColor, colour);
    QCOMPARE(consoleLineColor(line), colour);
    // The list shows the same colour the rule gives.
    m_model->appendLog(line);
    ConsoleLogModel model(*m_model);
    QCOMPARE(model.data(model.index(0), Qt::ForegroundRole).value<QColor>(), colour);
    QCOMPARE(model.data(model.index(0), Qt::DisplayRole).toString(), line);
}

void LiveRunTest::leadingEmojiMarkerIsDrawnApart_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("marker");
    QTest::newRow("warning with variation selector")
        << u"⚠️ Stop requested by user"_s << u"⚠️"_s;
    QTest::newRow("astral-plane marker") << u"🚀 Starting"_s << u"🚀"_s;
    QTest::newRow("check mark") << u"✅ SUCCESS DSC1"_s << u"✅"_s;
    QTest::newRow("bracketed engine line") << u"[09:41] ✅ done"_s << QString();
    QTest::newRow("indented detail") << u"   Source: /photos"_s << QString();
    QTest::newRow("symbol alone") << u"🎉"_s << QString();
    QTest::newRow("plain text") << u"WARN low disk"_s << QString();
}

void LiveRunTest::leadingEmojiMarkerIsDrawnApart()
{
    QFETCH(QString, line);
    QFETCH(QString, marker);
    const auto [m, rest] = splitEmojiMarker(line);
    QCOMPARE(m, marker);
    QCOMPARE(m + rest, line); // nothing is lost or reordered
}

void LiveRunTest::consoleKeepsTheNewestThousandRowsWithoutResetting()
{
    ConsoleLogView view(*m_model);
    ConsoleLogModel *rows = view.logModel();
    for (int i = 0; i < 1500; ++i)
        m_model->appendLog(u"line %1"_s.arg(i));
    QCOMPARE(m_model->consoleLogs().size(), 1000);
    QCOMPARE(rows->rowCount(), 1000);
    QCOMPARE(rows->data(rows->index(0), Qt::DisplayRole).toString(), u"line 500"_s);
    QCOMPARE(rows->data(rows->index(999), Qt::DisplayRole).toString(), u"line 1499"_s);
    // Appends and trims are row inserts and removals: the view never restarts.
    QCOMPARE(rows->resetCount(), 0);

    // A rewritten log (not an append) is taken whole.
    m_model->batch()->setStateForTest([&](BatchRunState &s) {
        s.consoleLogs = { u"a"_s, u"b"_s };
    });
    QCOMPARE(rows->rowCount(), 2);
    QCOMPARE(rows->data(rows->index(1), Qt::DisplayRole).toString(), u"b"_s);
}

void LiveRunTest::autoScrollFollowsTheNewestLineOnlyWhenOn()
{
    ConsoleLogView view(*m_model);
    view.resize(600, 260);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QVERIFY(view.autoScroll());
    QScrollBar *bar = view.listView()->verticalScrollBar();
    for (int i = 0; i < 200; ++i)
        m_model->appendLog(u"line %1"_s.arg(i));
    QTRY_VERIFY(bar->maximum() > 0);
    QTRY_COMPARE(bar->value(), bar->maximum());

    view.setAutoScroll(false);
    bar->setValue(0);
    for (int i = 0; i < 50; ++i)
        m_model->appendLog(u"more %1"_s.arg(i));
    QApplication::processEvents();
    QCOMPARE(bar->value(), 0); // the reader's place is kept

    view.setAutoScroll(true); // switching it back on jumps to the newest line
    QTRY_COMPARE(bar->value(), bar->maximum());
}

void LiveRunTest::copyAllPutsTheJoinedLogOnTheClipboardAndConfirmsBriefly()
{
    ConsoleLogView view(*m_model);
    auto *copy = view.findChild<QPushButton *>(u"consoleCopy"_s);
    m_model->appendLog(u"🚀 first"_s);
    m_model->appendLog(u"   detail"_s);
    m_model->appendLog(u"✅ last"_s);
    QGuiApplication::clipboard()->setText(u"something old"_s);

    copy->click();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"🚀 first\n   detail\n✅ last"_s);
    QVERIFY(view.isCopied());
    QCOMPARE(copy->text(), u"Copied!"_s);
    QTRY_VERIFY_WITH_TIMEOUT(!view.isCopied(), 5000);
    QCOMPARE(copy->text(), u"Copy All"_s);
}

void LiveRunTest::copyingAnEmptyLogStillConfirms()
{
    ConsoleLogView view(*m_model);
    QGuiApplication::clipboard()->setText(u"something old"_s);
    view.copyAllLogs();
    QCOMPARE(QGuiApplication::clipboard()->text(), QString());
    QVERIFY(view.isCopied());
    QTRY_VERIFY_WITH_TIMEOUT(!view.isCopied(), 5000);
}

void LiveRunTest::clearEmptiesTheListAndShowsThePlaceholder()
{
    ConsoleLogView view(*m_model);
    auto *stack = view.findChild<QStackedWidget *>();
    QVERIFY(stack);
    const auto placeholderText = [&] {
        auto *label = qobject_cast<QLabel *>(stack->currentWidget());
        return label ? label->text() : QString();
    };
    QCOMPARE(placeholderText(), u"Waiting for engine output..."_s);
    m_model->appendLog(u"line"_s);
    QCOMPARE(stack->currentWidget(), view.listView());

    view.findChild<QPushButton *>(u"consoleClear"_s)->click();
    QVERIFY(m_model->consoleLogs().isEmpty());
    QCOMPARE(view.logModel()->rowCount(), 0);
    QCOMPARE(placeholderText(), u"Waiting for engine output..."_s);
}

void LiveRunTest::progressLineShowsRatioPairsOrNothing_data()
{
    QTest::addColumn<qint64>("index");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<qint64>("pairs");
    QTest::addColumn<QString>("text");
    QTest::newRow("0.999 is 99, not 100")
        << qint64(8) << qint64(8) << 0.999 << qint64(8) << u"[8 / 8]  99%"_s;
    QTest::newRow("complete") << qint64(8) << qint64(8) << 1.0 << qint64(8) << u"[8 / 8]  100%"_s;
    QTest::newRow("truncated, not rounded")
        << qint64(2) << qint64(3) << 2.0 / 3.0 << qint64(3) << u"[2 / 3]  66%"_s;
    QTest::newRow("one pending item")
        << qint64(1) << qint64(1) << 0.0 << qint64(0) << u"[1 / 1]  0%"_s;
    QTest::newRow("scan phase: pairs found")
        << qint64(0) << qint64(0) << 0.0 << qint64(12) << u"12 Pairs Found"_s;
    QTest::newRow("nothing known") << qint64(0) << qint64(0) << 0.0 << qint64(0) << QString();
}

void LiveRunTest::progressLineShowsRatioPairsOrNothing()
{
    QFETCH(qint64, index);
    QFETCH(qint64, total);
    QFETCH(double, fraction);
    QFETCH(qint64, pairs);
    QFETCH(QString, text);
    AppViewModel &m = *m_model;
    TaskProgressCard card(m);
    m.batch()->setStateForTest([&](BatchRunState &s) {
        s.currentIndex = index;
        s.totalPending = total;
        s.progressFraction = fraction;
        s.scanPairs = pairs;
    });
    QCOMPARE(progressLineText(m), text);
    QCOMPARE(labelText(&card, u"cardProgress"_s), text);
    QCOMPARE(card.findChild<QLabel *>(u"cardProgress"_s)->isVisibleTo(&card), !text.isEmpty());
}

void LiveRunTest::elapsedMinutesDoNotWrap_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("zero") << qint64(0) << u"00:00"_s;
    QTest::newRow("59 s") << qint64(59) << u"00:59"_s;
    QTest::newRow("60 s") << qint64(60) << u"01:00"_s;
    QTest::newRow("3725 s") << qint64(3725) << u"62:05"_s;
    QTest::newRow("over 100 min") << qint64(6001) << u"100:01"_s;
    QTest::newRow("negative counts as zero") << qint64(-5) << u"00:00"_s;
}

void LiveRunTest::elapsedMinutesDoNotWrap()
{
    QFETCH(qint64, seconds);
    QFETCH(QString, text);
    QCOMPARE(formatElapsed(seconds), text);
}

void LiveRunTest::timeBadgeFollowsTheRunState()
{
    AppViewModel &m = *m_model;
    TaskProgressCard card(m);
    auto badge = [&] {
        return card.findChild<QWidget *>(u"metricTime"_s)->findChildren<QLabel *>().last()->text();
    };
    QCOMPARE(badge(), u"Elapsed: 00:00"_s);
    m.batch()->setStateForTest([&](BatchRunState &s) { s.currentDuration = 6.84; });
    QCOMPARE(badge(), u"Elapsed: 6.8s"_s); // idle: the last photo's duration
    m.batch()->setStateForTest([&](BatchRunState &s) {
        s.isRunning = true;
        s.batchElapsedSeconds = 3725;
    });
    QCOMPARE(badge(), u"Elapsed: 62:05"_s); // running: the batch clock
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
}

void LiveRunTest::timeLeftAppearsOnceTwoItemsAreDone_data()
{
    QTest::addColumn<bool>("running");
    QTest::addColumn<qint64>("total");
    QTest::addColumn<double>("fraction");
    QTest::addColumn<qint64>("elapsed");
    QTest::addColumn<QString>("text");
    QTest::newRow("one done: no estimate yet")
        << true << qint64(8) << 0.125 << qint64(10) << QString();
    QTest::newRow("two of eight done in 20 s")
        << true << qint64(8) << 0.25 << qint64(20) << u"01:00 left  ·  10.0s / photo"_s;
    QTest::newRow("two of three, thirds round")
        << true << qint64(3) << 2.0 / 3.0 << qint64(15) << u"00:08 left  ·  7.5s / photo"_s;
    QTest::newRow("long batch beyond an hour")
        << true << qint64(500) << 0.01 << qint64(100) << u"165:00 left  ·  20.0s / photo"_s;
    QTest::newRow("all done: nothing left") << true << qint64(8) << 1.0 << qint64(80) << QString();
    QTest::newRow("idle: no estimate") << false << qint64(8) << 0.5 << qint64(40) << QString();
    QTest::newRow("scan phase: no items yet")
        << true << qint64(0) << 0.0 << qint64(40) << QString();
}

void LiveRunTest::timeLeftAppearsOnceTwoItemsAreDone()
{
    QFETCH(bool, running);
    QFETCH(qint64, total);
    QFETCH(double, fraction);
    QFETCH(qint64, elapsed);
    QFETCH(QString, text);
    AppViewModel &m = *m_model;
    TaskProgressCard card(m);
    m.batch()->setStateForTest([&](BatchRunState &s) {
        s.isRunning = running;
        s.totalPending = total;
        s.currentIndex = total;
        s.progressFraction = fraction;
        s.batchElapsedSeconds = elapsed;
    });
    QCOMPARE(timeLeftText(m), text);
    auto *estimate = card.findChild<QLabel *>(u"cardEstimate"_s);
    QCOMPARE(estimate->isVisibleTo(&card), !text.isEmpty());
    if (!text.isEmpty())
        QCOMPARE(estimate->text(), text);
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
}

void LiveRunTest::cardBeforeAnyBatchIsIdle()
{
    TaskProgressCard card(*m_model);
    QCOMPARE(labelText(&card, u"cardTitle"_s), u"Idle"_s);
    QVERIFY(!card.findChild<QLabel *>(u"cardProgress"_s)->isVisibleTo(&card));
    QVERIFY(!card.findChild<QLabel *>(u"cardEstimate"_s)->isVisibleTo(&card));
    m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = true; });
    QCOMPARE(labelText(&card, u"cardTitle"_s), u"Processing Batch"_s);
    m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isPaused = true; });
    QCOMPARE(labelText(&card, u"cardTitle"_s), u"Paused"_s);
    m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = s.isPaused = false; });
}

void LiveRunTest::failuresAreOfferedAfterTheBatchWithTheirReasons()
{
    AppViewModel &m = *m_model;
    TaskProgressCard card(m);
    auto *row = card.findChild<QWidget *>(u"cardFailures"_s);
    QVERIFY(!row->isVisibleTo(&card));
    const QList<FailedPhoto> failures {
        { u"IMG_7"_s, u"RAW open: Unsupported file format"_s, u"/shoot"_s, u"raw_unreadable"_s },
        { u"IMG_8"_s, u"a newer engine's words"_s, u"/shoot"_s, u"kind_not_known_yet"_s },
        { u"IMG_9"_s, QString(), u"/shoot"_s }
    };
    m.batch()->setStateForTest([&](BatchRunState &s) {
        s.isRunning = true;
        s.runFailedCount = 3;
        s.runFailures = failures;
    });
    QVERIFY(!row->isVisibleTo(&card)); // not while the batch still runs
    m.batch()->setStateForTest([](BatchRunState &s) { s.isRunning = false; });
    QVERIFY(row->isVisibleTo(&card));
    QCOMPARE(labelText(&card, u"cardFailureCount"_s), u"3 failed"_s);

    FailureListDialog dialog(m);
    QStringList revealed;
    dialog.setRevealer([&](const QString &path) { revealed << path; });
    QTreeWidget *list = dialog.list();
    QCOMPARE(list->topLevelItemCount(), 3);
    // What failed in the interface's language, the engine's words beside it.
    QCOMPARE(list->topLevelItem(0)->text(1), u"The RAW file cannot be read"_s);
    QCOMPARE(list->topLevelItem(0)->toolTip(1), u"RAW open: Unsupported file format"_s);
    QCOMPARE(list->topLevelItem(1)->text(1), u"a newer engine's words"_s);
    // Without a reason from the engine, the list says so instead of a blank.
    QCOMPARE(list->topLevelItem(2)->text(1), u"The engine gave no reason"_s);
    list->setCurrentItem(list->topLevelItem(2));
    dialog.findChild<QPushButton *>(u"failureReveal"_s)->click();
    QCOMPARE(revealed, QStringList { u"/shoot"_s });
    m.batch()->setStateForTest([](BatchRunState &s) {
        s.runFailedCount = 0;
        s.runFailures.clear();
    });
}

void LiveRunTest::cardShowsThePairsFoundDuringTheScan()
{
    AppViewModel &m = *m_model;
    TaskProgressCard card(m);
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = true; });
    BatchEvent scan;
    scan.type = u"scan"_s;
    scan.pairs = 12;
    scan.pending = 0; // every pair was delivered before: nothing to count yet
    m.handleBatchEvent(scan);
    QCOMPARE(m.totalPending(), 0);
    QCOMPARE(labelText(&card, u"cardProgress"_s), u"12 Pairs Found"_s);
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
}

void LiveRunTest::cardTotalsComeFromTheHistoryStatistics()
{
    TaskProgressCard card(*m_model);
    // Ten rows as the engine writes them, read back by a refresh.
    const QString path = HistoryService::defaultDbPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    const auto removeDatabase = qScopeGuard([path] { QFile::remove(path); });
    {
        const db::Connection db = db::open(QFile::encodeName(path).constData(),
                                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        QVERIFY(db && db::createProcessedFiles(db.get()));
        for (int i = 0; i < 10; ++i) {
            const QByteArray row = "INSERT INTO processed_files (fingerprint, stem, status, "
                                   "processed_at, duration_sec) VALUES ('f"
                + QByteArray::number(i) + "', 's', '" + (i < 7 ? "SUCCESS" : "FAILED")
                + "', '2026', 4.26)";
            QVERIFY(db::exec(db.get(), row.constData()));
        }
    }
    m_model->refreshHistory();
    QTRY_COMPARE(labelText(&card, u"kpiValue0"_s), u"10"_s);
    QCOMPARE(labelText(&card, u"kpiValue1"_s), u"7"_s);
    QCOMPARE(labelText(&card, u"kpiValue2"_s), u"3"_s);
    QCOMPARE(labelText(&card, u"kpiValue3"_s), u"4.3s"_s);
}

void LiveRunTest::badgesFormAGridWhenOneRowDoesNotFit()
{
    TaskProgressCard card(*m_model);
    card.resize(1400, 400);
    card.show();
    QVERIFY(QTest::qWaitForWindowExposed(&card));
    QTRY_COMPARE(card.badgeColumns(), 4);
    card.resize(520, 400);
    QTRY_COMPARE(card.badgeColumns(), 2);
    // The card never demands more width than a narrow page has.
    QVERIFY(card.minimumSizeHint().width() <= 520);
    card.resize(1400, 400);
    QTRY_COMPARE(card.badgeColumns(), 4);
}

void LiveRunTest::quittingDuringABatchAsksAndStopsGracefully()
{
    QTemporaryDir dir;
    AppViewModel &m = *m_model;
    m.setSourceDir(dir.path());
    m.setDestDir(dir.path());
    QWidget window;
    QuitGuard guard(m, window);
    int asked = 0;
    QuitGuard::Choice answer = QuitGuard::Choice::KeepRunning;
    guard.setAsker([&] {
        ++asked;
        return answer;
    });
    QSignalSpy quitting(&guard, &QuitGuard::quitting);

    window.show();
    QVERIFY(window.close()); // nothing running: no question
    QCOMPARE(asked, 0);

    EngineScenario scenario({ u"on-sigint exit130"_s, u"print started"_s, u"wait-signal"_s });
    window.show();
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    QVERIFY(!window.close());
    QCOMPARE(asked, 1);
    QVERIFY(m.isRunning());
    QVERIFY(!m.isStopping()); // "keep running" touches nothing

    answer = QuitGuard::Choice::StopAndQuit;
    QVERIFY(!window.close()); // the window stays while the engine stops
    QCOMPARE(asked, 2);
    QVERIFY(m.isStopping());
    QCOMPARE(m.statusMessage(), u"Stopping the batch, then quitting..."_s);
    QVERIFY(!window.close()); // closing again while stopping asks nothing more
    QCOMPARE(asked, 2);
    QCOMPARE(quitting.count(), 0);
    // The engine ended on SIGINT by itself (status 130), not by a kill, and
    // only then does the application quit.
    QTRY_COMPARE(quitting.count(), 1);
    QVERIFY(m.consoleLogs().contains(
        u"⚠️ Pipeline cancelled by user. In-flight tasks saved safely."_s));
    QTRY_VERIFY(!window.isVisible());

    // The real question keeps the batch on Enter and Escape.
    std::unique_ptr<QMessageBox> box(QuitGuard::makeQuestion(m, nullptr));
    QCOMPARE(box->defaultButton()->objectName(), u"quitKeep"_s);
    QCOMPARE(box->escapeButton()->objectName(), u"quitKeep"_s);
    QCOMPARE(box->buttons().size(), 3);
}

void LiveRunTest::quitWhenTheBatchEndsWaitsForItsEnd()
{
    QTemporaryDir dir;
    AppViewModel &m = *m_model;
    m.setSourceDir(dir.path());
    m.setDestDir(dir.path());
    const QString go = dir.filePath(u"go"_s);
    EngineScenario scenario({ u"print started"_s, u"wait-file "_s + go, u"exit 0"_s });
    QWidget window;
    QuitGuard guard(m, window);
    guard.setAsker([] { return QuitGuard::Choice::QuitWhenDone; });
    QSignalSpy quitting(&guard, &QuitGuard::quitting);
    window.show();
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    QVERIFY(!window.close());
    QVERIFY(guard.isQuitPending());
    QVERIFY(m.isRunning());
    QVERIFY(!m.isStopping()); // the batch is not disturbed
    QCOMPARE(quitting.count(), 0);
    QFile(go).open(QIODevice::WriteOnly);
    QTRY_COMPARE(quitting.count(), 1);
    QVERIFY(m.consoleLogs().contains(u"✅ Pipeline execution completed successfully."_s));
}

void LiveRunTest::logoutStopsTheBatchTheNormalWay()
{
    QTemporaryDir dir;
    AppViewModel &m = *m_model;
    m.setSourceDir(dir.path());
    m.setDestDir(dir.path());
    EngineScenario scenario({ u"on-sigint exit130"_s, u"print started"_s, u"wait-signal"_s });
    QWidget window;
    QuitGuard guard(m, window);
    int asked = 0;
    guard.setAsker([&] {
        ++asked;
        return QuitGuard::Choice::KeepRunning;
    });
    m.startProcessing();
    QTRY_VERIFY(m.consoleLogs().contains(u"started"_s));
    // A session manager that lets us ask: "keep running" cancels the logout.
    QVERIFY(!guard.mayEndSession(true));
    QCOMPARE(asked, 1);
    QVERIFY(m.isRunning());
    // One that does not: the batch is stopped the normal way and the
    // session may end once the engine has ended by itself.
    QVERIFY(guard.mayEndSession(false));
    QCOMPARE(asked, 1);
    QVERIFY(!m.isRunning());
    QCOMPARE(m.statusMessage(), u"Cancelled by user"_s);
}

void LiveRunTest::watchingCardFollowsTheWatchUntilStop()
{
    QTemporaryDir dir;
    AppViewModel &m = *m_model;
    const QString source = dir.filePath(
        u"a-rather-long-folder-name-for-the-card/and-deeper-still/tethered/session"_s);
    QDir().mkpath(source);
    m.setSourceDir(source);
    m.setDestDir(dir.path());
    m.setWatchFolder(true);
    const auto event
        = [](const QString &json) -> QString { return u"print ORVANTA_EVENT: "_s + json; };
    const QString lost = dir.filePath(u"lost"_s), back = dir.filePath(u"back"_s);
    EngineScenario scenario(
        { u"on-sigint exit130"_s, event(u"{\"type\":\"scan\",\"pairs\":1,\"pending\":1}"_s),
          event(u"{\"type\":\"item_start\",\"stem\":\"IMG_1\",\"index\":1,\"total\":1}"_s),
          event(u"{\"type\":\"item_done\",\"stem\":\"IMG_1\",\"index\":1,\"total\":1}"_s),
          event(u"{\"type\":\"watch_started\",\"folder\":\"%1\",\"success\":1}"_s.arg(source)),
          event(u"{\"type\":\"item_done\",\"stem\":\"IMG_2\",\"index\":1,\"total\":1}"_s),
          u"wait-file "_s + lost,
          event(u"{\"type\":\"watch_lost\",\"folder\":\"%1\",\"reason\":\"unmounted\"}"_s.arg(
              source)),
          u"wait-file "_s + back,
          event(u"{\"type\":\"watch_back\",\"folder\":\"%1\"}"_s.arg(source)), u"print back"_s,
          u"wait-signal"_s });
    TaskProgressCard card(m);
    card.resize(700, 400);
    QSignalSpy history(m.batch(), &BatchController::historyTouched);
    m.startProcessing();
    // Photos of the first pass count, and so does each one converted later.
    QTRY_COMPARE(m.watchCount(), 2);
    QCOMPARE(scenario.arguments().value(0), u"watch"_s);
    QVERIFY(history.count() >= 2);
    QVERIFY(m.isWatching());
    const QString title = labelText(&card, u"cardTitle"_s);
    QVERIFY2(title.startsWith(u"Watching "_s) && title.contains(u"…"_s)
                 && title.endsWith(u"session"_s),
             qPrintable(title));
    QCOMPARE(labelText(&card, u"cardProgress"_s), u"2 photos converted since the start"_s);
    QCOMPARE(labelText(&card, u"cardStem"_s), u"Last photo: IMG_2"_s);

    QFile(lost).open(QIODevice::WriteOnly);
    QTRY_VERIFY(m.watchLost());
    QCOMPARE(labelText(&card, u"cardTitle"_s), u"Waiting for the Folder"_s);
    QVERIFY(
        labelText(&card, u"cardProgress"_s).startsWith(u"The disk holding the watched folder"_s));
    QVERIFY(m.isRunning());

    QFile(back).open(QIODevice::WriteOnly);
    QTRY_VERIFY(m.consoleLogs().contains(u"back"_s));
    QVERIFY(!m.watchLost());
    QVERIFY(labelText(&card, u"cardTitle"_s).startsWith(u"Watching "_s));
    QCOMPARE(m.watchCount(), 2);

    m.stopProcessing();
    QTRY_VERIFY(!m.isRunning());
    QVERIFY(!m.isWatching());
    QCOMPARE(labelText(&card, u"cardTitle"_s), u"Idle"_s);
    // Retrying and reprocessing never start a watch.
    m.batch()->setStateForTest([&](BatchRunState &s) {
        s.runFailures = { { u"IMG_3"_s, QString(), source } };
    });
    EngineScenario retry({ u"exit 0"_s });
    m.batch()->retryFailed();
    QTRY_VERIFY(!m.isRunning());
    QCOMPARE(retry.arguments().value(0), u"run"_s);
}

ORVANTA_TEST_WIDGETS_MAIN(LiveRunTest)
#include "tst_liverun.moc"
