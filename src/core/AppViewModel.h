// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The one observable state object of the application: folders and options,
// style, probes, the running batch, the history page and the status line.
// Created once at start-up and confined to the main thread; background work
// posts its results back before touching it.
#pragma once

#include "core/ConfigStore.h"
#include "history/HistoryTypes.h"
#include "i18n/AppLanguage.h"
#include "i18n/FormatArgs.h"
#include "styles/StyleProfile.h"
#include "styles/UserRecipe.h"

#include <QAnyStringView>
#include <QList>
#include <QObject>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>
#include <QUuid>

#include <memory>

class QTimer;

namespace orvanta {

class EngineService;
class HistoryService;
struct BatchEvent;
struct RecipeImport;

class AppViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(orvanta::AppLanguage currentLanguage READ currentLanguage WRITE setCurrentLanguage
                   NOTIFY currentLanguageChanged)
    Q_PROPERTY(QString sourceDir READ sourceDir WRITE setSourceDir NOTIFY sourceDirChanged)
    Q_PROPERTY(QString destDir READ destDir WRITE setDestDir NOTIFY destDirChanged)
    Q_PROPERTY(QString targetStem READ targetStem WRITE setTargetStem NOTIFY targetStemChanged)
    Q_PROPERTY(bool forceReprocess READ forceReprocess WRITE setForceReprocess NOTIFY
                   forceReprocessChanged)
    Q_PROPERTY(bool enableBacklitFill READ enableBacklitFill WRITE setEnableBacklitFill NOTIFY
                   enableBacklitFillChanged)
    Q_PROPERTY(bool dryRunMode READ dryRunMode WRITE setDryRunMode NOTIFY dryRunModeChanged)
    Q_PROPERTY(qint64 minRating READ minRating WRITE setMinRating NOTIFY minRatingChanged)
    Q_PROPERTY(QString exportNamingTemplate READ exportNamingTemplate WRITE setExportNamingTemplate
                   NOTIFY exportNamingTemplateChanged)
    Q_PROPERTY(QString exportSubfolderRule READ exportSubfolderRule WRITE setExportSubfolderRule
                   NOTIFY exportSubfolderRuleChanged)
    Q_PROPERTY(QString volumeName READ volumeName WRITE setVolumeName NOTIFY volumeNameChanged)
    Q_PROPERTY(
        double volumeFreeGB READ volumeFreeGB WRITE setVolumeFreeGB NOTIFY volumeFreeGBChanged)
    Q_PROPERTY(bool volumeIsExternal READ volumeIsExternal WRITE setVolumeIsExternal NOTIFY
                   volumeIsExternalChanged)
    Q_PROPERTY(bool isVolumeSafe READ isVolumeSafe WRITE setIsVolumeSafe NOTIFY isVolumeSafeChanged)
    Q_PROPERTY(bool isEnvironmentHealthy READ isEnvironmentHealthy WRITE setIsEnvironmentHealthy
                   NOTIFY isEnvironmentHealthyChanged)
    Q_PROPERTY(QString missingDependencyMessage READ missingDependencyMessage WRITE
                   setMissingDependencyMessage NOTIFY missingDependencyMessageChanged)
    Q_PROPERTY(qint64 selectedWorkers READ selectedWorkers WRITE setSelectedWorkers NOTIFY
                   selectedWorkersChanged)
    Q_PROPERTY(bool memoryThrottleEnabled READ memoryThrottleEnabled WRITE setMemoryThrottleEnabled
                   NOTIFY memoryThrottleEnabledChanged)
    Q_PROPERTY(bool enableCanary READ enableCanary WRITE setEnableCanary NOTIFY enableCanaryChanged)
    Q_PROPERTY(bool exportDebugMasks READ exportDebugMasks WRITE setExportDebugMasks NOTIFY
                   exportDebugMasksChanged)
    Q_PROPERTY(bool notificationSoundEnabled READ notificationSoundEnabled WRITE
                   setNotificationSoundEnabled NOTIFY notificationSoundEnabledChanged)
    Q_PROPERTY(orvanta::StyleProfile selectedProfile READ selectedProfile WRITE setSelectedProfile
                   NOTIFY selectedProfileChanged)
    Q_PROPERTY(double customMidTarget READ customMidTarget WRITE setCustomMidTarget NOTIFY
                   customMidTargetChanged)
    Q_PROPERTY(double customPowerMid READ customPowerMid WRITE setCustomPowerMid NOTIFY
                   customPowerMidChanged)
    Q_PROPERTY(
        double customPowerHi READ customPowerHi WRITE setCustomPowerHi NOTIFY customPowerHiChanged)
    Q_PROPERTY(double customChromaBoost READ customChromaBoost WRITE setCustomChromaBoost NOTIFY
                   customChromaBoostChanged)
    Q_PROPERTY(double customSkinDamp READ customSkinDamp WRITE setCustomSkinDamp NOTIFY
                   customSkinDampChanged)
    Q_PROPERTY(QList<orvanta::UserRecipe> userRecipes READ userRecipes WRITE setUserRecipes NOTIFY
                   userRecipesChanged)
    Q_PROPERTY(QUuid activeRecipeId READ activeRecipeId WRITE setActiveRecipeId NOTIFY
                   activeRecipeIdChanged)
    Q_PROPERTY(bool isShowingSettings READ isShowingSettings WRITE setIsShowingSettings NOTIFY
                   isShowingSettingsChanged)
    Q_PROPERTY(bool isShowingDonateSheet READ isShowingDonateSheet WRITE setIsShowingDonateSheet
                   NOTIFY isShowingDonateSheetChanged)
    Q_PROPERTY(qint64 selectedTab READ selectedTab WRITE setSelectedTab NOTIFY selectedTabChanged)
    Q_PROPERTY(bool isConsoleDrawerExpanded READ isConsoleDrawerExpanded WRITE
                   setIsConsoleDrawerExpanded NOTIFY isConsoleDrawerExpandedChanged)
    Q_PROPERTY(double ramTotalGB READ ramTotalGB WRITE setRamTotalGB NOTIFY ramTotalGBChanged)
    Q_PROPERTY(QString memoryPressureDesc READ memoryPressureDesc WRITE setMemoryPressureDesc NOTIFY
                   memoryPressureDescChanged)
    Q_PROPERTY(bool isRunning READ isRunning WRITE setIsRunning NOTIFY isRunningChanged)
    Q_PROPERTY(bool isStopping READ isStopping WRITE setIsStopping NOTIFY isStoppingChanged)
    Q_PROPERTY(
        QString statusMessage READ statusMessage WRITE setStatusMessage NOTIFY statusMessageChanged)
    Q_PROPERTY(qint64 scanPairs READ scanPairs WRITE setScanPairs NOTIFY scanPairsChanged)
    Q_PROPERTY(qint64 scanOrphans READ scanOrphans WRITE setScanOrphans NOTIFY scanOrphansChanged)
    Q_PROPERTY(qint64 scanSkipped READ scanSkipped WRITE setScanSkipped NOTIFY scanSkippedChanged)
    Q_PROPERTY(qint64 scanPending READ scanPending WRITE setScanPending NOTIFY scanPendingChanged)
    Q_PROPERTY(
        qint64 currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentIndexChanged)
    Q_PROPERTY(
        qint64 totalPending READ totalPending WRITE setTotalPending NOTIFY totalPendingChanged)
    Q_PROPERTY(QString currentStem READ currentStem WRITE setCurrentStem NOTIFY currentStemChanged)
    Q_PROPERTY(
        qint64 currentFaces READ currentFaces WRITE setCurrentFaces NOTIFY currentFacesChanged)
    Q_PROPERTY(double currentPeakStops READ currentPeakStops WRITE setCurrentPeakStops NOTIFY
                   currentPeakStopsChanged)
    Q_PROPERTY(double currentBayerClip READ currentBayerClip WRITE setCurrentBayerClip NOTIFY
                   currentBayerClipChanged)
    Q_PROPERTY(double currentDuration READ currentDuration WRITE setCurrentDuration NOTIFY
                   currentDurationChanged)
    Q_PROPERTY(double progressFraction READ progressFraction WRITE setProgressFraction NOTIFY
                   progressFractionChanged)
    Q_PROPERTY(qint64 batchElapsedSeconds READ batchElapsedSeconds WRITE setBatchElapsedSeconds
                   NOTIFY batchElapsedSecondsChanged)
    Q_PROPERTY(
        QStringList consoleLogs READ consoleLogs WRITE setConsoleLogs NOTIFY consoleLogsChanged)
    Q_PROPERTY(orvanta::DashboardStats historyStats READ historyStats WRITE setHistoryStats NOTIFY
                   historyStatsChanged)
    Q_PROPERTY(QList<orvanta::PhotoRecord> historyRecords READ historyRecords WRITE
                   setHistoryRecords NOTIFY historyRecordsChanged)
    Q_PROPERTY(QString historySearchText READ historySearchText WRITE setHistorySearchText NOTIFY
                   historySearchTextChanged)
    Q_PROPERTY(orvanta::HistoryStatusFilter historyStatusFilter READ historyStatusFilter WRITE
                   setHistoryStatusFilter NOTIFY historyStatusFilterChanged)
    Q_PROPERTY(orvanta::HistorySortField historySortField READ historySortField WRITE
                   setHistorySortField NOTIFY historySortFieldChanged)
    Q_PROPERTY(bool historySortAscending READ historySortAscending WRITE setHistorySortAscending
                   NOTIFY historySortAscendingChanged)
    Q_PROPERTY(QSet<QString> selectedRecordIds READ selectedRecordIds WRITE setSelectedRecordIds
                   NOTIFY selectedRecordIdsChanged)
    Q_PROPERTY(orvanta::ListColumnSet visibleColumns READ visibleColumns WRITE setVisibleColumns
                   NOTIFY visibleColumnsChanged)
    Q_PROPERTY(bool hasMoreHistory READ hasMoreHistory WRITE setHasMoreHistory NOTIFY
                   hasMoreHistoryChanged)
    Q_PROPERTY(
        bool isLoadingMore READ isLoadingMore WRITE setIsLoadingMore NOTIFY isLoadingMoreChanged)
    Q_PROPERTY(qint64 totalFilteredCount READ totalFilteredCount WRITE setTotalFilteredCount NOTIFY
                   totalFilteredCountChanged)

public:
    // Runs the whole start-up sequence: configuration, recipes, probes,
    // status line, history, notification permission.
    explicit AppViewModel(QObject *parent = nullptr);
    ~AppViewModel() override;

