// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Read access to the engine's state database (and row deletion). Each call
// opens and closes its own connection, so a copy of the service may be used
// from any thread; a read waits briefly for another connection's lock and
// then reports the database as busy.
#pragma once

#include "history/HistoryTypes.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

class QThreadPool;

namespace orvanta {

// What a read could not do besides failing: `busy` when another connection
// held the database locked past the wait, so the empty answer says nothing
// about the history and the read is worth repeating.
struct HistoryReadStatus
{
    bool busy = false;
};

class HistoryService
{
public:
    // Where the engine keeps its database: the user data folder (by default
    // ~/.local/share/Orvanta/pipeline_state.db). When only a folder of an
    // earlier product name holds one, it is copied over first. The result is
    // the current path whether or not a database exists there.
    static QString defaultDbPath();
    // The threads history queries and deletes run on: never Qt's global
    // pool, which the raster painter needs; a locked database then stalls
    // only history work, not the window.
    static QThreadPool &pool();

    HistoryService();
    explicit HistoryService(QString dbPath);

    const QString &dbPath() const { return m_dbPath; }

    // One page of rows matching the stem search and status text, sorted by
    // the column behind `sortField` with missing values last either way.
    // An unreadable database gives an empty page.
    QList<PhotoRecord> fetchRecords(int limit = 80, int offset = 0,
                                    const std::optional<QString> &query = std::nullopt,
                                    const std::optional<QString> &statusFilter = std::nullopt,
                                    const QString &sortField = QStringLiteral("date"),
                                    bool sortAscending = false,
                                    HistoryReadStatus *status = nullptr) const;
    // Number of rows matching the same search and status; 0 on failure.
    qint64 fetchCount(const std::optional<QString> &query = std::nullopt,
                      const std::optional<QString> &statusFilter = std::nullopt,
                      HistoryReadStatus *status = nullptr) const;
    // Figures for the whole table, ignoring search and filter; defaults on failure.
    DashboardStats fetchStats(HistoryReadStatus *status = nullptr) const;
    // Removes the rows (never any file on disk). Silently does nothing when
    // the database cannot be opened for writing.
    void deleteRecords(const QStringList &fingerprints) const;

private:
    QString m_dbPath;
};

} // namespace orvanta
