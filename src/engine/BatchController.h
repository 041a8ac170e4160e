// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs one batch of the engine at a time and owns everything about it: the
// run state the live card shows, the console, the elapsed clock, pausing,
// the stop escalation and the wording of the run's status line. A watching
// run is an ordinary run that ends only on Stop. Main thread.
#pragma once

#include "engine/BatchEvent.h"
#include "engine/EngineLaunch.h"
#include "i18n/FormatArgs.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

class QTimer;

namespace orvanta {

class EngineService;

// One photo the engine could not deliver, with its reason as the engine said it.
struct FailedPhoto
{
    QString stem;
    QString reason;
    QString folder; // the source folder of the run it failed in
    QString kind; // what failed, as the engine names it ("raw_unreadable", ...); may be empty
    friend bool operator==(const FailedPhoto &, const FailedPhoto &) = default;
};

// The state of the run, declared once: X(type, name, default). Each row is a
// getter, a <name>Changed signal and a field of BatchRunState.
// clang-format off
#define ORVANTA_BATCH_STATE(X) \
    X(bool, isRunning, false) \
    X(bool, isStopping, false) \
    X(bool, isPaused, false) \
    X(qint64, scanPairs, 0) \
    X(qint64, scanOrphans, 0) \
    X(qint64, scanSkipped, 0) \
    X(qint64, scanPending, 0) \
    X(qint64, currentIndex, 0) \
    X(qint64, totalPending, 0) \
    X(QString, currentStem, {}) \
    X(qint64, currentFaces, 0) \
    X(double, currentPeakStops, 0) \
    X(double, currentBayerClip, 0) \
    X(double, currentDuration, 0) \
    X(double, progressFraction, 0) \
    X(qint64, batchElapsedSeconds, 0) \
    X(QStringList, consoleLogs, {}) \
    X(qint64, runSuccessCount, 0) \
    X(qint64, runFailedCount, 0) \
    X(QList<orvanta::FailedPhoto>, runFailures, {}) \
    X(bool, isWatching, false) \
    X(QString, watchedFolder, {}) \
    X(qint64, watchCount, 0) \
    X(QString, watchLastStem, {}) \
    X(bool, watchLost, false) \
    X(QString, watchLostReason, {})
#define ORVANTA_BATCH_FIELD(Type, name, def) Type name = def;
#define ORVANTA_BATCH_GETTER(Type, name, def) Type name() const { return m_state.name; }
#define ORVANTA_BATCH_SIGNAL(Type, name, def) void name##Changed();
// clang-format on

struct BatchRunState
{
    ORVANTA_BATCH_STATE(ORVANTA_BATCH_FIELD)
};

// What a run needs besides the engine's options.
struct BatchRequest
{
    EngineRunOptions options;
    bool notificationSound = true;
    // Written to the console before the engine starts.
    QStringList header;
};

class BatchController : public QObject
{
    Q_OBJECT
public:
    explicit BatchController(QObject *parent = nullptr);
    ~BatchController() override;

    ORVANTA_BATCH_STATE(ORVANTA_BATCH_GETTER)
    const BatchRunState &state() const { return m_state; }
    EngineService *engineService() const { return m_engine.get(); }

    // Starts the runs one after the other unless a run is going. A run that
    // is stopped or ends abnormally drops the rest.
    void start(const QList<BatchRequest> &runs);
    // Runs the engine again on exactly the photos that failed in the last
    // run (or runs of one reprocessing), from their folders, with the same
    // settings.
    void retryFailed();
    // Asks the engine to stop; a paused engine is resumed first so it can.
    // An engine that does not end in time is killed.
    void stop();
    // Suspends or resumes the engine's whole process group; the clock stops
    // with it. Only while running and not stopping.
    void setPaused(bool paused);
    void handleBatchEvent(const BatchEvent &event);

    void appendLog(const QString &line);
    void clearLogs();

    // For tests that need the views in a given state without an engine:
    // edits a copy of the state, then takes every field and announces
    // those that changed.
    void setStateForTest(const std::function<void(BatchRunState &)> &edit);

Q_SIGNALS:
    ORVANTA_BATCH_STATE(ORVANTA_BATCH_SIGNAL)
    // The status line of the run, as a text key and its arguments.
    void statusRequested(const QString &key, const orvanta::FormatArgs &args);
    // The engine wrote to its history (an item ended, or the run did).
    void historyTouched();
    // The run is over (ended, cancelled or killed); free space may have changed.
    void runEnded();

private:
    template<typename T>
    void put(T BatchRunState::*field, const T &value, void (BatchController::*changed)());
    void appendEngineLog(const QString &line);
    void flushConsole();
    void setRunStatus(const QString &key, const FormatArgs &args = {});
    void flushRunOutput();
    void finishRun(int status, bool crashed);
    void resetForStart();
    void startNext();
    void updateFraction(double numerator);
    void recordFailure(const BatchEvent &event);
    bool handleWatchEvent(const BatchEvent &event);
    void endWatch();

    BatchRunState m_state;
    std::unique_ptr<EngineService> m_engine;
    QTimer *m_clock = nullptr;
    QList<BatchRequest> m_queue;
    BatchRequest m_lastRequest;
    bool m_dryRun = false;
    bool m_scanSeen = false; // the engine reported what it found
    bool m_notificationSound = true;
    QString m_destDir;
    // Bumped by every start, so a stop watchdog left from an earlier run
    // never ends a later one.
    quint64 m_runGeneration = 0;
    // Engine lines are appended at once and announced once per read.
    bool m_consoleDirty = false;
    // While the records of one read are applied, the status line is sent
    // once, for the last of them, when the read has been handled.
    bool m_deferRunStatus = false;
    bool m_hasPendingStatus = false;
    QString m_pendingStatusKey;
    FormatArgs m_pendingStatusArgs;
};

} // namespace orvanta
