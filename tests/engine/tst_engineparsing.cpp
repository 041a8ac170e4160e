// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's interface without a process: record recognition and
// decoding, byte-level line splitting, the command line and environment,
// where the engine is looked for, the probes' rules and the icon overlay.
#include "common/TestEnvironment.h"
#include "engine/BatchEvent.h"
#include "engine/DockOverlay.h"
#include "engine/EngineDoctor.h"
#include "engine/EngineLaunch.h"
#include "engine/EngineOutputParser.h"
#include "engine/SystemProbes.h"

#include <QtTest>

using namespace orvanta;
Q_DECLARE_METATYPE(orvanta::EngineRunOptions)
using namespace Qt::StringLiterals;

namespace {

// Everything a parser delivered, in order: "log:<text>" or "event:<type>".
struct Collected
{
    QStringList items;
    QList<BatchEvent> events;
    EngineOutputParser parser { [this](const BatchEvent &e) {
                                   items << u"event:"_s + e.type;
                                   events << e;
                               },
                                [this](const QString &l) { items << u"log:"_s + l; } };
};

std::optional<BatchEvent> decodeLine(const QByteArray &line)
{
    Collected c;
    c.parser.feed(QByteArray(line + '\n'));
    return c.events.isEmpty() ? std::nullopt : std::optional(c.events.first());
}

} // namespace

class TestEngineParsing : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void recordLinesAreRecognisedByPrefixOnly_data();
    void recordLinesAreRecognisedByPrefixOnly();
    void memberTypesAreEnforced();
    void nullMembersReadAsAbsent();

    void linesAreJoinedAcrossReadsAtTheByteLevel();
    void invalidUtf8IsShownWithReplacementCharacters();
    void finalLineWithoutNewlineIsDeliveredOnFinish();
    void overlongLinesAreShownShortenedWithTheirLength();
    void unicodeSpacesAroundARecordAreTrimmed();

    void argumentsFollowTheEngineTable_data();
    void argumentsFollowTheEngineTable();
    void environmentPrefixesPathAndNamesResources();

    void locatorTriesCandidatesInOrder();
    void locatorSkipsOurOwnExecutable();
    void locatorFallsBackToPathThenBareName();

    void volumeIdentityFollowsMountFolders_data();
    void volumeIdentityFollowsMountFolders();
    void missingDestinationIsMeasuredOnItsAncestor();
    void halfAGibibyteIsNotEnough();
    void pressureIsClassifiedFromPsi_data();
    void pressureIsClassifiedFromPsi();
    void pressureLevelsMapToDescriptions();
    void environmentNamesTheEnginePath();

    void overlayBarKeepsItsRoundEnds();
    void overlayIsDrawnOnlyBetweenZeroAndOne();
};

void TestEngineParsing::recordLinesAreRecognisedByPrefixOnly_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QStringList>("expected");
    const auto log = [](const QString &s) { return QStringList { u"log:"_s + s }; };
    const QStringList scan { u"event:scan"_s };
    QTest::newRow("current prefix")
        << QByteArray(R"(ORVANTA_EVENT: {"type":"scan","pairs":3})") << scan;
    QTest::newRow("older prefix dravik") << QByteArray(R"(DRAVIK_EVENT: {"type":"scan"})") << scan;
    QTest::newRow("older prefix tarne") << QByteArray(R"(TARNE_EVENT: {"type":"scan"})") << scan;
    QTest::newRow("spaces around") << QByteArray(R"(   ORVANTA_EVENT: {"type":"scan"}   )") << scan;
    QTest::newRow("prefix mid-line is a log line")
        << QByteArray(R"(x ORVANTA_EVENT: {"type":"scan"})")
        << log(uR"(x ORVANTA_EVENT: {"type":"scan"})"_s);
    QTest::newRow("json without prefix is a log line")
        << QByteArray(R"({"type":"scan"})") << log(uR"({"type":"scan"})"_s);
    QTest::newRow("lower-case prefix is a log line")
        << QByteArray(R"(orvanta_event: {"type":"scan"})")
        << log(uR"(orvanta_event: {"type":"scan"})"_s);
    QTest::newRow("missing type is dropped")
        << QByteArray(R"(ORVANTA_EVENT: {"pairs":3})") << QStringList();
    QTest::newRow("fractional integer is dropped")
        << QByteArray(R"(ORVANTA_EVENT: {"type":"scan","pairs":3.5})") << QStringList();
    QTest::newRow("array payload is dropped")
        << QByteArray(R"(ORVANTA_EVENT: [1,2])") << QStringList();
    QTest::newRow("broken json is dropped")
        << QByteArray(R"(ORVANTA_EVENT: {"type":)") << QStringList();
    QTest::newRow("unknown type still decodes")
        << QByteArray(R"(ORVANTA_EVENT: {"type":"heartbeat"})")
        << QStringList { u"event:heartbeat"_s };
    QTest::newRow("blank line is nothing") << QByteArray(" \t \r") << QStringList();
    QTest::newRow("CRLF is trimmed") << QByteArray("[w1] done\r") << log(u"[w1] done"_s);
}

