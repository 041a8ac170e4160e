// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The reads behind the history page, as plain functions for a worker thread:
// one refresh (figures, count, first page) and one further page.
#pragma once

#include "history/HistoryService.h"
#include "history/HistoryTypes.h"

#include <QList>
#include <QString>

#include <optional>

namespace orvanta {

// The first page is larger than the pages that follow: it fills a window at
// once, and the next pages arrive as the user scrolls.
inline constexpr int kHistoryFirstPageSize = 80;
inline constexpr int kHistoryNextPageSize = 50;

// The search, filter and sort of one history query, captured on the main
// thread and handed to a worker.
struct HistoryQuery
{
    std::optional<QString> searchText;
    std::optional<QString> statusText; // "SUCCESS", "FAILED" or none
    QString sortField; // a HistorySortField raw value
    bool sortAscending = false;
};

HistoryQuery makeHistoryQuery(const QString &searchText, HistoryStatusFilter filter,
                              HistorySortField sortField, bool sortAscending);

struct HistoryRefreshResult
{
    DashboardStats stats;
    qint64 matchingCount = 0;
    QList<PhotoRecord> firstPage;

    // Another page may be loaded: the first page came back full and more
    // rows match than it holds.
    bool hasMore() const;
};

HistoryRefreshResult readHistoryRefresh(const HistoryService &service, const HistoryQuery &query);
QList<PhotoRecord> readHistoryNextPage(const HistoryService &service, const HistoryQuery &query,
                                       int offset);

} // namespace orvanta
