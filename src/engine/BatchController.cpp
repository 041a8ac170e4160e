// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/BatchController.h"

#include "engine/DockProgressManager.h"
#include "engine/EngineOutputParser.h"
#include "engine/EngineService.h"
#include "engine/NotificationManager.h"

#include <QPointer>
#include <QTimer>

#include <cstring>
#include <limits>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMaxConsoleLines = 1000;
// Lines are shortened to a few KiB, and the whole console to about 4 MB of
// text, whatever an engine prints.
constexpr qsizetype kMaxConsoleChars = qsizetype(2) << 20;
constexpr int kElapsedTickMs = 1000;
constexpr int kStopWatchdogMs = 3000;
constexpr int kExitCancelled = 130;

// Counters never wrap: a hostile engine cannot make them negative.
qint64 incremented(qint64 value)
{
    return value == std::numeric_limits<qint64>::max() ? value : value + 1;
}

QString signalName(int number)
{
    if (const char *abbrev = sigabbrev_np(number))
        return u"SIG"_s + QString::fromLatin1(abbrev);
    return QString::fromLocal8Bit(strsignal(number));
}

} // namespace

BatchController::BatchController(QObject *parent)
    : QObject(parent)
    , m_engine(std::make_unique<EngineService>())
    , m_clock(new QTimer(this))
{
    m_clock->setInterval(kElapsedTickMs);
    connect(m_clock, &QTimer::timeout, this, [this] {
        put(&BatchRunState::batchElapsedSeconds, incremented(m_state.batchElapsedSeconds),
            &BatchController::batchElapsedSecondsChanged);
    });
}

BatchController::~BatchController() = default;

template<typename T>
void BatchController::put(T BatchRunState::*field, const T &value,
                          void (BatchController::*changed)())
{
    if (m_state.*field == value)
        return;
    m_state.*field = value;
    Q_EMIT(this->*changed)();
}

