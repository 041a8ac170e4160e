// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Seconds per RAW+JPG pair and the engine's peak memory, on 24-megapixel
// Bayer DNG + JPG pairs written for the run. Each configuration runs the real
// engine as a child process in a private home (its own state database) and
// reads the child's peak resident size and CPU time from wait4(). Run by hand:
//   bench_refengine [pairs=4] [width=6000] [height=4000]
#include "SamplePairs.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace orvanta::samples;
using namespace Qt::StringLiterals;

namespace {

struct Run
{
    double seconds = 0;
    double cpuSeconds = 0;
    long peakKiB = 0;
    int status = -1;
};

Run runEngine(const QString &home, const QString &source, const QString &dest, int workers)
{
    QDir(dest).removeRecursively();
    QDir(home + u"/.local/share/Orvanta"_s).removeRecursively();
    const QByteArray h = home.toUtf8(), s = source.toUtf8(), d = dest.toUtf8();
    const QByteArray w = QByteArray::number(workers);
    QElapsedTimer timer;
    timer.start();
    std::fflush(stdout);
    const pid_t pid = fork();
    if (pid == 0) {
        setenv("HOME", h.constData(), 1);
        unsetenv("XDG_DATA_HOME");
        unsetenv("XDG_STATE_HOME");
        unsetenv("XDG_CONFIG_HOME");
        freopen("/dev/null", "w", stdout);
        execl(ORVANTA_ENGINE_PATH, "orvanta_engine", "run", "-s", s.constData(), "-d",
              d.constData(), "--profile-id", "default", "-w", w.constData(), "--no-throttle",
              nullptr);
        _exit(127);
    }
    Run run;
    int status = 0;
    rusage usage {};
    wait4(pid, &status, 0, &usage);
    run.seconds = timer.nsecsElapsed() / 1e9;
    run.peakKiB = usage.ru_maxrss;
    run.cpuSeconds = usage.ru_utime.tv_sec + usage.ru_utime.tv_usec / 1e6 + usage.ru_stime.tv_sec
        + usage.ru_stime.tv_usec / 1e6;
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 4;
    SampleScene scene;
    scene.bayer = true;
    scene.width = argc > 2 ? std::atoi(argv[2]) & ~1 : 6000;
    scene.height = argc > 3 ? std::atoi(argv[3]) & ~1 : 4000;
    QTemporaryDir dir;
    const QString source = dir.filePath(u"pairs"_s), dest = dir.filePath(u"out"_s);
    std::printf("writing %d pairs of %dx%d (%.1f MP)...\n", pairs, scene.width, scene.height,
                scene.width * scene.height / 1e6);
    for (int i = 0; i < pairs; ++i) {
        scene.face = i % 2 == 1;
        if (!writePair(source, u"P%1"_s.arg(i), scene))
            return 1;
    }
    // The pairs just written are still being flushed to disk; a run's first
    // fsync would wait for all of it, so flush before timing anything.
    ::sync();
    double load[3] = {};
    getloadavg(load, 3);
    std::printf("load average before the runs: %.2f (the machine's other work shares the cores)\n",
                load[0]);
    std::printf("%-8s %10s %12s %14s %12s %8s\n", "workers", "seconds", "s per pair",
                "CPU s per pair", "peak MiB", "status");
    for (int workers : { 1, 2 }) {
        const Run run = runEngine(dir.path(), source, dest, workers);
        std::printf("%-8d %10.2f %12.2f %14.2f %12.0f %8d\n", workers, run.seconds,
                    run.seconds / pairs, run.cpuSeconds / pairs, run.peakKiB / 1024.0, run.status);
    }
    return 0;
}