void TestEngineParsing::recordLinesAreRecognisedByPrefixOnly()
{
    QFETCH(QByteArray, line);
    QFETCH(QStringList, expected);
    Collected c;
    c.parser.feed(QByteArray(line + '\n'));
    QCOMPARE(c.items, expected);
}

void TestEngineParsing::memberTypesAreEnforced()
{
    const auto scan = decodeLine(R"(ORVANTA_EVENT: {"type":"scan","pairs":3})");
    QVERIFY(scan);
    QCOMPARE(scan->pairs, 3);
    QVERIFY(!scan->orphans && !scan->skipped && !scan->pending);

    // A whole number written as a float is still that number; strings,
    // booleans and numbers too large for 64 bits reject the record, for
    // whole and decimal members alike (never shown as 0).
    QCOMPARE(decodeLine(R"(ORVANTA_EVENT: {"type":"scan","pairs":3.0})")->pairs, 3);
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"scan","pairs":"3"})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"scan","pairs":true})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"item_done","peak_stops":"2.5"})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"item_done","duration":true})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"scan","pairs":1e30})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":7})"));
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":"item_done","stem":5})"));

    const auto done = decodeLine(
        R"(ORVANTA_EVENT: {"type":"item_done","stem":"IMG_1","index":2,"total":9,"faces":1,)"
        R"("peak_stops":2,"bayer_clip":0.25,"duration":1.5,"status":"ok","error":"","extra":[1]})");
    QVERIFY(done);
    QCOMPARE(done->stem, u"IMG_1"_s);
    QCOMPARE(done->index, 2);
    QCOMPARE(done->total, 9);
    QCOMPARE(done->faces, 1);
    QCOMPARE(done->peakStops, 2.0); // floats accept whole numbers
    QCOMPARE(done->bayerClip, 0.25);
    QCOMPARE(done->duration, 1.5);
    QCOMPARE(done->status, u"ok"_s);
    QCOMPARE(done->error, QString());
}

void TestEngineParsing::nullMembersReadAsAbsent()
{
    const auto e = decodeLine(
        R"(ORVANTA_EVENT: {"type":"item_done","peak_stops":null,"stem":null,"index":null})");
    QVERIFY(e);
    QVERIFY(!e->peakStops && !e->stem && !e->index);
    QVERIFY(!decodeLine(R"(ORVANTA_EVENT: {"type":null})"));
}

void TestEngineParsing::linesAreJoinedAcrossReadsAtTheByteLevel()
{
    Collected c;
    const QByteArray text
        = u"first line\nsecond — ünïcødé 写真\nORVANTA_EVENT: {\"type\":\"scan\"}\n"_s.toUtf8();
    // Every possible cut, including inside the multi-byte characters.
    for (qsizetype cut = 0; cut <= text.size(); ++cut) {
        c.items.clear();
        c.parser.feed(text.first(cut));
        c.parser.feed(text.sliced(cut));
        QCOMPARE(
            c.items,
            (QStringList { u"log:first line"_s, u"log:second — ünïcødé 写真"_s, u"event:scan"_s }));
        QCOMPARE(c.parser.pendingBytes(), 0);
    }
    // Byte by byte.
    c.items.clear();
    for (char byte : text)
        c.parser.feed(QByteArrayView(&byte, 1));
    QCOMPARE(c.items.size(), 3);
    QCOMPARE(c.items.at(1), u"log:second — ünïcødé 写真"_s);
}

