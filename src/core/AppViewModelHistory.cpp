// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history half of AppViewModel: paged queries, selection, bulk actions.
// Queries and deletes run on the history service's own pool; their results come back
// to the main thread and are dropped if the model has gone meanwhile.
#include "core/AppViewModel.h"
#include "history/HistoryLoading.h"
#include "history/HistoryService.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

#include <climits>

namespace orvanta {

namespace {

// Runs `work` on the thread pool, then `apply(model, result)` on the main
// thread if the model still exists. The worker touches only what `work`
// captured by value, never the model: the QPointer is only copied there and
// read on the main thread, where the model is also destroyed.
template<typename Work, typename Apply>
void runOffMainThread(AppViewModel *model, Work work, Apply apply)
{
    HistoryService::pool().start(
        [model = QPointer<AppViewModel>(model), work = std::move(work), apply = std::move(apply)] {
            auto result = work();
            QCoreApplication *app = QCoreApplication::instance();
            if (!app)
                return; // shutting down: nobody is left to show it
            QMetaObject::invokeMethod(
                app,
                [model, apply, result = std::move(result)] {
                    if (model)
                        apply(model.data(), result);
                },
                Qt::QueuedConnection);
        });
}

} // namespace

void AppViewModel::setUpHistory()
{
    // No debounce: every keystroke in the search field asks for a refresh;
    // the coalescing in refreshHistory keeps the database from being hammered.
    connect(this, &AppViewModel::historySearchTextChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historyStatusFilterChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historySortFieldChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historySortAscendingChanged, this, &AppViewModel::refreshHistory);
}

void AppViewModel::refreshHistory()
{
    // A refresh already under way would publish values that are about to be
    // stale; one more run after it, with whatever is current then, is enough
    // for any number of requests (a keystroke each, a finished photo each).
    if (m_historyRefreshRunning) {
        m_historyRefreshPending = true;
        return;
    }
    startHistoryRefresh();
}

void AppViewModel::startHistoryRefresh()
{
    m_historyRefreshRunning = true;
    m_historyRefreshPending = false;
    const HistoryService service = *m_historyService;
    const HistoryQuery query = makeHistoryQuery(m_historySearchText, m_historyStatusFilter,
                                                m_historySortField, m_historySortAscending);
    runOffMainThread(
        this, [service, query] { return readHistoryRefresh(service, query); },
        [](AppViewModel *self, const HistoryRefreshResult &result) {
            // Refreshes never overlap, so this is the newest result so far.
            // Selection and a next-page load in flight are left alone.
            self->m_historyRefreshRunning = false;
            ++self->m_historyListGeneration;
            self->setHistoryStats(result.stats);
            self->setTotalFilteredCount(result.matchingCount);
            self->setHistoryRecords(result.firstPage);
            self->setHasMoreHistory(result.hasMore());
            if (self->m_historyRefreshPending)
                self->startHistoryRefresh();
        });
}

void AppViewModel::loadMoreHistory()
{
    if (m_isLoadingMore || !m_hasMoreHistory)
        return;
    setIsLoadingMore(true);
    const HistoryService service = *m_historyService;
    const HistoryQuery query = makeHistoryQuery(m_historySearchText, m_historyStatusFilter,
                                                m_historySortField, m_historySortAscending);
    // Nobody loads two billion rows a page at a time.
    const int offset = int(qMin<qsizetype>(m_historyRecords.size(), INT_MAX));
    const quint64 generation = m_historyListGeneration;
    runOffMainThread(
        this, [service, query, offset] { return readHistoryNextPage(service, query, offset); },
        [generation](AppViewModel *self, const QList<PhotoRecord> &page) {
            self->setIsLoadingMore(false);
            // A refresh replaced the list while this page was read: its rows
            // follow the old list, and the refresh already decided whether
            // there is more.
            if (generation != self->m_historyListGeneration)
                return;
            if (page.size() < kHistoryNextPageSize)
                self->setHasMoreHistory(false);
            if (!page.isEmpty())
                self->setHistoryRecords(self->m_historyRecords + page);
        });
}

void AppViewModel::toggleRecordSelection(const QString &fingerprint)
{
    QSet<QString> selection = m_selectedRecordIds;
    if (!selection.remove(fingerprint))
        selection.insert(fingerprint);
    setSelectedRecordIds(selection);
}

// The list shown is the loaded list: all filtering is done by the query.
void AppViewModel::selectAllRecords()
{
    QSet<QString> selection;
    selection.reserve(m_historyRecords.size());
    for (const PhotoRecord &record : std::as_const(m_historyRecords))
        selection.insert(record.id());
    setSelectedRecordIds(selection);
}

void AppViewModel::deselectAllRecords()
{
    setSelectedRecordIds({});
}

// At least one column always stays visible.
void AppViewModel::toggleColumnVisibility(ListColumn column)
{
    ListColumnSet columns = m_visibleColumns;
    if (columns.contains(column)) {
        if (columns.size() < 2)
            return;
        columns.removeAll(column);
    } else {
        columns << column;
    }
    setVisibleColumns(columns);
}

// Removes history rows only: no source, JPG or output file is touched.
void AppViewModel::deleteSelectedRecords()
{
    if (m_selectedRecordIds.isEmpty())
        return;
    const HistoryService service = *m_historyService;
    const QStringList fingerprints = m_selectedRecordIds.values();
    runOffMainThread(
        this,
        [service, fingerprints] {
            service.deleteRecords(fingerprints);
            return true;
        },
        [](AppViewModel *self, bool) {
            // Cleared even when the delete failed: the rows come back with
            // the refresh, unselected.
            self->setSelectedRecordIds({});
            self->refreshHistory();
        });
}

// Sends the selected photos back through the engine, forced, restricted to
// their stems. Selected rows that are not loaded are not sent.
} // namespace orvanta
