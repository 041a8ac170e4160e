// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The one observable state object of the application: folders and options,
// style, probes, the running batch, the history page and the status line.
// Created once at start-up and confined to the main thread; background work
// posts its results back before touching it.
#pragma once

#include "core/ConfigStore.h"
#include "engine/BatchController.h"
#include "engine/ProbesController.h"
#include "history/HistoryBrowser.h"
#include "history/HistoryTypes.h"
#include "i18n/AppLanguage.h"
#include "i18n/FormatArgs.h"
#include "i18n/LocalizationService.h"
#include "styles/RecipeController.h"
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
#include <type_traits>

namespace orvanta {

// Every published property of AppViewModel, declared once. Each row
// generates the Q_PROPERTY, the getter, the setter, the NOTIFY signal
// (<name>Changed), the member with its default and, when the row has a
// configuration key, its place in loadConfiguration()/saveConfiguration().
//
//   X(kind, type, name, setter, default, config key or "")
//
// kind: Option  set by the user through the views (WRITE is published);
//       Folder  an Option loaded last, with the missing-folder fallback;
//       Custom  an Option whose setter is written by hand;
//       State   the model's own state (the status line): read-only for the
//               meta-object, its setter private, changed by the model's operations;
//       Forward run state owned by a controller: the default column names the
//               member holding the controller, the getter asks it, and the
//               controller's signal of the same name (<name>Changed) is
//               relayed. No member and no setter here; the setter column is
//               unused (write `_`).
// A persisted Option saves the file when its value changes (compare, then save).
// clang-format off
#define ORVANTA_APP_PROPERTIES(X) \
    /* Folders and batch options */ \
    X(Folder, QString, sourceDir, setSourceDir, {}, "source_dir") \
    X(Folder, QString, destDir, setDestDir, {}, "dest_dir") \
    X(Option, QString, targetStem, setTargetStem, {}, "") \
    X(Option, bool, forceReprocess, setForceReprocess, false, "") \
    X(Option, bool, enableBacklitFill, setEnableBacklitFill, true, "backlit_fill") \
    X(Option, bool, dryRunMode, setDryRunMode, false, "") \
    X(Option, bool, watchFolder, setWatchFolder, false, "watch_folder") \
    X(Option, qint64, minRating, setMinRating, 0, "min_rating") \
    X(Option, QString, exportNamingTemplate, setExportNamingTemplate, QStringLiteral("{original}_hdr"), "export_naming_template") \
    X(Option, QString, exportSubfolderRule, setExportSubfolderRule, QStringLiteral("none"), "export_subfolder_rule") \
    /* Storage probe */ \
    X(Forward, QString, volumeName, _, m_probes, "") \
    X(Forward, double, volumeFreeGB, _, m_probes, "") \
    X(Forward, bool, volumeIsExternal, _, m_probes, "") \
    X(Forward, bool, isVolumeSafe, _, m_probes, "") \
    /* Environment probe */ \
    X(Forward, bool, isEnvironmentHealthy, _, m_probes, "") \
    X(Forward, QString, missingDependencyMessage, _, m_probes, "") \
    /* Workers and safety options */ \
    X(Option, qint64, selectedWorkers, setSelectedWorkers, 0, "workers") \
    X(Option, bool, memoryThrottleEnabled, setMemoryThrottleEnabled, true, "memory_throttle") \
    X(Option, bool, enableCanary, setEnableCanary, true, "enable_canary") \
    X(Option, bool, exportDebugMasks, setExportDebugMasks, false, "export_debug_masks") \
    X(Option, bool, notificationSoundEnabled, setNotificationSoundEnabled, true, "notification_sound") \
    /* Style and recipes */ \
    X(Option, orvanta::StyleProfile, selectedProfile, setSelectedProfile, orvanta::StyleProfile::Default, "profile_id") \
    X(Option, double, customMidTarget, setCustomMidTarget, 0.55, "custom_mid_target") \
    X(Option, double, customPowerMid, setCustomPowerMid, 0.45, "custom_power_mid") \
    X(Option, double, customPowerHi, setCustomPowerHi, 1.5, "custom_power_hi") \
    X(Option, double, customChromaBoost, setCustomChromaBoost, 0.28, "custom_chroma_boost") \
    X(Option, double, customSkinDamp, setCustomSkinDamp, 0.4, "custom_skin_damp") \
    X(Forward, QList<orvanta::UserRecipe>, userRecipes, _, m_recipes, "") \
    X(Forward, QUuid, activeRecipeId, _, m_recipes, "") \
    /* Presentation flags */ \
    X(Option, bool, isShowingSettings, setIsShowingSettings, false, "") \
    X(Option, bool, isShowingDonateSheet, setIsShowingDonateSheet, false, "") \
    X(Option, qint64, selectedTab, setSelectedTab, 0, "") \
    X(Option, bool, isConsoleDrawerExpanded, setIsConsoleDrawerExpanded, false, "") \
    /* Memory probe */ \
    X(Forward, double, ramTotalGB, _, m_probes, "") \
    X(Forward, QString, memoryPressureDesc, _, m_probes, "") \
    /* Batch run */ \
    X(Forward, bool, isRunning, _, m_batch, "") \
    X(Forward, bool, isStopping, _, m_batch, "") \
    X(Forward, bool, isPaused, _, m_batch, "") \
    X(State, QString, statusMessage, setStatusMessage, {}, "") \
    X(Forward, qint64, scanPairs, _, m_batch, "") \
    X(Forward, qint64, scanOrphans, _, m_batch, "") \
    X(Forward, qint64, scanSkipped, _, m_batch, "") \
    X(Forward, qint64, scanPending, _, m_batch, "") \
    X(Forward, qint64, currentIndex, _, m_batch, "") \
    X(Forward, qint64, totalPending, _, m_batch, "") \
    X(Forward, QString, currentStem, _, m_batch, "") \
    X(Forward, qint64, currentFaces, _, m_batch, "") \
    X(Forward, double, currentPeakStops, _, m_batch, "") \
    X(Forward, double, currentBayerClip, _, m_batch, "") \
    X(Forward, double, currentDuration, _, m_batch, "") \
    X(Forward, double, progressFraction, _, m_batch, "") \
    X(Forward, qint64, batchElapsedSeconds, _, m_batch, "") \
    X(Forward, QStringList, consoleLogs, _, m_batch, "") \
    X(Forward, bool, isWatching, _, m_batch, "") \
    X(Forward, QString, watchedFolder, _, m_batch, "") \
    X(Forward, qint64, watchCount, _, m_batch, "") \
    X(Forward, QString, watchLastStem, _, m_batch, "") \
    X(Forward, bool, watchLost, _, m_batch, "") \
    X(Forward, QString, watchLostReason, _, m_batch, "") \
    /* History page; search, filter, sort and selection are the user's */ \
    X(Forward, orvanta::DashboardStats, historyStats, _, m_history, "") \
    X(Forward, QList<orvanta::PhotoRecord>, historyRecords, _, m_history, "") \
    X(Option, QString, historySearchText, setHistorySearchText, {}, "") \
    X(Option, orvanta::HistoryStatusFilter, historyStatusFilter, setHistoryStatusFilter, orvanta::HistoryStatusFilter::All, "") \
    X(Option, orvanta::HistorySortField, historySortField, setHistorySortField, orvanta::HistorySortField::Date, "") \
    X(Option, bool, historySortAscending, setHistorySortAscending, false, "") \
    X(Option, QSet<QString>, selectedRecordIds, setSelectedRecordIds, {}, "") \
    X(Custom, orvanta::ListColumnSet, visibleColumns, setVisibleColumns, orvanta::defaultVisibleColumns(), "visible_columns") \
    X(Forward, bool, hasMoreHistory, _, m_history, "") \
    X(Forward, bool, isLoadingMore, _, m_history, "") \
    X(Forward, qint64, totalFilteredCount, _, m_history, "") \
    X(Forward, bool, isHistoryBusy, _, m_history, "")

// What each kind publishes to the meta-object; moc expands these macros.
#define ORVANTA_QPROPERTY_Option(Type, name, setter) Q_PROPERTY(Type name READ name WRITE setter NOTIFY name##Changed)
#define ORVANTA_QPROPERTY_Folder ORVANTA_QPROPERTY_Option
#define ORVANTA_QPROPERTY_Custom ORVANTA_QPROPERTY_Option
#define ORVANTA_QPROPERTY_State(Type, name, setter) Q_PROPERTY(Type name READ name NOTIFY name##Changed)
#define ORVANTA_QPROPERTY_Forward ORVANTA_QPROPERTY_State
#define ORVANTA_DECLARE_QPROPERTY(kind, Type, name, setter, def, key) ORVANTA_QPROPERTY_##kind(Type, name, setter)
#define ORVANTA_ACCESSORS_Option(Type, name, setter, def) \
    Type name() const { return m_##name; } \
    void setter(orvanta::PropertyParam<Type> value);
#define ORVANTA_ACCESSORS_Folder ORVANTA_ACCESSORS_Option
#define ORVANTA_ACCESSORS_Custom ORVANTA_ACCESSORS_Option
#define ORVANTA_ACCESSORS_State(Type, name, setter, def) Type name() const { return m_##name; }
#define ORVANTA_STATE_SETTER_Option(Type, setter)
#define ORVANTA_STATE_SETTER_Folder ORVANTA_STATE_SETTER_Option
#define ORVANTA_STATE_SETTER_Custom ORVANTA_STATE_SETTER_Option
#define ORVANTA_STATE_SETTER_Forward ORVANTA_STATE_SETTER_Option
#define ORVANTA_STATE_SETTER_State(Type, setter) void setter(orvanta::PropertyParam<Type> value);
#define ORVANTA_DECLARE_STATE_SETTER(kind, Type, name, setter, def, key) ORVANTA_STATE_SETTER_##kind(Type, setter)
#define ORVANTA_ACCESSORS_Forward(Type, name, setter, controller) Type name() const { return controller->name(); }
#define ORVANTA_DECLARE_ACCESSORS(kind, Type, name, setter, def, key) ORVANTA_ACCESSORS_##kind(Type, name, setter, def)
#define ORVANTA_DECLARE_SIGNAL(kind, Type, name, setter, def, key) void name##Changed();
#define ORVANTA_MEMBER_Option(Type, name, def) Type m_##name = def;
#define ORVANTA_MEMBER_Folder ORVANTA_MEMBER_Option
#define ORVANTA_MEMBER_Custom ORVANTA_MEMBER_Option
#define ORVANTA_MEMBER_State ORVANTA_MEMBER_Option
#define ORVANTA_MEMBER_Forward(Type, name, def)
#define ORVANTA_DECLARE_MEMBER(kind, Type, name, setter, def, key) ORVANTA_MEMBER_##kind(Type, name, def)
// clang-format on

// Setters take scalars (numbers, enums) by value and everything else by reference.
template<typename T> using PropertyParam = std::conditional_t<std::is_scalar_v<T>, T, const T &>;

class AppViewModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(orvanta::AppLanguage currentLanguage READ currentLanguage WRITE setCurrentLanguage
                   NOTIFY currentLanguageChanged)
    ORVANTA_APP_PROPERTIES(ORVANTA_DECLARE_QPROPERTY)

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

    // The destination's volume as the user reads it: its mount name, or "the
    // local disk" in the current language.
    QString volumeDisplayName() const;
    FormatArgs currentStatusArgs() const { return m_currentStatusArgs; }

    // Searching, filtering and sorting happen in the database query, so the
    // loaded page is already the filtered list.
    QList<PhotoRecord> filteredHistoryRecords() const { return m_history->historyRecords(); }

    // Style: back to the custom style's defaults, each through its setter.
    void resetCustomParameters();

    const ConfigStore &configStore() const { return m_config; }
    BatchController *batch() const { return m_batch.get(); }
    ProbesController *probes() const { return m_probes.get(); }
    const HistoryService *historyService() const { return &m_history->service(); }

    // Batch run (engine subsystem): forwards to batch().
    void startProcessing();
    void stopProcessing();
    void setBatchPaused(bool paused) { m_batch->setPaused(paused); }
    void handleBatchEvent(const BatchEvent &event) { m_batch->handleBatchEvent(event); }
    void appendLog(const QString &line) { m_batch->appendLog(line); }
    void clearLogs() { m_batch->clearLogs(); }

    // Probes (engine subsystem): forwards to probes().
    void checkEnvironment() { m_probes->checkEnvironment(); }
    void updateVolumeInfo();
    void updateMemoryProbe() { m_probes->updateMemoryProbe(); }

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

    // Getters of every row of ORVANTA_APP_PROPERTIES, setters of the options
    // (State setters are private; Forward rows have none).
    ORVANTA_APP_PROPERTIES(ORVANTA_DECLARE_ACCESSORS)

    // Which persisted property is stored under which configuration key, in
    // declaration order.
    struct PersistedProperty
    {
        const char *name;
        QLatin1StringView key;
    };
    static QList<PersistedProperty> persistedProperties();

Q_SIGNALS:
    void currentLanguageChanged();
    // Every localized text may have changed: views re-read all of them.
    void wholeObjectChanged();
    ORVANTA_APP_PROPERTIES(ORVANTA_DECLARE_SIGNAL)

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
    HistoryQuery currentHistoryQuery() const;

    // Relays the <name>Changed signals of the controllers behind Forward rows.
    void connectForwardedProperties();
    void loadConfiguration();
    void saveConfiguration();
    void requestNotificationPermission();

    AppLanguage m_currentLanguage = AppLanguage::System;
    ORVANTA_APP_PROPERTIES(ORVANTA_DECLARE_MEMBER)
    // The model's own state changes only through its operations.
    ORVANTA_APP_PROPERTIES(ORVANTA_DECLARE_STATE_SETTER)

    // Private, unpublished state.
    QString m_currentStatusKey = QStringLiteral("status_ready");
    FormatArgs m_currentStatusArgs;
    ConfigStore m_config;

    // Engine subsystem.
    std::unique_ptr<ProbesController> m_probes;
    std::unique_ptr<BatchController> m_batch;
    QStringList runHeader(const QString &sourceDir) const;
    // Refreshes the probes; false (with the reason on the status line and
    // in the console) when a run cannot start now.
    bool readyToRun();
    BatchRequest batchRequest(const QString &sourceDir) const;

    // History and recipe subsystems: the controllers behind the Forward rows.
    std::unique_ptr<HistoryBrowser> m_history;
    std::unique_ptr<RecipeController> m_recipes;
};

} // namespace orvanta