    // Language: stored by LocalizationService, mirrored here. Setting it
    // re-renders the status line and announces wholeObjectChanged().
    AppLanguage currentLanguage() const { return m_currentLanguage; }
    void setCurrentLanguage(AppLanguage language);

    // Text of `key` in the current language; formatted only when arguments are given.
    QString t(QAnyStringView key, const FormatArgs &args = {}) const;

    // The status line is kept as a key and its arguments so that it can be
    // rendered again in another language.
    void setStatus(const QString &key, const FormatArgs &args = {});
    void updateStatusLocalized();
    QString currentStatusKey() const { return m_currentStatusKey; }
    FormatArgs currentStatusArgs() const { return m_currentStatusArgs; }

    // Searching, filtering and sorting happen in the database query, so the
    // loaded page is already the filtered list.
    QList<PhotoRecord> filteredHistoryRecords() const { return m_historyRecords; }

    // Style: back to the custom style's defaults, each through its setter.
    void resetCustomParameters();

    const ConfigStore &configStore() const { return m_config; }
    EngineService *engineService() const { return m_engineService.get(); }
    HistoryService *historyService() const { return m_historyService.get(); }

    // Batch run (engine subsystem).
    void startProcessing();
    void stopProcessing();
    void handleBatchEvent(const BatchEvent &event);
    void appendLog(const QString &line);
    void clearLogs();

