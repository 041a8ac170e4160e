// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/AppViewModel.h"

#include "engine/EngineService.h"
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
    , m_memoryPressureDesc(orvanta::t("pressure_normal"))
    , m_engineService(std::make_unique<EngineService>())
    , m_historyService(std::make_unique<HistoryService>())
{
    setUpEngine();
    setUpHistory();
    loadConfiguration();
    loadUserRecipes();
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

        // Options apply only when present with the right type, except
        // "backlit_fill" and "profile_id", which always get a value.
        if (auto v = ConfigStore::toWholeNumber(o.value(u"workers"_s)))
            setSelectedWorkers(*v);
        if (auto v = ConfigStore::toBoolean(o.value(u"memory_throttle"_s)))
            setMemoryThrottleEnabled(*v);
        if (auto v = ConfigStore::toBoolean(o.value(u"enable_canary"_s)))
            setEnableCanary(*v);
        if (auto v = ConfigStore::toBoolean(o.value(u"export_debug_masks"_s)))
            setExportDebugMasks(*v);
        if (auto v = ConfigStore::toBoolean(o.value(u"notification_sound"_s)))
            setNotificationSoundEnabled(*v);
        if (auto v = ConfigStore::toWholeNumber(o.value(u"min_rating"_s)))
            setMinRating(*v);
        setEnableBacklitFill(ConfigStore::toBoolean(o.value(u"backlit_fill"_s)).value_or(true));
        const QString profile = ConfigStore::toString(o.value(u"profile_id"_s)).value_or(QString());
        setSelectedProfile(styleProfileFromRawValue(profile).value_or(StyleProfile::Default));
        if (auto v = ConfigStore::toReal(o.value(u"custom_mid_target"_s)))
            setCustomMidTarget(*v);
        if (auto v = ConfigStore::toReal(o.value(u"custom_power_mid"_s)))
            setCustomPowerMid(*v);
        if (auto v = ConfigStore::toReal(o.value(u"custom_power_hi"_s)))
            setCustomPowerHi(*v);
        if (auto v = ConfigStore::toReal(o.value(u"custom_chroma_boost"_s)))
            setCustomChromaBoost(*v);
        if (auto v = ConfigStore::toReal(o.value(u"custom_skin_damp"_s)))
            setCustomSkinDamp(*v);
        if (auto v = ConfigStore::toString(o.value(u"export_naming_template"_s)))
            setExportNamingTemplate(*v);
        if (auto v = ConfigStore::toString(o.value(u"export_subfolder_rule"_s)))
            setExportSubfolderRule(*v);

        const QJsonValue columns = o.value(u"visible_columns"_s);
        if (columns.isArray()) {
            ListColumnSet chosen;
            bool allStrings = true;
            for (const QJsonValue &item : columns.toArray()) {
                if (!item.isString()) {
                    allStrings = false;
                    break;
                }
                if (auto column = listColumnFromRawValue(item.toString()))
                    chosen << *column;
            }
            if (allStrings && !chosen.isEmpty())
                setVisibleColumns(chosen);
        }
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
    o.insert(u"source_dir"_s, m_sourceDir);
    o.insert(u"dest_dir"_s, m_destDir);
    o.insert(u"workers"_s, m_selectedWorkers);
    o.insert(u"memory_throttle"_s, m_memoryThrottleEnabled);
    o.insert(u"enable_canary"_s, m_enableCanary);
    o.insert(u"export_debug_masks"_s, m_exportDebugMasks);
    o.insert(u"notification_sound"_s, m_notificationSoundEnabled);
    o.insert(u"min_rating"_s, m_minRating);
    o.insert(u"backlit_fill"_s, m_enableBacklitFill);
    o.insert(u"profile_id"_s, rawValue(m_selectedProfile));
    o.insert(u"custom_mid_target"_s, m_customMidTarget);
    o.insert(u"custom_power_mid"_s, m_customPowerMid);
    o.insert(u"custom_power_hi"_s, m_customPowerHi);
    o.insert(u"custom_chroma_boost"_s, m_customChromaBoost);
    o.insert(u"custom_skin_damp"_s, m_customSkinDamp);
    o.insert(u"export_naming_template"_s, m_exportNamingTemplate);
    o.insert(u"export_subfolder_rule"_s, m_exportSubfolderRule);
    QJsonArray columns;
    for (ListColumn column : m_visibleColumns)
        columns.append(rawValue(column));
    o.insert(u"visible_columns"_s, columns);

    m_config.write(o); // failures are silent: the properties keep their values
}

// ---- property setters -------------------------------------------------------

void AppViewModel::setSourceDir(const QString &value)
{
    if (assign(m_sourceDir, value, &AppViewModel::sourceDirChanged))
        saveConfiguration();
}

void AppViewModel::setDestDir(const QString &value)
{
    if (assign(m_destDir, value, &AppViewModel::destDirChanged))
        saveConfiguration();
}

void AppViewModel::setTargetStem(const QString &value)
{
    assign(m_targetStem, value, &AppViewModel::targetStemChanged);
}

