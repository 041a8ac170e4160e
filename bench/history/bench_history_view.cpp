// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history tab as the user meets it, on generated databases:
//  1. search keystroke to first page: a key typed into the search field
//     until the refreshed first page has been painted in the table, on a
//     million-row database (bare table, as the engine makes it);
//  2. frame times while scrolling quickly through 10,000 loaded rows whose
//     records point at real photos (thumbnails and metadata load for the
//     rows in view and are cancelled for rows scrolled past).
//
//   xvfb-run -a -s "-screen 0 1920x1080x24" bench_history_view [--rows N] [--dir PATH]
//                                  [--scroll-rows N] [--step ROWS,...] [--skip-search]
#include "BenchDatabase.h"
#include "core/AppViewModel.h"
#include "db/ProcessedFiles.h"
#include "db/Sqlite.h"
#include "history/HistoryService.h"
#include "thumbnails/ThumbnailManager.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryToolbar.h"
#include "ui/history/HistoryView.h"
#include "ui/history/RowMediaStore.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sqlite3.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

bool waitUntil(const std::function<bool()> &condition, int ms = 120000)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > ms)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

double percentile(QList<double> values, double p)
{
    if (values.isEmpty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[qMin<qsizetype>(values.size() - 1, qsizetype(p * (values.size() - 1) + 0.5))];
}

// Notes the first paint of the table after a reset of its rows.
class PaintWatch : public QObject
{
public:
    bool armed = false;
    bool painted = false;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (armed && event->type() == QEvent::Paint)
            painted = true;
        return false;
    }
};

void benchSearch(const QString &dataHome, int rows)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome));
    AppViewModel model;
    HistoryView view(model);
    view.resize(1180, 800);
    view.show();
    if (!waitUntil([&] { return view.tableModel()->rowCount() == 80; })) {
        std::printf("the first page never came\n");
        return;
    }
    PaintWatch watch;
    view.tableView()->viewport()->installEventFilter(&watch);
    QElapsedTimer timer;
    double publishedMs = 0;
    QObject::connect(view.tableModel(), &QAbstractItemModel::modelReset, &watch, [&] {
        watch.armed = true;
        publishedMs = timer.nsecsElapsed() / 1e6;
    });
    QLineEdit *search = view.toolbar()->searchField();
    std::printf("\n== search keystroke to first page painted (%d rows) ==\n", rows);
    std::printf("  %-12s %10s %14s %12s\n", "text", "matches", "page in model", "painted");
    QList<double> times;
    // Each keystroke changes the matches, so each one ends in a new first page.
    for (const QString &text : { u"1"_s, u"12"_s, u"123"_s, u"1234"_s, u"12345"_s, u"1234"_s,
                                 u"123"_s, u"12"_s, u"1"_s, u""_s }) {
        watch.armed = watch.painted = false;
        timer.start();
        if (text.size() > search->text().size())
            QTest::keyClick(search, text.back().toLatin1());
        else
            QTest::keyClick(search, Qt::Key_Backspace);
        if (!waitUntil([&] { return watch.painted; })) {
            std::printf("  %-12s no refresh\n", qPrintable(text));
            continue;
        }
        const double ms = timer.nsecsElapsed() / 1e6;
        times << ms;
        std::printf("  %-12s %10lld %11.1f ms %9.1f ms\n", qPrintable(u"\""_s + text + u"\""_s),
                    model.totalFilteredCount(), publishedMs, ms);
    }
    std::printf("  median %.1f ms, max %.1f ms over %lld keystrokes\n", percentile(times, 0.5),
                percentile(times, 1.0), times.size());
}

