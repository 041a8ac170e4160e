// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine half of AppViewModel: the batch run controller (start, events,
// console, end of run, stop) and the environment, storage and memory probes.
// Main thread only.
#include "core/AppViewModel.h"
#include "engine/BatchEvent.h"
#include "engine/DockProgressManager.h"
#include "engine/EngineDoctor.h"
#include "engine/EngineLaunch.h"
#include "engine/EngineOutputParser.h"
#include "engine/EngineService.h"
#include "engine/NotificationManager.h"
#include "engine/SystemProbes.h"

#include <QDir>
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

void AppViewModel::setUpEngine()
{
    m_batchTimer = new QTimer(this);
    m_batchTimer->setInterval(kElapsedTickMs);
    connect(m_batchTimer, &QTimer::timeout, this,
            [this] { setBatchElapsedSeconds(incremented(m_batchElapsedSeconds)); });
    // The environment's finding is a sentence in the interface language.
    connect(this, &AppViewModel::currentLanguageChanged, this, [this] {
        if (!m_isEnvironmentHealthy)
            checkEnvironment();
    });
    // An unreadable configuration file is kept before the defaults replace it.
    m_config.setBrokenFileHandler([this](const QString &backup) {
        appendLog(u"⚠️ The configuration file could not be read; it was kept as "_s + backup
                  + u" and the defaults are used."_s);
    });
    // Memory is measured when the settings window shows its probe, not at
    // start-up: until then the published figure is the documented default.
}

// ---- Probes ----

void AppViewModel::updateVolumeInfo()
{
    const VolumeInfo info = probeVolume(m_destDir, QDir::homePath());
    setVolumeName(info.name);
    setVolumeFreeGB(info.freeGiB);
    setVolumeIsExternal(info.external);
    setIsVolumeSafe(info.safe);
}

void AppViewModel::checkEnvironment()
{
    // A problem is published as a whole sentence (it names the engine's path
    // or the missing libraries) and written to the console when it is new.
    auto publish = [this](const EnvironmentVerdict &verdict) {
        const QString text = verdict.healthy() ? QString() : t(verdict.key, { verdict.detail });
        // The same finding in another language is not news.
        const bool isNew = !text.isEmpty()
            && (m_isEnvironmentHealthy || !m_missingDependencyMessage.contains(verdict.detail));
        setIsEnvironmentHealthy(verdict.healthy());
        setMissingDependencyMessage(text);
        if (isNew)
            appendLog(u"❌ "_s + text);
    };
    qDeleteAll(findChildren<EngineDoctorQuery *>(Qt::FindDirectChildrenOnly));
    const EngineLocatorContext locator = EngineLocatorContext::system();
    const EnvironmentVerdict installed = checkEngineInstalled(locator);
    publish(installed);
    if (!installed.healthy())
        return;
    // The engine knows best which of its libraries and data are missing.
    if (auto *query = EngineDoctorQuery::start(resolveEngineBinary(locator), this)) {
        connect(query, &EngineDoctorQuery::answered, this,
                [publish](const QStringList &missing) { publish(librariesVerdict(missing)); });
    }
}

void AppViewModel::updateMemoryProbe()
{
    setRamTotalGB(installedMemoryGiB());
    // Unreadable pressure information keeps the previous description.
    if (const auto pressure = readMemoryPressure())
        setMemoryPressureDesc(t(memoryPressureKey(int(*pressure))));
}

void AppViewModel::requestNotificationPermission()
{
    NotificationManager::shared().requestAuthorization();
}

// ---- Console ----

void AppViewModel::appendLog(const QString &line)
{
    flushConsole();
    appendEngineLog(line);
    flushConsole();
}

void AppViewModel::appendEngineLog(const QString &line)
{
    // Trimmed in steps rather than line by line: between two announcements
    // the list may hold up to twice the limit, never more.
    if (m_consoleLogs.size() >= 2 * kMaxConsoleLines)
        m_consoleLogs.remove(0, m_consoleLogs.size() - kMaxConsoleLines + 1);
    m_consoleLogs.append(line);
    m_consoleDirty = true;
}

void AppViewModel::flushConsole()
{
    if (!m_consoleDirty)
        return;
    m_consoleDirty = false;
    if (const qsizetype drop
        = consoleLinesOverBudget(m_consoleLogs, kMaxConsoleLines, kMaxConsoleChars))
        m_consoleLogs.remove(0, drop);
    Q_EMIT consoleLogsChanged();
}

void AppViewModel::setRunStatus(const QString &key, const FormatArgs &args)
{
    if (!m_deferRunStatus) {
        setStatus(key, args);
        return;
    }
    m_hasPendingStatus = true;
    m_pendingStatusKey = key;
    m_pendingStatusArgs = args;
}

void AppViewModel::flushRunOutput()
{
    flushConsole();
    if (m_hasPendingStatus) {
        m_hasPendingStatus = false;
        setStatus(m_pendingStatusKey, m_pendingStatusArgs);
    }
}

