// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineService.h"

#include "engine/EngineOutputParser.h"
#include "i18n/LocalizationService.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTimer>

#include <csignal>
#include <sys/types.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

struct EngineService::Run
{
    Run(quint64 runId, EngineCallbacks cbs)
        : id(runId)
        , callbacks(std::move(cbs))
        , parser(
              [this](const BatchEvent &e) {
                  if (attached && callbacks.onEvent)
                      callbacks.onEvent(e);
              },
              [this](const QString &line) {
                  if (attached && callbacks.onLogLine)
                      callbacks.onLogLine(line);
              })
    {
    }

    quint64 id;
    EngineCallbacks callbacks;
    EngineOutputParser parser;
    QProcess *process = nullptr;
    // The engine's pid, which is also its process group's id; kept after
    // the process has ended so what remains of the group can be ended.
    pid_t group = 0;
    // The user asked this run to stop (stop() was called).
    bool stopping = false;
    // False once the run was killed or failed: its output is read and
    // dropped from then on.
    bool attached = true;
};

EngineService::EngineService(QObject *parent)
    : QObject(parent)
    , m_binPath(resolveBinPath())
{
}

EngineService::~EngineService()
{
    // Nothing may call back into an owner that is being destroyed. A run the
    // user stopped (or that was killed) is ended with its whole group now:
    // its escalation would have done so within seconds. Any other engine
    // still running was not stopped by anyone (the quit question waits for
    // the end of a run), so it is not killed, which would lose the photo in
    // flight: it is asked to finish that photo and stop, and left to do so.
    // QProcess's own destructor would kill it, so its handle is let go of.
    for (const auto &run : m_runs) {
        QProcess *p = run->process;
        p->disconnect(this);
        if (p->state() == QProcess::NotRunning)
            continue;
        if (run->stopping || !run->attached) {
            endProcessGroup(run->group);
            p->kill();
            p->waitForFinished(2000);
            continue;
        }
        if (run->group > 0) {
            ::kill(-run->group, SIGCONT); // a paused engine could not hear the request
            ::kill(run->group, SIGINT);
        }
        p->setParent(nullptr);
    }
}

QString EngineService::resolveBinPath()
{
    return resolveEngineBinary(EngineLocatorContext::system());
}

bool EngineService::isRunning() const
{
    return m_current && m_current->process->state() != QProcess::NotRunning;
}

qint64 EngineService::processId() const
{
    return isRunning() ? m_current->process->processId() : 0;
}

void EngineService::setStopDelays(std::chrono::milliseconds toTerminate,
                                  std::chrono::milliseconds toKill)
{
    m_toTerminate = toTerminate;
    m_toKill = toKill;
}

void EngineService::startRun(const EngineRunOptions &options, EngineCallbacks callbacks)
{
    if (isRunning())
        return;
    m_current = nullptr;

    m_binPath = resolveBinPath();
    auto owned = std::make_unique<Run>(++m_runCounter, std::move(callbacks));
    Run *run = owned.get();
    auto *process = new QProcess(this);
    run->process = process;
    m_runs.push_back(std::move(owned));
    m_current = run;

    const QString resources = resourcesDirFor(QCoreApplication::applicationDirPath());
    process->setProgram(m_binPath);
    process->setArguments(engineArguments(options));
    process->setProcessEnvironment(
        engineEnvironment(QProcessEnvironment::systemEnvironment(),
                          QFileInfo(resources).isDir() ? resources : QString()));
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setChildProcessModifier(prepareEngineChild);
    connect(process, &QProcess::started, this,
            [run] { run->group = pid_t(run->process->processId()); });

    connect(process, &QProcess::readyReadStandardOutput, this, [this, run] { onReadyRead(run); });
    connect(process, &QProcess::finished, this, [this, run](int code, QProcess::ExitStatus status) {
        onProcessFinished(run, code, status);
    });
    connect(process, &QProcess::errorOccurred, this, [this, run](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            launchFailed(run, run->process->errorString());
    });
    process->start(QIODevice::ReadOnly);
    run->group = pid_t(process->processId()); // 0 when the launch failed
}