    // Probes (engine subsystem).
    void checkEnvironment();
    void updateVolumeInfo();
    void updateMemoryProbe();

    // History (history subsystem).
    void refreshHistory();
    void loadMoreHistory();
    void toggleRecordSelection(const QString &fingerprint);
    void selectAllRecords();
    void deselectAllRecords();
    void toggleColumnVisibility(ListColumn column);
    void deleteSelectedRecords();
    void reprocessSelectedRecords();

    // Recipes (styles subsystem).
    void applyRecipe(const UserRecipe &recipe);
    void saveCurrentAsRecipe(const QString &name);
    void deleteRecipe(const QUuid &id);
    void renameRecipe(const QUuid &id, const QString &newName);
    // Export and import report failures (the user chose the file): the
    // error text, empty on success.
    QString exportRecipes(const QString &path) const;
    RecipeImport importRecipes(const QString &path);

    // Folder selection (main window).
    // The dialog half of the two folder choices: shows a folder chooser with
    // the given prompt and start folder, returns the chosen path or an empty
    // text when the user cancels. The window passes one; tests pass a fake.
    using FolderChooser = std::function<QString(const QString &prompt, const QString &startDir)>;
    void selectSourceFolder(const FolderChooser &chooseFolder);
    void selectDestFolder(const FolderChooser &chooseFolder);
    void handleDroppedURLs(const QList<QUrl> &urls);