void TestEngineParsing::invalidUtf8IsShownWithReplacementCharacters()
{
    Collected c;
    c.parser.feed("bad \xff\xfe bytes\nnext\n");
    QCOMPARE(c.items.size(), 2);
    QVERIFY(c.items.at(0).startsWith(u"log:bad "_s));
    QVERIFY(c.items.at(0).contains(QChar(0xFFFD)));
    QVERIFY(c.items.at(0).endsWith(u" bytes"_s));
    QCOMPARE(c.items.at(1), u"log:next"_s);
}

void TestEngineParsing::finalLineWithoutNewlineIsDeliveredOnFinish()
{
    Collected c;
    c.parser.feed("one\ntwo without newline");
    QCOMPARE(c.items, QStringList { u"log:one"_s });
    c.parser.finish();
    QCOMPARE(c.items, (QStringList { u"log:one"_s, u"log:two without newline"_s }));
    c.parser.finish(); // nothing twice
    QCOMPARE(c.items.size(), 2);
}

void TestEngineParsing::overlongLinesAreShownShortenedWithTheirLength()
{
    const qsizetype max = EngineOutputParser::kMaxLineBytes;
    const qsizetype shown = EngineOutputParser::kShownLineBytes;
    Collected c;
    // 2.5 MiB of 'a' fed in 64 KiB reads, never a newline: shown once by
    // its beginning, then only counted.
    const QByteArray block(64 * 1024, 'a');
    for (int i = 0; i < 40; ++i)
        c.parser.feed(block);
    QCOMPARE(c.items.size(), 1);
    QCOMPARE(c.items.at(0),
             u"log:"_s + QString(shown, u'a') + u" … [line shortened: it goes on]"_s);
    QVERIFY(c.parser.pendingBytes() <= max);
    c.parser.feed("bb\nnext\n");
    QCOMPARE(c.items.mid(1),
             (QStringList { u"log:   … [the shortened line above ended after 2621442 bytes]"_s,
                            u"log:next"_s }));

    // A complete long line is shortened with its length noted, and a cut
    // never splits a character.
    c.items.clear();
    const QByteArray wide = QByteArray(shown - 1, 'b') + u"写写"_s.toUtf8();
    c.parser.feed(QByteArray(wide + '\n'));
    QCOMPARE(c.items,
             QStringList { u"log:"_s + QString(shown - 1, u'b')
                           + u" … [line shortened: %1 bytes in all]"_s.arg(wide.size()) });
    QCOMPARE(utf8CutPosition(wide, shown), shown - 1);

    // The console keeps the newest lines within both of its budgets.
    const QStringList lines { u"aaaa"_s, u"bb"_s, u"cc"_s, u"d"_s };
    QCOMPARE(consoleLinesOverBudget(lines, 10, 100), 0);
    QCOMPARE(consoleLinesOverBudget(lines, 2, 100), 2);
    QCOMPARE(consoleLinesOverBudget(lines, 10, 5), 1);
    QCOMPARE(consoleLinesOverBudget({ QString(50, u'x') }, 10, 5), 0); // the newest always stays
}

void TestEngineParsing::unicodeSpacesAroundARecordAreTrimmed()
{
    Collected c;
    c.parser.feed(u"\u00a0ORVANTA_EVENT: {\"type\":\"scan\"}\u3000\n\u00a0\u00a0\n"_s.toUtf8());
    QCOMPARE(c.items, QStringList { u"event:scan"_s });
}