void AppViewModel::clearLogs()
{
    m_consoleDirty = false;
    setConsoleLogs({});
}

// ---- Start ----

void AppViewModel::startProcessing()
{
    if (m_isRunning)
        return;
    updateVolumeInfo();
    checkEnvironment(); // shown in the header; missing libraries do not block a run
    if (const EnvironmentVerdict engine = checkEngineInstalled(EngineLocatorContext::system());
        !engine.healthy()) {
        setStatus(QString::fromLatin1(engine.key), { engine.detail });
        appendLog(u"❌ "_s + t("log_engine_missing_start", { engine.detail }));
        return;
    }

    if (!m_isVolumeSafe) {
        setStatus(u"status_abnormal"_s, { 1 });
        appendLog(u"❌ "_s + t("log_volume_insufficient", { m_volumeName }));
        return;
    }

    const quint64 generation = ++m_runGeneration;
    m_hasPendingStatus = false;
    setIsRunning(true);
    setIsStopping(false);
    setStatus(u"status_scanning"_s);
    setProgressFraction(0.0);
    setCurrentIndex(0);
    setTotalPending(0);
    setCurrentStem(QString());
    m_currentRunSuccessCount = 0;
    m_currentRunFailedCount = 0;
    setBatchElapsedSeconds(0);
    m_batchTimer->start();

    DockProgressManager::shared().clearBadge();
    DockProgressManager::shared().clearProgress();
    writeRunHeader();

    EngineRunOptions o;
    o.sourceDir = m_sourceDir;
    o.destDir = m_destDir;
    if (!m_targetStem.isEmpty())
        o.stem = m_targetStem;
    o.profile = m_selectedProfile;
    if (m_selectedProfile == StyleProfile::Custom) {
        o.customMidTarget = m_customMidTarget;
        o.customPowerMid = m_customPowerMid;
        o.customPowerHi = m_customPowerHi;
        o.customChromaBoost = m_customChromaBoost;
        o.customSkinDamp = m_customSkinDamp;
    }
    o.force = m_forceReprocess;
    o.dryRun = m_dryRunMode;
    o.backlitFill = m_enableBacklitFill;
    o.workers = m_selectedWorkers;
    o.noThrottle = !m_memoryThrottleEnabled;
    o.minRating = m_minRating;
    o.namingTemplate = m_exportNamingTemplate;
    o.subfolderRule = m_exportSubfolderRule;

    const QPointer<AppViewModel> self(this);
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
            self->refreshHistory();
            return;
        }
        self->finishRun(exit.status, exit.crashed);
    };
    m_engineService->startRun(o, std::move(callbacks));
}

void AppViewModel::writeRunHeader()
{
    if (m_dryRunMode)
        appendLog(u"🔎 "_s + t("log_dry_run_activated"));
    appendLog(u"🚀 Starting Orvanta Ultra HDR pipeline..."_s);
    appendLog(u"   Source: "_s + m_sourceDir);
    appendLog(u"   Destination: "_s + m_destDir);
    appendLog(u"   Style Preset: ["_s + displayName(m_selectedProfile) + u"] • "_s
              + subtitle(m_selectedProfile));
    if (m_minRating >= 1) {
        const QString rating = QString::number(m_minRating);
        appendLog(u"   Star Filter: ≥ "_s + rating + u"★ Only ("_s
                  + t(QString(u"filter_rating_"_s + rating)) + u") "_s);
    }
    const QString workers = m_selectedWorkers != 0
        ? QString::number(m_selectedWorkers) + u" workers (Explicit Override)"_s
        : u"Auto (Adaptive)"_s;
    appendLog(u"   Workers: "_s + workers + u" • Throttle: "_s
              + (m_memoryThrottleEnabled ? u"ON"_s : u"OFF"_s));
    appendLog(u"   Target Volume: ["_s + m_volumeName + u"] ("_s
              + QString::number(m_volumeFreeGB, 'f', 1) + u" GB free)"_s);
}

// ---- Events ----

