// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history page: the loaded rows of the engine's database, its figures,
// paging, and retrying while another process holds the database locked.
// Lives on the main thread; the reads run on HistoryService::pool().
#pragma once

#include "history/HistoryLoading.h"
#include "history/HistoryService.h"
#include "history/HistoryTypes.h"

#include <QList>
#include <QObject>
#include <QStringList>

class QTimer;

namespace orvanta {

class HistoryBrowser : public QObject
{
    Q_OBJECT

public:
    explicit HistoryBrowser(HistoryService service, QObject *parent = nullptr);
    ~HistoryBrowser() override;

    const HistoryService &service() const { return m_service; }

    DashboardStats historyStats() const { return m_historyStats; }
    QList<PhotoRecord> historyRecords() const { return m_historyRecords; }
    bool hasMoreHistory() const { return m_hasMoreHistory; }
    bool isLoadingMore() const { return m_isLoadingMore; }
    qint64 totalFilteredCount() const { return m_totalFilteredCount; }
    // The last read found the database locked by another connection; the
    // rows shown are the last ones read, and a retry is scheduled.
    bool isHistoryBusy() const { return m_isHistoryBusy; }

    // Reads the figures, the count and the rows again. With the query of the
    // list shown, as many rows as are loaded are read again (a user deep in
    // the list stays there); a new query starts at the first page. While a
    // refresh runs, requests collapse into one more with the newest query.
    void refresh(const HistoryQuery &query);
    // Appends the next page of the list shown, unless one is being read or
    // nothing more matches.
    void loadMore();
    // Removes the rows (never a file), then announces recordsDeleted() and
    // refreshes, also when the delete failed: the rows then come back.
    void deleteRecords(const QStringList &fingerprints);

Q_SIGNALS:
    void historyStatsChanged();
    void historyRecordsChanged();
    void hasMoreHistoryChanged();
    void isLoadingMoreChanged();
    void totalFilteredCountChanged();
    void isHistoryBusyChanged();
    void recordsDeleted();

private:
    void startRefresh();
    void applyRefresh(const HistoryRefreshResult &result);
    void applyPage(quint64 generation, const HistoryPage &page);
    void setBusy(bool busy);
    template<typename T> void assign(T &member, const T &value, void (HistoryBrowser::*changed)());

    HistoryService m_service;
    DashboardStats m_historyStats;
    QList<PhotoRecord> m_historyRecords;
    bool m_hasMoreHistory = true;
    bool m_isLoadingMore = false;
    qint64 m_totalFilteredCount = 0;
    bool m_isHistoryBusy = false;

    // The query of the newest request, and the one the rows shown answer.
    HistoryQuery m_query;
    HistoryQuery m_shownQuery;
    bool m_hasShownQuery = false;
    bool m_refreshRunning = false;
    bool m_refreshPending = false;
    // Set when a page was appended while a refresh was being read: that
    // refresh asked for fewer rows than are now loaded.
    bool m_appendedDuringRefresh = false;
    // Bumped whenever a refresh replaces the list, so that a next page read
    // for the old list is not appended to the new one.
    quint64 m_listGeneration = 0;
    // Retries while the database is locked, waiting longer each time.
    QTimer *m_retryTimer = nullptr;
    int m_retryDelayMs = 0;
};

} // namespace orvanta