void AppViewModel::setForceReprocess(bool value)
{
    assign(m_forceReprocess, value, &AppViewModel::forceReprocessChanged);
}

void AppViewModel::setEnableBacklitFill(bool value)
{
    if (assign(m_enableBacklitFill, value, &AppViewModel::enableBacklitFillChanged))
        saveConfiguration();
}

void AppViewModel::setDryRunMode(bool value)
{
    assign(m_dryRunMode, value, &AppViewModel::dryRunModeChanged);
}

void AppViewModel::setMinRating(qint64 value)
{
    if (assign(m_minRating, value, &AppViewModel::minRatingChanged))
        saveConfiguration();
}

void AppViewModel::setExportNamingTemplate(const QString &value)
{
    if (assign(m_exportNamingTemplate, value, &AppViewModel::exportNamingTemplateChanged))
        saveConfiguration();
}

void AppViewModel::setExportSubfolderRule(const QString &value)
{
    if (assign(m_exportSubfolderRule, value, &AppViewModel::exportSubfolderRuleChanged))
        saveConfiguration();
}

void AppViewModel::setVolumeName(const QString &value)
{
    assign(m_volumeName, value, &AppViewModel::volumeNameChanged);
}

void AppViewModel::setVolumeFreeGB(double value)
{
    assign(m_volumeFreeGB, value, &AppViewModel::volumeFreeGBChanged);
}

void AppViewModel::setVolumeIsExternal(bool value)
{
    assign(m_volumeIsExternal, value, &AppViewModel::volumeIsExternalChanged);
}

void AppViewModel::setIsVolumeSafe(bool value)
{
    assign(m_isVolumeSafe, value, &AppViewModel::isVolumeSafeChanged);
}

void AppViewModel::setIsEnvironmentHealthy(bool value)
{
    assign(m_isEnvironmentHealthy, value, &AppViewModel::isEnvironmentHealthyChanged);
}

void AppViewModel::setMissingDependencyMessage(const QString &value)
{
    assign(m_missingDependencyMessage, value, &AppViewModel::missingDependencyMessageChanged);
}

void AppViewModel::setSelectedWorkers(qint64 value)
{
    if (assign(m_selectedWorkers, value, &AppViewModel::selectedWorkersChanged))
        saveConfiguration();
}

void AppViewModel::setMemoryThrottleEnabled(bool value)
{
    if (assign(m_memoryThrottleEnabled, value, &AppViewModel::memoryThrottleEnabledChanged))
        saveConfiguration();
}

void AppViewModel::setEnableCanary(bool value)
{
    if (assign(m_enableCanary, value, &AppViewModel::enableCanaryChanged))
        saveConfiguration();
}

void AppViewModel::setExportDebugMasks(bool value)
{
    if (assign(m_exportDebugMasks, value, &AppViewModel::exportDebugMasksChanged))
        saveConfiguration();
}

void AppViewModel::setNotificationSoundEnabled(bool value)
{
    if (assign(m_notificationSoundEnabled, value, &AppViewModel::notificationSoundEnabledChanged))
        saveConfiguration();
}

void AppViewModel::setSelectedProfile(orvanta::StyleProfile value)
{
    if (assign(m_selectedProfile, value, &AppViewModel::selectedProfileChanged))
        saveConfiguration();
}

void AppViewModel::setCustomMidTarget(double value)
{
    if (assign(m_customMidTarget, value, &AppViewModel::customMidTargetChanged))
        saveConfiguration();
}

void AppViewModel::setCustomPowerMid(double value)
{
    if (assign(m_customPowerMid, value, &AppViewModel::customPowerMidChanged))
        saveConfiguration();
}

void AppViewModel::setCustomPowerHi(double value)
{
    if (assign(m_customPowerHi, value, &AppViewModel::customPowerHiChanged))
        saveConfiguration();
}

void AppViewModel::setCustomChromaBoost(double value)
{
    if (assign(m_customChromaBoost, value, &AppViewModel::customChromaBoostChanged))
        saveConfiguration();
}

void AppViewModel::setCustomSkinDamp(double value)
{
    if (assign(m_customSkinDamp, value, &AppViewModel::customSkinDampChanged))
        saveConfiguration();
}

void AppViewModel::setUserRecipes(const QList<orvanta::UserRecipe> &value)
{
    assign(m_userRecipes, value, &AppViewModel::userRecipesChanged);
}

void AppViewModel::setActiveRecipeId(const QUuid &value)
{
    assign(m_activeRecipeId, value, &AppViewModel::activeRecipeIdChanged);
}

void AppViewModel::setIsShowingSettings(bool value)
{
    assign(m_isShowingSettings, value, &AppViewModel::isShowingSettingsChanged);
}

void AppViewModel::setIsShowingDonateSheet(bool value)
{
    assign(m_isShowingDonateSheet, value, &AppViewModel::isShowingDonateSheetChanged);
}

void AppViewModel::setSelectedTab(qint64 value)
{
    assign(m_selectedTab, value, &AppViewModel::selectedTabChanged);
}

