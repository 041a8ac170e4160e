// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The state object: defaults, loading and saving the configuration through
// its setters, the start-up write, and the localized status line.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>

using namespace orvanta;
using namespace Qt::StringLiterals;

class AppViewModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everyPropertyNotifiesAndEveryPersistedOneRoundTrips();
    void startupWritesTheFileExactlyOnce_data();
    void startupWritesTheFileExactlyOnce();
    void loadsEveryManagedKey();
    void wrongTypesAreIgnoredAndDefaultsKept();
    void backlitFillAndProfileAlwaysGetAValue();
    void missingFoldersFallBackToPictures();
    void visibleColumnsDropUnknownNamesAndKeepDefaultsWhenNothingIsLeft_data();
    void visibleColumnsDropUnknownNamesAndKeepDefaultsWhenNothingIsLeft();
    void unknownKeysSurviveEverySave();
    void nonObjectFileIsReplacedByManagedKeys();
    void onlyRealChangesSave();
    void visibleColumnsSaveOnEveryAssignment();
    void resetCustomParametersRestoresDefaultsThroughSetters();
    void outOfRangeValuesFromTheFileAreKept();

    void statusRerendersInTheNewLanguage();
    void statusWithoutArgumentsShowsItsDirectivesAsWritten();
    void languageChangeAnnouncesAWholeObjectChange();

private:
    QString configFile() const { return m_home + QStringLiteral("/.config/orvanta/config.json"); }
    void writeConfig(const QByteArray &bytes);
    QJsonObject readConfig() const;
    QString makeDir(const QString &name);
    QString m_home;
};

void AppViewModelTest::init()
{
    m_home = QDir::homePath();
    QDir(m_home + QStringLiteral("/.config/orvanta")).removeRecursively();
    QDir(m_home + QStringLiteral("/Pictures")).removeRecursively();
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
}

void AppViewModelTest::writeConfig(const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(configFile()).absolutePath());
    QFile file(configFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QJsonObject AppViewModelTest::readConfig() const
{
    QFile file(configFile());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object();
}

QString AppViewModelTest::makeDir(const QString &name)
{
    const QString path = m_home + u'/' + name;
    QDir().mkpath(path);
    return path;
}

void AppViewModelTest::everyPropertyNotifiesAndEveryPersistedOneRoundTrips()
{
    const QMetaObject &meta = AppViewModel::staticMetaObject;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        QVERIFY2(meta.property(i).hasNotifySignal(), meta.property(i).name());

    // Give every persisted property a value it does not have, then load the
    // file into a second model: a property missing from loading or saving
    // comes back with its default.
    AppViewModel model;
    const auto otherValue = [&](const QVariant &old, const char *name) -> QVariant {
        const QMetaType type = old.metaType();
        if (type == QMetaType::fromType<QString>())
            return makeDir(u"roundtrip/"_s + QLatin1StringView(name)); // folders must exist
        if (type == QMetaType::fromType<bool>())
            return !old.toBool();
        if (type == QMetaType::fromType<qint64>())
            return old.toLongLong() + 3;
        if (type == QMetaType::fromType<double>())
            return old.toDouble() + 0.125;
        if (type == QMetaType::fromType<StyleProfile>())
            return QVariant::fromValue(StyleProfile::Cinematic);
        if (type == QMetaType::fromType<ListColumnSet>())
            return QVariant::fromValue(ListColumnSet { ListColumn::Date });
        return {}; // a new type: give it a test value here
    };
    const QList<AppViewModel::PersistedProperty> persisted = AppViewModel::persistedProperties();
    for (const AppViewModel::PersistedProperty &entry : persisted) {
        const QMetaProperty property = meta.property(meta.indexOfProperty(entry.name));
        const QVariant other = otherValue(property.read(&model), entry.name);
        QVERIFY2(other.isValid() && property.write(&model, other), entry.name);
    }
    AppViewModel reloaded;
    for (const AppViewModel::PersistedProperty &entry : persisted) {
        const QMetaProperty property = meta.property(meta.indexOfProperty(entry.name));
        QVERIFY2(property.read(&reloaded) == property.read(&model), entry.name);
    }
}

void AppViewModelTest::startupWritesTheFileExactlyOnce_data()
{
    QTest::addColumn<QByteArray>("initial");
    QTest::newRow("no file") << QByteArray();
    QTest::newRow("complete file") << QByteArray(R"({"workers": 2, "backlit_fill": false,
        "profile_id": "cinematic_film", "visible_columns": ["date"], "min_rating": 3})");
    QTest::newRow("malformed file") << QByteArray("{ not json");
}