void TestEngineParsing::argumentsFollowTheEngineTable_data()
{
    QTest::addColumn<EngineRunOptions>("options");
    QTest::addColumn<QStringList>("tail"); // after the fixed first eight words

    EngineRunOptions base;
    base.sourceDir = u"/src dir"_s;
    base.destDir = u"/dst"_s;
    QTest::newRow("nothing optional") << base << QStringList();

    EngineRunOptions custom = base;
    custom.profile = StyleProfile::Custom;
    custom.customMidTarget = 1.0;
    custom.customPowerMid = 0.456;
    custom.customPowerHi = 1.5;
    custom.customChromaBoost = 0.28;
    custom.customSkinDamp = 0.004;
    QTest::newRow("custom tuning with two decimals")
        << custom << QStringList { u"--mid-target"_s, u"1.00"_s, u"--power-mid"_s,    u"0.46"_s,
                                   u"--power-hi"_s,   u"1.50"_s, u"--chroma-boost"_s, u"0.28"_s,
                                   u"--skin-damp"_s,  u"0.00"_s };

    EngineRunOptions portrait = custom;
    portrait.profile = StyleProfile::Portrait;
    QTest::newRow("tuning ignored for other profiles") << portrait << QStringList();

    EngineRunOptions all = base;
    all.stem = u" IMG_1 "_s;
    all.force = all.dryRun = all.backlitFill = all.noThrottle = true;
    all.minRating = 3;
    all.namingTemplate = u"\t{original}_hdr "_s;
    all.subfolderRule = u" none"_s;
    all.workers = 4;
    QTest::newRow("every flag in order") << all
                                         << QStringList { u"--stem"_s,
                                                          u" IMG_1 "_s,
                                                          u"-f"_s,
                                                          u"-n"_s,
                                                          u"--backlit-fill"_s,
                                                          u"--min-rating"_s,
                                                          u"3"_s,
                                                          u"--naming-template"_s,
                                                          u"{original}_hdr"_s,
                                                          u"--subfolder-rule"_s,
                                                          u"none"_s,
                                                          u"-w"_s,
                                                          u"4"_s,
                                                          u"--no-throttle"_s };

    EngineRunOptions empty = base;
    empty.stem = u" \t"_s;
    empty.namingTemplate = u"  "_s;
    empty.subfolderRule = u"none"_s;
    empty.workers = -2;
    empty.minRating = 0;
    QTest::newRow("blank, none, zero and negative add nothing") << empty << QStringList();

    EngineRunOptions newline = base;
    newline.namingTemplate = u"\n{original}\n"_s;
    QTest::newRow("newlines are not horizontal space")
        << newline << QStringList { u"--naming-template"_s, u"\n{original}\n"_s };
}

void TestEngineParsing::argumentsFollowTheEngineTable()
{
    QFETCH(EngineRunOptions, options);
    QFETCH(QStringList, tail);
    const QStringList args = engineArguments(options);
    const QStringList head {
        u"run"_s,        u"-s"_s,           options.sourceDir,         u"-d"_s,
        options.destDir, u"--profile-id"_s, rawValue(options.profile), u"--json-stream"_s
    };
    QCOMPARE(args.first(8), head);
    QCOMPARE(args.sliced(8), tail);
}

void TestEngineParsing::environmentPrefixesPathAndNamesResources()
{
    QProcessEnvironment env;
    env.insert(u"PATH"_s, u"/usr/bin"_s);
    env.insert(u"KEEP"_s, u"1"_s);
    const QProcessEnvironment out = engineEnvironment(env, u"/opt/orvanta/share/orvanta"_s);
    QCOMPARE(out.value(u"PATH"_s),
             u"/opt/homebrew/bin:/usr/local/bin:/opt/homebrew/sbin:/usr/bin"_s);
    QCOMPARE(out.value(u"KEEP"_s), u"1"_s);
    for (const QString &name :
         { u"ORVANTA_RESOURCES_DIR"_s, u"DRAVIK_RESOURCES_DIR"_s, u"TARNE_RESOURCES_DIR"_s })
        QCOMPARE(out.value(name), u"/opt/orvanta/share/orvanta"_s);

    const QProcessEnvironment bare = engineEnvironment(QProcessEnvironment(), QString());
    QCOMPARE(
        bare.value(u"PATH"_s),
        u"/opt/homebrew/bin:/usr/local/bin:/opt/homebrew/sbin:/usr/bin:/bin:/usr/sbin:/sbin"_s);
    QVERIFY(!bare.contains(u"ORVANTA_RESOURCES_DIR"_s));
}

namespace {
EngineLocatorContext fakeLocator(QHash<QString, QString> env, QSet<QString> executables)
{
    EngineLocatorContext c;
    c.environment = [env](const QString &n) -> std::optional<QString> {
        if (!env.contains(n))
            return std::nullopt;
        return env.value(n);
    };
    c.isExecutableFile = [executables](const QString &p) { return executables.contains(p); };
    c.findOnPath = [](const QString &) { return QString(); };
    c.applicationDir = u"/opt/orvanta/bin"_s;
    c.homeDir = u"/home/ana"_s;
    return c;
}
} // namespace