void AppViewModel::setIsConsoleDrawerExpanded(bool value)
{
    assign(m_isConsoleDrawerExpanded, value, &AppViewModel::isConsoleDrawerExpandedChanged);
}

void AppViewModel::setRamTotalGB(double value)
{
    assign(m_ramTotalGB, value, &AppViewModel::ramTotalGBChanged);
}

void AppViewModel::setMemoryPressureDesc(const QString &value)
{
    assign(m_memoryPressureDesc, value, &AppViewModel::memoryPressureDescChanged);
}

void AppViewModel::setIsRunning(bool value)
{
    assign(m_isRunning, value, &AppViewModel::isRunningChanged);
}

void AppViewModel::setIsStopping(bool value)
{
    assign(m_isStopping, value, &AppViewModel::isStoppingChanged);
}

void AppViewModel::setStatusMessage(const QString &value)
{
    assign(m_statusMessage, value, &AppViewModel::statusMessageChanged);
}

void AppViewModel::setScanPairs(qint64 value)
{
    assign(m_scanPairs, value, &AppViewModel::scanPairsChanged);
}

void AppViewModel::setScanOrphans(qint64 value)
{
    assign(m_scanOrphans, value, &AppViewModel::scanOrphansChanged);
}

void AppViewModel::setScanSkipped(qint64 value)
{
    assign(m_scanSkipped, value, &AppViewModel::scanSkippedChanged);
}

void AppViewModel::setScanPending(qint64 value)
{
    assign(m_scanPending, value, &AppViewModel::scanPendingChanged);
}

void AppViewModel::setCurrentIndex(qint64 value)
{
    assign(m_currentIndex, value, &AppViewModel::currentIndexChanged);
}

void AppViewModel::setTotalPending(qint64 value)
{
    assign(m_totalPending, value, &AppViewModel::totalPendingChanged);
}

void AppViewModel::setCurrentStem(const QString &value)
{
    assign(m_currentStem, value, &AppViewModel::currentStemChanged);
}

void AppViewModel::setCurrentFaces(qint64 value)
{
    assign(m_currentFaces, value, &AppViewModel::currentFacesChanged);
}

void AppViewModel::setCurrentPeakStops(double value)
{
    assign(m_currentPeakStops, value, &AppViewModel::currentPeakStopsChanged);
}

void AppViewModel::setCurrentBayerClip(double value)
{
    assign(m_currentBayerClip, value, &AppViewModel::currentBayerClipChanged);
}

void AppViewModel::setCurrentDuration(double value)
{
    assign(m_currentDuration, value, &AppViewModel::currentDurationChanged);
}

void AppViewModel::setProgressFraction(double value)
{
    assign(m_progressFraction, value, &AppViewModel::progressFractionChanged);
}

void AppViewModel::setBatchElapsedSeconds(qint64 value)
{
    assign(m_batchElapsedSeconds, value, &AppViewModel::batchElapsedSecondsChanged);
}

void AppViewModel::setConsoleLogs(const QStringList &value)
{
    assign(m_consoleLogs, value, &AppViewModel::consoleLogsChanged);
}

void AppViewModel::setHistoryStats(const orvanta::DashboardStats &value)
{
    assign(m_historyStats, value, &AppViewModel::historyStatsChanged);
}

void AppViewModel::setHistoryRecords(const QList<orvanta::PhotoRecord> &value)
{
    assign(m_historyRecords, value, &AppViewModel::historyRecordsChanged);
}

void AppViewModel::setHistorySearchText(const QString &value)
{
    assign(m_historySearchText, value, &AppViewModel::historySearchTextChanged);
}

void AppViewModel::setHistoryStatusFilter(orvanta::HistoryStatusFilter value)
{
    assign(m_historyStatusFilter, value, &AppViewModel::historyStatusFilterChanged);
}

void AppViewModel::setHistorySortField(orvanta::HistorySortField value)
{
    assign(m_historySortField, value, &AppViewModel::historySortFieldChanged);
}

void AppViewModel::setHistorySortAscending(bool value)
{
    assign(m_historySortAscending, value, &AppViewModel::historySortAscendingChanged);
}

void AppViewModel::setSelectedRecordIds(const QSet<QString> &value)
{
    assign(m_selectedRecordIds, value, &AppViewModel::selectedRecordIdsChanged);
}

void AppViewModel::setVisibleColumns(const ListColumnSet &value)
{
    // Every assignment is saved, even one that changes nothing.
    assign(m_visibleColumns, normalizedColumnSet(value), &AppViewModel::visibleColumnsChanged);
    saveConfiguration();
}

void AppViewModel::setHasMoreHistory(bool value)
{
    assign(m_hasMoreHistory, value, &AppViewModel::hasMoreHistoryChanged);
}

void AppViewModel::setIsLoadingMore(bool value)
{
    assign(m_isLoadingMore, value, &AppViewModel::isLoadingMoreChanged);
}

void AppViewModel::setTotalFilteredCount(qint64 value)
{
    assign(m_totalFilteredCount, value, &AppViewModel::totalFilteredCountChanged);
}

} // namespace orvanta
