// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "FolderWatcher.h"

#include "BatchRunner.h"
#include "PairScanner.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/timerfd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

// How long both files of a pair must stay closed and unchanged before the
// pair is taken. Writers that keep the file open are covered by the open
// count; this covers copiers that reopen the file for every chunk.
constexpr qint64 kSettleMs = 1000;

constexpr quint32 kSourceMask = IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_CLOSE_NOWRITE | IN_OPEN
    | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR
    | IN_EXCL_UNLINK;
constexpr quint32 kChangeMask
    = IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_TO | IN_DELETE | IN_MOVED_FROM;
constexpr quint32 kGoneMask = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_IGNORED;

int g_wakeRead = -1;
int g_wakeWrite = -1;
volatile sig_atomic_t g_signal = 0;

qint64 monotonicMs()
{
    timespec ts {};
    clock_gettime(CLOCK_MONOTONIC, &ts);
    return qint64(ts.tv_sec) * 1000 + ts.tv_nsec / 1000000;
}

// A stem as a wildcard that matches only itself followed by an extension.
QString stemPattern(const QString &stem)
{
    QString escaped;
    for (const QChar c : stem)
        escaped += (c == u'*' || c == u'?' || c == u'[') ? u"["_s + c + u']' : QString(c);
    return escaped + u".*"_s;
}

QString snapshotLine(const QFileInfo &f)
{
    return f.fileName() + u'/' + QString::number(f.size()) + u'/'
        + QString::number(f.lastModified().toMSecsSinceEpoch()) + u'\n';
}

} // namespace

void FolderWatcher::signalArrived(int signal)
{
    if (signal == SIGTERM || g_signal == 0)
        g_signal = signal;
    if (g_wakeWrite >= 0) {
        const char byte = 1;
        [[maybe_unused]] const ssize_t n = ::write(g_wakeWrite, &byte, 1);
    }
}

FolderWatcher::FolderWatcher(const RunOptions &options, EventLog &log)
    : m_options(options)
    , m_log(log)
{
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC | O_NONBLOCK) == 0) {
        g_wakeRead = fds[0];
        g_wakeWrite = fds[1];
    }
    m_inotify = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    m_timer = ::timerfd_create(CLOCK_MONOTONIC, TFD_NONBLOCK | TFD_CLOEXEC);
    // The kernel flags this file (POLLPRI) whenever a file system is mounted
    // or unmounted: how a disk plugged back in at the same place is noticed.
    m_mounts = ::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC);
}

FolderWatcher::~FolderWatcher()
{
    for (int fd : { m_inotify, m_timer, m_mounts, g_wakeWrite, g_wakeRead })
        if (fd >= 0)
            ::close(fd);
    g_wakeRead = g_wakeWrite = -1;
}

int FolderWatcher::run()
{
    const QString dbPath = StateDatabase::defaultPath();
    if (!m_db.open(dbPath)) {
        m_log.line(u"❌ Cannot open the state database "_s + dbPath + u": "_s + m_db.error());
        return ExitSetup;
    }
    if (m_inotify < 0 || m_timer < 0 || g_wakeRead < 0) {
        m_log.line(u"❌ Cannot watch folders: the system refused file notifications"_s);
        return ExitSetup;
    }
    // Watching starts before the first pass, so nothing that lands meanwhile is missed.
    if (!watchSource()) {
        m_log.line(u"❌ source folder does not exist: "_s + m_options.sourceDir);
        return ExitSetup;
    }
    BatchRunner first(m_options, m_log);
    first.setPass(BatchRunner::Pass::WatchFirst);
    const int status = first.run();
    m_success = first.delivered();
    m_failed = first.failedCount();
    m_skipped = first.skippedCount();
    if (status == ExitSetup || m_options.dryRun)
        return status;
    if (status != ExitOk || g_signal != 0)
        return finish(g_signal == SIGTERM ? ExitTerminated : status);
    m_log.line(u"👀 Watching %1 for new pairs (Ctrl+C stops)"_s.arg(m_options.sourceDir));
    m_log.event(u"watch_started"_s,
                { { u"folder"_s, m_options.sourceDir },
                  { u"success"_s, m_success },
                  { u"failed"_s, m_failed } });
    for (;;) {
        armTimer();
        waitForEvents();
        if (g_signal != 0)
            break;
        const QStringList ready = takeSettled();
        if (ready.isEmpty())
            continue;
        const int passStatus = convert(ready);
        if (passStatus != ExitOk)
            return finish(passStatus);
    }
    return finish(g_signal == SIGTERM ? ExitTerminated : ExitOk);
}