void TestEngineParsing::locatorTriesCandidatesInOrder()
{
    const QStringList all = engineCandidates(fakeLocator(
        { { u"DRAVIK_BIN"_s, u"/x/dravik"_s }, { u"TARNE_BIN"_s, u"/x/tarne"_s } }, {}));
    const QStringList expected { u"/x/dravik"_s, // only the first variable that is set
                                 u"/opt/orvanta/bin/orvanta_engine"_s,
                                 u"/opt/orvanta/bin/dravik_engine"_s,
                                 u"/opt/orvanta/bin/tarne_engine"_s,
                                 u"/opt/orvanta/libexec/orvanta/orvanta_engine"_s,
                                 u"/opt/orvanta/share/orvanta/orvanta_engine"_s,
                                 u"/opt/orvanta/share/orvanta/pemvira_engine"_s,
                                 u"/opt/orvanta/share/orvanta/dravik_engine"_s,
                                 u"/opt/orvanta/share/orvanta/tarne_engine"_s,
                                 u"/opt/orvanta/bin/orvanta_engine"_s,
                                 u"/opt/orvanta/bin/dravik_engine"_s,
                                 u"/opt/orvanta/bin/tarne_engine"_s,
                                 u"/opt/orvanta/bin/orvanta"_s,
                                 u"/opt/orvanta/bin/dravik"_s,
                                 u"/opt/orvanta/bin/tarne"_s,
                                 u"/opt/bin/orvanta"_s,
                                 u"/opt/bin/dravik"_s,
                                 u"/opt/bin/tarne"_s,
                                 u"/home/ana/Desktop/hdr_workflow/bin/orvanta"_s,
                                 u"/home/ana/Desktop/hdr_workflow/bin/dravik"_s,
                                 u"/home/ana/Desktop/hdr_workflow/bin/tarne"_s,
                                 u"/home/ana/.local/bin/orvanta"_s,
                                 u"/usr/local/bin/orvanta"_s,
                                 u"/opt/homebrew/bin/orvanta"_s };
    QCOMPARE(all, expected);

    // An override that is not executable falls through to the next places.
    const auto c = fakeLocator({ { u"ORVANTA_BIN"_s, u"/missing"_s } },
                               { u"/home/ana/.local/bin/orvanta"_s, u"/usr/local/bin/orvanta"_s });
    QCOMPARE(resolveEngineBinary(c), u"/home/ana/.local/bin/orvanta"_s);
    const auto o
        = fakeLocator({ { u"ORVANTA_BIN"_s, u"/e"_s } }, { u"/e"_s, u"/usr/local/bin/orvanta"_s });
    QCOMPARE(resolveEngineBinary(o), u"/e"_s);
}

void TestEngineParsing::locatorSkipsOurOwnExecutable()
{
    // Installed in a bin folder, the application is itself "bin/orvanta".
    QTemporaryDir dir;
    QDir().mkpath(dir.path() + u"/bin"_s);
    const QString self = dir.path() + u"/bin/orvanta"_s;
    QFile f(self);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.close();
    auto c = fakeLocator({}, { self });
    c.applicationDir = dir.path() + u"/bin"_s;
    c.applicationFile = self;
    QCOMPARE(resolveEngineBinary(c), u"orvanta_engine"_s);
}

void TestEngineParsing::locatorFallsBackToPathThenBareName()
{
    auto c = fakeLocator({}, {});
    QCOMPARE(resolveEngineBinary(c), u"orvanta_engine"_s);
    c.findOnPath = [](const QString &name) {
        return name == u"orvanta_engine"_s ? u"/usr/bin/orvanta_engine"_s : QString();
    };
    QCOMPARE(resolveEngineBinary(c), u"/usr/bin/orvanta_engine"_s);
}

