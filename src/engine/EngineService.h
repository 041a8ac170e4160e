// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds, launches and supervises the external engine process: one run at a
// time, its merged output turned into log lines and events, its end
// reported once, and a graceful stop that escalates. Main thread.
#pragma once

#include "engine/BatchEvent.h"
#include "engine/EngineLaunch.h"

#include <QObject>
#include <QPointer>
#include <QProcess>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace orvanta {

class EngineOutputParser;

// How a run ended: the exit code, or for a run ended by a signal the
// signal's number with `crashed` set.
struct EngineExit
{
    int status = 0;
    bool crashed = false;
};

struct EngineCallbacks
{
    std::function<void(const BatchEvent &)> onEvent;
    std::function<void(const QString &)> onLogLine;
    std::function<void(EngineExit)> onFinished;
    // Optional: called after each batch of output has been delivered, so a
    // receiver may publish many lines at once.
    std::function<void()> onOutputDelivered;
};

class EngineService : public QObject
{
    Q_OBJECT
public:
    explicit EngineService(QObject *parent = nullptr);
    ~EngineService() override;

    // Looked up again on every start, so an engine installed while the
    // application runs is used by the next batch.
    static QString resolveBinPath();
    QString binPath() const { return m_binPath; }

    bool isRunning() const;

    // Starts a run unless one is running (then nothing happens and no
    // callback is called). A launch failure is reported through onLogLine
    // and onFinished({1}) before this returns.
    void startRun(const EngineRunOptions &options, EngineCallbacks callbacks);
    // SIGINT now; SIGTERM after the first delay and a kill after the second,
    // each only if the same run is still going. Returns at once.
    void stop();
    // Suspends (SIGTSTP) or resumes (SIGCONT) the engine's whole process
    // group, so helpers it started pause with it. Returns false when no run
    // is going. stop() resumes a suspended engine first.
    bool setSuspended(bool suspended);

    // Kills the engine and its process group at once and stops delivering
    // its output; onFinished still follows when the process is reaped.
    void forceKill();

    // The stop escalation delays (2.0 s and 1.0 s).
    void setStopDelays(std::chrono::milliseconds toTerminate, std::chrono::milliseconds toKill);

    // The process id of the running engine, 0 when idle.
    qint64 processId() const;

private:
    struct Run;
    void launchFailed(Run *run, const QString &reason);
    void onReadyRead(Run *run);
    void onProcessFinished(Run *run, int exitCode, QProcess::ExitStatus status);
    void detach(Run *run);

    QString m_binPath;
    // Every run whose process has not been reaped yet. The current one is
    // the run startRun made last, until it ends or is killed; a killed run
    // stays here, silent, until its process is reaped.
    std::vector<std::unique_ptr<Run>> m_runs;
    Run *m_current = nullptr;
    quint64 m_runCounter = 0;
    std::chrono::milliseconds m_toTerminate { 2000 };
    std::chrono::milliseconds m_toKill { 1000 };
};

} // namespace orvanta
