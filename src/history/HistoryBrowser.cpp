// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryBrowser.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSet>
#include <QThreadPool>
#include <QTimer>

#include <climits>

namespace orvanta {

namespace {

// The first retry comes soon (an engine's write lock is usually short); a
// database kept locked is asked less and less often.
constexpr int kFirstRetryMs = 200;
constexpr int kLongestRetryMs = 2000;

// Runs `work` on the history pool, then `apply(browser, result)` on the main
// thread if the browser still exists. The worker touches only what `work`
// captured by value: the QPointer is only copied there and read on the main
// thread, where the browser is also destroyed.
template<typename Work, typename Apply>
void runOffMainThread(HistoryBrowser *browser, Work work, Apply apply)
{
    HistoryService::pool().start([browser = QPointer<HistoryBrowser>(browser),
                                  work = std::move(work), apply = std::move(apply)] {
        auto result = work();
        QCoreApplication *app = QCoreApplication::instance();
        if (!app)
            return; // shutting down: nobody is left to show it
        QMetaObject::invokeMethod(
            app,
            [browser, apply, result = std::move(result)] {
                if (browser)
                    apply(browser.data(), result);
            },
            Qt::QueuedConnection);
    });
}

} // namespace

HistoryBrowser::HistoryBrowser(HistoryService service, QObject *parent)
    : QObject(parent)
    , m_service(std::move(service))
    , m_retryTimer(new QTimer(this))
{
    m_retryTimer->setSingleShot(true);
    connect(m_retryTimer, &QTimer::timeout, this, [this] { refresh(m_query); });
}

HistoryBrowser::~HistoryBrowser() = default;

template<typename T>
void HistoryBrowser::assign(T &member, const T &value, void (HistoryBrowser::*changed)())
{
    if (member == value)
        return;
    member = value;
    Q_EMIT(this->*changed)();
}

void HistoryBrowser::refresh(const HistoryQuery &query)
{
    m_query = query;
    m_retryTimer->stop(); // this request is the retry
    // A refresh under way would publish values that are about to be stale;
    // one more run after it, with whatever is newest then, is enough for any
    // number of requests (a keystroke each, a finished photo each).
    if (m_refreshRunning) {
        m_refreshPending = true;
        return;
    }
    startRefresh();
}

void HistoryBrowser::startRefresh()
{
    m_refreshRunning = true;
    m_refreshPending = false;
    m_appendedDuringRefresh = false;
    const HistoryQuery query = m_query;
    const bool sameList = m_hasShownQuery && query == m_shownQuery;
    const int limit
        = sameList ? int(qMin<qsizetype>(m_historyRecords.size(), INT_MAX)) : kHistoryFirstPageSize;
    const HistoryService service = m_service;
    runOffMainThread(
        this, [service, query, limit] { return readHistoryRefresh(service, query, limit); },
        [query](HistoryBrowser *self, HistoryRefreshResult result) {
            self->m_refreshRunning = false;
            if (!result.busy) {
                self->m_shownQuery = query;
                self->m_hasShownQuery = true;
                self->applyRefresh(result);
            }
            self->setBusy(result.busy);
            // A page appended meanwhile made the list longer than this read.
            if (self->m_appendedDuringRefresh)
                self->m_refreshPending = true;
            if (self->m_refreshPending)
                self->startRefresh();
        });
}

// Refreshes never overlap, so this is the newest result so far.
void HistoryBrowser::applyRefresh(const HistoryRefreshResult &result)
{
    ++m_listGeneration;
    assign(m_historyStats, result.stats, &HistoryBrowser::historyStatsChanged);
    assign(m_totalFilteredCount, result.matchingCount, &HistoryBrowser::totalFilteredCountChanged);
    assign(m_historyRecords, result.firstPage, &HistoryBrowser::historyRecordsChanged);
    assign(m_hasMoreHistory, result.hasMore(), &HistoryBrowser::hasMoreHistoryChanged);
}

void HistoryBrowser::loadMore()
{
    if (m_isLoadingMore || !m_hasMoreHistory || !m_hasShownQuery)
        return;
    assign(m_isLoadingMore, true, &HistoryBrowser::isLoadingMoreChanged);
    const HistoryService service = m_service;
    const HistoryQuery query = m_shownQuery;
    // Nobody loads two billion rows a page at a time.
    const int offset = int(qMin<qsizetype>(m_historyRecords.size(), INT_MAX));
    const quint64 generation = m_listGeneration;
    runOffMainThread(
        this, [service, query, offset] { return readHistoryNextPage(service, query, offset); },
        [generation](HistoryBrowser *self, const HistoryPage &page) {
            self->applyPage(generation, page);
        });
}

void HistoryBrowser::applyPage(quint64 generation, const HistoryPage &page)
{
    assign(m_isLoadingMore, false, &HistoryBrowser::isLoadingMoreChanged);
    // A refresh replaced the list while this page was read: its rows follow
    // the old list, and the refresh already decided whether there is more.
    if (generation != m_listGeneration)
        return;
    if (page.busy) {
        setBusy(true); // the retry's refresh reads this page along
        return;
    }
    if (page.rows.size() < kHistoryNextPageSize)
        assign(m_hasMoreHistory, false, &HistoryBrowser::hasMoreHistoryChanged);
    // Pages are read by offset: when photos land at the top between two
    // pages, the next one starts with rows already shown. Those are left
    // out, and the list is read again so that no row in between is missed.
    QSet<QString> shown;
    shown.reserve(m_historyRecords.size());
    for (const PhotoRecord &record : std::as_const(m_historyRecords))
        shown.insert(record.fingerprint);
    QList<PhotoRecord> fresh;
    for (const PhotoRecord &row : page.rows)
        if (!shown.contains(row.fingerprint))
            fresh.append(row);
    const bool shifted = fresh.size() < page.rows.size();
    if (!fresh.isEmpty()) {
        if (m_refreshRunning)
            m_appendedDuringRefresh = true;
        m_historyRecords += fresh;
        Q_EMIT historyRecordsChanged();
    }
    if (shifted)
        refresh(m_query);
}

void HistoryBrowser::setBusy(bool busy)
{
    if (!busy) {
        m_retryDelayMs = 0;
    } else if (!m_refreshPending) {
        m_retryDelayMs
            = m_retryDelayMs == 0 ? kFirstRetryMs : qMin(m_retryDelayMs * 2, kLongestRetryMs);
        m_retryTimer->start(m_retryDelayMs);
    }
    assign(m_isHistoryBusy, busy, &HistoryBrowser::isHistoryBusyChanged);
}

void HistoryBrowser::deleteRecords(const QStringList &fingerprints)
{
    if (fingerprints.isEmpty())
        return;
    const HistoryService service = m_service;
    runOffMainThread(
        this,
        [service, fingerprints] {
            service.deleteRecords(fingerprints);
            return true;
        },
        [](HistoryBrowser *self, bool) {
            Q_EMIT self->recordsDeleted();
            self->refresh(self->m_query);
        });
}

} // namespace orvanta