void AppViewModelTest::startupWritesTheFileExactlyOnce()
{
    QFETCH(QByteArray, initial);
    if (!initial.isEmpty())
        writeConfig(initial);

    AppViewModel model;
    QCOMPARE(model.configStore().writeCount(), 1);
    const QJsonObject written = readConfig();
    QCOMPARE(written.value(u"source_dir").toString(), model.sourceDir());
    QCOMPARE(written.value(u"dest_dir").toString(), model.destDir());
    QCOMPARE(written.value(u"profile_id").toString(), rawValue(model.selectedProfile()));
    QCOMPARE(written.size(), 19);
}

void AppViewModelTest::loadsEveryManagedKey()
{
    const QString source = makeDir(QStringLiteral("shoot/raw"));
    const QString dest = makeDir(QStringLiteral("shoot/out"));
    QJsonObject o {
        { QStringLiteral("source_dir"), source },
        { QStringLiteral("dest_dir"), dest },
        { QStringLiteral("workers"), 6 },
        { QStringLiteral("memory_throttle"), false },
        { QStringLiteral("enable_canary"), false },
        { QStringLiteral("export_debug_masks"), true },
        { QStringLiteral("notification_sound"), false },
        { QStringLiteral("min_rating"), 4 },
        { QStringLiteral("backlit_fill"), false },
        { QStringLiteral("watch_folder"), true },
        { QStringLiteral("profile_id"), QStringLiteral("portrait_soft") },
        { QStringLiteral("custom_mid_target"), 0.6 },
        { QStringLiteral("custom_power_mid"), 0.5 },
        { QStringLiteral("custom_power_hi"), 2.25 },
        { QStringLiteral("custom_chroma_boost"), 0.1 },
        { QStringLiteral("custom_skin_damp"), 0.9 },
        { QStringLiteral("export_naming_template"), QStringLiteral("{date}_{original}") },
        { QStringLiteral("export_subfolder_rule"), QStringLiteral("by_date") },
        { QStringLiteral("visible_columns"),
          QJsonArray { QStringLiteral("date"), QStringLiteral("faces"), QStringLiteral("faces") } }
    };
    writeConfig(QJsonDocument(o).toJson());

    AppViewModel model;
    QCOMPARE(model.sourceDir(), source);
    QCOMPARE(model.destDir(), dest);
    QCOMPARE(model.selectedWorkers(), 6);
    QVERIFY(!model.memoryThrottleEnabled());
    QVERIFY(!model.enableCanary());
    QVERIFY(model.exportDebugMasks());
    QVERIFY(!model.notificationSoundEnabled());
    QCOMPARE(model.minRating(), 4);
    QVERIFY(!model.enableBacklitFill());
    QVERIFY(model.watchFolder());
    QCOMPARE(model.selectedProfile(), StyleProfile::Portrait);
    QCOMPARE(model.customMidTarget(), 0.6);
    QCOMPARE(model.customPowerMid(), 0.5);
    QCOMPARE(model.customPowerHi(), 2.25);
    QCOMPARE(model.customChromaBoost(), 0.1);
    QCOMPARE(model.customSkinDamp(), 0.9);
    QCOMPARE(model.exportNamingTemplate(), QStringLiteral("{date}_{original}"));
    QCOMPARE(model.exportSubfolderRule(), QStringLiteral("by_date"));
    QCOMPARE(model.visibleColumns(), (ListColumnSet { ListColumn::Faces, ListColumn::Date }));

    // What was loaded is what is written back.
    QJsonObject expected = o;
    expected.insert(QStringLiteral("visible_columns"),
                    QJsonArray { QStringLiteral("faces"), QStringLiteral("date") });
    QCOMPARE(readConfig(), expected);
}

void AppViewModelTest::wrongTypesAreIgnoredAndDefaultsKept()
{
    writeConfig(R"({"workers": "4", "min_rating": 2.5, "memory_throttle": "yes",
        "enable_canary": 2, "custom_mid_target": "0.9", "custom_power_hi": null,
        "export_naming_template": 12, "export_subfolder_rule": ["by_date"],
        "visible_columns": "date", "source_dir": 5})");
    AppViewModel model;
    QCOMPARE(model.selectedWorkers(), 0);
    QCOMPARE(model.minRating(), 0);
    QVERIFY(model.memoryThrottleEnabled());
    QVERIFY(model.enableCanary());
    QCOMPARE(model.customMidTarget(), 0.55);
    QCOMPARE(model.customPowerHi(), 1.5);
    QCOMPARE(model.exportNamingTemplate(), QStringLiteral("{original}_hdr"));
    QCOMPARE(model.exportSubfolderRule(), QStringLiteral("none"));
    QCOMPARE(model.visibleColumns(), defaultVisibleColumns());
    QCOMPARE(model.sourceDir(), m_home + QStringLiteral("/Pictures"));
}

