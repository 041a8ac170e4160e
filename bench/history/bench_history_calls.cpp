// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The reads of one history refresh, timed alone in a small process, next to
// the same two figures statements through SQLite's C interface directly.
// A cross-check of bench_history, whose in-process figures for the two
// statistics statements come out about 1.3x the shell's on the bare table
// while every other statement matches it.
//
//   bench_history_calls DATABASE [RUNS]     (a database bench_history made)
#include "history/HistoryLoading.h"
#include "history/HistoryService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <cstdio>
#include <sqlite3.h>
#include <vector>

using namespace orvanta;

namespace {

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// Both statistics statements on a fresh connection, as fetchStats runs them.
double rawFigures(const QByteArray &path)
{
    QElapsedTimer timer;
    timer.start();
    sqlite3 *db = nullptr;
    sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr);
    for (const char *sql :
         { "SELECT COUNT(*), SUM(CASE WHEN status='SUCCESS' THEN 1 ELSE 0 END), SUM(CASE WHEN "
           "status='FAILED' THEN 1 ELSE 0 END), AVG(CASE WHEN status='SUCCESS' THEN duration_sec "
           "ELSE NULL END) FROM processed_files",
           "SELECT processed_at FROM processed_files ORDER BY processed_at DESC LIMIT 1" }) {
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
        while (sqlite3_step(statement) == SQLITE_ROW) { }
        sqlite3_finalize(statement);
    }
    sqlite3_close(db);
    return timer.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_history_calls DATABASE [RUNS]\n");
        return 1;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    const int runs = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
    const HistoryService service(path);
    const HistoryQuery query = makeHistoryQuery(QStringLiteral("DSC1"), HistoryStatusFilter::All,
                                                HistorySortField::Date, false);
    std::vector<double> ours, raw, refresh;
    for (int r = 0; r < runs; ++r) {
        QElapsedTimer timer;
        timer.start();
        service.fetchStats();
        ours.push_back(timer.nsecsElapsed() / 1e6);
        raw.push_back(rawFigures(QFile::encodeName(path)));
        timer.restart();
        readHistoryRefresh(service, query);
        refresh.push_back(timer.nsecsElapsed() / 1e6);
    }
    std::printf("median of %d runs: figures through HistoryService %.1f ms, through the C "
                "interface %.1f ms (%.2fx); full refresh (search \"DSC1\", by date) %.1f ms\n",
                runs, medianOf(ours), medianOf(raw), medianOf(ours) / medianOf(raw),
                medianOf(refresh));
    return 0;
}