int FolderWatcher::finish(int status)
{
    if (status == ExitTerminated) {
        m_log.line(u"⚠️ Terminated while watching"_s);
        return status;
    }
    m_log.event(
        u"batch_done"_s,
        { { u"success"_s, m_success }, { u"failed"_s, m_failed }, { u"skipped"_s, m_skipped } });
    m_log.line(u"✅ Watch ended: %1 delivered, %2 failed"_s.arg(m_success).arg(m_failed));
    return status;
}

bool FolderWatcher::watchSource()
{
    const QByteArray path = QFile::encodeName(m_options.sourceDir);
    const int wd = ::inotify_add_watch(m_inotify, path.constData(), kSourceMask);
    struct stat st
    {
    };
    if (wd < 0 || ::stat(path.constData(), &st) != 0) {
        if (wd >= 0)
            ::inotify_rm_watch(m_inotify, wd);
        return false;
    }
    m_sourceWatch = wd;
    m_sourceDevice = st.st_dev;
    m_sourceInode = st.st_ino;
    return true;
}

void FolderWatcher::waitForEvents()
{
    pollfd fds[] = { { g_wakeRead, POLLIN, 0 },
                     { m_inotify, POLLIN, 0 },
                     { m_timer, POLLIN, 0 },
                     { m_mounts, POLLPRI, 0 } };
    // No timeout: the notifications, the settle timer and the signals are
    // the only reasons to wake up.
    if (::poll(fds, m_mounts >= 0 ? 4 : 3, -1) < 0)
        return; // a signal: the caller looks at the flag
    char drain[64];
    while (::read(g_wakeRead, drain, sizeof drain) > 0) { }
    // Notifications first: after a long stop (SIGSTOP) they move the settle
    // deadlines of files still being written before the timer is looked at.
    if (fds[1].revents & POLLIN)
        readNotifications();
    if (m_mounts >= 0 && (fds[3].revents & (POLLPRI | POLLERR)))
        checkMounts();
    quint64 expirations = 0;
    if (fds[2].revents & POLLIN) [[maybe_unused]]
        const ssize_t n = ::read(m_timer, &expirations, sizeof expirations);
}

void FolderWatcher::readNotifications()
{
    alignas(inotify_event) char buffer[64 * 1024];
    bool overflow = false, ancestorMoved = false;
    QString gone;
    for (;;) {
        const ssize_t length = ::read(m_inotify, buffer, sizeof buffer);
        if (length <= 0)
            break;
        for (const char *p = buffer; p < buffer + length;) {
            const auto *e = reinterpret_cast<const inotify_event *>(p);
            p += sizeof(inotify_event) + e->len;
            if (e->mask & IN_Q_OVERFLOW)
                overflow = true;
            else if (m_ancestorWatch >= 0 && e->wd == m_ancestorWatch)
                ancestorMoved = true;
            else if (m_sourceWatch < 0 || e->wd != m_sourceWatch)
                continue; // a watch already given up
            else if (e->mask & kGoneMask)
                gone = (e->mask & IN_UNMOUNT)  ? u"unmounted"_s
                    : (e->mask & IN_MOVE_SELF) ? u"moved away"_s
                                               : u"deleted"_s;
            else if (e->len > 0 && !(e->mask & IN_ISDIR))
                noteFileEvent(e->mask, QFile::decodeName(e->name));
        }
    }
    if (!gone.isEmpty() && m_sourceWatch >= 0)
        sourceLost(gone);
    else if (overflow && m_sourceWatch >= 0)
        rescan();
    if (m_sourceWatch < 0 && (ancestorMoved || !gone.isEmpty()))
        tryToReturn();
}

void FolderWatcher::noteFileEvent(quint32 mask, const QString &name)
{
    const QFileInfo info(name);
    if (!isRawExtension(info.suffix()) && !isJpegExtension(info.suffix()))
        return;
    const QString stem = info.completeBaseName();
    if (!m_options.stems.isEmpty() && !m_options.stems.contains(stem))
        return;
    const bool change = mask & kChangeMask;
    // Reads alone (the engine's own, a viewer's) never make a pair new; they
    // only count as open handles of a pair already being written.
    if (!change && !(mask & IN_OPEN) && !m_candidates.contains(stem))
        return;
    Candidate &c = m_candidates[stem];
    if (mask & IN_OPEN)
        ++c.openHandles[name];
    if ((mask & (IN_CLOSE_WRITE | IN_CLOSE_NOWRITE)) && c.openHandles.value(name) > 0)
        --c.openHandles[name];
    if (mask & (IN_DELETE | IN_MOVED_FROM)) {
        c.openHandles.remove(name);
        if (stemFiles(stem).isEmpty()) {
            m_candidates.remove(stem); // the whole photo went away
            return;
        }
    }
    if (change) {
        c.changed = true;
        c.deadline = monotonicMs() + kSettleMs;
    }
    const bool open
        = std::any_of(c.openHandles.cbegin(), c.openHandles.cend(), [](int n) { return n > 0; });
    if (!c.changed && !open) {
        m_candidates.remove(stem);
        return;
    }
    // Growing files send a stream of modifications; the folder is looked at
    // again only when a file appears, goes or is closed.
    if (mask & IN_MODIFY)
        c.snapshot.clear();
    else if (c.changed)
        c.snapshot = snapshotOf(stem);
}

