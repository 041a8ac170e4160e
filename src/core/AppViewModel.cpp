// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AppViewModel.h"

#include "history/HistoryService.h"
#include "i18n/LocalizationService.h"

#include <QFileInfo>
#include <QJsonArray>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
// Where the folders point before anything is loaded; an unmounted drive is
// replaced by the Pictures fallbacks at start-up.
const QString kDefaultSourceDir = u"/Volumes/MacExternal/hdr_source"_s;
const QString kDefaultDestDir = u"/Volumes/MacExternal/mac_photos_sync"_s;
} // namespace

AppViewModel::AppViewModel(QObject *parent)
    : QObject(parent)
    , m_currentLanguage(LocalizationService::shared().currentLanguage())
    , m_probes(std::make_unique<ProbesController>())
    , m_batch(std::make_unique<BatchController>())
    , m_history(std::make_unique<HistoryBrowser>(HistoryService()))
    , m_recipes(std::make_unique<RecipeController>())
{
    connectForwardedProperties();
    setUpEngine();
    setUpHistory();
    loadConfiguration();
    m_recipes->loadRecipes();
    updateVolumeInfo();
    checkEnvironment();
    updateStatusLocalized();
    refreshHistory();
    requestNotificationPermission();
}

AppViewModel::~AppViewModel() = default;

void AppViewModel::setCurrentLanguage(AppLanguage language)
{
    const bool changed = m_currentLanguage != language;
    m_currentLanguage = language;
    LocalizationService::shared().setCurrentLanguage(language);
    updateStatusLocalized();
    if (changed)
        Q_EMIT currentLanguageChanged();
    // Even re-choosing the same entry may change the effective language
    // (System after the platform's list changed), so views always re-read.
    Q_EMIT wholeObjectChanged();
}

QString AppViewModel::t(QAnyStringView key, const FormatArgs &args) const
{
    return LocalizationService::shared().t(key, args);
}

void AppViewModel::setStatus(const QString &key, const FormatArgs &args)
{
    m_currentStatusKey = key;
    m_currentStatusArgs = args;
    setStatusMessage(t(key, args));
}

QString AppViewModel::volumeDisplayName() const
{
    const QString name = volumeName();
    return name.isEmpty() ? t("volume_local_disk") : name;
}

void AppViewModel::updateStatusLocalized()
{
    setStatusMessage(t(m_currentStatusKey, m_currentStatusArgs));
}

void AppViewModel::resetCustomParameters()
{
    setCustomMidTarget(fineTuningParameter(FineTuning::MidTarget).defaultValue);
    setCustomPowerMid(fineTuningParameter(FineTuning::PowerMid).defaultValue);
    setCustomPowerHi(fineTuningParameter(FineTuning::PowerHi).defaultValue);
    setCustomChromaBoost(fineTuningParameter(FineTuning::ChromaBoost).defaultValue);
    setCustomSkinDamp(fineTuningParameter(FineTuning::SkinDamp).defaultValue);
}

// ---- configuration ----------------------------------------------------------
// A value from the file is taken only when it converts without loss; anything
// else leaves the property as it is.

namespace {

template<typename T> std::optional<T> fromConfig(const QJsonValue &value);

template<> std::optional<QString> fromConfig(const QJsonValue &value)
{
    return ConfigStore::toString(value);
}

template<> std::optional<bool> fromConfig(const QJsonValue &value)
{
    return ConfigStore::toBoolean(value);
}

template<> std::optional<qint64> fromConfig(const QJsonValue &value)
{
    return ConfigStore::toWholeNumber(value);
}

template<> std::optional<double> fromConfig(const QJsonValue &value)
{
    return ConfigStore::toReal(value);
}

// An unknown style falls back to the default style rather than keeping one.
template<> std::optional<StyleProfile> fromConfig(const QJsonValue &value)
{
    const QString raw = ConfigStore::toString(value).value_or(QString());
    return styleProfileFromRawValue(raw).value_or(StyleProfile::Default);
}

// Unknown column names are dropped; a list that is not all strings, or that
// names no known column, is ignored.
template<> std::optional<ListColumnSet> fromConfig(const QJsonValue &value)
{
    if (!value.isArray())
        return std::nullopt;
    ListColumnSet chosen;
    for (const QJsonValue &item : value.toArray()) {
        if (!item.isString())
            return std::nullopt;
        if (auto column = listColumnFromRawValue(item.toString()))
            chosen << *column;
    }
    if (chosen.isEmpty())
        return std::nullopt;
    return chosen;
}

// Declared only: rows without a configuration key name it in a discarded
// branch, where no definition is needed.
template<typename T> QJsonValue toConfig(const T &value);
QJsonValue toConfig(const QString &value)
{
    return value;
}
QJsonValue toConfig(bool value)
{
    return value;
}
QJsonValue toConfig(qint64 value)
{
    return value;
}
QJsonValue toConfig(double value)
{
    return value;
}
QJsonValue toConfig(StyleProfile value)
{
    return rawValue(value);
}

QJsonValue toConfig(const ListColumnSet &value)
{
    QJsonArray columns;
    for (ListColumn column : value)
        columns.append(rawValue(column));
    return columns;
}

constexpr bool isPersisted(const char *key)
{
    return key[0] != '\0';
}

} // namespace

