// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The paths page's logic without widgets: the live file-name preview, the
// placeholder chips, the template warnings, and the logs folder (where the
// diagnostics buttons lead is tst_settingswindow's).
#include "common/TestEnvironment.h"
#include "ui/settings/DiagnosticsFolders.h"
#include "ui/settings/ExportNaming.h"

using namespace orvanta;
using namespace Qt::StringLiterals;

class ExportNamingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void previewRendersTheSamplePhoto_data()
    {
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<StyleProfile>("profile");
        QTest::addColumn<QString>("expected");

        QTest::newRow("default template, flat")
            << u"{original}_hdr"_s << u"none"_s << StyleProfile::Default << u"DSC01557_hdr.jpg"_s;
        QTest::newRow("upper-case extension is not recognised")
            << u"{date}_{camera}.JPG"_s << u"by_rating"_s << StyleProfile::Default
            << u"5_Stars/2026-09-02_ILCE-7CM2.JPG.jpg"_s;
        QTest::newRow("only spaces falls back")
            << u"    "_s << u"none"_s << StyleProfile::Default << u"DSC01557_hdr.jpg"_s;
        QTest::newRow("empty falls back")
            << QString() << u"none"_s << StyleProfile::Default << u"DSC01557_hdr.jpg"_s;
        QTest::newRow("spaces and tabs trimmed")
            << u" \t{original}\t "_s << u"none"_s << StyleProfile::Default << u"DSC01557.jpg"_s;
        QTest::newRow(".jpeg kept")
            << u"{original}.jpeg"_s << u"none"_s << StyleProfile::Default << u"DSC01557.jpeg"_s;
        QTest::newRow(".png gets .jpg")
            << u"{original}.png"_s << u"none"_s << StyleProfile::Default << u"DSC01557.png.jpg"_s;
        QTest::newRow("{stem} is {original}")
            << u"{stem}-{original}"_s << u"none"_s << StyleProfile::Default
            << u"DSC01557-DSC01557.jpg"_s;
        QTest::newRow("placeholders are case-sensitive")
            << u"{Original}"_s << u"none"_s << StyleProfile::Default << u"{Original}.jpg"_s;
        QTest::newRow("profile and rating")
            << u"{original}_{profile}_{rating}"_s << u"none"_s << StyleProfile::Landscape
            << u"DSC01557_landscape_punchy_5star.jpg"_s;
        QTest::newRow("by date") << u"{original}_hdr"_s << u"by_date"_s << StyleProfile::Default
                                 << u"2026-09-02/DSC01557_hdr.jpg"_s;
        QTest::newRow("by profile uses the raw value")
            << u"{original}_hdr"_s << u"by_profile"_s << StyleProfile::Portrait
            << u"portrait_soft/DSC01557_hdr.jpg"_s;
        QTest::newRow("unknown rule: no folder") << u"{original}_hdr"_s << u"by_camera"_s
                                                 << StyleProfile::Default << u"DSC01557_hdr.jpg"_s;
    }

    void previewRendersTheSamplePhoto()
    {
        QFETCH(QString, tmpl);
        QFETCH(QString, rule);
        QFETCH(StyleProfile, profile);
        QFETCH(QString, expected);
        QCOMPARE(naming::previewFileName(tmpl, rule, profile), expected);
    }

    void chipsAppendTheirPlaceholderOnce_data()
    {
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QString>("placeholder");
        QTest::addColumn<QString>("expected");
        QTest::newRow("joined by an underscore")
            << u"{original}_hdr"_s << u"{rating}"_s << u"{original}_hdr_{rating}"_s;
        QTest::newRow("already there: unchanged")
            << u"{original}_hdr_{rating}"_s << u"{rating}"_s << u"{original}_hdr_{rating}"_s;
        QTest::newRow("present anywhere counts")
            << u"{rating}-{original}"_s << u"{rating}"_s << u"{rating}-{original}"_s;
        QTest::newRow("trailing underscore kept single")
            << u"x_"_s << u"{rating}"_s << u"x_{rating}"_s;
        QTest::newRow("empty template") << QString() << u"{rating}"_s << u"{rating}"_s;
        QTest::newRow("another placeholder")
            << u"{original}"_s << u"{date}"_s << u"{original}_{date}"_s;
    }

    void chipsAppendTheirPlaceholderOnce()
    {
        QFETCH(QString, tmpl);
        QFETCH(QString, placeholder);
        QFETCH(QString, expected);
        QCOMPARE(naming::insertPlaceholder(tmpl, placeholder), expected);
    }

    void warningsNameForbiddenCharactersAndUnknownPlaceholders_data()
    {
        QTest::addColumn<QString>("tmpl");
        QTest::addColumn<QStringList>("forbidden");
        QTest::addColumn<QStringList>("unknown");
        QTest::newRow("clean") << u"{date}_{original}_{profile}-{camera}_{rating}.jpeg"_s
                               << QStringList() << QStringList();
        QTest::newRow("{stem} is known") << u"{stem}"_s << QStringList() << QStringList();
        QTest::newRow("blanks at the ends are trimmed, not flagged")
            << u"  {original}\t"_s << QStringList() << QStringList();
        QTest::newRow("separators and reserved characters, each once")
            << u"a/b\\c:d*e?f\"g<h>i|j:k"_s
            << QStringList { u"/"_s,  u"\\"_s, u":"_s, u"*"_s, u"?"_s,
                             u"\""_s, u"<"_s,  u">"_s, u"|"_s }
            << QStringList();
        QTest::newRow("control characters by code point")
            << u"a\tb\nc"_s << QStringList { u"U+0009"_s, u"U+000A"_s } << QStringList();
        QTest::newRow("wrong case and unknown names, each once")
            << u"{Date}_{foo}_{original}_{foo}"_s << QStringList()
            << QStringList { u"{Date}"_s, u"{foo}"_s };
        QTest::newRow("both at once")
            << u"{original}:{lens}"_s << QStringList { u":"_s } << QStringList { u"{lens}"_s };
        QTest::newRow("empty braces") << u"x{}"_s << QStringList() << QStringList { u"{}"_s };
    }

    void warningsNameForbiddenCharactersAndUnknownPlaceholders()
    {
        QFETCH(QString, tmpl);
        QFETCH(QStringList, forbidden);
        QFETCH(QStringList, unknown);
        const naming::TemplateIssues issues = naming::templateIssues(tmpl);
        QCOMPARE(issues.forbiddenCharacters, forbidden);
        QCOMPARE(issues.unknownPlaceholders, unknown);
        QCOMPARE(issues.isEmpty(), forbidden.isEmpty() && unknown.isEmpty());
    }

    void everyChipIsAKnownPlaceholder()
    {
        QCOMPARE(naming::chipPlaceholders(),
                 (QStringList { u"{original}"_s, u"{profile}"_s, u"{date}"_s, u"{camera}"_s,
                                u"{rating}"_s }));
        for (const QString &chip : naming::chipPlaceholders())
            QVERIFY2(naming::templateIssues(chip).isEmpty(), qPrintable(chip));
    }

    void logsFolderFollowsXdgStateHome()
    {
        const QByteArray saved = qgetenv("XDG_STATE_HOME");
        qputenv("XDG_STATE_HOME", "/srv/state/");
        QCOMPARE(diagnostics::logsFolder(), u"/srv/state/Orvanta/logs"_s);
        // A relative value is invalid by the XDG rules and ignored.
        qputenv("XDG_STATE_HOME", "relative/state");
        QCOMPARE(diagnostics::logsFolder(), QDir::homePath() + u"/.local/state/Orvanta/logs"_s);
        qunsetenv("XDG_STATE_HOME");
        QCOMPARE(diagnostics::logsFolder(), QDir::homePath() + u"/.local/state/Orvanta/logs"_s);
        qputenv("XDG_STATE_HOME", saved);
    }
};

ORVANTA_TEST_GUILESS_MAIN(ExportNamingTest)
#include "tst_exportnaming.moc"