    // Folders and batch options
    QString sourceDir() const { return m_sourceDir; }
    void setSourceDir(const QString &value);
    QString destDir() const { return m_destDir; }
    void setDestDir(const QString &value);
    QString targetStem() const { return m_targetStem; }
    void setTargetStem(const QString &value);
    bool forceReprocess() const { return m_forceReprocess; }
    void setForceReprocess(bool value);
    bool enableBacklitFill() const { return m_enableBacklitFill; }
    void setEnableBacklitFill(bool value);
    bool dryRunMode() const { return m_dryRunMode; }
    void setDryRunMode(bool value);
    qint64 minRating() const { return m_minRating; }
    void setMinRating(qint64 value);
    QString exportNamingTemplate() const { return m_exportNamingTemplate; }
    void setExportNamingTemplate(const QString &value);
    QString exportSubfolderRule() const { return m_exportSubfolderRule; }
    void setExportSubfolderRule(const QString &value);

    // Storage probe
    QString volumeName() const { return m_volumeName; }
    void setVolumeName(const QString &value);
    double volumeFreeGB() const { return m_volumeFreeGB; }
    void setVolumeFreeGB(double value);
    bool volumeIsExternal() const { return m_volumeIsExternal; }
    void setVolumeIsExternal(bool value);
    bool isVolumeSafe() const { return m_isVolumeSafe; }
    void setIsVolumeSafe(bool value);

    // Environment probe
    bool isEnvironmentHealthy() const { return m_isEnvironmentHealthy; }
    void setIsEnvironmentHealthy(bool value);
    QString missingDependencyMessage() const { return m_missingDependencyMessage; }
    void setMissingDependencyMessage(const QString &value);

    // Workers and safety options
    qint64 selectedWorkers() const { return m_selectedWorkers; }
    void setSelectedWorkers(qint64 value);
    bool memoryThrottleEnabled() const { return m_memoryThrottleEnabled; }
    void setMemoryThrottleEnabled(bool value);
    bool enableCanary() const { return m_enableCanary; }
    void setEnableCanary(bool value);
    bool exportDebugMasks() const { return m_exportDebugMasks; }
    void setExportDebugMasks(bool value);
    bool notificationSoundEnabled() const { return m_notificationSoundEnabled; }
    void setNotificationSoundEnabled(bool value);