// clang-format off
#define ORVANTA_LOAD_Option(Type, setter, key) \
    if constexpr (isPersisted(key)) { \
        if (auto v = fromConfig<Type>(o.value(QLatin1StringView(key)))) \
            setter(*v); \
    }
#define ORVANTA_LOAD_Custom ORVANTA_LOAD_Option
#define ORVANTA_LOAD_Folder(Type, setter, key)
#define ORVANTA_LOAD_State(Type, setter, key)
#define ORVANTA_LOAD_Forward(Type, setter, key)
#define ORVANTA_LOAD(kind, Type, name, setter, def, key) ORVANTA_LOAD_##kind(Type, setter, key)
#define ORVANTA_SAVE_Option(name, key) \
    if constexpr (isPersisted(key)) \
        o.insert(QLatin1StringView(key), toConfig(m_##name));
#define ORVANTA_SAVE_Folder ORVANTA_SAVE_Option
#define ORVANTA_SAVE_Custom ORVANTA_SAVE_Option
#define ORVANTA_SAVE_State ORVANTA_SAVE_Option
#define ORVANTA_SAVE_Forward(name, key)
#define ORVANTA_SAVE(kind, Type, name, setter, def, key) ORVANTA_SAVE_##kind(name, key)
#define ORVANTA_CONNECT_Option(name, controller)
#define ORVANTA_CONNECT_Folder ORVANTA_CONNECT_Option
#define ORVANTA_CONNECT_Custom ORVANTA_CONNECT_Option
#define ORVANTA_CONNECT_State ORVANTA_CONNECT_Option
#define ORVANTA_CONNECT_Forward(name, controller) \
    connect(&*controller, &std::remove_cvref_t<decltype(*controller)>::name##Changed, this, \
            &AppViewModel::name##Changed);
#define ORVANTA_CONNECT(kind, Type, name, setter, def, key) ORVANTA_CONNECT_##kind(name, def)
#define ORVANTA_LIST_PERSISTED(kind, Type, name, setter, def, key) \
    if constexpr (isPersisted(key)) \
        list.append({#name, QLatin1StringView(key)});
// clang-format on

void AppViewModel::connectForwardedProperties() { ORVANTA_APP_PROPERTIES(ORVANTA_CONNECT) }

QList<AppViewModel::PersistedProperty> AppViewModel::persistedProperties()
{
    QList<PersistedProperty> list;
    ORVANTA_APP_PROPERTIES(ORVANTA_LIST_PERSISTED)
    return list;
}

void AppViewModel::loadConfiguration()
{
    QString source = kDefaultSourceDir;
    QString dest = kDefaultDestDir;

    if (const std::optional<QJsonObject> file = m_config.read()) {
        const QJsonObject &o = *file;
        if (auto v = ConfigStore::toString(o.value(u"source_dir"_s)); v && !v->isEmpty())
            source = *v;
        if (auto v = ConfigStore::toString(o.value(u"dest_dir"_s)); v && !v->isEmpty())
            dest = *v;
        ORVANTA_APP_PROPERTIES(ORVANTA_LOAD)
    }

    // A folder that is not there (an unmounted drive) falls back to Pictures;
    // the fallback is written back by the save below.
    if (!QFileInfo::exists(source))
        source = m_config.homeDir() + u"/Pictures"_s;
    if (!QFileInfo::exists(dest))
        dest = m_config.homeDir() + u"/Pictures/UltraHDR"_s;

    // Folders last, source before destination: saving does nothing while a
    // folder is empty, so this last assignment writes the file once, with
    // everything loaded above.
    setSourceDir(source);
    setDestDir(dest);
}

void AppViewModel::saveConfiguration()
{
    if (m_sourceDir.isEmpty() || m_destDir.isEmpty())
        return;

    QJsonObject o = m_config.read().value_or(QJsonObject());
    ORVANTA_APP_PROPERTIES(ORVANTA_SAVE)
    m_config.write(o); // failures are silent: the properties keep their values
}

// ---- property setters -------------------------------------------------------

// clang-format off
#define ORVANTA_DEFINE_SETTER_Option(Type, name, setter, key) \
    void AppViewModel::setter(PropertyParam<Type> value) \
    { \
        if (assign(m_##name, Type(value), &AppViewModel::name##Changed) && isPersisted(key)) \
            saveConfiguration(); \
    }
#define ORVANTA_DEFINE_SETTER_Folder ORVANTA_DEFINE_SETTER_Option
#define ORVANTA_DEFINE_SETTER_State ORVANTA_DEFINE_SETTER_Option
#define ORVANTA_DEFINE_SETTER_Custom(Type, name, setter, key)
#define ORVANTA_DEFINE_SETTER_Forward(Type, name, setter, key)
#define ORVANTA_DEFINE_SETTER(kind, Type, name, setter, def, key) \
    ORVANTA_DEFINE_SETTER_##kind(Type, name, setter, key)
// clang-format on

ORVANTA_APP_PROPERTIES(ORVANTA_DEFINE_SETTER)

void AppViewModel::setVisibleColumns(const ListColumnSet &value)
{
    // Every assignment is saved, even one that changes nothing.
    assign(m_visibleColumns, normalizedColumnSet(value), &AppViewModel::visibleColumnsChanged);
    saveConfiguration();
}

} // namespace orvanta
