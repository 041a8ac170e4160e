// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryLoading.h"

namespace orvanta {

HistoryQuery makeHistoryQuery(const QString &searchText, HistoryStatusFilter filter,
                              HistorySortField sortField, bool sortAscending)
{
    return { searchText, statusText(filter), rawValue(sortField), sortAscending };
}

bool HistoryRefreshResult::hasMore() const
{
    return firstPage.size() >= limit && firstPage.size() < matchingCount;
}

HistoryRefreshResult readHistoryRefresh(const HistoryService &service, const HistoryQuery &query,
                                        int limit)
{
    HistoryRefreshResult result;
    result.limit = qMax(limit, kHistoryFirstPageSize);
    HistoryReadStatus status;
    result.stats = service.fetchStats(&status);
    if (!status.busy)
        result.matchingCount = service.fetchCount(query.searchText, query.statusText, &status);
    if (!status.busy)
        result.firstPage = service.fetchRecords(result.limit, 0, query.searchText, query.statusText,
                                                query.sortField, query.sortAscending, &status);
    result.busy = status.busy;
    return result;
}

HistoryPage readHistoryNextPage(const HistoryService &service, const HistoryQuery &query,
                                int offset)
{
    HistoryPage page;
    HistoryReadStatus status;
    page.rows
        = service.fetchRecords(kHistoryNextPageSize, offset, query.searchText, query.statusText,
                               query.sortField, query.sortAscending, &status);
    page.busy = status.busy;
    return page;
}

} // namespace orvanta
