// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// History reads on a generated state database of a million rows: every
// statement of a refresh (figures, count, first page) and of one further
// page, with a stem search and each sort field, timed through HistoryService
// and, in the same run, through the sqlite3 shell on the same file; then the
// full refresh through the state object, with the main thread's longest
// stall while it runs. Once on the bare table, once with an index on every
// sortable column.
//
//   bench_history [--rows N] [--dir PATH] [--runs R] [--search TEXT]
#include "BenchDatabase.h"
#include "core/AppViewModel.h"
#include "history/HistoryLoading.h"
#include "history/HistoryService.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sqlite3.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

struct Options
{
    int rows = 1'000'000;
    QString dir;
    int runs = 5;
    QString search = u"DSC1"_s;
};

qint64 rowCount(const QString &path)
{
    if (!QFile::exists(path))
        return -1;
    return HistoryService(path).fetchCount();
}

double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.isEmpty() ? 0 : values[values.size() / 2];
}

double timeMs(const std::function<void()> &call)
{
    QElapsedTimer timer;
    timer.start();
    call();
    return timer.nsecsElapsed() / 1e6;
}

// The same statements as HistoryService runs, numbered so that the shell
// can bind them with .parameter.
struct ShellStatements
{
    QString stats1
        = u"SELECT COUNT(*), SUM(CASE WHEN status='SUCCESS' THEN 1 ELSE 0 END), SUM(CASE "
          "WHEN status='FAILED' THEN 1 ELSE 0 END), AVG(CASE WHEN status='SUCCESS' THEN "
          "duration_sec ELSE NULL END) FROM processed_files;"_s;
    QString stats2
        = u"SELECT processed_at FROM processed_files ORDER BY processed_at DESC LIMIT 1;"_s;
    QString count = u"SELECT COUNT(*) FROM processed_files WHERE stem LIKE ?1;"_s;
    QString page(const QString &column, bool ascending, int limit, int offset) const
    {
        return u"SELECT fingerprint, stem, raw_path, jpg_path, output_path, status, peak_stops, "
               "num_faces, raw_clip_pct, processed_at, duration_sec, error_message, "
               "COALESCE(rating, 0) "
               "FROM processed_files WHERE stem LIKE ?1 ORDER BY %1 %2 NULLS LAST LIMIT %3 OFFSET %4;"_s
                   .arg(column, ascending ? "ASC"_L1 : "DESC"_L1)
                   .arg(limit)
                   .arg(offset);
    }
};

QString columnFor(HistorySortField field)
{
    switch (field) {
    case HistorySortField::PeakStops:
        return u"peak_stops"_s;
    case HistorySortField::Faces:
        return u"num_faces"_s;
    case HistorySortField::Duration:
        return u"duration_sec"_s;
    case HistorySortField::Stem:
        return u"stem"_s;
    case HistorySortField::Date:
        break;
    }
    return u"processed_at"_s;
}

// Runs `statements` `runs` times in one shell and returns the median of the
// shell's own timer for each.
QList<double> shellTimes(const QString &shell, const QString &db, const QString &search,
                         const QStringList &statements, int runs)
{
    QString script = u".timer on\n.output /dev/null\n.parameter set ?1 \"'%%1%'\"\n"_s.arg(search);
    for (int r = 0; r < runs; ++r)
        script += statements.join(u'\n') + u'\n';
    QProcess process;
    process.start(shell, { u"-readonly"_s, db });
    process.write(script.toUtf8());
    process.closeWriteChannel();
    process.waitForFinished(-1);
    const QString output = QString::fromUtf8(process.readAllStandardOutput());
    static const QRegularExpression timer(u"Run Time: real ([0-9.]+)"_s);
    QList<double> all;
    for (auto it = timer.globalMatch(output); it.hasNext();)
        all << it.next().captured(1).toDouble() * 1000.0;
    QList<double> medians;
    for (qsizetype s = 0; s < statements.size(); ++s) {
        QList<double> one;
        for (qsizetype r = 0; r < runs && r * statements.size() + s < all.size(); ++r)
            one << all[r * statements.size() + s];
        medians << median(one);
    }
    return medians;
}

void printRow(const char *what, double ours, double shell)
{
    std::printf("  %-34s %9.1f ms %9.1f ms %7.2fx\n", what, ours, shell,
                shell > 0 ? ours / shell : 0.0);
}

void benchStatements(const Options &options, const QString &db, const QString &shell)
{
    const HistoryService service(db);
    const ShellStatements sql;
    std::printf("  %-34s %12s %12s %8s\n", "statement", "ours", "sqlite3", "ratio");
    for (HistorySortField field : allHistorySortFields()) {
        const HistoryQuery query
            = makeHistoryQuery(options.search, HistoryStatusFilter::All, field, false);
        QList<double> stats, count, first, next, refresh;
        for (int r = 0; r < options.runs; ++r) {
            stats << timeMs([&] { service.fetchStats(); });
            count << timeMs([&] { service.fetchCount(query.searchText, query.statusText); });
            first << timeMs(
                [&] { service.fetchRecords(80, 0, query.searchText, {}, query.sortField, false); });
            next << timeMs([&] { readHistoryNextPage(service, query, 80); });
            refresh << timeMs([&] { readHistoryRefresh(service, query); });
        }
        const QString column = columnFor(field);
        const QList<double> theirs
            = shellTimes(shell, db, options.search,
                         { sql.stats1, sql.stats2, sql.count, sql.page(column, false, 80, 0),
                           sql.page(column, false, 50, 80) },
                         options.runs);
        std::printf(" sort %s (descending), search \"%s\":\n", qPrintable(rawValue(field)),
                    qPrintable(options.search));
        printRow("figures (2 statements)", median(stats), theirs[0] + theirs[1]);
        printRow("count", median(count), theirs[2]);
        printRow("first page (80)", median(first), theirs[3]);
        printRow("next page (50 at 80)", median(next), theirs[4]);
        printRow("full refresh", median(refresh), theirs[0] + theirs[1] + theirs[2] + theirs[3]);
    }
}