#define ORVANTA_BATCH_PUT(name, value)                                                             \
    put(&BatchRunState::name, decltype(BatchRunState::name)(value), &BatchController::name##Changed)

void BatchController::setStateForTest(const std::function<void(BatchRunState &)> &edit)
{
    BatchRunState state = m_state;
    edit(state);
#define ORVANTA_BATCH_TAKE(Type, name, def) ORVANTA_BATCH_PUT(name, state.name);
    ORVANTA_BATCH_STATE(ORVANTA_BATCH_TAKE)
#undef ORVANTA_BATCH_TAKE
}

// ---- Console ----

void BatchController::appendLog(const QString &line)
{
    flushConsole();
    appendEngineLog(line);
    flushConsole();
}

void BatchController::appendEngineLog(const QString &line)
{
    // Trimmed in steps rather than line by line: between two announcements
    // the list may hold up to twice the limit, never more.
    QStringList &logs = m_state.consoleLogs;
    if (logs.size() >= 2 * kMaxConsoleLines)
        logs.remove(0, logs.size() - kMaxConsoleLines + 1);
    logs.append(line);
    m_consoleDirty = true;
}

void BatchController::flushConsole()
{
    if (!m_consoleDirty)
        return;
    m_consoleDirty = false;
    QStringList &logs = m_state.consoleLogs;
    if (const qsizetype drop = consoleLinesOverBudget(logs, kMaxConsoleLines, kMaxConsoleChars))
        logs.remove(0, drop);
    Q_EMIT consoleLogsChanged();
}

void BatchController::clearLogs()
{
    m_consoleDirty = false;
    ORVANTA_BATCH_PUT(consoleLogs, QStringList());
}

void BatchController::setRunStatus(const QString &key, const FormatArgs &args)
{
    if (!m_deferRunStatus) {
        Q_EMIT statusRequested(key, args);
        return;
    }
    m_hasPendingStatus = true;
    m_pendingStatusKey = key;
    m_pendingStatusArgs = args;
}

void BatchController::flushRunOutput()
{
    flushConsole();
    if (m_hasPendingStatus) {
        m_hasPendingStatus = false;
        Q_EMIT statusRequested(m_pendingStatusKey, m_pendingStatusArgs);
    }
}

// ---- Start ----

void BatchController::resetForStart()
{
    m_hasPendingStatus = false;
    m_scanSeen = false;
    ORVANTA_BATCH_PUT(isRunning, true);
    ORVANTA_BATCH_PUT(isStopping, false);
    ORVANTA_BATCH_PUT(isPaused, false);
    Q_EMIT statusRequested(u"status_scanning"_s, {});
    ORVANTA_BATCH_PUT(progressFraction, 0.0);
    ORVANTA_BATCH_PUT(currentIndex, 0);
    ORVANTA_BATCH_PUT(totalPending, 0);
    ORVANTA_BATCH_PUT(currentStem, QString());
    ORVANTA_BATCH_PUT(runSuccessCount, 0);
    ORVANTA_BATCH_PUT(runFailedCount, 0);
    ORVANTA_BATCH_PUT(runFailures, QList<FailedPhoto>());
    ORVANTA_BATCH_PUT(batchElapsedSeconds, 0);
    ORVANTA_BATCH_PUT(watchCount, 0);
    ORVANTA_BATCH_PUT(watchLastStem, QString());
    ORVANTA_BATCH_PUT(watchedFolder, QString());
    endWatch();
    m_clock->start();
    DockProgressManager::shared().clearBadge();
    DockProgressManager::shared().clearProgress();
}

void BatchController::start(const QList<BatchRequest> &runs)
{
    if (m_state.isRunning || runs.isEmpty())
        return;
    m_queue = runs;
    startNext();
}

void BatchController::retryFailed()
{
    if (m_state.isRunning || m_state.runFailures.isEmpty())
        return;
    // One run per folder, in the order the failures came.
    QList<BatchRequest> runs;
    for (const FailedPhoto &photo : std::as_const(m_state.runFailures)) {
        auto run = std::find_if(runs.begin(), runs.end(), [&](const BatchRequest &r) {
            return r.options.sourceDir == photo.folder;
        });
        if (run == runs.end()) {
            BatchRequest request = m_lastRequest;
            request.options.sourceDir = photo.folder;
            request.options.stem = QString();
            request.options.force = true;
            request.options.dryRun = false;
            request.options.minRating = 0;
            request.options.watch = false;
            runs << request;
            run = runs.end() - 1;
        }
        QStringList stems = run->options.stem->split(u',', Qt::SkipEmptyParts);
        if (!photo.stem.isEmpty() && !stems.contains(photo.stem))
            run->options.stem = (stems << photo.stem).join(u',');
    }
    start(runs);
}

void BatchController::startNext()
{
    const BatchRequest request = m_queue.takeFirst();
    m_lastRequest = request;
    const quint64 generation = ++m_runGeneration;
    m_dryRun = request.options.dryRun;
    m_notificationSound = request.notificationSound;
    m_destDir = request.options.destDir;
    resetForStart();
    for (const QString &line : request.header)
        appendLog(line);

    const QPointer<BatchController> self(this);
    EngineCallbacks callbacks;
    callbacks.onEvent = [self](const BatchEvent &event) {
        if (!self)
            return;
        self->flushConsole();
        self->m_deferRunStatus = true;
        self->handleBatchEvent(event);
        self->m_deferRunStatus = false;
    };
    callbacks.onLogLine = [self](const QString &line) {
        if (self)
            self->appendEngineLog(line);
    };
    callbacks.onOutputDelivered = [self] {
        if (self)
            self->flushRunOutput();
    };
    callbacks.onFinished = [self, generation](EngineExit exit) {
        if (!self)
            return;
        self->flushRunOutput();
        // An engine killed by the watchdog may be reaped after the user has
        // already started the next run: its end must not end that one.
        if (generation != self->m_runGeneration) {
            Q_EMIT self->historyTouched();
            return;
        }
        self->finishRun(exit.status, exit.crashed);
    };
    m_engine->startRun(request.options, std::move(callbacks));
}

// ---- Events ----

void BatchController::updateFraction(double numerator)
{
    if (m_state.totalPending < 1)
        return;
    ORVANTA_BATCH_PUT(progressFraction, numerator / double(m_state.totalPending));
    DockProgressManager::shared().updateProgress(m_state.progressFraction);
}

void BatchController::recordFailure(const BatchEvent &e)
{
    ORVANTA_BATCH_PUT(runFailedCount, incremented(m_state.runFailedCount));
    QList<FailedPhoto> failures = m_state.runFailures;
    failures.append({ m_state.currentStem, e.error.value_or(QString()),
                      m_lastRequest.options.sourceDir, e.reason.value_or(QString()) });
    ORVANTA_BATCH_PUT(runFailures, failures);
}

void BatchController::endWatch()
{
    ORVANTA_BATCH_PUT(isWatching, false);
    ORVANTA_BATCH_PUT(watchLost, false);
    ORVANTA_BATCH_PUT(watchLostReason, QString());
}

bool BatchController::handleWatchEvent(const BatchEvent &e)
{
    const BatchRunState &s = m_state;
    if (e.type == u"watch_started"_s) {
        ORVANTA_BATCH_PUT(isWatching, true);
        ORVANTA_BATCH_PUT(watchedFolder, e.folder.value_or(m_lastRequest.options.sourceDir));
        // The first pass is counted by the engine: it also covers photos
        // whose events were lost before the watch began.
        ORVANTA_BATCH_PUT(watchCount, e.success.value_or(s.watchCount));
        setRunStatus(u"status_watching"_s, { s.watchedFolder });
    } else if (e.type == u"watch_idle"_s) {
        ORVANTA_BATCH_PUT(watchCount, e.success.value_or(s.watchCount));
    } else if (e.type == u"watch_lost"_s) {
        ORVANTA_BATCH_PUT(watchLostReason, e.reason.value_or(QString()));
        ORVANTA_BATCH_PUT(watchLost, true);
        setRunStatus(s.watchLostReason == u"unmounted"_s ? u"card_watch_lost_unmounted"_s
                                                         : u"card_watch_lost"_s);
    } else if (e.type == u"watch_back"_s) {
        ORVANTA_BATCH_PUT(watchLost, false);
        ORVANTA_BATCH_PUT(watchLostReason, QString());
        setRunStatus(u"status_watching"_s, { s.watchedFolder });
    } else {
        return false; // "watch_waiting" and the run's own events
    }
    return true;
}

void BatchController::handleBatchEvent(const BatchEvent &e)
{
    const BatchRunState &s = m_state;
    if (handleWatchEvent(e))
        return;
    if (e.type == u"scan"_s) {
        m_scanSeen = true;
        ORVANTA_BATCH_PUT(scanPairs, e.pairs.value_or(0));
        ORVANTA_BATCH_PUT(scanOrphans, e.orphans.value_or(0));
        ORVANTA_BATCH_PUT(scanSkipped, e.skipped.value_or(0));
        ORVANTA_BATCH_PUT(scanPending, e.pending.value_or(0));
        ORVANTA_BATCH_PUT(totalPending, s.scanPending);
        setRunStatus(u"status_scan_done"_s, { s.scanPending });
    } else if (e.type == u"item_start"_s) {
        ORVANTA_BATCH_PUT(currentStem, e.stem.value_or(QString()));
        ORVANTA_BATCH_PUT(currentIndex, e.index.value_or(0));
        ORVANTA_BATCH_PUT(totalPending, e.total.value_or(s.totalPending));
        updateFraction(double(s.currentIndex) - 1.0);
        setRunStatus(u"status_processing_item"_s,
                     { s.currentIndex, s.totalPending, s.currentStem });
    } else if (e.type == u"item_done"_s) {
        ORVANTA_BATCH_PUT(currentIndex, e.index.value_or(s.currentIndex));
        ORVANTA_BATCH_PUT(totalPending, e.total.value_or(s.totalPending));
        ORVANTA_BATCH_PUT(currentStem, e.stem.value_or(s.currentStem));
        ORVANTA_BATCH_PUT(currentFaces, e.faces.value_or(0));
        ORVANTA_BATCH_PUT(currentPeakStops, e.peakStops.value_or(0.0));
        ORVANTA_BATCH_PUT(currentBayerClip, e.bayerClip.value_or(0.0));
        ORVANTA_BATCH_PUT(currentDuration, e.duration.value_or(0.0));
        ORVANTA_BATCH_PUT(runSuccessCount, incremented(s.runSuccessCount));
        ORVANTA_BATCH_PUT(watchLastStem, s.currentStem);
        if (s.isWatching)
            ORVANTA_BATCH_PUT(watchCount, incremented(s.watchCount));
        updateFraction(double(s.currentIndex));
        setRunStatus(u"status_item_completed"_s,
                     { s.currentIndex, s.totalPending, s.currentStem, s.currentPeakStops });
        Q_EMIT historyTouched();
    } else if (e.type == u"item_failed"_s) {
        // The position shown is the one the preceding "item_start" set.
        ORVANTA_BATCH_PUT(currentStem, e.stem.value_or(s.currentStem));
        recordFailure(e);
        setRunStatus(u"status_item_failed"_s, { s.currentIndex, s.totalPending, s.currentStem });
        updateFraction(double(s.currentIndex));
        Q_EMIT historyTouched();
    } else if (e.type == u"batch_done"_s) {
        ORVANTA_BATCH_PUT(progressFraction, 1.0);
        ORVANTA_BATCH_PUT(runSuccessCount, e.success.value_or(s.runSuccessCount));
        ORVANTA_BATCH_PUT(runFailedCount, e.failed.value_or(s.runFailedCount));
        const qint64 success = s.runSuccessCount;
        const qint64 failed = s.runFailedCount;
        const qint64 skipped = e.skipped.value_or(s.scanSkipped);
        if (success == 0 && failed == 0 && skipped >= 1)
            setRunStatus(u"status_all_up_to_date"_s, { skipped });
        else if (success == 0 && failed == 0)
            setRunStatus(u"status_nothing_to_do"_s);
        else
            setRunStatus(u"status_batch_completed"_s, { success, failed });
        DockProgressManager::shared().finishWithBadge(success);
        // The duration announced is the last item's, as the engine reports it.
        NotificationManager::shared().sendBatchCompletion(success, failed, s.currentDuration,
                                                          m_destDir, m_notificationSound);
    }
}

// ---- Pause ----

void BatchController::setPaused(bool paused)
{
    if (!m_state.isRunning || m_state.isStopping || paused == m_state.isPaused)
        return;
    if (!m_engine->setSuspended(paused))
        return;
    if (paused)
        m_clock->stop();
    else
        m_clock->start();
    ORVANTA_BATCH_PUT(isPaused, paused);
    DockProgressManager::shared().setPaused(paused);
    Q_EMIT statusRequested(paused ? u"status_paused"_s : u"status_resumed"_s,
                           { m_state.currentIndex, m_state.totalPending });
    appendLog(paused ? u"⏸ Batch paused by user."_s : u"▶️ Batch resumed."_s);
}

// ---- End of run ----

void BatchController::finishRun(int status, bool crashed)
{
    m_clock->stop();
    endWatch();
    ORVANTA_BATCH_PUT(isRunning, false);
    ORVANTA_BATCH_PUT(isStopping, false);
    ORVANTA_BATCH_PUT(isPaused, false);
    DockProgressManager::shared().clearProgress();

    const BatchRunState &s = m_state;
    const qint64 success = s.runSuccessCount;
    const qint64 failed = s.runFailedCount;
    if (m_dryRun) {
        Q_EMIT statusRequested(u"status_dryrun_completed"_s,
                               { s.scanPairs, s.totalPending, s.scanSkipped });
        appendLog(u"🔎 Dry-run completed: Scanned "_s + QString::number(s.scanPairs)
                  + u", Pending "_s + QString::number(s.totalPending) + u", Skipped "_s
                  + QString::number(s.scanSkipped) + u"."_s);
    } else if (status == kExitCancelled && !crashed) {
        Q_EMIT statusRequested(u"status_cancelled"_s, {});
        appendLog(u"⚠️ Pipeline cancelled by user. In-flight tasks saved safely."_s);
    } else if (status != 0 || crashed) {
        Q_EMIT statusRequested(u"status_abnormal"_s, { status });
        QString line = u"❌ Pipeline exited with code "_s + QString::number(status);
        if (crashed)
            line += u" (killed by signal "_s + signalName(status) + u")"_s;
        appendLog(line);
    } else if (success == 0 && failed == 0 && m_scanSeen) {
        // Nothing to deliver is said as such, never as "0 delivered".
        if (s.scanSkipped > 0) {
            Q_EMIT statusRequested(u"status_all_up_to_date"_s, { s.scanSkipped });
            appendLog(u"🎉 All scanned files are already up-to-date (skipped "_s
                      + QString::number(s.scanSkipped) + u")."_s);
        } else {
            Q_EMIT statusRequested(u"status_nothing_to_do"_s, {});
            appendLog(u"ℹ️ Nothing to process: no matching RAW+JPG pair was found."_s);
        }
    } else {
        Q_EMIT statusRequested(u"status_batch_completed"_s, { success, failed });
        appendLog(u"✅ Pipeline execution completed successfully."_s);
    }
    Q_EMIT historyTouched();
    Q_EMIT runEnded();
    if (status != 0 || crashed)
        m_queue.clear();
    if (!m_queue.isEmpty())
        startNext();
}

// ---- Stop ----

void BatchController::stop()
{
    if (!m_state.isRunning || m_state.isStopping)
        return;
    if (m_state.isPaused) {
        m_engine->setSuspended(false);
        ORVANTA_BATCH_PUT(isPaused, false);
        DockProgressManager::shared().setPaused(false);
    }
    m_queue.clear();
    ORVANTA_BATCH_PUT(isStopping, true);
    Q_EMIT statusRequested(u"status_cancelling"_s, {});
    appendLog(u"⚠️ Stop requested by user, waiting for in-flight tasks to finish safely..."_s);
    Q_EMIT historyTouched();
    m_engine->stop();

    const quint64 generation = m_runGeneration;
    QTimer::singleShot(kStopWatchdogMs, this, [this, generation] {
        if (!m_state.isRunning || generation != m_runGeneration)
            return;
        m_clock->stop();
        appendLog(u"⚠️ Process shutdown timed out, force terminating engine..."_s);
        m_engine->forceKill();
        endWatch();
        ORVANTA_BATCH_PUT(isRunning, false);
        ORVANTA_BATCH_PUT(isStopping, false);
        Q_EMIT statusRequested(u"status_cancelled"_s, {});
        Q_EMIT historyTouched();
        Q_EMIT runEnded();
    });
}

} // namespace orvanta
