// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// "watch" mode: converts what the source folder holds, then waits on inotify
// and converts each new RAW+JPG pair once both files are complete. Lives on
// the main thread; the conversions themselves run on BatchRunner's workers.
#pragma once

#include "EngineOptions.h"
#include "EventLog.h"
#include "StateDatabase.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QString>

#include <sys/types.h>

namespace orvanta::engine {

class FolderWatcher
{
public:
    FolderWatcher(const RunOptions &options, EventLog &log);
    ~FolderWatcher();
    FolderWatcher(const FolderWatcher &) = delete;
    FolderWatcher &operator=(const FolderWatcher &) = delete;

    int run();

    // Async-signal-safe; the signal handlers call it to wake the wait.
    static void signalArrived(int signal);

private:
    // One stem's files as the notifications describe them.
    struct Candidate
    {
        QHash<QString, int> openHandles; // file name -> opens not yet closed
        bool changed = false; // written, created or moved in (not only read)
        qint64 deadline = 0; // monotonic ms of the next completeness check; 0: none
        QString snapshot; // names, sizes and times at the last check
        QString waitingFor; // last reason announced
    };

    bool watchSource();
    void waitForEvents();
    void readNotifications();
    void noteFileEvent(quint32 mask, const QString &name);
    void sourceLost(const QString &why);
    void tryToReturn();
    void watchNearestAncestor();
    void checkMounts();
    void rescan();
    QStringList takeSettled();
    QFileInfoList stemFiles(const QString &stem) const;
    QString snapshotOf(const QString &stem) const;
    // "raw", "jpg", "write" (a file still open), or empty when the pair may be taken.
    QString waitingReason(const QString &stem, const Candidate &c) const;
    void announceWaiting(const QString &stem, Candidate &c, const QString &reason);
    int convert(const QStringList &stems);
    void armTimer();
    int finish(int status);

    RunOptions m_options;
    EventLog &m_log;
    StateDatabase m_db;
    int m_inotify = -1;
    int m_timer = -1;
    int m_mounts = -1;
    int m_sourceWatch = -1;
    int m_ancestorWatch = -1;
    dev_t m_sourceDevice = 0;
    ino_t m_sourceInode = 0;
    QHash<QString, Candidate> m_candidates; // by stem
    QSet<QString> m_taken; // fingerprints converted (or tried) by this watch
    int m_success = 0, m_failed = 0, m_skipped = 0;
};

} // namespace orvanta::engine