    // Style and recipes
    orvanta::StyleProfile selectedProfile() const { return m_selectedProfile; }
    void setSelectedProfile(orvanta::StyleProfile value);
    double customMidTarget() const { return m_customMidTarget; }
    void setCustomMidTarget(double value);
    double customPowerMid() const { return m_customPowerMid; }
    void setCustomPowerMid(double value);
    double customPowerHi() const { return m_customPowerHi; }
    void setCustomPowerHi(double value);
    double customChromaBoost() const { return m_customChromaBoost; }
    void setCustomChromaBoost(double value);
    double customSkinDamp() const { return m_customSkinDamp; }
    void setCustomSkinDamp(double value);
    QList<orvanta::UserRecipe> userRecipes() const { return m_userRecipes; }
    void setUserRecipes(const QList<orvanta::UserRecipe> &value);
    QUuid activeRecipeId() const { return m_activeRecipeId; }
    void setActiveRecipeId(const QUuid &value);

    // Presentation flags
    bool isShowingSettings() const { return m_isShowingSettings; }
    void setIsShowingSettings(bool value);
    bool isShowingDonateSheet() const { return m_isShowingDonateSheet; }
    void setIsShowingDonateSheet(bool value);
    qint64 selectedTab() const { return m_selectedTab; }
    void setSelectedTab(qint64 value);
    bool isConsoleDrawerExpanded() const { return m_isConsoleDrawerExpanded; }
    void setIsConsoleDrawerExpanded(bool value);

    // Memory probe
    double ramTotalGB() const { return m_ramTotalGB; }
    void setRamTotalGB(double value);
    QString memoryPressureDesc() const { return m_memoryPressureDesc; }
    void setMemoryPressureDesc(const QString &value);

    // Batch run
    bool isRunning() const { return m_isRunning; }
    void setIsRunning(bool value);
    bool isStopping() const { return m_isStopping; }
    void setIsStopping(bool value);
    QString statusMessage() const { return m_statusMessage; }
    void setStatusMessage(const QString &value);
    qint64 scanPairs() const { return m_scanPairs; }
    void setScanPairs(qint64 value);
    qint64 scanOrphans() const { return m_scanOrphans; }
    void setScanOrphans(qint64 value);
    qint64 scanSkipped() const { return m_scanSkipped; }
    void setScanSkipped(qint64 value);
    qint64 scanPending() const { return m_scanPending; }
    void setScanPending(qint64 value);
    qint64 currentIndex() const { return m_currentIndex; }
    void setCurrentIndex(qint64 value);
    qint64 totalPending() const { return m_totalPending; }
    void setTotalPending(qint64 value);
    QString currentStem() const { return m_currentStem; }
    void setCurrentStem(const QString &value);
    qint64 currentFaces() const { return m_currentFaces; }
    void setCurrentFaces(qint64 value);
    double currentPeakStops() const { return m_currentPeakStops; }
    void setCurrentPeakStops(double value);
    double currentBayerClip() const { return m_currentBayerClip; }
    void setCurrentBayerClip(double value);
    double currentDuration() const { return m_currentDuration; }
    void setCurrentDuration(double value);
    double progressFraction() const { return m_progressFraction; }
    void setProgressFraction(double value);
    qint64 batchElapsedSeconds() const { return m_batchElapsedSeconds; }
    void setBatchElapsedSeconds(qint64 value);
    QStringList consoleLogs() const { return m_consoleLogs; }
    void setConsoleLogs(const QStringList &value);

