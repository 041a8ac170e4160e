// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Language choice, its resolution against the platform's languages, lookup
// fallbacks, and the completeness of the seven string tables.
#include "common/TestEnvironment.h"
#include "i18n/FormatArgs.h"
#include "i18n/LocalizationService.h"

#include <QSettings>

using namespace orvanta;

namespace {
QSettings preferences()
{
    return QSettings(QStringLiteral("orvanta"), QStringLiteral("orvanta"));
}

const QString kPreferenceKey = QString::fromLatin1(LocalizationService::kPreferenceKey);

// Texts whose English carries a "%" that reads as a directive but never gets
// an argument: only the first N directives are real.
const QHash<QString, int> kAccidentalDirectives { { QStringLiteral("inspector_faces_count"), 1 } };
} // namespace

class LocalizationTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void systemLanguageResolvesByPrefixOfTheFirstEntry_data();
    void systemLanguageResolvesByPrefixOfTheFirstEntry();
    void explicitChoiceBeatsThePlatform();
    void choiceIsStoredAsRawValueAndReadBack();
    void unknownStoredPreferenceReadsAsSystem();
    void lookupFallsBackToEnglishThenToTheKey();
    void argumentlessTextsKeepTheirPercentSigns();
    void displayNamesAreTheSameInEveryLanguage();

    void everyTableHasExactlyTheEnglishKeys();
    void everyTranslationTakesTheSameArgumentsInTheSameOrder();
    void sharedTextsAreIdenticalInEveryTable();
    void translationsAreNotEnglishCopies();

private:
    LocalizationService &service() { return LocalizationService::shared(); }
};

void LocalizationTest::init()
{
    service().setPreferredLanguagesProvider([] { return QStringList { QStringLiteral("en-US") }; });
    service().setCurrentLanguage(AppLanguage::System);
}

void LocalizationTest::systemLanguageResolvesByPrefixOfTheFirstEntry_data()
{
    QTest::addColumn<QStringList>("preferred");
    QTest::addColumn<QString>("expected");
    auto row = [](const char *name, QStringList list, const char *code) {
        QTest::newRow(name) << list << QString::fromLatin1(code);
    };
    row("pt-BR is English", { QStringLiteral("pt-BR") }, "en");
    row("only the first entry counts", { QStringLiteral("en-US"), QStringLiteral("de-DE") }, "en");
    row("de-AT", { QStringLiteral("de-AT") }, "de");
    row("zh-HK", { QStringLiteral("zh-HK") }, "zh-Hant");
    row("zh-TW", { QStringLiteral("zh-TW") }, "zh-Hant");
    row("zh-Hant-HK", { QStringLiteral("zh-Hant-HK") }, "zh-Hant");
    row("underscore form", { QStringLiteral("zh_Hant_TW") }, "zh-Hant");
    row("zh-SG", { QStringLiteral("zh-SG") }, "zh-Hans");
    row("zh-CN", { QStringLiteral("zh-CN") }, "zh-Hans");
    row("ja-JP", { QStringLiteral("ja-JP") }, "ja");
    row("fr-CA", { QStringLiteral("fr-CA") }, "fr");
    row("es-419", { QStringLiteral("es-419") }, "es");
    row("C locale", { QStringLiteral("C") }, "en");
    row("empty list", {}, "en");
}

void LocalizationTest::systemLanguageResolvesByPrefixOfTheFirstEntry()
{
    QFETCH(QStringList, preferred);
    QFETCH(QString, expected);
    QCOMPARE(LocalizationService::resolveSystemLanguage(preferred), expected);

    service().setPreferredLanguagesProvider([preferred] { return preferred; });
    QCOMPARE(service().effectiveLanguageCode(), expected);
}

void LocalizationTest::explicitChoiceBeatsThePlatform()
{
    service().setPreferredLanguagesProvider([] { return QStringList { QStringLiteral("ja-JP") }; });
    QCOMPARE(service().t("status_ready"), service().rawText(QStringLiteral("ja"), "status_ready"));

    service().setCurrentLanguage(AppLanguage::German);
    QCOMPARE(service().effectiveLanguageCode(), QStringLiteral("de"));
    QCOMPARE(service().t("status_ready"), service().rawText(QStringLiteral("de"), "status_ready"));
}

void LocalizationTest::choiceIsStoredAsRawValueAndReadBack()
{
    service().setCurrentLanguage(AppLanguage::TraditionalChinese);
    QCOMPARE(preferences().value(kPreferenceKey).toString(), QStringLiteral("zh-Hant"));
    QCOMPARE(service().currentLanguage(), AppLanguage::TraditionalChinese);

    service().setCurrentLanguage(AppLanguage::System);
    QCOMPARE(preferences().value(kPreferenceKey).toString(), QStringLiteral("system"));

    for (AppLanguage language : allAppLanguages())
        QCOMPARE(appLanguageFromRawValue(rawValue(language)), language);
}