void AppViewModel::handleBatchEvent(const BatchEvent &e)
{
    DockProgressManager &dock = DockProgressManager::shared();
    auto updateFraction = [&](double numerator) {
        if (m_totalPending < 1)
            return;
        setProgressFraction(numerator / double(m_totalPending));
        dock.updateProgress(m_progressFraction);
    };

    if (e.type == u"scan"_s) {
        setScanPairs(e.pairs.value_or(0));
        setScanOrphans(e.orphans.value_or(0));
        setScanSkipped(e.skipped.value_or(0));
        setScanPending(e.pending.value_or(0));
        setTotalPending(m_scanPending);
        setRunStatus(u"status_scan_done"_s, { m_scanPending });
    } else if (e.type == u"item_start"_s) {
        setCurrentStem(e.stem.value_or(QString()));
        setCurrentIndex(e.index.value_or(0));
        setTotalPending(e.total.value_or(m_totalPending));
        updateFraction(double(m_currentIndex) - 1.0);
        setRunStatus(u"status_processing_item"_s,
                     { m_currentIndex, m_totalPending, m_currentStem });
    } else if (e.type == u"item_done"_s) {
        setCurrentIndex(e.index.value_or(m_currentIndex));
        setTotalPending(e.total.value_or(m_totalPending));
        setCurrentStem(e.stem.value_or(m_currentStem));
        setCurrentFaces(e.faces.value_or(0));
        setCurrentPeakStops(e.peakStops.value_or(0.0));
        setCurrentBayerClip(e.bayerClip.value_or(0.0));
        setCurrentDuration(e.duration.value_or(0.0));
        m_currentRunSuccessCount = incremented(m_currentRunSuccessCount);
        updateFraction(double(m_currentIndex));
        setRunStatus(u"status_item_completed"_s,
                     { m_currentIndex, m_totalPending, m_currentStem, m_currentPeakStops });
        refreshHistory();
    } else if (e.type == u"item_failed"_s) {
        // The position shown is the one the preceding "item_start" set.
        setCurrentStem(e.stem.value_or(m_currentStem));
        m_currentRunFailedCount = incremented(m_currentRunFailedCount);
        setRunStatus(u"status_item_failed"_s, { m_currentIndex, m_totalPending, m_currentStem });
        updateFraction(double(m_currentIndex));
        refreshHistory();
    } else if (e.type == u"batch_done"_s) {
        setProgressFraction(1.0);
        const qint64 success = e.success.value_or(m_currentRunSuccessCount);
        const qint64 failed = e.failed.value_or(m_currentRunFailedCount);
        m_currentRunSuccessCount = success;
        m_currentRunFailedCount = failed;
        const qint64 skipped = e.skipped.value_or(m_scanSkipped);
        if (success == 0 && failed == 0 && skipped >= 1)
            setRunStatus(u"status_all_up_to_date"_s, { skipped });
        else
            setRunStatus(u"status_batch_completed"_s, { success, failed });
        dock.finishWithBadge(success);
        // The duration announced is the last item's, as the engine reports it.
        NotificationManager::shared().sendBatchCompletion(success, failed, m_currentDuration,
                                                          m_destDir, m_notificationSoundEnabled);
    }
}

// ---- End of run ----

void AppViewModel::stopBatchTimer()
{
    m_batchTimer->stop();
}

void AppViewModel::finishRun(int status, bool crashed)
{
    stopBatchTimer();
    setIsRunning(false);
    setIsStopping(false);
    DockProgressManager::shared().clearProgress();

    if (m_dryRunMode) {
        setStatus(u"status_dryrun_completed"_s, { m_scanPairs, m_totalPending, m_scanSkipped });
        appendLog(u"🔎 Dry-run completed: Scanned "_s + QString::number(m_scanPairs)
                  + u", Pending "_s + QString::number(m_totalPending) + u", Skipped "_s
                  + QString::number(m_scanSkipped) + u"."_s);
    } else if (status == kExitCancelled && !crashed) {
        setStatus(u"status_cancelled"_s);
        appendLog(u"⚠️ Pipeline cancelled by user. In-flight tasks saved safely."_s);
    } else if (status != 0 || crashed) {
        setStatus(u"status_abnormal"_s, { status });
        QString line = u"❌ Pipeline exited with code "_s + QString::number(status);
        if (crashed)
            line += u" (killed by signal "_s + signalName(status) + u")"_s;
        appendLog(line);
    } else if (m_currentRunSuccessCount == 0 && m_currentRunFailedCount == 0 && m_scanSkipped > 0) {
        setStatus(u"status_all_up_to_date"_s, { m_scanSkipped });
        appendLog(u"🎉 All scanned files are already up-to-date (skipped "_s
                  + QString::number(m_scanSkipped) + u")."_s);
    } else {
        setStatus(u"status_batch_completed"_s,
                  { m_currentRunSuccessCount, m_currentRunFailedCount });
        appendLog(u"✅ Pipeline execution completed successfully."_s);
    }
    refreshHistory();
    updateVolumeInfo();
}

// ---- Stop ----

void AppViewModel::stopProcessing()
{
    if (!m_isRunning || m_isStopping)
        return;
    setIsStopping(true);
    setStatus(u"status_cancelling"_s);
    appendLog(u"⚠️ Stop requested by user, waiting for in-flight tasks to finish safely..."_s);
    refreshHistory();
    m_engineService->stop();

    const quint64 generation = m_runGeneration;
    QTimer::singleShot(kStopWatchdogMs, this, [this, generation] {
        if (!m_isRunning || generation != m_runGeneration)
            return;
        stopBatchTimer();
        appendLog(u"⚠️ Process shutdown timed out, force terminating engine..."_s);
        m_engineService->forceKill();
        setIsRunning(false);
        setIsStopping(false);
        setStatus(u"status_cancelled"_s);
        refreshHistory();
        updateVolumeInfo();
    });
}

} // namespace orvanta
