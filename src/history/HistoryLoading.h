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

    friend bool operator==(const HistoryQuery &, const HistoryQuery &) = default;
};

HistoryQuery makeHistoryQuery(const QString &searchText, HistoryStatusFilter filter,
                              HistorySortField sortField, bool sortAscending);

struct HistoryRefreshResult
{
    DashboardStats stats;
    qint64 matchingCount = 0;
    QList<PhotoRecord> firstPage;
    int limit = kHistoryFirstPageSize; // how many rows were asked for
    // Another connection held the database locked: nothing here is the
    // history's true state.
    bool busy = false;

    // Another page may be loaded: the rows came back full and more rows
    // match than they hold.
    bool hasMore() const;
};

struct HistoryPage
{
    QList<PhotoRecord> rows;
    bool busy = false;
};

// Figures, count and the first `limit` rows (at least a first page: a
// refresh keeps however many rows the user had loaded). Stops at the first
// read that finds the database locked.
HistoryRefreshResult readHistoryRefresh(const HistoryService &service, const HistoryQuery &query,
                                        int limit = kHistoryFirstPageSize);
HistoryPage readHistoryNextPage(const HistoryService &service, const HistoryQuery &query,
                                int offset);

} // namespace orvanta