QFileInfoList FolderWatcher::stemFiles(const QString &stem) const
{
    QFileInfoList files;
    const QFileInfoList all
        = QDir(m_options.sourceDir).entryInfoList({ stemPattern(stem) }, QDir::Files, QDir::Name);
    for (const QFileInfo &f : all)
        if (f.completeBaseName() == stem
            && (isRawExtension(f.suffix()) || isJpegExtension(f.suffix())))
            files << f;
    return files;
}

QString FolderWatcher::snapshotOf(const QString &stem) const
{
    QString text;
    for (const QFileInfo &f : stemFiles(stem))
        text += snapshotLine(f);
    return text;
}

QString FolderWatcher::waitingReason(const QString &stem, const Candidate &c) const
{
    bool raw = false, jpg = false;
    for (const QFileInfo &f : stemFiles(stem)) {
        raw = raw || isRawExtension(f.suffix());
        jpg = jpg || isJpegExtension(f.suffix());
    }
    const bool open
        = std::any_of(c.openHandles.cbegin(), c.openHandles.cend(), [](int n) { return n > 0; });
    return !raw ? u"raw"_s : !jpg ? u"jpg"_s : open ? u"write"_s : QString();
}

// Said once per reason, when a check finds the pair not ready: the record is
// also the handshake a test (or the application) can wait on.
void FolderWatcher::announceWaiting(const QString &stem, Candidate &c, const QString &reason)
{
    if (reason == c.waitingFor)
        return;
    c.waitingFor = reason;
    m_log.event(u"watch_waiting"_s, { { u"stem"_s, stem }, { u"waiting_for"_s, reason } });
    if (reason == u"jpg"_s)
        m_log.line(u"⏳ %1: waiting for its JPG"_s.arg(stem));
    else if (reason == u"raw"_s)
        m_log.line(u"⏳ %1: waiting for its RAW"_s.arg(stem));
    else
        m_log.line(u"⏳ %1: waiting until its files are fully written"_s.arg(stem));
}

QStringList FolderWatcher::takeSettled()
{
    QStringList ready;
    const qint64 now = monotonicMs();
    for (auto it = m_candidates.begin(); it != m_candidates.end();) {
        Candidate &c = it.value();
        if (c.deadline == 0 || c.deadline > now) {
            ++it;
            continue;
        }
        c.deadline = 0;
        const QString reason = waitingReason(it.key(), c);
        if (!reason.isEmpty()) {
            // A lone file, or a writer still at work: its next event decides.
            announceWaiting(it.key(), c, reason);
            ++it;
            continue;
        }
        const QString snapshot = snapshotOf(it.key());
        if (snapshot != c.snapshot) {
            c.snapshot = snapshot;
            c.deadline = now + kSettleMs;
            ++it;
            continue;
        }
        ready << it.key();
        it = m_candidates.erase(it);
    }
    return ready;
}

int FolderWatcher::convert(const QStringList &stems)
{
    // Two notifications for one pair, or the pair's own files read back,
    // never convert the same files twice: the fingerprint decides.
    QStringList fresh;
    for (const QString &stem : stems) {
        QString raw, jpg;
        for (const QFileInfo &f : stemFiles(stem)) {
            if (raw.isEmpty() && isRawExtension(f.suffix()))
                raw = f.absoluteFilePath();
            if (jpg.isEmpty() && isJpegExtension(f.suffix()))
                jpg = f.absoluteFilePath();
        }
        if (raw.isEmpty() || jpg.isEmpty())
            continue;
        const QString fingerprint = pairFingerprint(raw, jpg);
        if (m_taken.contains(fingerprint) || m_db.isDelivered(fingerprint))
            continue;
        m_taken.insert(fingerprint);
        fresh << stem;
    }
    if (fresh.isEmpty())
        return ExitOk;
    RunOptions pass = m_options;
    pass.stems = fresh;
    pass.force = false;
    BatchRunner runner(pass, m_log);
    runner.setPass(BatchRunner::Pass::WatchLater);
    const int status = runner.run();
    m_success += runner.delivered();
    m_failed += runner.failedCount();
    if (status == ExitOk)
        m_log.event(u"watch_idle"_s, { { u"success"_s, m_success }, { u"failed"_s, m_failed } });
    return status;
}