void TestEngineParsing::volumeIdentityFollowsMountFolders_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("external");
    QTest::newRow("udisks per-user mount")
        << u"/media/ana/Photos/Out/2024"_s << u"Photos"_s << true;
    QTest::newRow("run media") << u"/run/media/ana/CARD/DCIM"_s << u"CARD"_s << true;
    QTest::newRow("mnt") << u"/mnt/nas/out"_s << u"nas"_s << true;
    QTest::newRow("Volumes") << u"/Volumes/Photos/Out/2024"_s << u"Photos"_s << true;
    QTest::newRow("Volumes alone") << u"/Volumes/"_s << QString() << false;
    QTest::newRow("media without a volume") << u"/media/ana"_s << QString() << false;
    QTest::newRow("home") << u"/home/ana/Pictures/UltraHDR"_s << QString() << false;
    QTest::newRow("look-alike") << u"/home/media/ana/x"_s << QString() << false;
}

void TestEngineParsing::volumeIdentityFollowsMountFolders()
{
    QFETCH(QString, path);
    QFETCH(QString, name);
    QFETCH(bool, external);
    const VolumeIdentity id = volumeIdentityForPath(path);
    QCOMPARE(id.name, name);
    QCOMPARE(id.external, external);
}

void TestEngineParsing::missingDestinationIsMeasuredOnItsAncestor()
{
    QTemporaryDir dir;
    QCOMPARE(nearestExistingAncestor(dir.path() + u"/not/yet/made"_s), dir.path());
    QCOMPARE(nearestExistingAncestor(dir.path()), dir.path());
    QCOMPARE(nearestExistingAncestor(u"/no-such-root-folder/x"_s), u"/"_s);
    const VolumeInfo info = probeVolume(dir.path() + u"/not/yet"_s, QString());
    QVERIFY(info.freeGiB > 0.0);
    QVERIFY(info.name.isEmpty()); // the views name it in the user's language
    QCOMPARE(freeGibibytesAt(u"/no-such-root-folder"_s), 0.0);
}

void TestEngineParsing::halfAGibibyteIsNotEnough()
{
    QVERIFY(!isVolumeSafeForBatch(0.0));
    QVERIFY(!isVolumeSafeForBatch(0.5));
    QVERIFY(isVolumeSafeForBatch(0.51));
}

void TestEngineParsing::pressureIsClassifiedFromPsi_data()
{
    QTest::addColumn<QByteArray>("psi");
    QTest::addColumn<int>("level"); // 0: unreadable
    const auto psi = [](const char *some, const char *full) -> QByteArray {
        return QByteArray("some avg10=") + some + " avg60=0.00 avg300=0.00 total=1\nfull avg10="
            + full + " avg60=0.00 avg300=0.00 total=1\n";
    };
    QTest::newRow("idle") << psi("0.00", "0.00") << 1;
    QTest::newRow("some stalls") << psi("9.99", "0.50") << 1;
    QTest::newRow("warning from some") << psi("10.00", "0.00") << 2;
    QTest::newRow("warning from full") << psi("0.00", "1.00") << 2;
    QTest::newRow("critical from full") << psi("12.00", "10.00") << 4;
    QTest::newRow("critical from some") << psi("50.00", "0.00") << 4;
    QTest::newRow("no full line") << QByteArray("some avg10=11.00 avg60=0 avg300=0 total=0\n") << 2;
    QTest::newRow("empty") << QByteArray() << 0;
    QTest::newRow("garbage") << QByteArray("some avg10=abc\n") << 0;
}

void TestEngineParsing::pressureIsClassifiedFromPsi()
{
    QFETCH(QByteArray, psi);
    QFETCH(int, level);
    const auto pressure = memoryPressureFromPsi(psi);
    QCOMPARE(pressure ? int(*pressure) : 0, level);
}

void TestEngineParsing::pressureLevelsMapToDescriptions()
{
    QCOMPARE(memoryPressureKey(1), "pressure_normal");
    QCOMPARE(memoryPressureKey(3), "pressure_normal");
    QCOMPARE(memoryPressureKey(0), "pressure_normal");
    QCOMPARE(memoryPressureKey(-1), "pressure_normal");
    QCOMPARE(memoryPressureKey(2), "pressure_warning");
    QCOMPARE(memoryPressureKey(4), "pressure_critical");
    QCOMPARE(memoryPressureKey(9), "pressure_critical");
    QVERIFY(!readMemoryPressure(u"/no/such/psi"_s));
    QVERIFY(installedMemoryGiB() > 0.0);
}

