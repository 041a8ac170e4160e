// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "i18n/LocalizationService.h"

#include "i18n/StringTables.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QSettings>
#include <QThread>
#include <QTranslator>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QHash<QString, QString> buildTable(std::span<const StringEntry> entries)
{
    QHash<QString, QString> table;
    table.reserve(qsizetype(entries.size()));
    for (const StringEntry &entry : entries)
        table.insert(QString::fromUtf8(entry.key), QString::fromUtf8(entry.text));
    return table;
}

QSettings preferences()
{
    return QSettings(QStringLiteral("orvanta"), QStringLiteral("orvanta"));
}

// The locale name Qt's catalogs use for a table code.
QString qtCatalogLocale(const QString &code)
{
    if (code == u"zh-Hans")
        return u"zh_CN"_s;
    if (code == u"zh-Hant")
        return u"zh_TW"_s;
    return code;
}

} // namespace

const QStringList &LocalizationService::tableCodes()
{
    static const QStringList codes { u"en"_s, u"zh-Hans"_s, u"zh-Hant"_s, u"ja"_s,
                                     u"de"_s, u"fr"_s,      u"es"_s };
    return codes;
}

LocalizationService &LocalizationService::shared()
{
    static LocalizationService instance;
    return instance;
}

LocalizationService::LocalizationService()
    : m_preferredLanguages([] { return QLocale::system().uiLanguages(); })
{
    m_strings.insert(u"en"_s, buildTable(strings::en()));
    m_strings.insert(u"zh-Hans"_s, buildTable(strings::zhHans()));
    m_strings.insert(u"zh-Hant"_s, buildTable(strings::zhHant()));
    m_strings.insert(u"ja"_s, buildTable(strings::ja()));
    m_strings.insert(u"de"_s, buildTable(strings::de()));
    m_strings.insert(u"fr"_s, buildTable(strings::fr()));
    m_strings.insert(u"es"_s, buildTable(strings::es()));

    const QString stored = preferences().value(QLatin1StringView(kPreferenceKey)).toString();
    m_language = appLanguageFromRawValue(stored).value_or(AppLanguage::System);
    m_effectiveCode = resolve(m_language);
    installQtCatalog();
}

LocalizationService::~LocalizationService() = default;

void LocalizationService::installQtCatalog()
{
    QCoreApplication *app = QCoreApplication::instance();
    if (!app || QThread::currentThread() != app->thread())
        return;
    if (m_qtCatalog) {
        QCoreApplication::removeTranslator(m_qtCatalog.get());
        m_qtCatalog.reset();
    }
    const QString code = effectiveLanguageCode();
    if (code == u"en")
        return;
    auto catalog = std::make_unique<QTranslator>();
    if (!catalog->load(u"qtbase_"_s + qtCatalogLocale(code),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        return; // not installed: Qt's texts stay English, the rest still follows
    QCoreApplication::installTranslator(catalog.get());
    m_qtCatalog = std::move(catalog);
}

AppLanguage LocalizationService::currentLanguage() const
{
    QReadLocker lock(&m_lock);
    return m_language;
}

void LocalizationService::setCurrentLanguage(AppLanguage language)
{
    {
        QSettings settings = preferences();
        settings.setValue(QLatin1StringView(kPreferenceKey), rawValue(language));
        settings.sync();
    }
    const QString code = resolve(language);
    {
        QWriteLocker lock(&m_lock);
        m_language = language;
        m_effectiveCode = code;
    }
    installQtCatalog();
}

QString LocalizationService::effectiveLanguageCode() const
{
    QReadLocker lock(&m_lock);
    return m_effectiveCode;
}

QString LocalizationService::resolve(AppLanguage language) const
{
    if (language != AppLanguage::System)
        return rawValue(language);
    return resolveSystemLanguage(m_preferredLanguages ? m_preferredLanguages() : QStringList {});
}

QString LocalizationService::resolveSystemLanguage(const QStringList &preferredLanguages)
{
    // Locale names may arrive as zh_Hant_TW; the tests below are on the
    // hyphenated form.
    QString first = preferredLanguages.isEmpty() ? u"en"_s : preferredLanguages.constFirst();
    first.replace(u'_', u'-');

    if (first.startsWith(u"zh-Hant") || first.startsWith(u"zh-HK") || first.startsWith(u"zh-TW"))
        return u"zh-Hant"_s;
    if (first.startsWith(u"zh"))
        return u"zh-Hans"_s;
    for (const char16_t *code : { u"ja", u"de", u"fr", u"es" }) {
        if (first.startsWith(QStringView(code)))
            return QString::fromUtf16(code);
    }
    return u"en"_s;
}

void LocalizationService::setPreferredLanguagesProvider(std::function<QStringList()> provider)
{
    m_preferredLanguages = std::move(provider);
    const AppLanguage language = currentLanguage();
    const QString code = resolve(language);
    {
        QWriteLocker lock(&m_lock);
        m_effectiveCode = code;
    }
    installQtCatalog();
}

LocalizationService::PluralForm LocalizationService::pluralForm(const QString &languageCode,
                                                                qint64 count)
{
    // Chinese and Japanese do not inflect nouns for number. French treats 0
    // like 1 ("0 photo"); English, German and Spanish only 1.
    if (languageCode == u"fr")
        return count == 0 || count == 1 ? PluralForm::One : PluralForm::Other;
    if (languageCode == u"en" || languageCode == u"de" || languageCode == u"es")
        return count == 1 ? PluralForm::One : PluralForm::Other;
    return PluralForm::Other;
}

QString LocalizationService::t(QAnyStringView key, const FormatArgs &args) const
{
    const QString keyString = key.toString();
    const auto english = m_strings.constFind(u"en"_s);
    QString code = effectiveLanguageCode();
    auto table = m_strings.constFind(code);

    auto lookup = [&](auto tableIt, const QString &name) -> const QString * {
        if (tableIt == m_strings.cend())
            return nullptr;
        const auto entry = tableIt->constFind(name);
        return entry == tableIt->cend() ? nullptr : &entry.value();
    };
    const QString *found = lookup(table, keyString);
    if (!found) {
        table = english;
        code = u"en"_s;
        found = lookup(table, keyString);
    }
    if (!found)
        return args.isEmpty() ? keyString : formatPrintf(keyString, args);
    if (args.isEmpty())
        return *found;
    // A text about a count may have a singular variant "key#one"; the first
    // integer argument is the count.
    const auto count = std::find_if(args.cbegin(), args.cend(),
                                    [](const FormatArg &arg) { return arg.isInteger(); });
    if (count != args.cend() && pluralForm(code, count->toInteger()) == PluralForm::One) {
        if (const QString *singular = lookup(table, keyString + kSingularSuffix))
            found = singular;
    }
    return formatPrintf(*found, args);
}

QString LocalizationService::rawText(const QString &languageCode, QAnyStringView key) const
{
    const auto table = m_strings.constFind(languageCode);
    return table == m_strings.cend() ? QString() : table->value(key.toString());
}

QStringList LocalizationService::keys(const QString &languageCode) const
{
    return m_strings.value(languageCode).keys();
}

QString t(QAnyStringView key, const FormatArgs &args)
{
    return LocalizationService::shared().t(key, args);
}

} // namespace orvanta
