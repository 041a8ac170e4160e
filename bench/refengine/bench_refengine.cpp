// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Seconds per RAW+JPG pair and the engine's peak memory, on 24-megapixel
// Bayer DNG + JPG pairs written for the run. Each configuration runs the real
// engine as a child process in a private home (its own state database) and
// reads the child's peak resident size and CPU time from wait4(). Beside it,
// in the same run, the anchors on the first pair: LibRaw's dcraw_emu (full and
// half-size develop), djpeg, and a user-built libultrahdr ultrahdr_app
// decoding our output when its path is given ("absent" otherwise), and
// orvanta-uhdr decoding that output and encoding it again. Run by hand:
//   bench_refengine [--ultrahdr-app PATH] [--camera-look] [pairs=4] [width=6000] [height=4000]
// --camera-look renders the JPGs unlike the RAWs (white balance, saturation,
// tone curve, a crop), as cameras do, so the colour fit and the search for
// the JPG's frame do their full work.
#include "SamplePairs.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

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

// Waits for child `pid`, started when `timer` started: wall time, CPU time, peak memory, status.
Run waitForRun(pid_t pid, const QElapsedTimer &timer)
{
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

// Runs the engine on every pair in `source`; its event stream goes to `events`.
Run runEngine(const QString &home, const QString &source, const QString &dest, int workers,
              const QString &events)
{
    QDir(dest).removeRecursively();
    QDir(home + u"/.local/share/Orvanta"_s).removeRecursively();
    const QByteArray h = home.toUtf8(), s = source.toUtf8(), d = dest.toUtf8();
    const QByteArray w = QByteArray::number(workers), e = events.toLocal8Bit();
    QElapsedTimer timer;
    timer.start();
    std::fflush(stdout);
    const pid_t pid = fork();
    if (pid == 0) {
        setenv("HOME", h.constData(), 1);
        unsetenv("XDG_DATA_HOME");
        unsetenv("XDG_STATE_HOME");
        unsetenv("XDG_CONFIG_HOME");
        freopen(e.constData(), "w", stdout);
        execl(ORVANTA_ENGINE_PATH, "orvanta_engine", "run", "-s", s.constData(), "-d",
              d.constData(), "--profile-id", "default", "-w", w.constData(), "--no-throttle",
              "--json-stream", nullptr);
        _exit(127);
    }
    return waitForRun(pid, timer);
}

// Mean seconds of each stage the engine reported for its finished pairs, in
// the order the stages first appear.
void printStages(const QString &events)
{
    QFile file(events);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QList<QString> names;
    QHash<QString, double> total;
    int done = 0;
    const QByteArray prefix = "ORVANTA_EVENT: ";
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        if (!line.startsWith(prefix))
            continue;
        const QJsonObject event = QJsonDocument::fromJson(line.mid(prefix.size())).object();
        if (event.value(u"type"_s).toString() != u"item_done"_s)
            continue;
        ++done;
        const QJsonObject stages = event.value(u"stages"_s).toObject();
        for (auto it = stages.begin(); it != stages.end(); ++it) {
            if (!total.contains(it.key()))
                names.append(it.key());
            total[it.key()] += it.value().toDouble();
        }
    }
    if (done == 0)
        return;
    std::printf("  stages, mean of %d pairs:", done);
    for (const QString &name : names)
        std::printf(" %s %.3f", qPrintable(name), total.value(name) / done);
    std::printf("\n");
}

// Runs `argv` (found on PATH) with its output thrown away; wall time, CPU time, peak memory.
Run runProgram(const QStringList &argv)
{
    std::vector<QByteArray> bytes;
    for (const QString &a : argv)
        bytes.push_back(a.toLocal8Bit());
    std::vector<char *> args;
    for (QByteArray &b : bytes)
        args.push_back(b.data());
    args.push_back(nullptr);
    QElapsedTimer timer;
    timer.start();
    std::fflush(stdout);
    const pid_t pid = fork();
    if (pid == 0) {
        freopen("/dev/null", "w", stdout);
        freopen("/dev/null", "w", stderr);
        execvp(args[0], args.data());
        _exit(127);
    }
    return waitForRun(pid, timer);
}