// The refresh as the user meets it: requested on the main thread, read on
// the pool, published back. A 1 ms timer measures how long the main thread
// ever goes without turning its event loop meanwhile.
void benchModel(const Options &options, const QString &dataHome)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome));
    AppViewModel model;
    QElapsedTimer sinceTick;
    qint64 longestStallNs = 0;
    QTimer ticker;
    ticker.setInterval(1);
    QObject::connect(&ticker, &QTimer::timeout, &model, [&] {
        longestStallNs = qMax(longestStallNs, sinceTick.nsecsElapsed());
        sinceTick.restart();
    });
    const auto waitForRefresh = [&](const std::function<void()> &request) {
        QEventLoop loop;
        const auto connection = QObject::connect(&model, &AppViewModel::historyRecordsChanged,
                                                 &loop, &QEventLoop::quit);
        QElapsedTimer wall;
        wall.start();
        longestStallNs = 0;
        sinceTick.start();
        ticker.start();
        QTimer::singleShot(60000, &loop, &QEventLoop::quit); // a request that changed nothing
        request();
        loop.exec();
        ticker.stop();
        QObject::disconnect(connection);
        return wall.nsecsElapsed() / 1e6;
    };
    waitForRefresh([] {}); // the start-up refresh
    const double searched = waitForRefresh([&] { model.setHistorySearchText(options.search); });
    std::printf("  %-34s %12s %18s\n", "through the state object", "wall", "longest stall");
    std::printf("  %-34s %9.1f ms %15.2f ms\n", "refresh, search typed", searched,
                longestStallNs / 1e6);
    // One changed value per request, so each request is exactly one refresh.
    for (HistorySortField field : allHistorySortFields()) {
        for (bool flip : { false, true }) {
            if (!flip && model.historySortField() == field)
                continue; // already sorted by it: setting it again asks for nothing
            const double wall = waitForRefresh([&] {
                if (flip)
                    model.setHistorySortAscending(!model.historySortAscending());
                else
                    model.setHistorySortField(field);
            });
            std::printf("  refresh, sort %-10s %-4s %17.1f ms %15.2f ms\n",
                        qPrintable(rawValue(field)), model.historySortAscending() ? "asc" : "desc",
                        wall, longestStallNs / 1e6);
        }
    }
    const double wall = waitForRefresh([&] { model.loadMoreHistory(); });
    std::printf("  %-34s %9.1f ms %15.2f ms\n", "load more", wall, longestStallNs / 1e6);
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir home; // the state object reads and writes its configuration here
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path() + u"/.config"_s));
    QCoreApplication app(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({ u"rows"_s, u"Rows in the generated table."_s, u"n"_s, u"1000000"_s });
    parser.addOption({ u"dir"_s, u"Where the databases are kept between runs."_s, u"path"_s,
                       QDir::tempPath() + u"/orvanta-bench-history"_s });
    parser.addOption({ u"runs"_s, u"Runs per statement (the median is shown)."_s, u"n"_s, u"5"_s });
    parser.addOption({ u"search"_s, u"Stem search text."_s, u"text"_s, u"DSC1"_s });
    parser.process(app);
    Options options;
    options.rows = parser.value(u"rows"_s).toInt();
    options.dir = parser.value(u"dir"_s);
    options.runs = qMax(1, parser.value(u"runs"_s).toInt());
    options.search = parser.value(u"search"_s);

    const QString shell = QStandardPaths::findExecutable(u"sqlite3"_s);
    if (shell.isEmpty()) {
        std::fprintf(stderr, "the sqlite3 shell is needed: scripts/install-bench-deps.sh\n");
        return 1;
    }
    std::printf("SQLite %s, %d rows, median of %d runs\n", sqlite3_libversion(), options.rows,
                options.runs);

    for (bool indexed : { false, true }) {
        const QString dataHome = options.dir + (indexed ? u"/indexed"_s : u"/bare"_s);
        const QString db = dataHome + u"/Orvanta/pipeline_state.db"_s;
        QDir().mkpath(QFileInfo(db).absolutePath());
        if (rowCount(db) != options.rows) {
            std::printf("generating %s ...\n", qPrintable(db));
            std::fflush(stdout);
            if (!bench::generate(db, options.rows, indexed))
                return 1;
        }
        std::printf("\n== %s table ==\n", indexed ? "indexed" : "bare");
        benchStatements(options, db, shell);
        benchModel(options, dataHome);
    }
    return 0;
}