void FolderWatcher::armTimer()
{
    qint64 earliest = 0;
    for (const Candidate &c : std::as_const(m_candidates))
        if (c.deadline > 0 && (earliest == 0 || c.deadline < earliest))
            earliest = c.deadline;
    itimerspec deadline {};
    if (earliest > 0) {
        // An absolute time: a deadline already past fires at once.
        deadline.it_value.tv_sec = time_t(earliest / 1000);
        deadline.it_value.tv_nsec = long(earliest % 1000) * 1000000 + 1;
    }
    ::timerfd_settime(m_timer, TFD_TIMER_ABSTIME, &deadline, nullptr);
}

void FolderWatcher::rescan()
{
    // One listing for the whole folder; the snapshots are taken from it, so
    // pairs already complete are checked once, after one settle interval.
    const qint64 deadline = monotonicMs() + kSettleMs;
    const QFileInfoList files = QDir(m_options.sourceDir).entryInfoList(QDir::Files, QDir::Name);
    QSet<QString> seen;
    for (const QFileInfo &f : files) {
        const QString stem = f.completeBaseName();
        if ((!isRawExtension(f.suffix()) && !isJpegExtension(f.suffix()))
            || (!m_options.stems.isEmpty() && !m_options.stems.contains(stem)))
            continue;
        Candidate &c = m_candidates[stem];
        if (!seen.contains(stem)) {
            seen.insert(stem);
            c.openHandles.clear(); // lost with the dropped notifications
            c.snapshot.clear();
        }
        c.changed = true;
        c.deadline = deadline;
        c.snapshot += snapshotLine(f);
    }
}

void FolderWatcher::sourceLost(const QString &why)
{
    ::inotify_rm_watch(m_inotify, m_sourceWatch);
    m_sourceWatch = -1;
    m_candidates.clear();
    m_log.line(u"⚠️ The watched folder was %1: %2. Waiting for it to come back."_s.arg(
        why, m_options.sourceDir));
    m_log.event(u"watch_lost"_s, { { u"folder"_s, m_options.sourceDir }, { u"reason"_s, why } });
    watchNearestAncestor();
}

void FolderWatcher::tryToReturn()
{
    if (m_sourceWatch >= 0)
        return;
    if (!watchSource()) {
        watchNearestAncestor(); // a deeper folder may exist by now
        return;
    }
    if (m_ancestorWatch >= 0)
        ::inotify_rm_watch(m_inotify, m_ancestorWatch);
    m_ancestorWatch = -1;
    m_log.line(u"👀 The watched folder is back: "_s + m_options.sourceDir);
    m_log.event(u"watch_back"_s, { { u"folder"_s, m_options.sourceDir } });
    rescan();
}

void FolderWatcher::watchNearestAncestor()
{
    // Waiting on the nearest folder that still exists (the mount point's
    // parent for an unplugged disk) costs nothing until something appears
    // there; a re-mount at the same place is seen through the mount table.
    QString dir = QFileInfo(m_options.sourceDir).absolutePath();
    while (!QFileInfo(dir).isDir() && dir != u"/"_s)
        dir = QFileInfo(dir).absolutePath();
    if (m_ancestorWatch >= 0)
        ::inotify_rm_watch(m_inotify, m_ancestorWatch);
    m_ancestorWatch
        = ::inotify_add_watch(m_inotify, QFile::encodeName(dir).constData(),
                              IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR);
}

void FolderWatcher::checkMounts()
{
    if (m_sourceWatch < 0) {
        tryToReturn();
        return;
    }
    // A disk mounted over the folder (or the folder's disk unmounted without
    // the notification reaching us) leaves the watch on the wrong directory.
    struct stat st
    {
    };
    const QByteArray path = QFile::encodeName(m_options.sourceDir);
    if (::stat(path.constData(), &st) != 0 || st.st_dev != m_sourceDevice
        || st.st_ino != m_sourceInode) {
        sourceLost(u"unmounted"_s);
        tryToReturn();
    }
}

} // namespace orvanta::engine