// 10,000 rows that cycle through `photos` real camera-sized JPEGs.
bool writeScrollDatabase(const QString &db, const QString &photoDir, int rows, int photos)
{
    QDir().mkpath(photoDir);
    for (int i = 0; i < photos; ++i) {
        // Camera-sized pictures, so a thumbnail costs what it does on real photos.
        QImage image(3000, 2000, QImage::Format_RGB32);
        image.fill(QColor::fromHsv(i * 7 % 360, 160, 200));
        QPainter painter(&image);
        painter.fillRect(0, 1250, 3000, 750, QColor::fromHsv(i * 13 % 360, 120, 90));
        for (int k = 0; k < 40; ++k)
            painter.fillRect((k * 173 + i * 31) % 2900, (k * 97) % 1900, 60, 60,
                             QColor::fromHsv(k * 9 % 360, 200, 230));
        painter.end();
        image.save(photoDir + u"/P%1.jpg"_s.arg(i), "JPG", 90);
    }
    QFile::remove(db);
    QDir().mkpath(QFileInfo(db).absolutePath());
    const orvanta::db::Connection connection = orvanta::db::open(
        QFile::encodeName(db).constData(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!connection || !orvanta::db::exec(connection.get(), orvanta::db::kProcessedFilesTable)
        || !orvanta::db::exec(connection.get(), "BEGIN"))
        return false;
    orvanta::db::Statement statement = orvanta::db::prepare(
        connection.get(),
        "INSERT INTO processed_files (fingerprint, stem, raw_path, jpg_path, output_path, status, "
        "peak_stops, num_faces, raw_clip_pct, processed_at, duration_sec, error_message, rating) "
        "VALUES (?,?,NULL,?,?,'SUCCESS',?,?,0.01,?,5.5,NULL,3)");
    if (!statement)
        return false;
    sqlite3_stmt *const insert = statement.get();
    for (int i = 0; i < rows; ++i) {
        const QByteArray fp = "fp" + QByteArray::number(i);
        const QByteArray stem = "DSC" + QByteArray::number(10000 + i);
        const QByteArray jpg = QFile::encodeName(photoDir + u"/P%1.jpg"_s.arg(i % photos));
        const QByteArray out = QFile::encodeName(photoDir + u"/missing/%1_hdr.jpg"_s.arg(i));
        const QByteArray at = "2026-01-01T" + QByteArray::number(10 + i / 3600 % 10) + ':'
            + QByteArray::number(10 + i / 60 % 50) + ':' + QByteArray::number(10 + i % 50);
        sqlite3_bind_text(insert, 1, fp.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 2, stem.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 3, jpg.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 4, out.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_double(insert, 5, 1.0 + (i % 30) / 10.0);
        sqlite3_bind_int(insert, 6, i % 3);
        sqlite3_bind_text(insert, 7, at.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    statement.reset();
    return orvanta::db::exec(connection.get(), "COMMIT");
}

void benchScroll(const QString &dataHome, int step, bool metadataColumns)
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome));
    AppViewModel model;
    if (!metadataColumns) // only what the record itself carries: no file is read for a cell
        model.setVisibleColumns({ ListColumn::PeakStops, ListColumn::Faces, ListColumn::Duration });
    HistoryView view(model);
    view.resize(1180, 800);
    view.show();
    HistoryTableModel *table = view.tableModel();
    QElapsedTimer loading;
    loading.start();
    // Page in every row the way the view does, one fetchMore at a time.
    while (waitUntil([&] { return !model.isLoadingMore(); }) && model.hasMoreHistory())
        table->fetchMore({});
    waitUntil([&] { return !model.isLoadingMore(); });
    std::printf(
        "\n== scrolling %lld loaded rows, %d rows per frame, %s ==\n", qint64(table->rowCount()),
        step, metadataColumns ? "default columns (metadata read per row)" : "record columns only");
    std::printf("  paged in through fetchMore in %.0f ms\n", loading.nsecsElapsed() / 1e6);
    QTableView *tableView = view.tableView();
    QScrollBar *bar = tableView->verticalScrollBar();
    const int rowHeight = tableView->rowHeight(0);
    QList<double> frames;
    for (int value = 0; value <= bar->maximum(); value += step * rowHeight) {
        QElapsedTimer frame;
        frame.start();
        bar->setValue(value);
        QCoreApplication::processEvents(); // the row check, finished thumbnails and metadata
        tableView->viewport()->repaint();
        frames << frame.nsecsElapsed() / 1e6;
    }
    std::printf("  frames %lld: median %.2f ms, p95 %.2f ms, p99 %.2f ms, max %.2f ms\n",
                frames.size(), percentile(frames, 0.5), percentile(frames, 0.95),
                percentile(frames, 0.99), percentile(frames, 1.0));
    std::printf("  thumbnails decoded %d, requests cancelled by scrolling %d\n",
                ThumbnailManager::shared().decodeCount(), view.mediaStore()->cancelledCount());
}

} // namespace

int main(int argc, char *argv[])
{
    QTemporaryDir home;
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path() + u"/.config"_s));
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({ u"rows"_s, u"Rows of the search database."_s, u"n"_s, u"1000000"_s });
    parser.addOption({ u"dir"_s, u"Where the databases are kept between runs."_s, u"path"_s,
                       QDir::tempPath() + u"/orvanta-bench-history"_s });
    parser.addOption({ u"scroll-rows"_s, u"Rows loaded for the scroll."_s, u"n"_s, u"10000"_s });
    parser.addOption({ u"skip-search"_s, u"Only the scroll."_s });
    parser.addOption({ u"step"_s, u"Rows scrolled per frame (a comma-separated list runs each)."_s,
                       u"n"_s, u"8,40"_s });
    parser.process(app);
    const int rows = parser.value(u"rows"_s).toInt();
    const QString dir = parser.value(u"dir"_s);

    const QString bare = dir + u"/bare"_s;
    const QString db = bare + u"/Orvanta/pipeline_state.db"_s;
    QDir().mkpath(QFileInfo(db).absolutePath());
    if (!parser.isSet(u"skip-search"_s)
        && (!QFile::exists(db) || HistoryService(db).fetchCount() != rows)) {
        std::printf("generating %s ...\n", qPrintable(db));
        std::fflush(stdout);
        if (!bench::generate(db, rows, false))
            return 1;
    }
    if (!parser.isSet(u"skip-search"_s))
        benchSearch(bare, rows);

    const int scrollRows = parser.value(u"scroll-rows"_s).toInt();
    const QString scrollHome = dir + u"/scroll"_s;
    const QString scrollDb = scrollHome + u"/Orvanta/pipeline_state.db"_s;
    if (!QFile::exists(scrollDb) || HistoryService(scrollDb).fetchCount() != scrollRows) {
        if (!writeScrollDatabase(scrollDb, scrollHome + u"/photos"_s, scrollRows, 200))
            return 1;
    }
    for (bool metadata : { true, false }) {
        for (const QString &step : parser.value(u"step"_s).split(u','))
            benchScroll(scrollHome, step.toInt(), metadata);
    }
    return 0;
}
