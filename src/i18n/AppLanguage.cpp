// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "i18n/AppLanguage.h"

#include <array>

namespace orvanta {

namespace {
struct LanguageInfo
{
    AppLanguage language;
    const char16_t *raw;
    const char16_t *name;
};

constexpr std::array<LanguageInfo, 8> kLanguages { {
    { AppLanguage::System, u"system", u"跟随系统 / System Default" },
    { AppLanguage::English, u"en", u"English" },
    { AppLanguage::SimplifiedChinese, u"zh-Hans", u"简体中文" },
    { AppLanguage::TraditionalChinese, u"zh-Hant", u"繁體中文" },
    { AppLanguage::Japanese, u"ja", u"日本語" },
    { AppLanguage::German, u"de", u"Deutsch" },
    { AppLanguage::French, u"fr", u"Français" },
    { AppLanguage::Spanish, u"es", u"Español" },
} };

const LanguageInfo &info(AppLanguage language)
{
    return kLanguages[std::size_t(language)];
}
} // namespace

QString rawValue(AppLanguage language)
{
    return QString::fromUtf16(info(language).raw);
}

std::optional<AppLanguage> appLanguageFromRawValue(QStringView raw)
{
    for (const LanguageInfo &entry : kLanguages) {
        if (raw == QStringView(entry.raw))
            return entry.language;
    }
    return std::nullopt;
}

QString displayName(AppLanguage language)
{
    return QString::fromUtf16(info(language).name);
}

const QList<AppLanguage> &allAppLanguages()
{
    static const QList<AppLanguage> all = [] {
        QList<AppLanguage> list;
        for (const LanguageInfo &entry : kLanguages)
            list << entry.language;
        return list;
    }();
    return all;
}

} // namespace orvanta