void EngineService::launchFailed(Run *run, const QString &reason)
{
    // A process that never started emits no finished(): report the end here.
    const EngineCallbacks callbacks = run->callbacks;
    const bool wasAttached = run->attached;
    detach(run);
    if (!wasAttached)
        return;
    if (callbacks.onLogLine)
        callbacks.onLogLine(u"❌ "_s + t("log_engine_start_failed", { reason }));
    if (callbacks.onFinished)
        callbacks.onFinished({ 1, false });
}

void EngineService::onReadyRead(Run *run)
{
    const QByteArray bytes = run->process->readAllStandardOutput();
    if (!run->attached)
        return;
    run->parser.feed(bytes);
    if (run->attached && run->callbacks.onOutputDelivered)
        run->callbacks.onOutputDelivered();
}

void EngineService::onProcessFinished(Run *run, int exitCode, QProcess::ExitStatus status)
{
    // QProcess has read the pipe to its end before reporting the exit, so
    // every byte the engine wrote is delivered before onFinished.
    if (run->attached) {
        run->parser.feed(run->process->readAllStandardOutput());
        run->parser.finish();
        if (run->attached && run->callbacks.onOutputDelivered)
            run->callbacks.onOutputDelivered();
    }
    // For a run ended by a signal, QProcess gives the signal's number as the
    // exit code; it is passed on as the status, marked as such.
    const EngineExit exit { exitCode, status == QProcess::CrashExit };
    endProcessGroup(run->group);
    const auto onFinished = run->callbacks.onFinished;
    detach(run);
    if (onFinished)
        onFinished(exit);
}

void EngineService::detach(Run *run)
{
    run->attached = false;
    if (m_current == run)
        m_current = nullptr;
    if (run->process->state() != QProcess::NotRunning)
        return; // stays listed until the process is reaped
    run->process->disconnect(this);
    run->process->deleteLater();
    std::erase_if(m_runs, [run](const auto &r) { return r.get() == run; });
}

void EngineService::stop()
{
    if (!m_current)
        return;
    Run *run = m_current;
    if (run->process->state() == QProcess::NotRunning) {
        m_current = nullptr;
        run->attached = false;
        return;
    }
    const pid_t pid = pid_t(run->process->processId());
    run->stopping = true;
    if (run->group > 0)
        ::kill(-run->group, SIGCONT); // a paused engine could not hear the request
    ::kill(pid, SIGINT);

    // Each step checks that the same run is still the current one and still
    // going, so a timer left from an earlier run never signals a later one.
    const quint64 id = run->id;
    auto sameRunGoing = [this, id] { return isRunning() && m_current->id == id; };
    QTimer::singleShot(m_toTerminate, this, [this, sameRunGoing, pid] {
        if (sameRunGoing())
            ::kill(pid, SIGTERM);
        QTimer::singleShot(m_toKill, this, [this, sameRunGoing] {
            if (sameRunGoing())
                forceKill();
        });
    });
}

bool EngineService::setSuspended(bool suspended)
{
    if (!isRunning() || m_current->group <= 0)
        return false;
    // SIGTSTP rather than SIGSTOP: the engine notes the moment before it
    // stops, so the pause is left out of the photo's recorded duration.
    return ::kill(-m_current->group, suspended ? SIGTSTP : SIGCONT) == 0;
}

void EngineService::forceKill()
{
    if (!m_current)
        return;
    Run *run = m_current;
    if (run->process->state() != QProcess::NotRunning) {
        const pid_t pid = pid_t(run->process->processId());
        if (pid > 0)
            ::kill(-pid, SIGKILL);
        run->process->kill();
    }
    // The run stays listed (silent) until the process is reaped; its
    // finished() still reports the exit.
    run->attached = false;
    m_current = nullptr;
}

} // namespace orvanta
