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
    return firstPage.size() >= kHistoryFirstPageSize && firstPage.size() < matchingCount;
}

HistoryRefreshResult readHistoryRefresh(const HistoryService &service, const HistoryQuery &query)
{
    HistoryRefreshResult result;
    result.stats = service.fetchStats();
    result.matchingCount = service.fetchCount(query.searchText, query.statusText);
    result.firstPage = service.fetchRecords(kHistoryFirstPageSize, 0, query.searchText,
                                            query.statusText, query.sortField, query.sortAscending);
    return result;
}

QList<PhotoRecord> readHistoryNextPage(const HistoryService &service, const HistoryQuery &query,
                                       int offset)
{
    return service.fetchRecords(kHistoryNextPageSize, offset, query.searchText, query.statusText,
                                query.sortField, query.sortAscending);
}

} // namespace orvanta
