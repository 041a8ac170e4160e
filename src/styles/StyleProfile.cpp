// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "styles/StyleProfile.h"

#include "i18n/LocalizationService.h"

namespace orvanta {

namespace {

struct ProfileInfo
{
    StyleProfile profile;
    const char16_t *raw;
    const char *titleKey;
    const char *descriptionKey;
    const char16_t *symbol;
    QRgb accent;
    // Badge values for mid, power mid, power hi, chroma, skin damp, scale.
    std::array<const char16_t *, 6> badges;
};

// Accents follow the familiar system palette: blue, pink, teal, orange, purple.
constexpr std::array<ProfileInfo, 5> kProfiles { {
    { StyleProfile::Default,
      u"default",
      "profile_default_title",
      "profile_default_desc",
      u"sparkles",
      0xff0a84ff,
      { u"0.55st", u"0.45", u"1.50", u"0.28", u"0.40", u"1.00" } },
    { StyleProfile::Portrait,
      u"portrait_soft",
      "profile_portrait_title",
      "profile_portrait_desc",
      u"person.crop.circle",
      0xffff375f,
      { u"0.50st", u"0.55", u"1.25", u"0.20", u"0.70", u"0.75" } },
    { StyleProfile::Landscape,
      u"landscape_punchy",
      "profile_landscape_title",
      "profile_landscape_desc",
      u"mountain.2",
      0xff40c8e0,
      { u"0.65st", u"0.38", u"1.60", u"0.28", u"0.20", u"1.00" } },
    { StyleProfile::Cinematic,
      u"cinematic_film",
      "profile_cinematic_title",
      "profile_cinematic_desc",
      u"film",
      0xffff9f0a,
      { u"0.45st", u"0.60", u"1.20", u"0.15", u"0.40", u"0.65" } },
    { StyleProfile::Custom,
      u"custom",
      "profile_custom_title",
      "profile_custom_desc",
      u"slider.horizontal.3",
      0xffbf5af2,
      {} },
} };

constexpr std::array<const char *, 6> kBadgeKeys { "badge_mid",       "badge_power_mid",
                                                   "badge_power_hi",  "badge_chroma",
                                                   "badge_skin_damp", "badge_scale" };

constexpr std::array<FineTuningParameter, 5> kParameters { {
    { "customMidTarget", "custom_mid_target", "--mid-target", 0.55, 0.1, 1.5, 0.01,
      "slider_mid_target" },
    { "customPowerMid", "custom_power_mid", "--power-mid", 0.45, 0.1, 1.5, 0.01,
      "slider_power_mid" },
    { "customPowerHi", "custom_power_hi", "--power-hi", 1.5, 1.0, 3.0, 0.01, "slider_power_hi" },
    { "customChromaBoost", "custom_chroma_boost", "--chroma-boost", 0.28, 0.0, 0.28, 0.01,
      "slider_chroma_boost" },
    { "customSkinDamp", "custom_skin_damp", "--skin-damp", 0.4, 0.0, 1.0, 0.01,
      "slider_skin_damp" },
} };

const ProfileInfo &info(StyleProfile profile)
{
    return kProfiles[std::size_t(profile)];
}

} // namespace

QString rawValue(StyleProfile profile)
{
    return QString::fromUtf16(info(profile).raw);
}

std::optional<StyleProfile> styleProfileFromRawValue(QStringView raw)
{
    for (const ProfileInfo &entry : kProfiles) {
        if (raw == QStringView(entry.raw))
            return entry.profile;
    }
    return std::nullopt;
}

const QList<StyleProfile> &allStyleProfiles()
{
    static const QList<StyleProfile> all { StyleProfile::Default, StyleProfile::Portrait,
                                           StyleProfile::Landscape, StyleProfile::Cinematic,
                                           StyleProfile::Custom };
    return all;
}

QString displayName(StyleProfile profile)
{
    return t(info(profile).titleKey);
}

QString subtitle(StyleProfile profile)
{
    return t(info(profile).descriptionKey);
}

QString iconName(StyleProfile profile)
{
    return QString::fromUtf16(info(profile).symbol);
}

QColor accentColor(StyleProfile profile)
{
    return QColor::fromRgba(info(profile).accent);
}

QList<std::pair<QString, QString>> parametersSummary(StyleProfile profile)
{
    if (profile == StyleProfile::Custom)
        return { { t("badge_mode"), t("badge_custom") },
                 { t("badge_sliders"), t("badge_finetuning") } };

    QList<std::pair<QString, QString>> summary;
    const ProfileInfo &entry = info(profile);
    for (std::size_t i = 0; i < kBadgeKeys.size(); ++i)
        summary.append({ t(kBadgeKeys[i]), QString::fromUtf16(entry.badges[i]) });
    return summary;
}

const std::array<FineTuningParameter, 5> &fineTuningParameters()
{
    return kParameters;
}

const FineTuningParameter &fineTuningParameter(FineTuning which)
{
    return kParameters[std::size_t(which)];
}

double clampToSlider(FineTuning which, double value)
{
    const FineTuningParameter &p = fineTuningParameter(which);
    return qBound(p.minimum, value, p.maximum);
}

} // namespace orvanta
