// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How long the main thread stops answering, measured as the largest gap
// between the ticks of a 1 ms timer, while
//  (a) another process holds BEGIN EXCLUSIVE on a rollback-journal state
//      database during start-up, a refresh and window resizes, and
//  (b) an engine prints one endless line.
// Run by hand, on a real X server or offscreen:
//   bench_stall [seconds per scenario, default 6]
// (`bench_stall hold-lock <database>` is the lock-holding second process.)
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "db/ProcessedFiles.h"
#include "db/Sqlite.h"
#include "history/HistoryService.h"
#include "ui/MainWindow.h"
#include "ui/history/HistoryView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTimer>

#include <cstdio>
#include <iostream>
#include <sqlite3.h>
#include <string>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// Records the largest gap between consecutive ticks of a 1 ms timer.
class StallMeter
{
public:
    StallMeter()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { tick(); });
    }
    void start()
    {
        m_longestNs = 0;
        m_over50 = 0;
        m_clock.start();
        m_last = 0;
        m_timer.start();
    }
    void stop()
    {
        tick();
        m_timer.stop();
    }
    double longestMs() const { return m_longestNs / 1e6; }
    int gapsOver50Ms() const { return m_over50; }

private:
    void tick()
    {
        const qint64 now = m_clock.nsecsElapsed();
        const qint64 gap = now - m_last;
        m_last = now;
        m_longestNs = qMax(m_longestNs, gap);
        if (gap > 50'000'000)
            ++m_over50;
    }
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_last = 0;
    qint64 m_longestNs = 0;
    int m_over50 = 0;
};

void runFor(int ms, const std::function<void(int)> &everyHalfSecond = {})
{
    QEventLoop loop;
    QTimer step;
    int count = 0;
    QObject::connect(&step, &QTimer::timeout, [&] {
        if (everyHalfSecond)
            everyHalfSecond(++count);
    });
    step.start(500);
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

long peakRssKiB()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').value(0).toLong();
    }
    return -1;
}

int holdLock(const char *path)
{
    const db::Connection db = db::open(path, SQLITE_OPEN_READWRITE);
    if (!db || !db::exec(db.get(), "BEGIN EXCLUSIVE"))
        return 1;
    std::cout << "locked" << std::endl;
    std::string line;
    std::getline(std::cin, line); // released when the bench writes a line or exits
    db::exec(db.get(), "ROLLBACK");
    return 0;
}

void makeDatabase(const QString &path, int rows)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const db::Connection db
        = db::open(QFile::encodeName(path).constData(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    db::createProcessedFiles(db.get());
    db::exec(db.get(), "PRAGMA journal_mode=DELETE; BEGIN");
    for (int i = 0; i < rows; ++i) {
        const QByteArray sql = "INSERT INTO processed_files (fingerprint, stem, status, "
                               "processed_at, duration_sec, peak_stops) VALUES ('fp"
            + QByteArray::number(i) + "', 'DSC" + QByteArray::number(10000 + i)
            + "', 'SUCCESS', '2026-01-01T08:" + QByteArray::number(10 + i % 50) + ":00', 3.2, 2.4)";
        db::exec(db.get(), sql.constData());
    }
    db::exec(db.get(), "COMMIT");
}

void lockedDatabase(const QString &dbPath, int seconds)
{
    QProcess holder;
    holder.start(QCoreApplication::applicationFilePath(), { u"hold-lock"_s, dbPath });
    if (!holder.waitForReadyRead(10000)) {
        std::printf("could not lock the database\n");
        return;
    }
    QElapsedTimer startup;
    startup.start();
    AppViewModel model;
    MainWindow window(model);
    window.setHistoryView(new HistoryView(model));
    window.show();
    const double startupMs = startup.nsecsElapsed() / 1e6;
    StallMeter meter;
    meter.start();
    runFor(seconds * 1000, [&](int step) {
        window.resize(step % 2 ? QSize(1100, 760) : QSize(1240, 840));
        if (step % 4 == 0)
            model.refreshHistory();
    });
    meter.stop();
    std::printf("(a) locked database, %d s: start-up (construct and show) %.1f ms; longest gap "
                "afterwards %.1f ms; gaps over 50 ms: %d; busy shown: %s\n",
                seconds, startupMs, meter.longestMs(), meter.gapsOver50Ms(),
                model.isHistoryBusy() ? "yes" : "no");
    holder.write("release\n");
    holder.waitForFinished(10000);
    QElapsedTimer rows;
    rows.start();
    while (model.historyRecords().isEmpty() && rows.elapsed() < 20000)
        runFor(20);
    std::printf("    rows shown %.0f ms after the lock went (%lld rows)\n", double(rows.elapsed()),
                qint64(model.historyRecords().size()));
}

void endlessLine(const QString &home, int seconds)
{
    const QString engine = home + u"/orvanta_engine"_s;
    QFile script(engine);
    script.open(QIODevice::WriteOnly);
    script.write("#!/bin/sh\n[ \"$1\" = doctor ] && exit 0\n"
                 "exec timeout "
                 + QByteArray::number(seconds)
                 + " sh -c \"yes 0123456789abcdef | tr -d '\\\\n'\"\n");
    script.close();
    script.setPermissions(script.permissions() | QFile::ExeOwner);
    qputenv("ORVANTA_BIN", QFile::encodeName(engine));
    QDir().mkpath(home + u"/src"_s);
    QDir().mkpath(home + u"/out"_s);

    AppViewModel model;
    MainWindow window(model);
    window.setHistoryView(new HistoryView(model));
    window.show();
    model.setSourceDir(home + u"/src"_s);
    model.setDestDir(home + u"/out"_s);
    model.setIsConsoleDrawerExpanded(true);
    runFor(1000);
    const long rssBefore = peakRssKiB();
    StallMeter meter;
    meter.start();
    model.startProcessing();
    runFor(seconds * 1000 + 1000);
    meter.stop();
    std::printf("(b) endless line, %d s: longest gap %.1f ms; gaps over 50 ms: %d; peak RSS %ld "
                "MiB before, %ld MiB after; still running: %s\n",
                seconds, meter.longestMs(), meter.gapsOver50Ms(), rssBefore / 1024,
                peakRssKiB() / 1024, model.isRunning() ? "yes" : "no");
    qint64 kept = 0;
    for (const QString &line : model.consoleLogs())
        kept += line.size();
    for (const QString &line : model.consoleLogs())
        std::printf("    | %s\n", qPrintable(line.left(150)));
    std::printf("    console keeps %lld lines, %lld characters\n",
                qint64(model.consoleLogs().size()), kept);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && std::string(argv[1]) == "hold-lock")
        return holdLock(argv[2]);
    const test::TestEnvironment environment;
    QApplication app(argc, argv);
    const int seconds = argc > 1 ? qMax(1, std::atoi(argv[1])) : 6;
    const QString dbPath = HistoryService::defaultDbPath();
    makeDatabase(dbPath, 2000);
    lockedDatabase(dbPath, seconds);
    endlessLine(environment.home(), seconds);
    return 0;
}