void printAnchor(const char *name, const QStringList &argv)
{
    const Run run = runProgram(argv);
    if (run.status == 127)
        std::printf("%-34s %10s\n", name, "absent");
    else
        std::printf("%-34s %10.2f %14.2f %12.0f %8d\n", name, run.seconds, run.cpuSeconds,
                    run.peakKiB / 1024.0, run.status);
}

void printAnchors(const QString &pairs, const QString &out, const QString &ultrahdrApp)
{
    const QString dng = pairs + u"/P0.DNG"_s, jpg = pairs + u"/P0.JPG"_s;
    std::printf("\nanchors on one pair, same run:\n%-34s %10s %14s %12s %8s\n", "program",
                "seconds", "CPU seconds", "peak MiB", "status");
    printAnchor("dcraw_emu, full develop (16-bit)", { u"dcraw_emu"_s, u"-4"_s, u"-T"_s, dng });
    printAnchor("dcraw_emu, half-size develop", { u"dcraw_emu"_s, u"-4"_s, u"-T"_s, u"-h"_s, dng });
    printAnchor("djpeg, the camera JPG", { u"djpeg"_s, u"-outfile"_s, u"/dev/null"_s, jpg });
    if (ultrahdrApp.isEmpty())
        std::printf("%-34s %10s\n", "ultrahdr_app, decode our output", "absent");
    else
        printAnchor("ultrahdr_app, decode our output",
                    { ultrahdrApp, u"-m"_s, u"1"_s, u"-j"_s, out + u"/P0_hdr.jpg"_s });
    // Our own command-line tool, file to file: decode the engine's output to a
    // float map, then encode the camera JPG with that map again.
    const QString map = out + u"/P0_hdr.pfm"_s;
    printAnchor("orvanta-uhdr decode, our output",
                { QStringLiteral(ORVANTA_UHDR_PATH), u"decode"_s, out + u"/P0_hdr.jpg"_s, map });
    printAnchor(
        "orvanta-uhdr encode, JPG + that map",
        { QStringLiteral(ORVANTA_UHDR_PATH), u"encode"_s, jpg, map, out + u"/P0_again.jpg"_s });
    QFile::remove(map);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QStringList args = QCoreApplication::arguments().mid(1);
    QString ultrahdrApp;
    if (const qsizetype at = args.indexOf(u"--ultrahdr-app"_s); at >= 0 && at + 1 < args.size()) {
        ultrahdrApp = args.takeAt(at + 1);
        args.removeAt(at);
    }
    const bool cameraLook = args.removeAll(u"--camera-look"_s) > 0;
    const int pairs = args.size() > 0 ? args[0].toInt() : 4;
    SampleScene scene;
    if (cameraLook)
        scene.look = JpegLook { 1.2, 0.85, 1.25, 0.4, 0.92, 0.1 };
    scene.bayer = true;
    scene.width = args.size() > 1 ? args[1].toInt() & ~1 : 6000;
    scene.height = args.size() > 2 ? args[2].toInt() & ~1 : 4000;
    QTemporaryDir dir;
    const QString source = dir.filePath(u"pairs"_s), dest = dir.filePath(u"out"_s);
    std::printf("writing %d pairs of %dx%d (%.1f MP)%s...\n", pairs, scene.width, scene.height,
                scene.width * scene.height / 1e6, cameraLook ? ", JPGs with a camera's look" : "");
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
        const QString events = dir.filePath(u"events-%1.log"_s.arg(workers));
        const Run run = runEngine(dir.path(), source, dest, workers, events);
        std::printf("%-8d %10.2f %12.2f %14.2f %12.0f %8d\n", workers, run.seconds,
                    run.seconds / pairs, run.cpuSeconds / pairs, run.peakKiB / 1024.0, run.status);
        printStages(events);
    }
    printAnchors(source, dest, ultrahdrApp);
    return 0;
}
