// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Owns the string tables, the user's language choice (kept in QSettings) and
// the lookup `t`. One shared instance. Lookups are safe from any thread; the
// language is changed on the main thread.
#pragma once

#include "i18n/AppLanguage.h"
#include "i18n/FormatArgs.h"

#include <QAnyStringView>
#include <QHash>
#include <QReadWriteLock>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

class QTranslator;

namespace orvanta {

class LocalizationService
{
public:
    static constexpr const char *kPreferenceKey = "orvanta_preferred_language";
    static const QStringList &tableCodes(); // "en", "zh-Hans", ..., "es"

    static LocalizationService &shared();

    // The stored choice; a missing or unknown stored value reads as System.
    AppLanguage currentLanguage() const;
    // Stores the raw value (also "system") at once.
    void setCurrentLanguage(AppLanguage language);

    // The table in use: the choice itself, or for System the first of the
    // platform's preferred languages mapped by prefix.
    QString effectiveLanguageCode() const;

    // Text of `key` in the effective language, falling back to English and
    // then to the key itself; formatted only when arguments are given, so a
    // literal "%" in an argument-less text stays as written. With arguments,
    // the singular variant is used when the count calls for it.
    QString t(QAnyStringView key, const FormatArgs &args = {}) const;

    // Texts about a count come in two forms where the language needs them:
    // "key" (general) and "key#one" (singular), picked by the first integer
    // argument. CLDR's one/other split is all the seven languages need.
    static constexpr QLatin1StringView kSingularSuffix { "#one" };
    enum class PluralForm { One, Other };
    static PluralForm pluralForm(const QString &languageCode, qint64 count);

    // Unformatted text of `key` in one table, or a null QString when absent.
    QString rawText(const QString &languageCode, QAnyStringView key) const;
    QStringList keys(const QString &languageCode) const;

    // Maps a list of preferred languages ("de-AT", "zh-Hant-TW", "C", ...)
    // to a table code. Only the first entry counts.
    static QString resolveSystemLanguage(const QStringList &preferredLanguages);

    // Where the preferred languages come from; QLocale's UI languages unless
    // a test puts its own list in.
    void setPreferredLanguagesProvider(std::function<QStringList()> provider);

    // Qt's own catalog for the effective language ("qtbase_de", ...): the
    // texts of file dialogs, standard buttons and context menus. Loaded on
    // the main thread when the language changes; null for English or when
    // the catalog is not installed.
    const QTranslator *qtCatalog() const { return m_qtCatalog.get(); }
    // Loads it now (at start, once the application object exists).
    void installQtCatalog();

    ~LocalizationService();
    LocalizationService(const LocalizationService &) = delete;
    LocalizationService &operator=(const LocalizationService &) = delete;

private:
    LocalizationService();
    QString resolve(AppLanguage language) const;

    QHash<QString, QHash<QString, QString>> m_strings;
    std::function<QStringList()> m_preferredLanguages;

    mutable QReadWriteLock m_lock; // guards the two fields below
    AppLanguage m_language = AppLanguage::System;
    QString m_effectiveCode;
    std::unique_ptr<QTranslator> m_qtCatalog; // main thread only
};

// Shorthand for LocalizationService::shared().t(...).
QString t(QAnyStringView key, const FormatArgs &args = {});

} // namespace orvanta