void AppViewModelTest::backlitFillAndProfileAlwaysGetAValue()
{
    writeConfig(R"({"profile_id": "velvia_vivid", "backlit_fill": "no"})");
    AppViewModel model;
    QCOMPARE(model.selectedProfile(), StyleProfile::Default);
    QVERIFY(model.enableBacklitFill());

    // Booleans may also be written as 0 and 1.
    writeConfig(R"({"profile_id": "landscape_punchy", "backlit_fill": 0})");
    AppViewModel second;
    QCOMPARE(second.selectedProfile(), StyleProfile::Landscape);
    QVERIFY(!second.enableBacklitFill());
}

void AppViewModelTest::missingFoldersFallBackToPictures()
{
    writeConfig(R"({"source_dir": "/media/nobody/UnpluggedCard/DCIM", "dest_dir": "", "keep": 1})");
    AppViewModel model;
    QCOMPARE(model.sourceDir(), m_home + QStringLiteral("/Pictures"));
    QCOMPARE(model.destDir(), m_home + QStringLiteral("/Pictures/UltraHDR"));
    QVERIFY(!QFileInfo::exists(model.destDir())); // the fallback is not created here
    const QJsonObject written = readConfig();
    QCOMPARE(written.value(u"source_dir").toString(), model.sourceDir());
    QCOMPARE(written.value(u"dest_dir").toString(), model.destDir());
    QCOMPARE(written.value(u"keep").toInt(), 1);
}

void AppViewModelTest::visibleColumnsDropUnknownNamesAndKeepDefaultsWhenNothingIsLeft_data()
{
    QTest::addColumn<QByteArray>("columns");
    QTest::addColumn<ListColumnSet>("expected");
    QTest::newRow("date and unknown")
        << QByteArray(R"(["date", "iso_speed"])") << ListColumnSet { ListColumn::Date };
    QTest::newRow("only unknown") << QByteArray(R"(["iso_speed"])") << defaultVisibleColumns();
    QTest::newRow("empty") << QByteArray("[]") << defaultVisibleColumns();
    QTest::newRow("not all strings") << QByteArray(R"(["date", 3])") << defaultVisibleColumns();
    QTest::newRow("header order") << QByteArray(R"(["file_size", "peak_stops", "bayer_clip"])")
                                  << ListColumnSet { ListColumn::PeakStops, ListColumn::BayerClip,
                                                     ListColumn::FileSize };
}

void AppViewModelTest::visibleColumnsDropUnknownNamesAndKeepDefaultsWhenNothingIsLeft()
{
    QFETCH(QByteArray, columns);
    QFETCH(ListColumnSet, expected);
    writeConfig("{\"visible_columns\": " + columns + "}");
    AppViewModel model;
    QCOMPARE(model.visibleColumns(), expected);
}

void AppViewModelTest::unknownKeysSurviveEverySave()
{
    writeConfig(R"({"engine_cache_gb": 12.5, "engine": {"threads": [1, 2], "tag": "β"},
                    "workers": 1})");
    AppViewModel model;
    model.setSelectedWorkers(3);
    model.setExportSubfolderRule(QStringLiteral("by_rating"));
    const QJsonObject written = readConfig();
    QCOMPARE(written.value(u"engine_cache_gb").toDouble(), 12.5);
    QCOMPARE(written.value(u"engine").toObject().value(u"tag").toString(), QStringLiteral("β"));
    QCOMPARE(written.value(u"engine").toObject().value(u"threads").toArray().size(), 2);
    QCOMPARE(written.value(u"workers").toInt(), 3);
    QCOMPARE(written.value(u"export_subfolder_rule").toString(), QStringLiteral("by_rating"));
}

void AppViewModelTest::nonObjectFileIsReplacedByManagedKeys()
{
    writeConfig(R"(["workers", 8])");
    AppViewModel model;
    QCOMPARE(model.selectedWorkers(), 0);
    const QJsonObject written = readConfig();
    QCOMPARE(written.size(), 19);
    QCOMPARE(written.value(u"workers").toInt(), 0);
}

