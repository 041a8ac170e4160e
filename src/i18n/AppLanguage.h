// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The interface languages the user can choose, plus "follow the system".
// Plain value type; any thread.
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace orvanta {

enum class AppLanguage {
    System,
    English,
    SimplifiedChinese,
    TraditionalChinese,
    Japanese,
    German,
    French,
    Spanish,
};

// Raw value, also the id: "system", "en", "zh-Hans", "zh-Hant", "ja", "de", "fr", "es".
QString rawValue(AppLanguage language);
std::optional<AppLanguage> appLanguageFromRawValue(QStringView raw);
// The name shown in the language menu; the same in every interface language.
QString displayName(AppLanguage language);
// Every case, in menu order (system first).
const QList<AppLanguage> &allAppLanguages();

} // namespace orvanta
