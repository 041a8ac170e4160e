// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Watch mode, measured on the real engine in a private home: the CPU it uses
// while watching an idle folder (utime+stime from /proc/<pid>/stat), then how
// long after a pair lands (both files renamed into the folder, as a tethering
// program or a copy tool finishes them) its item_done record arrives and the
// Ultra HDR file is there. Run by hand:
//   bench_watch [pairs=10] [idle-seconds=60] [width=1536] [height=1024]
#include "SamplePairs.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>
#include <vector>

using namespace orvanta::samples;
using namespace Qt::StringLiterals;

namespace {

// Reads the engine's output until a record of `type` (and `stem`, if given) arrives.
bool waitForRecord(QProcess &engine, const QString &type, const QString &stem = {})
{
    for (;;) {
        while (engine.canReadLine()) {
            const QByteArray line = engine.readLine().trimmed();
            if (!line.startsWith("ORVANTA_EVENT: "))
                continue;
            const QJsonObject e = QJsonDocument::fromJson(line.mid(15)).object();
            if (e.value(u"type"_s).toString() == type
                && (stem.isEmpty() || e.value(u"stem"_s).toString() == stem))
                return true;
        }
        if (!engine.waitForReadyRead(120000))
            return false;
    }
}

double cpuSeconds(qint64 pid)
{
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = stat.readAll();
    // Fields after the command name: state is field 3, utime 14, stime 15.
    const QList<QByteArray> f = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return (f.value(11).toDouble() + f.value(12).toDouble()) / double(sysconf(_SC_CLK_TCK));
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const int pairs = argc > 1 ? std::atoi(argv[1]) : 10;
    const int idleSeconds = argc > 2 ? std::atoi(argv[2]) : 60;
    SampleScene scene;
    scene.bayer = true;
    scene.width = argc > 3 ? std::atoi(argv[3]) & ~1 : 1536;
    scene.height = argc > 4 ? std::atoi(argv[4]) & ~1 : 1024;
    QTemporaryDir dir;
    const QString source = dir.filePath(u"watched"_s), staging = dir.filePath(u"staging"_s),
                  dest = dir.filePath(u"out"_s), home = dir.filePath(u"home"_s);
    QDir().mkpath(source);
    for (int i = 0; i < pairs; ++i)
        writePair(staging, u"W%1"_s.arg(i, 4, 10, QChar(u'0')), scene);

    QProcess engine;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"HOME"_s, home);
    for (const char *name : { "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CONFIG_HOME" })
        env.remove(QString::fromLatin1(name));
    engine.setProcessEnvironment(env);
    engine.start(
        QStringLiteral(ORVANTA_ENGINE_PATH),
        { u"watch"_s, u"-s"_s, source, u"-d"_s, dest, u"--json-stream"_s, u"-w"_s, u"1"_s });
    if (!waitForRecord(engine, u"watch_started"_s)) {
        std::fprintf(stderr, "the engine did not start watching\n");
        return 1;
    }
    const double cpuBefore = cpuSeconds(engine.processId());
    QThread::sleep(idleSeconds);
    const double idleCpu = cpuSeconds(engine.processId()) - cpuBefore;
    std::printf("idle watch: %.3f s CPU in %d s = %.3f%% of a core\n", idleCpu, idleSeconds,
                100.0 * idleCpu / idleSeconds);

    std::vector<double> delays;
    for (int i = 0; i < pairs; ++i) {
        const QString stem = u"W%1"_s.arg(i, 4, 10, QChar(u'0'));
        QFile::rename(staging + u'/' + stem + u".DNG"_s, source + u'/' + stem + u".DNG"_s);
        QFile::rename(staging + u'/' + stem + u".JPG"_s, source + u'/' + stem + u".JPG"_s);
        QElapsedTimer landed;
        landed.start();
        if (!waitForRecord(engine, u"item_done"_s, stem)
            || !QFile::exists(dest + u'/' + stem + u"_hdr.jpg"_s)) {
            std::fprintf(stderr, "%s was not delivered\n", qPrintable(stem));
            return 1;
        }
        delays.push_back(landed.nsecsElapsed() / 1e9);
    }
    engine.kill();
    engine.waitForFinished();
    std::vector<double> sorted = delays;
    std::sort(sorted.begin(), sorted.end());
    std::printf("%d pairs of %dx%d: landing to Ultra HDR file, median %.2f s (min %.2f, max "
                "%.2f)\n",
                pairs, scene.width, scene.height, sorted[sorted.size() / 2], sorted.front(),
                sorted.back());
    return 0;
}