    // History
    orvanta::DashboardStats historyStats() const { return m_historyStats; }
    void setHistoryStats(const orvanta::DashboardStats &value);
    QList<orvanta::PhotoRecord> historyRecords() const { return m_historyRecords; }
    void setHistoryRecords(const QList<orvanta::PhotoRecord> &value);
    QString historySearchText() const { return m_historySearchText; }
    void setHistorySearchText(const QString &value);
    orvanta::HistoryStatusFilter historyStatusFilter() const { return m_historyStatusFilter; }
    void setHistoryStatusFilter(orvanta::HistoryStatusFilter value);
    orvanta::HistorySortField historySortField() const { return m_historySortField; }
    void setHistorySortField(orvanta::HistorySortField value);
    bool historySortAscending() const { return m_historySortAscending; }
    void setHistorySortAscending(bool value);
    QSet<QString> selectedRecordIds() const { return m_selectedRecordIds; }
    void setSelectedRecordIds(const QSet<QString> &value);
    orvanta::ListColumnSet visibleColumns() const { return m_visibleColumns; }
    void setVisibleColumns(const orvanta::ListColumnSet &value);
    bool hasMoreHistory() const { return m_hasMoreHistory; }
    void setHasMoreHistory(bool value);
    bool isLoadingMore() const { return m_isLoadingMore; }
    void setIsLoadingMore(bool value);
    qint64 totalFilteredCount() const { return m_totalFilteredCount; }
    void setTotalFilteredCount(qint64 value);

Q_SIGNALS:
    void currentLanguageChanged();
    // Every localized text may have changed: views re-read all of them.
    void wholeObjectChanged();
    void sourceDirChanged();
    void destDirChanged();
    void targetStemChanged();
    void forceReprocessChanged();
    void enableBacklitFillChanged();
    void dryRunModeChanged();
    void minRatingChanged();
    void exportNamingTemplateChanged();
    void exportSubfolderRuleChanged();
    void volumeNameChanged();
    void volumeFreeGBChanged();
    void volumeIsExternalChanged();
    void isVolumeSafeChanged();
    void isEnvironmentHealthyChanged();
    void missingDependencyMessageChanged();
    void selectedWorkersChanged();
    void memoryThrottleEnabledChanged();
    void enableCanaryChanged();
    void exportDebugMasksChanged();
    void notificationSoundEnabledChanged();
    void selectedProfileChanged();
    void customMidTargetChanged();
    void customPowerMidChanged();
    void customPowerHiChanged();
    void customChromaBoostChanged();
    void customSkinDampChanged();
    void userRecipesChanged();
    void activeRecipeIdChanged();
    void isShowingSettingsChanged();
    void isShowingDonateSheetChanged();
    void selectedTabChanged();
    void isConsoleDrawerExpandedChanged();
    void ramTotalGBChanged();
    void memoryPressureDescChanged();
    void isRunningChanged();
    void isStoppingChanged();
    void statusMessageChanged();
    void scanPairsChanged();
    void scanOrphansChanged();
    void scanSkippedChanged();
    void scanPendingChanged();
    void currentIndexChanged();
    void totalPendingChanged();
    void currentStemChanged();
    void currentFacesChanged();
    void currentPeakStopsChanged();
    void currentBayerClipChanged();
    void currentDurationChanged();
    void progressFractionChanged();
    void batchElapsedSecondsChanged();
    void consoleLogsChanged();
    void historyStatsChanged();
    void historyRecordsChanged();
    void historySearchTextChanged();
    void historyStatusFilterChanged();
    void historySortFieldChanged();
    void historySortAscendingChanged();
    void selectedRecordIdsChanged();
    void visibleColumnsChanged();
    void hasMoreHistoryChanged();
    void isLoadingMoreChanged();
    void totalFilteredCountChanged();

private:
    template<typename T, typename Signal> bool assign(T &member, const T &value, Signal changed)
    {
        if (member == value)
            return false;
        member = value;
        Q_EMIT(this->*changed)();
        return true;
    }

    // Per-subsystem wiring (connections, timers), run first in the constructor.
    void setUpEngine();
    void setUpHistory();

    void loadConfiguration();
    void saveConfiguration();
    void loadUserRecipes();
    void requestNotificationPermission();

    AppLanguage m_currentLanguage = AppLanguage::System;

    // Folders and batch options
    QString m_sourceDir;
    QString m_destDir;
    QString m_targetStem;
    bool m_forceReprocess = false;
    bool m_enableBacklitFill = true;
    bool m_dryRunMode = false;
    qint64 m_minRating = 0;
    QString m_exportNamingTemplate = QStringLiteral("{original}_hdr");
    QString m_exportSubfolderRule = QStringLiteral("none");

    // Storage probe
    QString m_volumeName = QStringLiteral("Local Disk");
    double m_volumeFreeGB = 0;
    bool m_volumeIsExternal = false;
    bool m_isVolumeSafe = true;

    // Environment probe
    bool m_isEnvironmentHealthy = true;
    QString m_missingDependencyMessage;

