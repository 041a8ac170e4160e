// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "BatchRunner.h"

#include "FaceDetector.h"
#include "GreyPng.h"
#include "HdrRenderer.h"
#include "OutputNaming.h"
#include "PauseClock.h"
#include "SystemLoad.h"
#include "media/ExivAdapter.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QJsonObject>
#include <QStorageInfo>

#include <chrono>
#include <cstdio>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

std::atomic<bool> g_interrupt { false };
std::atomic<bool> g_terminate { false };

constexpr qint64 kCanaryMinimumBytes = 512ll << 20;

NamingFacts factsFor(const PhotoPair &pair, const QString &profileId)
{
    NamingFacts facts { pair.stem, profileId, {}, {}, pair.rating.value_or(0) };
    const auto tags = exiv::readTags(pair.jpgPath);
    if (tags && tags->dateTimeOriginal && tags->dateTimeOriginal->size() >= 10)
        facts.date = tags->dateTimeOriginal->left(10).replace(u':', u'-');
    if (facts.date.isEmpty())
        facts.date = QFileInfo(pair.rawPath).lastModified().toString(u"yyyy-MM-dd"_s);
    if (tags && tags->model)
        facts.camera = tags->model->trimmed();
    if (facts.camera.isEmpty())
        facts.camera = u"camera"_s;
    return facts;
}

bool writeFile(const QString &path, const QByteArray &bytes, QString &error)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(bytes) != bytes.size()
        || !file.flush()) {
        error = u"cannot write "_s + path + u": "_s + file.errorString();
        return false;
    }
    ::fsync(file.handle());
    return true;
}

// Results are written as ".<name>.part" beside their final name and renamed
// into place, so a run that was killed leaves at most such files behind and
// never a cut photo under a real name. They are removed before the next run
// writes; symbolic links are not followed out of the delivery folder.
int removePartLeftovers(const QString &destDir)
{
    int removed = 0;
    QDirIterator it(destDir, { u".*.part"_s }, QDir::Files | QDir::Hidden | QDir::NoSymLinks,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        if (QFile::remove(it.next()))
            ++removed;
    }
    return removed;
}

} // namespace

void BatchRunner::requestInterrupt()
{
    g_interrupt = true;
}
void BatchRunner::requestTerminate()
{
    g_terminate = true;
}

BatchRunner::BatchRunner(const RunOptions &options, EventLog &log)
    : m_options(options)
    , m_log(log)
{
    bool known = true;
    m_tuning = tuningFor(options, &known);
    if (!known)
        m_log.line(u"⚠️ Unknown profile \""_s + options.profileId + u"\", using default"_s);
}

int BatchRunner::chooseWorkerCount(int pending) const
{
    int workers = m_options.workers;
    if (workers < 1) {
        const int cores = int(std::max(1u, std::thread::hardware_concurrency()));
        const int byMemory = int(availableMemoryBytes() / kWorkerMemoryBudget);
        workers = std::max(1, std::min(cores, byMemory));
    }
    return std::clamp(workers, 1, std::max(1, pending));
}

