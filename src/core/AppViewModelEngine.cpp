// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine side of AppViewModel: wires the batch and probes controllers to
// the status line, the console and the history, and turns the user's batch
// options into a run. Main thread only.
#include "core/AppViewModel.h"
#include "engine/EngineService.h"
#include "engine/NotificationManager.h"
#include "engine/SystemProbes.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace orvanta {

using namespace Qt::StringLiterals;

void AppViewModel::setUpEngine()
{
    connect(m_batch.get(), &BatchController::statusRequested, this, &AppViewModel::setStatus);
    connect(m_batch.get(), &BatchController::historyTouched, this, &AppViewModel::refreshHistory);
    connect(m_batch.get(), &BatchController::runEnded, this, &AppViewModel::updateVolumeInfo);
    connect(m_probes.get(), &ProbesController::logLine, this, &AppViewModel::appendLog);
    // The environment's finding is a sentence in the interface language.
    connect(this, &AppViewModel::currentLanguageChanged, this, [this] {
        if (!isEnvironmentHealthy())
            checkEnvironment();
    });
    // An unreadable configuration file is kept before the defaults replace it.
    m_config.setBrokenFileHandler([this](const QString &backup) {
        appendLog(u"⚠️ The configuration file could not be read; it was kept as "_s + backup
                  + u" and the defaults are used."_s);
    });
}

void AppViewModel::updateVolumeInfo()
{
    m_probes->updateVolumeInfo(m_destDir, QDir::homePath());
}

void AppViewModel::requestNotificationPermission()
{
    NotificationManager::shared().requestAuthorization();
}

bool AppViewModel::readyToRun()
{
    if (isRunning())
        return false;
    updateVolumeInfo();
    checkEnvironment(); // shown in the header; missing libraries do not block a run
    if (const EnvironmentVerdict engine = checkEngineInstalled(EngineLocatorContext::system());
        !engine.healthy()) {
        setStatus(QString::fromLatin1(engine.key), { engine.detail });
        appendLog(u"❌ "_s + t("log_engine_missing_start", { engine.detail }));
        return false;
    }
    if (!isVolumeSafe()) {
        setStatus(u"status_abnormal"_s, { 1 });
        appendLog(u"❌ "_s + t("log_volume_insufficient", { volumeDisplayName() }));
        return false;
    }
    return true;
}

BatchRequest AppViewModel::batchRequest(const QString &sourceDir) const
{
    BatchRequest request;
    EngineRunOptions &o = request.options;
    o.sourceDir = sourceDir;
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
    // A dry run only looks; there is nothing to keep watching for.
    o.watch = m_watchFolder && !m_dryRunMode;
    o.backlitFill = m_enableBacklitFill;
    o.workers = m_selectedWorkers;
    o.noThrottle = !m_memoryThrottleEnabled;
    o.minRating = m_minRating;
    o.namingTemplate = m_exportNamingTemplate;
    o.subfolderRule = m_exportSubfolderRule;
    request.notificationSound = m_notificationSoundEnabled;
    request.header = runHeader(sourceDir);
    return request;
}

void AppViewModel::startProcessing()
{
    if (readyToRun())
        m_batch->start({ batchRequest(m_sourceDir) });
}

void AppViewModel::reprocessSelectedRecords()
{
    if (m_selectedRecordIds.isEmpty())
        return;
    // Each photo is converted again from the folder it came from (its
    // recorded RAW or JPG path), so rows are grouped by folder, one run per
    // folder, in list order; each stem once per folder.
    QStringList folders;
    QHash<QString, QStringList> stemsByFolder;
    for (const PhotoRecord &record : m_history->historyRecords()) {
        if (!m_selectedRecordIds.contains(record.id()) || record.stem.isEmpty())
            continue;
        const QString recorded = record.rawPath.value_or(record.jpgPath.value_or(QString()));
        const QString folder
            = recorded.isEmpty() ? m_sourceDir : QFileInfo(recorded).absolutePath();
        QStringList &stems = stemsByFolder[folder];
        if (stems.isEmpty())
            folders << folder;
        if (!stems.contains(record.stem))
            stems << record.stem;
    }
    if (folders.isEmpty() || !readyToRun())
        return;
    // The user's batch options (source, single target, force) stay as they
    // are: the runs carry their own.
    QList<BatchRequest> runs;
    for (const QString &folder : std::as_const(folders)) {
        BatchRequest request = batchRequest(folder);
        request.options.stem = stemsByFolder.value(folder).join(u',');
        request.options.force = true;
        request.options.dryRun = false;
        request.options.minRating = 0; // chosen by hand: no star filter
        request.options.watch = false;
        runs << request;
    }
    m_batch->start(runs);
}

void AppViewModel::stopProcessing()
{
    m_batch->stop();
}

QStringList AppViewModel::runHeader(const QString &sourceDir) const
{
    QStringList lines;
    if (m_dryRunMode)
        lines << u"🔎 "_s + t("log_dry_run_activated");
    lines << u"🚀 Starting Orvanta Ultra HDR pipeline..."_s << u"   Source: "_s + sourceDir
          << u"   Destination: "_s + m_destDir
          << u"   Style Preset: ["_s + displayName(m_selectedProfile) + u"] • "_s
            + subtitle(m_selectedProfile);
    if (m_minRating >= 1) {
        const QString rating = QString::number(m_minRating);
        lines << u"   Star Filter: ≥ "_s + rating + u"★ Only ("_s
                + t(QString(u"filter_rating_"_s + rating)) + u") "_s;
    }
    const QString workers = m_selectedWorkers != 0
        ? QString::number(m_selectedWorkers) + u" workers (Explicit Override)"_s
        : u"Auto (Adaptive)"_s;
    lines << u"   Workers: "_s + workers + u" • Throttle: "_s
            + (m_memoryThrottleEnabled ? u"ON"_s : u"OFF"_s);
    lines << u"   Target Volume: ["_s + volumeDisplayName() + u"] ("_s
            + QString::number(volumeFreeGB(), 'f', 1) + u" GB free)"_s;
    return lines;
}

} // namespace orvanta