    // Workers and safety options
    qint64 m_selectedWorkers = 0;
    bool m_memoryThrottleEnabled = true;
    bool m_enableCanary = true;
    bool m_exportDebugMasks = false;
    bool m_notificationSoundEnabled = true;

    // Style and recipes
    orvanta::StyleProfile m_selectedProfile = StyleProfile::Default;
    double m_customMidTarget = 0.55;
    double m_customPowerMid = 0.45;
    double m_customPowerHi = 1.5;
    double m_customChromaBoost = 0.28;
    double m_customSkinDamp = 0.4;
    QList<orvanta::UserRecipe> m_userRecipes;
    QUuid m_activeRecipeId;

    // Presentation flags
    bool m_isShowingSettings = false;
    bool m_isShowingDonateSheet = false;
    qint64 m_selectedTab = 0;
    bool m_isConsoleDrawerExpanded = false;

    // Memory probe
    double m_ramTotalGB = 16.0;
    QString m_memoryPressureDesc;

    // Batch run
    bool m_isRunning = false;
    bool m_isStopping = false;
    QString m_statusMessage;
    qint64 m_scanPairs = 0;
    qint64 m_scanOrphans = 0;
    qint64 m_scanSkipped = 0;
    qint64 m_scanPending = 0;
    qint64 m_currentIndex = 0;
    qint64 m_totalPending = 0;
    QString m_currentStem;
    qint64 m_currentFaces = 0;
    double m_currentPeakStops = 0;
    double m_currentBayerClip = 0;
    double m_currentDuration = 0;
    double m_progressFraction = 0;
    qint64 m_batchElapsedSeconds = 0;
    QStringList m_consoleLogs;

    // History
    orvanta::DashboardStats m_historyStats;
    QList<orvanta::PhotoRecord> m_historyRecords;
    QString m_historySearchText;
    orvanta::HistoryStatusFilter m_historyStatusFilter = HistoryStatusFilter::All;
    orvanta::HistorySortField m_historySortField = HistorySortField::Date;
    bool m_historySortAscending = false;
    QSet<QString> m_selectedRecordIds;
    orvanta::ListColumnSet m_visibleColumns = defaultVisibleColumns();
    bool m_hasMoreHistory = true;
    bool m_isLoadingMore = false;
    qint64 m_totalFilteredCount = 0;

    // Private, unpublished state.
    QString m_currentStatusKey = QStringLiteral("status_ready");
    FormatArgs m_currentStatusArgs;
    ConfigStore m_config;

    // Engine subsystem.
    qint64 m_currentRunSuccessCount = 0;
    qint64 m_currentRunFailedCount = 0;
    QTimer *m_batchTimer = nullptr;
    std::unique_ptr<EngineService> m_engineService;
    // Bumped by every start, so a stop watchdog left from an earlier run
    // never ends a later one.
    quint64 m_runGeneration = 0;
    // Engine lines are appended at once and announced once per read.
    bool m_consoleDirty = false;
    void appendEngineLog(const QString &line);
    void flushConsole();
    void writeRunHeader();
    void finishRun(int status, bool crashed);
    void stopBatchTimer();
    // While the records of one read are applied, the status line is rendered
    // once, for the last of them, when the read has been handled.
    bool m_deferRunStatus = false;
    bool m_hasPendingStatus = false;
    QString m_pendingStatusKey;
    FormatArgs m_pendingStatusArgs;
    void setRunStatus(const QString &key, const FormatArgs &args = {});
    void flushRunOutput();

    // History subsystem.
    std::unique_ptr<HistoryService> m_historyService;
    // At most one refresh runs at a time; requests made meanwhile collapse
    // into one more run with the newest search, filter and sort.
    void startHistoryRefresh();
    bool m_historyRefreshRunning = false;
    bool m_historyRefreshPending = false;
    // Bumped whenever a refresh replaces the list, so that a next page read
    // for the old list is not appended to the new one.
    quint64 m_historyListGeneration = 0;
};

} // namespace orvanta