int BatchRunner::run()
{
    const QString dbPath = StateDatabase::defaultPath();
    if (!m_db.open(dbPath)) {
        m_log.line(u"❌ Cannot open the state database "_s + dbPath + u": "_s + m_db.error());
        return ExitSetup;
    }
    if (m_pass != Pass::WatchLater)
        m_log.line(u"🔎 Scanning "_s + m_options.sourceDir);
    ScanResult scan
        = scanSource(m_options, [this](const QString &fp) { return m_db.isDelivered(fp); });
    if (!scan.error.isEmpty()) {
        m_log.line(u"❌ "_s + scan.error);
        return ExitSetup;
    }
    m_pending = scan.pending;
    m_skipped = scan.skipped();
    if (m_pass != Pass::WatchLater) {
        m_log.line(
            u"🔎 Found %1 pairs, %2 orphans; %3 already delivered, %4 below the rating filter, %5 pending"_s
                .arg(scan.pairs)
                .arg(scan.orphans)
                .arg(scan.delivered)
                .arg(scan.belowRating)
                .arg(m_pending.size()));
        m_log.event(u"scan"_s,
                    { { u"pairs"_s, scan.pairs },
                      { u"orphans"_s, scan.orphans },
                      { u"skipped"_s, scan.skipped() },
                      { u"pending"_s, int(m_pending.size()) } });
    }
    if (m_options.dryRun) {
        for (const PhotoPair &pair : std::as_const(m_pending)) {
            const NamingFacts facts = factsFor(pair, m_options.profileId);
            m_log.line(u"   would convert "_s + pair.stem + u" -> "_s
                       + subfolderFor(m_options.subfolderRule, facts)
                       + outputFileName(m_options.namingTemplate, facts));
        }
        m_log.event(u"batch_done"_s,
                    { { u"success"_s, 0 }, { u"failed"_s, 0 }, { u"skipped"_s, scan.skipped() } });
        return ExitOk;
    }
    if (!m_pending.isEmpty() && !QDir().mkpath(m_options.destDir)) {
        m_log.line(u"❌ Cannot create the destination folder "_s + m_options.destDir);
        return ExitSetup;
    }
    if (const int removed
        = QFileInfo(m_options.destDir).isDir() ? removePartLeftovers(m_options.destDir) : 0)
        m_log.line(u"🧹 Removed %1 partial file%2 left by an interrupted run"_s.arg(removed).arg(
            removed == 1 ? u""_s : u"s"_s));
    const int workers = chooseWorkerCount(int(m_pending.size()));
    if (!m_pending.isEmpty())
        m_log.line(u"🚀 Converting %1 pair%2 with %3 worker%4 (profile %5)"_s.arg(m_pending.size())
                       .arg(m_pending.size() == 1 ? u""_s : u"s"_s)
                       .arg(workers)
                       .arg(workers == 1 ? u""_s : u"s"_s)
                       .arg(m_options.profileId));
    // Cores the workers leave idle go to the full-size work within each photo.
    m_photoThreads = std::max(1, int(std::max(1u, std::thread::hardware_concurrency())) / workers);
    std::atomic<int> running { workers };
    std::vector<std::thread> pool;
    for (int w = 0; w < workers && !m_pending.isEmpty(); ++w)
        pool.emplace_back([this, w, &running] {
            workerLoop(w);
            --running;
        });
    while (running > 0 && !pool.empty()) {
        if (g_terminate)
            terminateNow();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    for (std::thread &t : pool)
        t.join();
    if (g_terminate)
        terminateNow();
    // A stop that arrives once every pair has been taken and finished (the
    // last one just done, the loop above still asleep) cancelled nothing.
    const bool interrupted = g_interrupt && m_next < m_pending.size();
    if (interrupted)
        m_log.line(u"⚠️ Interrupted: in-flight items were finished and recorded"_s);
    if (m_pass == Pass::Batch) {
        m_log.event(u"batch_done"_s,
                    { { u"success"_s, m_success.load() },
                      { u"failed"_s, m_failed.load() },
                      { u"skipped"_s, scan.skipped() } });
        m_log.line(u"✅ Done: %1 delivered, %2 failed, %3 skipped"_s.arg(m_success.load())
                       .arg(m_failed.load())
                       .arg(scan.skipped()));
    }
    if (interrupted)
        return ExitInterrupted;
    return m_canaryTripped ? ExitCanary : ExitOk;
}

void BatchRunner::terminateNow()
{
    std::lock_guard lock(m_tempMutex);
    m_terminating = true;
    for (const QString &path : std::as_const(m_temps))
        QFile::remove(path);
    // A terminate that follows an interrupt is the application escalating a
    // stop the user asked for: the items in flight are abandoned, but the
    // run still ends as a cancellation rather than as a failure.
    if (g_interrupt) {
        m_log.line(u"⚠️ Interrupted: items in flight abandoned, partial files removed"_s);
        std::fflush(stdout);
        ::_exit(ExitInterrupted);
    }
    m_log.line(u"⚠️ Terminated: partial files removed"_s);
    std::fflush(stdout);
    ::_exit(ExitTerminated);
}

bool BatchRunner::registerTemp(const QString &path)
{
    std::lock_guard lock(m_tempMutex);
    if (m_terminating)
        return false;
    m_temps.insert(path);
    return true;
}

void BatchRunner::releaseTemp(const QString &path)
{
    std::lock_guard lock(m_tempMutex);
    m_temps.remove(path);
}

QString BatchRunner::claimOutput(const QString &wanted, const QString &stem)
{
    // A template without {original} can give two photos one name: the later
    // one gets a number instead of replacing the other's file. A pair's own
    // earlier result is replaced.
    std::lock_guard lock(m_outputMutex);
    const QFileInfo info(wanted);
    const QString base = info.dir().filePath(info.completeBaseName()), suffix = info.suffix();
    QString candidate = wanted;
    for (int n = 2;; ++n) {
        const bool taken = m_claimedOutputs.contains(candidate)
            || (QFileInfo::exists(candidate)
                && m_db.stemForOutput(candidate).value_or(stem) != stem);
        if (!taken)
            break;
        candidate = base + u'-' + QString::number(n) + u'.' + suffix;
    }
    m_claimedOutputs.insert(candidate);
    return candidate;
}

void BatchRunner::releaseOutput(const QString &path)
{
    std::lock_guard lock(m_outputMutex);
    m_claimedOutputs.remove(path);
}

bool BatchRunner::canaryAllowsMore()
{
    if (!m_options.enableCanary || m_canaryTripped)
        return !m_canaryTripped;
    QString reason;
    if (!QFileInfo(m_options.destDir).isDir()) {
        reason = u"the destination folder has disappeared: "_s + m_options.destDir;
    } else {
        const QStorageInfo storage(m_options.destDir);
        const qint64 free = storage.bytesAvailable();
        if (free >= 0 && free < kCanaryMinimumBytes)
            reason = u"the destination has only %1 MiB free"_s.arg(free >> 20);
    }
    if (reason.isEmpty())
        return true;
    if (!m_canaryTripped.exchange(true))
        m_log.line(u"❌ Storage canary: stopping the batch, "_s + reason);
    return false;
}

void BatchRunner::waitWhileThrottled(int workerId)
{
    if (workerId == 0 || m_options.noThrottle || !m_options.memoryThrottle)
        return;
    // Waiting ends when the pressure eases, on a stop, or when the other
    // workers have taken every item.
    while (!g_interrupt && !g_terminate && m_next < m_pending.size() && memoryPressureHigh()) {
        if (!m_throttleLogged.exchange(true))
            m_log.line(u"⚠️ Memory pressure: extra workers wait until it eases"_s);
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
}

void BatchRunner::workerLoop(int workerId)
{
    for (;;) {
        waitWhileThrottled(workerId);
        if (g_interrupt || g_terminate || !canaryAllowsMore())
            return;
        const int i = m_next++;
        if (i >= m_pending.size())
            return;
        // Read-only access: the list still shares its data with the scan
        // result, and a non-const operator[] would detach it from several
        // workers at once.
        processPair(std::as_const(m_pending).at(i), i + 1);
    }
}

void BatchRunner::processPair(const PhotoPair &pair, int index)
{
    const int total = int(m_pending.size());
    QElapsedTimer timer;
    timer.start();
    const std::int64_t pausedBefore = pausedNanoseconds();
    m_log.event(u"item_start"_s,
                { { u"stem"_s, pair.stem }, { u"index"_s, index }, { u"total"_s, total } });
    m_log.line(u"🚀 [%1/%2] %3"_s.arg(index).arg(total).arg(pair.stem));

    const RenderRequest request { pair.rawPath,          pair.jpgPath,         m_tuning,
                                  m_options.backlitFill, m_options.debugMasks, skinFinder(),
                                  m_photoThreads };
    const RenderResult rendered = renderPair(request);
    Delivery delivery;
    if (rendered.error.isEmpty()) {
        delivery = deliver(pair, rendered);
    } else {
        delivery.error = rendered.error;
        delivery.failure = rendered.failure;
    }
    if (delivery.abandoned)
        return; // terminating: the file is gone and nothing is recorded
    // A pause of the batch is not the photo's working time.
    const double seconds
        = double(timer.nsecsElapsed() - (pausedNanoseconds() - pausedBefore)) / 1e9;
    const double dbSeconds = record(pair, rendered, delivery, seconds);
    report(pair, rendered, delivery, { index, total, seconds, dbSeconds });
}

BatchRunner::Delivery BatchRunner::deliver(const PhotoPair &pair, const RenderResult &rendered)
{
    Delivery d;
    const NamingFacts facts = factsFor(pair, m_options.profileId);
    const QString folder
        = QDir(m_options.destDir).filePath(subfolderFor(m_options.subfolderRule, facts));
    const QString name = outputFileName(m_options.namingTemplate, facts);
    // The destination itself is never re-created here: a vanished drive must
    // stop the batch, not fill the mount point's folder.
    if (m_options.enableCanary && !QFileInfo(m_options.destDir).isDir()) {
        d.error = u"the destination folder has disappeared: "_s + m_options.destDir;
        d.failure = u"destination_gone"_s;
        if (!m_canaryTripped.exchange(true))
            m_log.line(u"❌ Storage canary: stopping the batch, "_s + d.error);
        return d;
    }
    if (!QDir().mkpath(folder)) {
        d.error = u"cannot create "_s + folder;
        d.failure = u"write_failed"_s;
        return d;
    }
    const QString output = claimOutput(QDir(folder).filePath(name), pair.stem);
    const QString temp = QDir(folder).filePath(u"."_s + QFileInfo(output).fileName() + u".part"_s);
    if (!registerTemp(temp)) {
        d.abandoned = true;
        return d;
    }
    QElapsedTimer clock;
    clock.start();
    if (writeFile(temp, rendered.bytes, d.error)
        && std::rename(qPrintable(temp), qPrintable(output)) != 0)
        d.error = u"cannot move the result into place: "_s + output;
    if (!d.error.isEmpty())
        QFile::remove(temp);
    releaseTemp(temp);
    if (!d.error.isEmpty()) {
        d.failure = u"write_failed"_s;
        releaseOutput(output);
        return d;
    }
    d.outputPath = output;
    d.writeSec = clock.nsecsElapsed() / 1e9;
    if (m_options.debugMasks) {
        const QString base = QDir(folder).filePath(QFileInfo(name).completeBaseName());
        writeGreyPng(rendered.gainMask, base + u"_gainmap.png"_s);
        writeGreyPng(rendered.skinMask, base + u"_facemask.png"_s);
    }
    return d;
}

double BatchRunner::record(const PhotoPair &pair, const RenderResult &rendered,
                           const Delivery &delivery, double seconds)
{
    QElapsedTimer clock;
    clock.start();
    const bool ok = delivery.error.isEmpty();
    ProcessedRow row { pair.fingerprint, pair.stem,    pair.rawPath,
                       pair.jpgPath,     std::nullopt, ok ? u"SUCCESS"_s : u"FAILED"_s,
                       std::nullopt,     std::nullopt, std::nullopt,
                       timestampNow(),   seconds,      std::nullopt,
                       pair.rating };
    if (ok) {
        row.outputPath = delivery.outputPath;
        row.peakStops = rendered.peakStops;
        row.numFaces = rendered.faces;
        row.rawClipPct = rendered.rawClipPct;
    } else {
        row.errorMessage = delivery.error;
        if (rendered.error.isEmpty())
            row.rawClipPct = rendered.rawClipPct;
    }
    row.colourResidual = rendered.colourResidual;
    if (!m_db.write(row))
        m_log.line(u"⚠️ Could not record "_s + pair.stem + u": "_s + m_db.error());
    return clock.nsecsElapsed() / 1e9;
}

void BatchRunner::report(const PhotoPair &pair, const RenderResult &rendered,
                         const Delivery &delivery, const Position &at)
{
    const QJsonObject where { { u"stem"_s, pair.stem },
                              { u"index"_s, at.index },
                              { u"total"_s, at.total },
                              { u"duration"_s, at.seconds } };
    if (!delivery.error.isEmpty()) {
        ++m_failed;
        m_log.line(
            u"❌ [%1/%2] %3: %4"_s.arg(at.index).arg(at.total).arg(pair.stem, delivery.error));
        QJsonObject failed = where;
        failed.insert(u"error"_s, delivery.error);
        failed.insert(u"status"_s, u"FAILED"_s);
        if (!delivery.failure.isEmpty())
            failed.insert(u"reason"_s, delivery.failure);
        if (rendered.colourResidual)
            failed.insert(u"colour_residual"_s, *rendered.colourResidual);
        m_log.event(u"item_failed"_s, failed);
        return;
    }
    ++m_success;
    m_log.line(u"✅ [%1/%2] %3 -> %4 (+%5 st, %6 face%9, clip %7%, %8 s)"_s.arg(at.index)
                   .arg(at.total)
                   .arg(pair.stem, delivery.outputPath)
                   .arg(rendered.peakStops, 0, 'f', 2)
                   .arg(rendered.faces)
                   .arg(rendered.rawClipPct, 0, 'f', 2)
                   .arg(at.seconds, 0, 'f', 2)
                   .arg(rendered.faces == 1 ? u""_s : u"s"_s));
    QJsonObject done = where;
    done.insert(u"faces"_s, rendered.faces);
    done.insert(u"peak_stops"_s, rendered.peakStops);
    done.insert(u"bayer_clip"_s, rendered.rawClipPct);
    if (rendered.colourResidual)
        done.insert(u"colour_residual"_s, *rendered.colourResidual);
    done.insert(u"colour_fit"_s, rendered.colourFit);
    QJsonObject stages;
    for (const auto &[name, seconds] : rendered.stages)
        stages.insert(name, seconds);
    stages.insert(u"write"_s, delivery.writeSec);
    stages.insert(u"db"_s, at.dbSeconds);
    done.insert(u"stages"_s, stages);
    done.insert(u"status"_s, u"SUCCESS"_s);
    m_log.event(u"item_done"_s, done);
}

} // namespace orvanta::engine