void LocalizationTest::unknownStoredPreferenceReadsAsSystem()
{
    QCOMPARE(appLanguageFromRawValue(QStringLiteral("klingon")), std::nullopt);
    QCOMPARE(appLanguageFromRawValue(QStringLiteral("")), std::nullopt);
    QCOMPARE(appLanguageFromRawValue(QStringLiteral("EN")), std::nullopt);
}

void LocalizationTest::lookupFallsBackToEnglishThenToTheKey()
{
    service().setCurrentLanguage(AppLanguage::French);
    QCOMPARE(service().t("status_ready"), service().rawText(QStringLiteral("fr"), "status_ready"));
    QCOMPARE(service().t("no_such_key"), QStringLiteral("no_such_key"));
    // The key-as-text fallback is formatted too.
    QCOMPARE(service().t("missing_%d_items", { 4 }), QStringLiteral("missing_4_items"));
    QCOMPARE(orvanta::t("card_pairs_found", { 12 }),
             formatPrintf(service().rawText(QStringLiteral("fr"), "card_pairs_found"), { 12 }));
}

void LocalizationTest::argumentlessTextsKeepTheirPercentSigns()
{
    service().setCurrentLanguage(AppLanguage::English);
    QCOMPARE(service().t("edr_zoom_hint"),
             QStringLiteral("Pinch or Ctrl+wheel to zoom • Double-click 100% • Space to toggle • "
                            "Tab for pure view"));
    QCOMPARE(service().t("card_progress_ratio"), QStringLiteral("[%d / %d]  %d%%"));
    QCOMPARE(service().t("card_progress_ratio", { 3, 10, 30 }), QStringLiteral("[3 / 10]  30%"));
    QCOMPARE(service().t("inspector_faces_count", { 2 }),
             QStringLiteral("2 face(s) (40% skin damping)"));
}

void LocalizationTest::displayNamesAreTheSameInEveryLanguage()
{
    QCOMPARE(displayName(AppLanguage::System), QStringLiteral("跟随系统 / System Default"));
    QCOMPARE(displayName(AppLanguage::French), QStringLiteral("Français"));
    QCOMPARE(allAppLanguages().size(), 8);
    QCOMPARE(allAppLanguages().constFirst(), AppLanguage::System);
}

void LocalizationTest::everyTableHasExactlyTheEnglishKeys()
{
    QStringList english = service().keys(QStringLiteral("en"));
    english.sort();
    // What matters here is that every table carries exactly this set.
    QVERIFY(english.size() >= 300);
    for (const QString &code : LocalizationService::tableCodes()) {
        QStringList keys = service().keys(code);
        keys.sort();
        QVERIFY2(keys == english, qPrintable(code));
        for (const QString &key : keys)
            QVERIFY2(!service().rawText(code, key).isEmpty(), qPrintable(code + u' ' + key));
    }
}

void LocalizationTest::everyTranslationTakesTheSameArgumentsInTheSameOrder()
{
    for (const QString &key : service().keys(QStringLiteral("en"))) {
        QStringList expected = printfDirectives(service().rawText(QStringLiteral("en"), key));
        const int real = kAccidentalDirectives.value(key, -1);
        if (real >= 0)
            expected = expected.mid(0, real);
        for (const QString &code : LocalizationService::tableCodes()) {
            QStringList actual = printfDirectives(service().rawText(code, key));
            if (real >= 0)
                actual = actual.mid(0, real);
            QVERIFY2(actual == expected,
                     qPrintable(code + u' ' + key + u": " + actual.join(u',') + u" vs "
                                + expected.join(u',')));
        }
    }
}

void LocalizationTest::sharedTextsAreIdenticalInEveryTable()
{
    // These read the same in every language, whatever their wording.
    for (const char *key : { "status_processing", "status_failed", "dialog_file_missing_title",
                             "dialog_file_missing_desc", "log_dry_run_activated", "app_title",
                             "card_progress_ratio", "unit_ultra_hdr", "edr_badge_xdr" }) {
        const QString english = service().rawText(QStringLiteral("en"), key);
        for (const QString &code : LocalizationService::tableCodes())
            QVERIFY2(service().rawText(code, key) == english,
                     qPrintable(code + u' ' + QLatin1StringView(key)));
    }
}

void LocalizationTest::translationsAreNotEnglishCopies()
{
    // Short technical words may legitimately coincide ("ISO", "OK"), but a
    // real translation differs from English in most of its texts.
    const QStringList keys = service().keys(QStringLiteral("en"));
    for (const QString &code : LocalizationService::tableCodes()) {
        if (code == u"en")
            continue;
        int same = 0;
        for (const QString &key : keys)
            same += service().rawText(code, key) == service().rawText(QStringLiteral("en"), key);
        QVERIFY2(same < keys.size() / 6, qPrintable(code + u": " + QString::number(same)));
    }
}

ORVANTA_TEST_GUILESS_MAIN(LocalizationTest)
#include "tst_localization.moc"
