// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Lines per second from a child process through line splitting, record
// decoding and the batch controller (handleBatchEvent / console), next to
// `wc -l` counting the same stream, plus the longest stretch the main
// thread was busy. Run by hand:
//   bench_engine_throughput [lines] [every-nth-is-an-event] [repeats]
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "engine/EngineService.h"
#include "i18n/LocalizationService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <sys/resource.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

struct Figures
{
    double seconds = 0;
    double longestBusyMs = 0;
    double cpuSeconds = 0; // this process, user + system
};

double cpuSecondsSoFar()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_utime.tv_sec + usage.ru_stime.tv_sec
        + (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
}

// The same engine, its output counted by wc -l through a pipe.
double timeWc(const QString &scenario, long lines)
{
    QProcess engine;
    QProcess wc;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"ORVANTA_TEST_SCENARIO"_s, scenario);
    engine.setProcessEnvironment(env);
    engine.setStandardOutputProcess(&wc);
    QElapsedTimer clock;
    clock.start();
    wc.start(u"wc"_s, { u"-l"_s });
    engine.start(QStringLiteral(ORVANTA_SCRIPTED_ENGINE), {});
    engine.waitForFinished(-1);
    wc.waitForFinished(-1);
    const double seconds = clock.nsecsElapsed() / 1e9;
    const long counted = wc.readAllStandardOutput().trimmed().toLong();
    if (counted != lines)
        std::fprintf(stderr, "wc counted %ld lines, expected %ld\n", counted, lines);
    return seconds;
}

// The main thread's longest busy stretch, seen as the largest gap between
// ticks of a 1 ms timer.
class BusyProbe
{
public:
    BusyProbe()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            const qint64 now = m_clock.nsecsElapsed();
            if (m_last >= 0)
                m_longest = std::max(m_longest, now - m_last);
            m_last = now;
        });
        m_clock.start();
        m_timer.start();
    }
    double longestMs() const { return m_longest / 1e6; }

private:
    QTimer m_timer;
    QElapsedTimer m_clock;
    qint64 m_last = -1;
    qint64 m_longest = 0;
};

Figures timeModel(AppViewModel &model, long events)
{
    QEventLoop loop;
    QObject::connect(&model, &AppViewModel::isRunningChanged, &loop, [&] {
        if (!model.isRunning())
            loop.quit();
    });
    BusyProbe probe;
    QElapsedTimer clock;
    const double cpuBefore = cpuSecondsSoFar();
    clock.start();
    model.startProcessing();
    loop.exec();
    Figures f { clock.nsecsElapsed() / 1e9, probe.longestMs(), cpuSecondsSoFar() - cpuBefore };
    if (model.currentIndex() != events / 2 || model.consoleLogs().size() != 1000)
        std::fprintf(stderr, "unexpected end state: index %lld, console %lld\n",
                     model.currentIndex(), qint64(model.consoleLogs().size()));
    return f;
}

} // namespace

int main(int argc, char *argv[])
{
    orvanta::test::TestEnvironment environment; // the model writes its configuration
    QCoreApplication app(argc, argv);
    const long lines = argc > 1 ? std::atol(argv[1]) : 1000000;
    const long every = argc > 2 ? std::atol(argv[2]) : 10;
    const int repeats = argc > 3 ? std::atoi(argv[3]) : 3;

    QTemporaryDir dir;
    const QString scenario = dir.filePath(u"flood.txt"_s);
    QFile file(scenario);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write(QStringLiteral("flood %1 %2\n").arg(lines).arg(every).toUtf8());
    file.close();
    qputenv("ORVANTA_TEST_SCENARIO", scenario.toUtf8());
    qputenv("ORVANTA_BIN", ORVANTA_SCRIPTED_ENGINE);

    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    AppViewModel model;
    model.setSourceDir(dir.path());
    model.setDestDir(dir.path());

    std::printf("%ld lines, every %ld-th a record, %d runs\n", lines, every, repeats);
    for (int run = 1; run <= repeats; ++run) {
        const double wc = timeWc(scenario, lines);
        const Figures m = timeModel(model, every > 0 ? lines / every : 0);
        std::printf("run %d: orvanta %.3f s = %.0f lines/s (%.3f s CPU = %.0f lines per CPU "
                    "second), longest main-thread stretch %.1f ms | wc -l %.3f s = %.0f lines/s "
                    "| ratio %.2fx\n",
                    run, m.seconds, lines / m.seconds, m.cpuSeconds, lines / m.cpuSeconds,
                    m.longestBusyMs, wc, lines / wc, m.seconds / wc);
    }
    return 0;
}