void AppViewModelTest::onlyRealChangesSave()
{
    AppViewModel model;
    const int afterStartup = model.configStore().writeCount();
    QSignalSpy spy(&model, &AppViewModel::minRatingChanged);

    model.setMinRating(model.minRating());
    model.setSelectedProfile(model.selectedProfile());
    model.setCustomSkinDamp(model.customSkinDamp());
    model.setSourceDir(model.sourceDir());
    QCOMPARE(model.configStore().writeCount(), afterStartup);
    QCOMPARE(spy.count(), 0);

    model.setMinRating(2);
    QCOMPARE(model.configStore().writeCount(), afterStartup + 1);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(readConfig().value(u"min_rating").toInt(), 2);

    // Properties without a key never touch the file.
    model.setDryRunMode(true);
    model.setTargetStem(QStringLiteral("DSC04223"));
    model.setIsShowingSettings(true);
    QCOMPARE(model.configStore().writeCount(), afterStartup + 1);
}

void AppViewModelTest::visibleColumnsSaveOnEveryAssignment()
{
    AppViewModel model;
    const int afterStartup = model.configStore().writeCount();
    model.setVisibleColumns(model.visibleColumns());
    model.setVisibleColumns(model.visibleColumns());
    QCOMPARE(model.configStore().writeCount(), afterStartup + 2);
}

void AppViewModelTest::resetCustomParametersRestoresDefaultsThroughSetters()
{
    AppViewModel model;
    const int afterStartup = model.configStore().writeCount();
    model.resetCustomParameters(); // already the defaults: nothing to write
    QCOMPARE(model.configStore().writeCount(), afterStartup);

    model.setSelectedProfile(StyleProfile::Custom);
    model.setCustomMidTarget(1.2);
    model.setCustomChromaBoost(0.05);
    const int beforeReset = model.configStore().writeCount();
    model.resetCustomParameters();
    QCOMPARE(model.configStore().writeCount(), beforeReset + 2); // two values differed
    QCOMPARE(model.customMidTarget(), 0.55);
    QCOMPARE(model.customChromaBoost(), 0.28);
    QCOMPARE(model.selectedProfile(), StyleProfile::Custom); // the style stays
}

void AppViewModelTest::outOfRangeValuesFromTheFileAreKept()
{
    writeConfig(R"({"custom_chroma_boost": 0.35, "custom_power_hi": 7})");
    AppViewModel model;
    QCOMPARE(model.customChromaBoost(), 0.35);
    QCOMPARE(model.customPowerHi(), 7.0);
    QCOMPARE(readConfig().value(u"custom_chroma_boost").toDouble(), 0.35);
}

void AppViewModelTest::statusRerendersInTheNewLanguage()
{
    AppViewModel model;
    const FormatArgs args { 3, 10, "DSC04223", 1.256 };
    model.setStatus(QStringLiteral("status_item_completed"), args);
    QCOMPARE(model.statusMessage(), QStringLiteral("Completed [3/10] DSC04223 (+1.26st)"));

    QSignalSpy status(&model, &AppViewModel::statusMessageChanged);
    model.setCurrentLanguage(AppLanguage::German);
    const QString german = formatPrintf(
        LocalizationService::shared().rawText(QStringLiteral("de"), "status_item_completed"), args);
    QCOMPARE(model.statusMessage(), german);
    QVERIFY(german.contains(u"DSC04223") && german.contains(u"1.26"));
    QCOMPARE(status.count(), 1);
    QCOMPARE(model.currentStatusArgs(), args);

    model.setCurrentLanguage(AppLanguage::English);
    QCOMPARE(model.statusMessage(), QStringLiteral("Completed [3/10] DSC04223 (+1.26st)"));
}

void AppViewModelTest::statusWithoutArgumentsShowsItsDirectivesAsWritten()
{
    AppViewModel model;
    model.setStatus(QStringLiteral("status_scan_done"));
    QCOMPARE(model.statusMessage(), QStringLiteral("Scan complete: %d pending"));
    model.setStatus(QStringLiteral("status_scan_done"), { 7 });
    QCOMPARE(model.statusMessage(), QStringLiteral("Scan complete: 7 pending"));
}

void AppViewModelTest::languageChangeAnnouncesAWholeObjectChange()
{
    AppViewModel model;
    QSignalSpy whole(&model, &AppViewModel::wholeObjectChanged);
    QSignalSpy language(&model, &AppViewModel::currentLanguageChanged);
    model.setCurrentLanguage(AppLanguage::Japanese);
    QCOMPARE(whole.count(), 1);
    QCOMPARE(language.count(), 1);
    QCOMPARE(model.currentLanguage(), AppLanguage::Japanese);
    QCOMPARE(LocalizationService::shared().currentLanguage(), AppLanguage::Japanese);
    QCOMPARE(model.t("status_ready"),
             LocalizationService::shared().rawText(QStringLiteral("ja"), "status_ready"));
    // The language is not part of the configuration file.
    QVERIFY(!readConfig().contains(u"language"));
}

ORVANTA_TEST_GUILESS_MAIN(AppViewModelTest)
#include "tst_appviewmodel.moc"