void TestEngineParsing::environmentNamesTheEnginePath()
{
    QSet<QString> executable;
    QSet<QString> files;
    EngineLocatorContext c;
    c.environment = [](const QString &) -> std::optional<QString> { return std::nullopt; };
    c.isExecutableFile = [&executable](const QString &p) { return executable.contains(p); };
    c.findOnPath = [](const QString &) { return QString(); };
    c.applicationDir = u"/opt/orvanta/bin"_s;
    c.homeDir = u"/home/u"_s;
    // Nothing installed: the message names where the installation puts it.
    EnvironmentVerdict v = checkEngineInstalled(c);
    QCOMPARE(v.key, "env_engine_missing");
    QCOMPARE(v.detail, u"/opt/orvanta/bin/orvanta_engine"_s);
    // An override names its own path, even when the file is elsewhere.
    c.environment = [](const QString &name) -> std::optional<QString> {
        if (name == u"ORVANTA_BIN"_s)
            return u"/nowhere/orvanta_engine"_s;
        return std::nullopt;
    };
    QCOMPARE(checkEngineInstalled(c).detail, u"/nowhere/orvanta_engine"_s);
    // A file that is there but cannot be run is said to be so.
    QTemporaryDir dir;
    const QString plain = dir.filePath(u"orvanta_engine"_s);
    QFile file(plain);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    c.environment = [plain](const QString &name) -> std::optional<QString> {
        if (name == u"ORVANTA_BIN"_s)
            return plain;
        return std::nullopt;
    };
    QCOMPARE(checkEngineInstalled(c).key, "env_engine_not_executable");
    // Any executable candidate (or one on PATH) is healthy.
    executable << u"/home/u/.local/bin/orvanta"_s;
    QVERIFY(checkEngineInstalled(c).healthy());
    executable.clear();
    c.findOnPath = [](const QString &n) -> QString { return u"/usr/bin/"_s + n; };
    executable << u"/usr/bin/orvanta_engine"_s;
    QVERIFY(checkEngineInstalled(c).healthy());

    QVERIFY(librariesVerdict({}).healthy());
    const EnvironmentVerdict libs = librariesVerdict({ u"libraw"_s, u"opencv"_s });
    QCOMPARE(libs.key, "env_missing_libraries");
    QCOMPARE(libs.detail, u"libraw, opencv"_s);
    QCOMPARE(missingSharedLibrary("orvanta_engine: error while loading shared libraries: "
                                  "libraw_r.so.20: cannot open shared object file"),
             std::optional<QString>(u"libraw_r.so.20"_s));
    QCOMPARE(missingSharedLibrary("Segmentation fault"), std::nullopt);
}

void TestEngineParsing::overlayBarKeepsItsRoundEnds()
{
    const QSizeF tile(128, 128);
    const DockOverlayGeometry tiny = dockOverlayGeometry(tile, 0.01);
    QVERIFY(tiny.visible);
    QCOMPARE(tiny.track, QRectF(14, 128 - 10 - 11, 100, 11));
    QCOMPARE(tiny.fill.width(), 11.0); // a capsule, not a sliver
    QCOMPARE(dockOverlayGeometry(tile, 0.5).fill.width(), 50.0);
    QCOMPARE(dockOverlayGeometry(tile, 0.999).fill.width(), 99.9);
}

void TestEngineParsing::overlayIsDrawnOnlyBetweenZeroAndOne()
{
    QVERIFY(!dockOverlayGeometry({ 128, 128 }, 0.0).visible);
    QVERIFY(!dockOverlayGeometry({ 128, 128 }, 1.0).visible);

    QImage icon(128, 128, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::white);
    const QColor accent(0, 200, 0);
    const QImage none = renderDockOverlay(icon, 1.0, accent);
    QCOMPARE(none.pixelColor(20, 112), QColor(Qt::white));

    const QImage half = renderDockOverlay(icon, 0.5, accent);
    QCOMPARE(half.pixelColor(40, 112), accent); // inside the fill
    const QColor track = half.pixelColor(100, 112); // track: white under 65 % black
    QVERIFY(track.red() > 60 && track.red() < 110);
    QCOMPARE(half.pixelColor(64, 40), QColor(Qt::white)); // icon untouched above the bar
}

ORVANTA_TEST_GUILESS_MAIN(TestEngineParsing)
#include "tst_engineparsing.moc"
