// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs one batch: scans the source, then converts the pending pairs on a pool
// of worker threads, records each in the state database and reports progress.
// Created and run on the main thread; workers share it through its mutexes.
#pragma once

#include "EngineOptions.h"
#include "EventLog.h"
#include "HdrRenderer.h"
#include "PairScanner.h"
#include "StateDatabase.h"

#include <QSet>
#include <QString>

#include <atomic>
#include <mutex>

namespace orvanta::engine {

enum ExitStatus {
    ExitOk = 0,
    ExitSetup = 1,
    ExitCanary = 2,
    ExitInterrupted = 130,
    ExitTerminated = 143
};

class BatchRunner
{
public:
    BatchRunner(const RunOptions &options, EventLog &log);
    int run();

    // A watch runs one pass per group of arrived pairs: the watch announces
    // its own end, and the passes after the first report no scan.
    enum class Pass { Batch, WatchFirst, WatchLater };
    void setPass(Pass pass) { m_pass = pass; }
    int delivered() const { return m_success; }
    int failedCount() const { return m_failed; }
    int skippedCount() const { return m_skipped; }

    // Set from the signal handlers.
    static void requestInterrupt();
    static void requestTerminate();

private:
    int chooseWorkerCount(int pending) const;
    void workerLoop(int workerId);
    struct Delivery
    {
        QString outputPath;
        QString error; // empty when delivered
        QString failure; // what failed, as the progress records name it
        bool abandoned = false; // the engine is terminating
        double writeSec = 0.0; // writing the file and moving it into place
    };
    struct Position
    {
        int index;
        int total;
        double seconds;
        double dbSeconds = 0.0; // recording the row
    };
    void processPair(const PhotoPair &pair, int index);
    Delivery deliver(const PhotoPair &pair, const RenderResult &rendered);
    // Returns the seconds the database took.
    double record(const PhotoPair &pair, const RenderResult &rendered, const Delivery &delivery,
                  double seconds);
    void report(const PhotoPair &pair, const RenderResult &rendered, const Delivery &delivery,
                const Position &at);
    bool canaryAllowsMore();
    void waitWhileThrottled(int workerId);
    void terminateNow();
    QString claimOutput(const QString &wanted, const QString &stem);
    void releaseOutput(const QString &path);
    bool registerTemp(const QString &path);
    void releaseTemp(const QString &path);

    RunOptions m_options;
    Tuning m_tuning;
    EventLog &m_log;
    StateDatabase m_db;
    QList<PhotoPair> m_pending;
    int m_photoThreads = 1; // threads each photo may use, with all workers running
    std::atomic<int> m_next { 0 };
    std::atomic<int> m_success { 0 };
    std::atomic<int> m_failed { 0 };
    int m_skipped = 0;
    Pass m_pass = Pass::Batch;
    std::atomic<bool> m_canaryTripped { false };
    std::atomic<bool> m_throttleLogged { false };
    std::mutex m_outputMutex;
    QSet<QString> m_claimedOutputs; // written (or being written) by this run
    std::mutex m_tempMutex;
    QSet<QString> m_temps;
    bool m_terminating = false; // under m_tempMutex
};

} // namespace orvanta::engine
