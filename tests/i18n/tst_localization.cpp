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
    void init()
    {
        service().setPreferredLanguagesProvider(
            [] { return QStringList { QStringLiteral("en-US") }; });
        service().setCurrentLanguage(AppLanguage::System);
    }

    void systemLanguageResolvesByPrefixOfTheFirstEntry_data();
    void systemLanguageResolvesByPrefixOfTheFirstEntry()
    {
        QFETCH(QStringList, preferred);
        QFETCH(QString, expected);
        QCOMPARE(LocalizationService::resolveSystemLanguage(preferred), expected);

        service().setPreferredLanguagesProvider([preferred] { return preferred; });
        QCOMPARE(service().effectiveLanguageCode(), expected);
    }
    void explicitChoiceBeatsThePlatform()
    {
        service().setPreferredLanguagesProvider(
            [] { return QStringList { QStringLiteral("ja-JP") }; });
        QCOMPARE(service().t("status_ready"),
                 service().rawText(QStringLiteral("ja"), "status_ready"));

        service().setCurrentLanguage(AppLanguage::German);
        QCOMPARE(service().effectiveLanguageCode(), QStringLiteral("de"));
        QCOMPARE(service().t("status_ready"),
                 service().rawText(QStringLiteral("de"), "status_ready"));
    }
    void choiceIsStoredAsRawValueAndReadBack()
    {
        service().setCurrentLanguage(AppLanguage::TraditionalChinese);
        QCOMPARE(preferences().value(kPreferenceKey).toString(), QStringLiteral("zh-Hant"));
        QCOMPARE(service().currentLanguage(), AppLanguage::TraditionalChinese);

        service().setCurrentLanguage(AppLanguage::System);
        QCOMPARE(preferences().value(kPreferenceKey).toString(), QStringLiteral("system"));

        for (AppLanguage language : allAppLanguages())
            QCOMPARE(appLanguageFromRawValue(rawValue(language)), language);
    }
    void unknownStoredPreferenceReadsAsSystem()
    {
        QCOMPARE(appLanguageFromRawValue(QStringLiteral("klingon")), std::nullopt);
        QCOMPARE(appLanguageFromRawValue(QStringLiteral("")), std::nullopt);
        QCOMPARE(appLanguageFromRawValue(QStringLiteral("EN")), std::nullopt);
    }
    void lookupFallsBackToEnglishThenToTheKey()
    {
        service().setCurrentLanguage(AppLanguage::French);
        QCOMPARE(service().t("status_ready"),
                 service().rawText(QStringLiteral("fr"), "status_ready"));
        QCOMPARE(service().t("no_such_key"), QStringLiteral("no_such_key"));
        // The key-as-text fallback is formatted too.
        QCOMPARE(service().t("missing_%d_items", { 4 }), QStringLiteral("missing_4_items"));
        QCOMPARE(orvanta::t("card_pairs_found", { 12 }),
                 formatPrintf(service().rawText(QStringLiteral("fr"), "card_pairs_found"), { 12 }));
    }
    void argumentlessTextsKeepTheirPercentSigns()
    {
        service().setCurrentLanguage(AppLanguage::English);
        QCOMPARE(
            service().t("edr_zoom_hint"),
            QStringLiteral("Pinch or Ctrl+wheel to zoom • Double-click 100% • Space to toggle • "
                           "Tab for pure view"));
        QCOMPARE(service().t("card_progress_ratio"), QStringLiteral("[%d / %d]  %d%%"));
        QCOMPARE(service().t("card_progress_ratio", { 3, 10, 30 }),
                 QStringLiteral("[3 / 10]  30%"));
        QCOMPARE(service().t("inspector_faces_count", { 2 }),
                 QStringLiteral("2 faces (40% skin damping)"));
    }
    void displayNamesAreTheSameInEveryLanguage()
    {
        QCOMPARE(displayName(AppLanguage::System), QStringLiteral("跟随系统 / System Default"));
        QCOMPARE(displayName(AppLanguage::French), QStringLiteral("Français"));
        QCOMPARE(allAppLanguages().size(), 8);
        QCOMPARE(allAppLanguages().constFirst(), AppLanguage::System);
    }

    void everyTableHasExactlyTheEnglishKeys()
    {
        // Singular variants ("key#one") are where a language needs them, and
        // only in languages that inflect for number; every other key is in
        // every table.
        const auto split = [this](const QString &code) {
            QStringList keys = service().keys(code);
            QStringList singulars;
            keys.removeIf([&singulars](const QString &key) {
                const bool singular = key.endsWith(LocalizationService::kSingularSuffix);
                if (singular)
                    singulars << key.chopped(LocalizationService::kSingularSuffix.size());
                return singular;
            });
            keys.sort();
            return std::pair { keys, singulars };
        };
        const QStringList english = split(QStringLiteral("en")).first;
        QVERIFY(english.size() >= 300);
        for (const QString &code : LocalizationService::tableCodes()) {
            const auto [keys, singulars] = split(code);
            QVERIFY2(keys == english, qPrintable(code));
            const bool inflects
                = LocalizationService::pluralForm(code, 1) == LocalizationService::PluralForm::One;
            QVERIFY2(inflects || singulars.isEmpty(), qPrintable(code));
            for (const QString &base : singulars)
                QVERIFY2(english.contains(base), qPrintable(code + u' ' + base));
            for (const QString &key : service().keys(code))
                QVERIFY2(!service().rawText(code, key).isEmpty(), qPrintable(code + u' ' + key));
        }
    }
    void everyTranslationTakesTheSameArgumentsInTheSameOrder()
    {
        // Singular variants take the arguments of their general text.
        for (const QString &code : LocalizationService::tableCodes()) {
            for (const QString &key : service().keys(code)) {
                const QString base = key.endsWith(LocalizationService::kSingularSuffix)
                    ? key.chopped(LocalizationService::kSingularSuffix.size())
                    : key;
                const qsizetype real = kAccidentalDirectives.value(base, -1);
                QStringList expected
                    = printfDirectives(service().rawText(QStringLiteral("en"), base)).mid(0, real);
                QStringList actual = printfDirectives(service().rawText(code, key)).mid(0, real);
                QVERIFY2(actual == expected,
                         qPrintable(code + u' ' + key + u": " + actual.join(u',') + u" vs "
                                    + expected.join(u',')));
            }
        }
    }
    void countsTakeTheLanguagesNumber()
    {
        using namespace Qt::StringLiterals;
        struct Case
        {
            AppLanguage language;
            const char *key;
            FormatArgs args;
            QString shown;
        };
        const Case cases[] = {
            { AppLanguage::English, "card_pairs_found", { 1 }, u"1 Pair Found"_s },
            { AppLanguage::English, "card_pairs_found", { 0 }, u"0 Pairs Found"_s },
            { AppLanguage::English, "history_all_loaded", { 2 }, u"All 2 photos loaded"_s },
            { AppLanguage::German, "drop_success_photos", { 1, u"a"_s }, u"1 Foto geladen: a"_s },
            { AppLanguage::German,
              "drop_success_photos",
              { 21, u"a"_s },
              u"21 Fotos geladen: a"_s },
            // French takes the singular for 0 too.
            { AppLanguage::French, "batch_selected_count", { 0 }, u"0 sélectionnée"_s },
            { AppLanguage::French, "batch_selected_count", { 2 }, u"2 sélectionnées"_s },
            { AppLanguage::Spanish,
              "history_delete_confirm_title",
              { 1 },
              u"¿Eliminar 1 registro del historial?"_s },
            { AppLanguage::Spanish,
              "history_delete_confirm_title",
              { 0 },
              u"¿Eliminar 0 registros del historial?"_s },
            // The count need not come first: the first integer argument is it.
            { AppLanguage::English,
              "inspector_gainmap_detail",
              { u"ISO"_s, 0.0, 1.0, 1 },
              u"ISO · 0.00 to 1.00 stops · 1 channel"_s },
            { AppLanguage::Japanese,
              "history_all_loaded",
              { 1 },
              u"全 1 枚の写真を読み込みました"_s },
        };
        for (const Case &c : cases) {
            service().setCurrentLanguage(c.language);
            QCOMPARE(service().t(c.key, c.args), c.shown);
        }
    }
    void sharedTextsAreIdenticalInEveryTable()
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
    void translationsAreNotEnglishCopies()
    {
        // Short technical words may legitimately coincide ("ISO", "OK"), but a
        // real translation differs from English in most of its texts.
        const QStringList keys = service().keys(QStringLiteral("en"));
        for (const QString &code : LocalizationService::tableCodes()) {
            if (code == u"en")
                continue;
            int same = 0;
            for (const QString &key : keys)
                same
                    += service().rawText(code, key) == service().rawText(QStringLiteral("en"), key);
            QVERIFY2(same < keys.size() / 6, qPrintable(code + u": " + QString::number(same)));
        }
    }

private:
    LocalizationService &service() { return LocalizationService::shared(); }
};

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

ORVANTA_TEST_GUILESS_MAIN(LocalizationTest)
#include "tst_localization.moc"
