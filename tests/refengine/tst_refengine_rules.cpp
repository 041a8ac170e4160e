// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's rules that need no process: the command line, the tuning
// values' effect on the lift, output names, and the memory-pressure reading.
#include "EngineOptions.h"
#include "HdrRenderer.h"
#include "OutputNaming.h"
#include "RawDevelop.h"
#include "SystemLoad.h"
#include "common/TestEnvironment.h"

using namespace orvanta::engine;
using namespace Qt::StringLiterals;

class TestEngineRules : public QObject
{
    Q_OBJECT

private slots:
    void commandLineTakesEveryFlagTheApplicationSends()
    {
        // As the application sends them, one argument between each pair of bars.
        const ParsedCommandLine p = parseCommandLine(
            u"run|-s|/in|-d|/out|--profile-id|custom|--json-stream|--mid-target|0.70|"
            u"--power-mid|0.30|--power-hi|2.00|--chroma-boost|0.10|--skin-damp|0.90|--stem|A, B|"
            u"-f|-n|--backlit-fill|--min-rating|3|--naming-template|{date}_x|--subfolder-rule|"
            u"by_date|-w|2|--no-throttle"_s.split(u'|'));
        QCOMPARE(p.command, Command::Run);
        const RunOptions &o = p.options;
        QCOMPARE(o.sourceDir, u"/in"_s);
        QCOMPARE(o.destDir, u"/out"_s);
        QVERIFY(o.jsonStream && o.force && o.dryRun && o.backlitFill && o.noThrottle);
        QCOMPARE(o.stems, QStringList({ u"A"_s, u"B"_s }));
        QCOMPARE(o.minRating, 3);
        QCOMPARE(o.workers, 2);
        QCOMPARE(o.namingTemplate, u"{date}_x"_s);
        QCOMPARE(o.subfolderRule, u"by_date"_s);
        const Tuning t = tuningFor(o);
        QCOMPARE(t.midTarget, 0.70);
        QCOMPARE(t.powerMid, 0.30);
        QCOMPARE(t.powerHi, 2.00);
        QCOMPARE(t.chromaBoost, 0.10);
        QCOMPARE(t.skinDamp, 0.90);
    }

    void tuningFlagsApplyOnlyToTheCustomProfile()
    {
        ParsedCommandLine p
            = parseCommandLine({ u"run"_s, u"-s"_s, u"a"_s, u"-d"_s, u"b"_s, u"--profile-id"_s,
                                 u"portrait_soft"_s, u"--skin-damp"_s, u"0.0"_s });
        QCOMPARE(tuningFor(p.options).skinDamp, 0.70);
        bool known = true;
        p.options.profileId = u"nonsense"_s;
        QCOMPARE(tuningFor(p.options, &known).midTarget, 0.55);
        QVERIFY(!known);
    }

