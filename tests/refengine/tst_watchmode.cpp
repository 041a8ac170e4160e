// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's watch mode end to end: files copied in slowly while the real
// engine watches, the folder vanishing and coming back, and a pause by
// SIGSTOP/SIGCONT in the middle of a photo. Every step waits on the engine's
// own progress records, never on the clock.
#include "EngineProcess.h"
#include "SamplePairs.h"
#include "common/TestEnvironment.h"
#include "hdr/codec/UltraHdrDecoder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <csignal>

using namespace orvanta;
using namespace orvanta::samples;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int kWait = 120000;

int countFor(const EngineProcess &engine, const QString &type, const QString &stem)
{
    int n = 0;
    for (const QJsonObject &e : engine.events(type))
        n += e.value(u"stem"_s).toString() == stem;
    return n;
}

bool waiting(const EngineProcess &engine, const QString &stem, const QString &reason)
{
    for (const QJsonObject &e : engine.events(u"watch_waiting"_s))
        if (e.value(u"stem"_s).toString() == stem && e.value(u"waiting_for"_s).toString() == reason)
            return true;
    return false;
}

// The process state letter from /proc: 'T' while stopped.
char processState(qint64 pid)
{
    QFile stat(u"/proc/%1/stat"_s.arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return '?';
    const QByteArray text = stat.readAll();
    const qsizetype close = text.lastIndexOf(')');
    return close >= 0 && close + 2 < text.size() ? text.at(close + 2) : '?';
}

} // namespace

class TestWatchMode : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_source, m_dest;
    int m_run = 0;

    QStringList watchArgs(const QStringList &extra = {}) const
    {
        return QStringList { u"watch"_s, u"-s"_s, m_source, u"-d"_s, m_dest, u"--json-stream"_s }
        + extra;
    }

private slots:
    void init()
    {
        m_source = m_dir.filePath(u"src%1"_s.arg(++m_run));
        m_dest = m_source + u"-out"_s;
        QVERIFY(QDir().mkpath(m_source));
    }

    // A tethering program writes the RAW, then the JPG, each in pieces; the
    // folder is then unplugged and plugged back in with a new photo on it.
    void slowCopyIsConvertedOnceAndSurvivesTheFolderVanishing()
    {
        EngineProcess engine(watchArgs());
        engine.start();
        QTRY_VERIFY_WITH_TIMEOUT(!engine.events(u"watch_started"_s).isEmpty(), kWait);
        QCOMPARE(engine.event(u"watch_started"_s).value(u"folder"_s).toString(), m_source);

        const QByteArray raw = makeDng({}), jpg = makeJpeg({});
        QFile rawFile(m_source + u"/S.DNG"_s), jpgFile(m_source + u"/S.JPG"_s);
        QVERIFY(rawFile.open(QIODevice::WriteOnly));
        QVERIFY(rawFile.write(raw.left(raw.size() / 2)) > 0 && rawFile.flush());
        QTRY_VERIFY_WITH_TIMEOUT(waiting(engine, u"S"_s, u"jpg"_s), kWait);
        rawFile.write(raw.mid(raw.size() / 2));
        rawFile.close();
        QVERIFY(jpgFile.open(QIODevice::WriteOnly));
        QVERIFY(jpgFile.write(jpg.left(jpg.size() / 2)) > 0 && jpgFile.flush());
        // The engine has looked at the pair: both files are there, but one is
        // still being written, so it was not taken.
        QTRY_VERIFY_WITH_TIMEOUT(waiting(engine, u"S"_s, u"write"_s), kWait);
        QVERIFY(engine.events(u"item_start"_s).isEmpty());
        jpgFile.write(jpg.mid(jpg.size() / 2));
        jpgFile.close();
        QTRY_VERIFY_WITH_TIMEOUT(countFor(engine, u"item_done"_s, u"S"_s) == 1, kWait);
        const UltraHdrDecodeResult hdr = decodeUltraHdrFile(m_dest + u"/S_hdr.jpg"_s);
        QVERIFY2(hdr.gainMapApplied, qPrintable(hdr.gainMapIssue + hdr.error));

        // The disk goes away and comes back with S's files still on it.
        const QString away = m_source + u".away"_s;
        QVERIFY(QDir().rename(m_source, away));
        QTRY_VERIFY_WITH_TIMEOUT(!engine.events(u"watch_lost"_s).isEmpty(), kWait);
        QVERIFY(engine.log().contains(u"Waiting for it to come back"_s));
        QVERIFY(QDir().rename(away, m_source));
        QTRY_VERIFY_WITH_TIMEOUT(!engine.events(u"watch_back"_s).isEmpty(), kWait);
        QVERIFY(writePair(m_source, u"B"_s));
        QTRY_VERIFY_WITH_TIMEOUT(countFor(engine, u"item_done"_s, u"B"_s) == 1, kWait);
        QTRY_COMPARE_WITH_TIMEOUT(engine.events(u"watch_idle"_s).size(), 2, kWait);
        QCOMPARE(engine.events(u"watch_idle"_s).last().value(u"success"_s).toInt(), 2);

        // Idle: an interrupt ends the watch as a finished batch.
        ::kill(pid_t(engine.pid()), SIGINT);
        QVERIFY2(engine.run() == 0, qPrintable(engine.log()));
        // The engine read S's files while converting them and found them
        // again when the folder came back; B, arriving after both, was taken
        // after any second look at S: S was still converted exactly once.
        QCOMPARE(countFor(engine, u"item_start"_s, u"S"_s), 1);
        QVERIFY(engine.events(u"item_failed"_s).isEmpty());
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), 2);
        QCOMPARE(QDir(m_dest).entryList(QDir::Files).size(), 2);
    }

    // The application pauses by stopping the engine's process group; an
    // interrupt that arrives while stopped is the user's Stop on a paused run.
    void pauseAndStopMidPhotoFinishesIt()
    {
        EngineProcess engine(watchArgs({ u"-w"_s, u"1"_s }));
        QVERIFY(startOnLargePairs(engine, m_source, 3, 1800, u"item_start"_s));
        const pid_t pid = pid_t(engine.pid());
        ::kill(pid, SIGSTOP);
        QTRY_COMPARE_WITH_TIMEOUT(processState(pid), 'T', kWait);
        ::kill(pid, SIGINT);
        ::kill(pid, SIGCONT);
        const int status = engine.run();
        const int done = int(engine.events(u"item_done"_s).size());
        // Photos were still waiting unless the engine outran the stop.
        QVERIFY2(status == 130 || (status == 0 && done == 3), qPrintable(engine.log()));
        QVERIFY(done >= 1);
        QCOMPARE(int(engine.events(u"item_start"_s).size()), done);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), done);
        QCOMPARE(int(QDir(m_dest).entryList(QDir::Files | QDir::Hidden).size()), done);
    }
};

ORVANTA_TEST_GUILESS_MAIN(TestWatchMode)
#include "tst_watchmode.moc"
