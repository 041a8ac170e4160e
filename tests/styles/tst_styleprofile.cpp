// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The style presets and the five fine-tuning sliders.
#include "common/TestEnvironment.h"
#include "i18n/LocalizationService.h"
#include "styles/StyleProfile.h"
#include "styles/UserRecipe.h"

using namespace orvanta;

class StyleProfileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void rawValuesRoundTripAndUnknownNamesAreRejected();
    void presentationFollowsTheLanguage();
    void customSummaryNamesTheMode();
    void slidersHaveTheirRangesAndDefaults();
    void chromaSliderCanOnlyLowerTheBoost();
    void recipeSummaryUsesFixedLabelsAndTwoDecimals();
};

void StyleProfileTest::init()
{
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
}

void StyleProfileTest::rawValuesRoundTripAndUnknownNamesAreRejected()
{
    const QStringList expected { QStringLiteral("default"), QStringLiteral("portrait_soft"),
                                 QStringLiteral("landscape_punchy"),
                                 QStringLiteral("cinematic_film"), QStringLiteral("custom") };
    QStringList actual;
    for (StyleProfile profile : allStyleProfiles()) {
        actual << rawValue(profile);
        QCOMPARE(styleProfileFromRawValue(rawValue(profile)), profile);
    }
    QCOMPARE(actual, expected);
    QCOMPARE(styleProfileFromRawValue(u"Default"), std::nullopt);
    QCOMPARE(styleProfileFromRawValue(u"portrait"), std::nullopt);
    QCOMPARE(styleProfileFromRawValue(u""), std::nullopt);
}

void StyleProfileTest::presentationFollowsTheLanguage()
{
    // Each card differs from the others in every respect it shows.
    QSet<QString> shown;
    QSet<QRgb> accents;
    for (StyleProfile profile : allStyleProfiles()) {
        shown << displayName(profile) << subtitle(profile) << iconName(profile);
        accents.insert(accentColor(profile).rgb());
    }
    QCOMPARE(shown.size(), 15);
    QCOMPARE(accents.size(), 5);

    LocalizationService::shared().setCurrentLanguage(AppLanguage::French);
    QCOMPARE(displayName(StyleProfile::Portrait),
             LocalizationService::shared().rawText(QStringLiteral("fr"), "profile_portrait_title"));
    QVERIFY(displayName(StyleProfile::Portrait) != QStringLiteral("Portrait Soft"));
}

void StyleProfileTest::customSummaryNamesTheMode()
{
    const auto summary = parametersSummary(StyleProfile::Custom);
    QCOMPARE(summary.size(), 2);
    QCOMPARE(summary[0], std::pair(QStringLiteral("Mode"), QStringLiteral("Custom")));
    QCOMPARE(summary[1], std::pair(QStringLiteral("Sliders"), QStringLiteral("Fine-Tuning")));
}

void StyleProfileTest::slidersHaveTheirRangesAndDefaults()
{
    const auto &p = fineTuningParameters();
    QCOMPARE(QString::fromLatin1(p[0].engineFlag), QStringLiteral("--mid-target"));
    QCOMPARE(QString::fromLatin1(p[4].configKey), QStringLiteral("custom_skin_damp"));
    for (const FineTuningParameter &parameter : p) {
        QVERIFY(parameter.minimum < parameter.maximum);
        QVERIFY(parameter.defaultValue >= parameter.minimum);
        QVERIFY(parameter.defaultValue <= parameter.maximum);
        QCOMPARE(parameter.step, 0.01);
        QVERIFY(!LocalizationService::shared().t(parameter.labelKey).startsWith(u"slider_"));
    }
    QCOMPARE(clampToSlider(FineTuning::PowerHi, 0.5), 1.0);
    QCOMPARE(clampToSlider(FineTuning::MidTarget, 9.0), 1.5);
    QCOMPARE(clampToSlider(FineTuning::SkinDamp, 0.5), 0.5);
}

void StyleProfileTest::chromaSliderCanOnlyLowerTheBoost()
{
    const FineTuningParameter &chroma = fineTuningParameter(FineTuning::ChromaBoost);
    QCOMPARE(chroma.maximum, chroma.defaultValue);
    QCOMPARE(clampToSlider(FineTuning::ChromaBoost, 0.35), 0.28);
}

void StyleProfileTest::recipeSummaryUsesFixedLabelsAndTwoDecimals()
{
    UserRecipe recipe;
    QCOMPARE(recipe.summaryDescription(),
             QStringLiteral("Mid: 0.55st · P-Mid: 0.45 · P-Hi: 1.50 · Chroma: 0.28 · Skin: 0.40"));
    LocalizationService::shared().setCurrentLanguage(AppLanguage::Japanese);
    recipe.powerHi = 2.005;
    QVERIFY(recipe.summaryDescription().startsWith(u"Mid: 0.55st · P-Mid: 0.45 · P-Hi: 2.0"));
}

ORVANTA_TEST_GUILESS_MAIN(StyleProfileTest)
#include "tst_styleprofile.moc"