    void badValuesAreRefused_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("number expected") << QStringList { u"--mid-target"_s, u"high"_s };
        QTest::newRow("whole number expected") << QStringList { u"-w"_s, u"2.5"_s };
        QTest::newRow("value missing") << QStringList { u"--stem"_s };
        QTest::newRow("unknown flag") << QStringList { u"--turbo"_s };
    }
    void badValuesAreRefused()
    {
        QFETCH(QStringList, args);
        const ParsedCommandLine p
            = parseCommandLine(QStringList { u"run"_s, u"-s"_s, u"a"_s, u"-d"_s, u"b"_s } + args);
        QCOMPARE(p.command, Command::Invalid);
        QVERIFY(!p.error.isEmpty());
    }

    void configFileFillsWhatHasNoFlag()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(R"({ "workers": 3, "memory_throttle": false, "enable_canary": false,
                        "export_debug_masks": true, "profile_id": "custom" })");
        file.close();
        RunOptions o;
        applyConfigFile(o, file.fileName());
        QCOMPARE(o.workers, 3);
        QVERIFY(!o.memoryThrottle && !o.enableCanary && o.debugMasks);
        RunOptions explicitWorkers;
        explicitWorkers.workers = 1;
        applyConfigFile(explicitWorkers, file.fileName());
        QCOMPARE(explicitWorkers.workers, 1); // -w wins over the file
    }

    void midTargetLiftsWhiteByItsStops()
    {
        Tuning t;
        t.midTarget = 0.8;
        QCOMPARE(liftStops(t, 1.0, 0.0, 1.0), 0.8);
        QCOMPARE(liftStops(t, 0.1, 0.0, 0.3), 0.0); // below mid grey nothing moves
    }

    void lowerPowerMidKeepsTheLiftForTheBrightest()
    {
        Tuning low, high;
        low.powerMid = 0.3;
        high.powerMid = 1.2;
        QVERIFY(liftStops(low, 0.5, 0.0, 0.7) < liftStops(high, 0.5, 0.0, 0.7));
        QCOMPARE(liftStops(low, 1.0, 0.0, 1.0), liftStops(high, 1.0, 0.0, 1.0));
    }

    void highlightKneeGrowsWithPowerHiAndStaysBelowTheHeadroom()
    {
        Tuning soft, hard;
        soft.midTarget = hard.midTarget = 0.0;
        soft.powerHi = 1.0;
        hard.powerHi = 3.0;
        const double s = liftStops(soft, 1.0, 2.5, 1.0), h = liftStops(hard, 1.0, 2.5, 1.0);
        QVERIFY(s < h);
        QVERIFY(h < 3.0);
        QVERIFY(liftStops(hard, 1.0, 10.0, 1.0) <= 3.0);
        // The highlight part needs a bright JPG pixel: a dark one is left alone.
        QCOMPARE(liftStops(hard, 0.05, 2.5, 0.2), 0.0);
    }

    void profileScaleShrinksTheWholeLift()
    {
        Tuning full, cinematic;
        cinematic.scale = 0.65;
        QCOMPARE(liftStops(cinematic, 1.0, 2.0, 1.0), 0.65 * liftStops(full, 1.0, 2.0, 1.0));
    }

    void outputNamesFollowTheTemplate_data()
    {
        QTest::addColumn<QString>("naming");
        QTest::addColumn<QString>("expected");
        QTest::newRow("default") << u"{original}_hdr"_s << u"DSC1_hdr.jpg"_s;
        QTest::newRow("blank falls back") << u"  "_s << u"DSC1_hdr.jpg"_s;
        QTest::newRow("jpeg kept") << u"{stem}.jpeg"_s << u"DSC1.jpeg"_s;
        QTest::newRow("upper case gets .jpg")
            << u"{date}_{camera}.JPG"_s << u"2026-09-02_ILCE-7CM2.JPG.jpg"_s;
        QTest::newRow("rating and profile") << u"{profile}-{rating}"_s << u"default-5star.jpg"_s;
        QTest::newRow("slashes cannot escape") << u"../{original}"_s << u".._DSC1.jpg"_s;
    }
    void outputNamesFollowTheTemplate()
    {
        QFETCH(QString, naming);
        QFETCH(QString, expected);
        const NamingFacts facts { u"DSC1"_s, u"default"_s, u"2026-09-02"_s, u"ILCE-7CM2"_s, 5 };
        QCOMPARE(outputFileName(naming, facts), expected);
    }

    void subfoldersFollowTheRule()
    {
        const NamingFacts facts { u"DSC1"_s, u"landscape_punchy"_s, u"2026-09-02"_s, u"X"_s, 4 };
        QCOMPARE(subfolderFor(u"none"_s, facts), QString());
        QCOMPARE(subfolderFor(u"by_date"_s, facts), u"2026-09-02/"_s);
        QCOMPARE(subfolderFor(u"by_rating"_s, facts), u"4_Stars/"_s);
        QCOMPARE(subfolderFor(u"by_profile"_s, facts), u"landscape_punchy/"_s);
        QCOMPARE(subfolderFor(u"by_moon"_s, facts), QString());
    }

    void memoryPressureReadsSomeAvg10()
    {
        QCOMPARE(memoryPressureAvg10("some avg10=12.50 avg60=3.00 avg300=1.00 total=1\n"
                                     "full avg10=1.00 avg60=0.00 avg300=0.00 total=0\n"),
                 std::optional<double>(12.5));
        QCOMPARE(memoryPressureAvg10("full avg10=1.00\n"), std::nullopt);
        QCOMPARE(memoryPressureAvg10(""), std::nullopt);
    }

    void orientationInversesUndoEachOther()
    {
        for (int o = 1; o <= 8; ++o)
            QCOMPARE(inverseOrientation(inverseOrientation(o)), o);
        QCOMPARE(inverseOrientation(6), 8);
    }
};

ORVANTA_TEST_GUILESS_MAIN(TestEngineRules)
#include "tst_refengine_rules.moc"
