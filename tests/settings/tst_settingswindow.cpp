// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The preferences window against a real model in a private home: every page's
// controls move the model (whose configuration file is tst_appviewmodel's),
// the model's changes show in the controls, recipes go through the real
// recipe file, and the window opens and closes through the main window.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "engine/SystemProbes.h"
#include "history/HistoryService.h"
#include "styles/RecipeService.h"
#include "ui/MainWindow.h"
#include "ui/settings/AboutTab.h"
#include "ui/settings/FineTuningPanel.h"
#include "ui/settings/PathsTab.h"
#include "ui/settings/PerformanceTab.h"
#include "ui/settings/ProfileCard.h"
#include "ui/settings/RecipeNameDialog.h"
#include "ui/settings/RecipePanel.h"
#include "ui/settings/SafetyTab.h"
#include "ui/settings/SettingsWidgets.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/settings/StyleTab.h"
#include "ui/settings/UpdatesTab.h"
#include "update/Updater.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSlider>
#include <QTcpServer>
#include <QToolButton>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QPushButton *rowButton(QWidget *row, const char *name)
{
    return row->findChild<QPushButton *>(QString::fromLatin1(name));
}

} // namespace

class SettingsWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QDir(QDir::homePath() + u"/.config/orvanta"_s).removeRecursively();
        QSettings().clear();
        m_model = std::make_unique<AppViewModel>();
        m_model->setCurrentLanguage(AppLanguage::English);
        m_revealed.clear();
        m_nextName.reset();
        m_nextFolder.clear();
        m_nextFile.clear();
        m_hooks = {};
        m_hooks.chooseFolder = [this](const QString &, const QString &) { return m_nextFolder; };
        m_hooks.chooseExportFile = [this](const QString &, const QString &proposed) {
            // The proposed name is part of the contract; a test that cares checks it.
            return proposed == u"orvanta_recipes.json" ? m_nextFile : QString();
        };
        m_hooks.chooseImportFile = [this](const QString &) { return m_nextFile; };
        m_hooks.askRecipeName = [this](const QString &, const QString &) { return m_nextName; };
        m_hooks.reveal
            = [this](const diagnostics::RevealTarget &target) { m_revealed.append(target); };
    }

    void cleanup() { m_model.reset(); }

    // Window
    void sixPagesInOrderStartingWithPerformance()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        const QStringList expected = { u"Performance"_s,   u"Paths"_s,   u"Safety && Diagnostics"_s,
                                       u"Style Presets"_s, u"Updates"_s, u"About && Legal"_s };
        for (int i = 0; i < SettingsWindow::TabCount; ++i)
            QCOMPARE(window->tabButton(SettingsWindow::Tab(i))->text(), expected[i]);
        QCOMPARE(window->currentTab(), SettingsWindow::Performance);
        QVERIFY(window->tabButton(SettingsWindow::Performance)->isChecked());
        QCOMPARE(window->windowTitle(), u"Preferences"_s);
        QCOMPARE(window->doneButton()->text(), u"Done"_s);

        window->tabButton(SettingsWindow::About)->click();
        QCOMPARE(window->currentTab(), SettingsWindow::About);
        QVERIFY(window->aboutTab()->isVisibleTo(window.data()));
        QVERIFY(!window->performanceTab()->isVisibleTo(window.data()));
    }

    void mainWindowOpensItAndDoneClosesIt()
    {
        MainWindow main(*m_model);
        main.setSettingsFactory([this](AppViewModel &model, QWidget *parent) -> QDialog * {
            return new SettingsWindow(model, nullptr, m_hooks, parent);
        });
        main.show();
        m_model->setIsShowingSettings(true);
        QTRY_VERIFY(main.settingsDialog() != nullptr);
        auto *window = qobject_cast<SettingsWindow *>(main.settingsDialog());
        QVERIFY(window);
        QTRY_VERIFY(window->isVisible());
        // On a screen smaller than its design size (the test screen is) it
        // opens whole, its Done button on the screen.
        const QRect available = window->screen()->availableGeometry();
        QVERIFY(window->width() <= available.width() && window->height() <= available.height());
        QVERIFY(available.contains(window->doneButton()->mapToGlobal(QPoint(2, 2))));

        window->doneButton()->click();
        QTRY_VERIFY(!m_model->isShowingSettings());
        QTRY_VERIFY(main.settingsDialog() == nullptr); // closed and deleted
    }

    void openingAndRefreshTakeAFreshMemoryReading()
    {
        m_model->probes()->setStateForTest([&](ProbeState &s) { s.ramTotalGB = 0.5; });
        QScopedPointer<SettingsWindow> window(makeWindow());
        QCOMPARE(m_model->ramTotalGB(), installedMemoryGiB());
        QCOMPARE(window->performanceTab()->ramValue()->text(),
                 QString::number(installedMemoryGiB(), 'f', 1) + u" GB"_s);
        m_model->probes()->setStateForTest([&](ProbeState &s) { s.ramTotalGB = 1.0; });
        QCOMPARE(window->performanceTab()->ramValue()->text(), u"1.0 GB"_s);
        window->performanceTab()->refreshButton()->click();
        QCOMPARE(m_model->ramTotalGB(), installedMemoryGiB());
        m_model->probes()->setStateForTest(
            [&](ProbeState &s) { s.memoryPressureDesc = u"Elevated (Throttle)"_s; });
        QCOMPARE(window->performanceTab()->pressureValue()->text(), u"Elevated (Throttle)"_s);
    }

    void textsFollowTheLanguage()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        m_model->setCurrentLanguage(AppLanguage::French);
        QCOMPARE(window->windowTitle(), m_model->t("settings_title"));
        QCOMPARE(window->tabButton(SettingsWindow::Styles)->text(), u"Préréglages de style"_s);
        QCOMPARE(window->styleTab()->cards().first()->badges().first()->name(),
                 m_model->t("badge_mid"));
        QCOMPARE(window->performanceTab()->workersPicker()->currentText(),
                 m_model->t("settings_workers_auto"));
        m_model->setCurrentLanguage(AppLanguage::English);
    }

    void pressureIsReadAgainInTheNewLanguage()
    {
        if (!readMemoryPressure())
            QSKIP("this kernel publishes no memory pressure information");
        QScopedPointer<SettingsWindow> window(makeWindow());
        const QString key = QString::fromLatin1(memoryPressureKey(int(*readMemoryPressure())));
        m_model->setCurrentLanguage(AppLanguage::German);
        // The level may change between two readings; the text must be German.
        const QStringList german = { m_model->t("pressure_normal"), m_model->t("pressure_warning"),
                                     m_model->t("pressure_critical") };
        QVERIFY2(german.contains(window->performanceTab()->pressureValue()->text()),
                 qPrintable(window->performanceTab()->pressureValue()->text()));
        QVERIFY(german.contains(m_model->t(QAnyStringView(key))));
        m_model->setCurrentLanguage(AppLanguage::English);
    }

    // Performance
    void workerPickerWritesTheCountAndShowsHandSetOnes()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        QComboBox *picker = window->performanceTab()->workersPicker();
        QCOMPARE(picker->count(), 7);
        QCOMPARE(picker->itemText(5), u"6 Workers (Burst)"_s);
        QCOMPARE(picker->currentText(), u"Auto (Adaptive)"_s);

        Q_EMIT picker->activated(5); // what the user's choice emits
        QCOMPARE(m_model->selectedWorkers(), 6);

        m_model->setSelectedWorkers(3);
        QCOMPARE(picker->currentText(), u"3 Workers (Fast)"_s);
        // A count the list does not offer, written into the file by hand, is
        // shown as it is and not replaced.
        m_model->setSelectedWorkers(5);
        QCOMPARE(picker->currentText(), u"5"_s);
        QCOMPARE(m_model->selectedWorkers(), 5);

        window->performanceTab()->throttleSwitch()->box()->click();
        QVERIFY(!m_model->memoryThrottleEnabled());
    }

    // Paths
    void typingTheTemplateUpdatesModelAndPreview()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        PathsTab *paths = window->pathsTab();
        QCOMPARE(paths->preview()->text(), u"DSC01557_hdr.jpg"_s);
        paths->templateField()->clear();
        QTest::keyClicks(paths->templateField(), u"{date}_{camera}.JPG"_s);
        QCOMPARE(m_model->exportNamingTemplate(), u"{date}_{camera}.JPG"_s);
        QCOMPARE(paths->preview()->text(), u"2026-09-02_ILCE-7CM2.JPG.jpg"_s);

        m_model->setExportNamingTemplate(u"{original}.png"_s);
        QCOMPARE(paths->templateField()->text(), u"{original}.png"_s);
        QCOMPARE(paths->preview()->text(), u"DSC01557.png.jpg"_s);
    }

    void chipsFollowTheChipRules()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        PathsTab *paths = window->pathsTab();
        QPushButton *rating = paths->chip(4);
        QCOMPARE(rating->text(), u"{rating}"_s);

        rating->click();
        QCOMPARE(m_model->exportNamingTemplate(), u"{original}_hdr_{rating}"_s);
        QCOMPARE(paths->templateField()->text(), u"{original}_hdr_{rating}"_s);
        rating->click(); // the rules themselves are tst_exportnaming's
        QCOMPARE(m_model->exportNamingTemplate(), u"{original}_hdr_{rating}"_s);
        QCOMPARE(paths->preview()->text(), u"DSC01557_hdr_5star.jpg"_s);
    }

    void previewFollowsRuleAndProfile()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        PathsTab *paths = window->pathsTab();
        QComboBox *rule = paths->subfolderPicker();
        QCOMPARE(rule->count(), 4);
        Q_EMIT rule->activated(3); // by profile
        QCOMPARE(m_model->exportSubfolderRule(), u"by_profile"_s);
        QCOMPARE(paths->preview()->text(), u"default/DSC01557_hdr.jpg"_s);
        m_model->setSelectedProfile(StyleProfile::Cinematic);
        QCOMPARE(paths->preview()->text(), u"cinematic_film/DSC01557_hdr.jpg"_s);
        m_model->setExportSubfolderRule(u"by_rating"_s);
        QCOMPARE(rule->currentIndex(), 2);
        QCOMPARE(paths->preview()->text(), u"5_Stars/DSC01557_hdr.jpg"_s);
    }

    void warningAppearsOnlyForBadTemplates()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        window->show();
        window->showTab(SettingsWindow::Paths);
        QLabel *warning = window->pathsTab()->warning();
        QVERIFY(!warning->isVisible());

        m_model->setExportNamingTemplate(u"{original}:{Date}"_s);
        QVERIFY(warning->isVisible());
        QVERIFY2(warning->text().contains(u"File names cannot contain: “:”"_s),
                 qPrintable(warning->text()));
        QVERIFY2(warning->text().contains(u"{Date}"_s), qPrintable(warning->text()));
        // The preview still shows what the engine would write.
        QCOMPARE(window->pathsTab()->preview()->text(), u"DSC01557:{Date}.jpg"_s);

        m_model->setExportNamingTemplate(u"{stem}_{date}"_s);
        QVERIFY(!warning->isVisible());
    }

    void browseSetsTheFolderAndCancelKeepsIt()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        PathsTab *paths = window->pathsTab();
        const QString before = m_model->sourceDir();
        m_nextFolder.clear(); // the user cancels
        paths->browseSourceButton()->click();
        QCOMPARE(m_model->sourceDir(), before);

        m_nextFolder = QDir::homePath() + u"/Shoots/Iceland"_s;
        paths->browseSourceButton()->click();
        QCOMPARE(m_model->sourceDir(), m_nextFolder);
        QCOMPARE(paths->sourcePath()->text(), m_nextFolder);
        m_nextFolder = QDir::homePath() + u"/Delivery"_s;
        paths->browseDestButton()->click();
        QCOMPARE(m_model->destDir(), m_nextFolder);
    }

    void browseIsOffWhileABatchRuns()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        PathsTab *paths = window->pathsTab();
        QVERIFY(paths->browseSourceButton()->isEnabled());
        m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = true; });
        QVERIFY(!paths->browseSourceButton()->isEnabled());
        QVERIFY(!paths->browseDestButton()->isEnabled());
        m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
        QVERIFY(paths->browseDestButton()->isEnabled());
    }

    // Safety
    void switchesWriteTheirOptions()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        SafetyTab *safety = window->safetyTab();
        QVERIFY(safety->canarySwitch()->box()->isChecked());
        QVERIFY(!safety->masksSwitch()->box()->isChecked());

        safety->canarySwitch()->box()->click();
        safety->masksSwitch()->box()->click();
        safety->soundSwitch()->box()->click();
        QVERIFY(!m_model->enableCanary());
        QVERIFY(m_model->exportDebugMasks());
        QVERIFY(!m_model->notificationSoundEnabled());

        m_model->setEnableCanary(true);
        QVERIFY(safety->canarySwitch()->box()->isChecked());
    }

    void diagnosticsButtonsRevealLogsAndDatabase()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        SafetyTab *safety = window->safetyTab();
        QCOMPARE(safety->logsButton()->text(), u"Show Logs in File Manager"_s);

        safety->logsButton()->click();
        QCOMPARE(m_revealed.size(), 1);
        QCOMPARE(m_revealed[0].path, QDir::homePath() + u"/.local/state/Orvanta/logs"_s);
        QVERIFY(!m_revealed[0].selectItem);
        QVERIFY(QFileInfo(m_revealed[0].path).isDir());

        const QString database = m_model->historyService()->dbPath();
        QDir(QFileInfo(database).absolutePath()).removeRecursively();
        safety->databaseButton()->click();
        QCOMPARE(m_revealed.size(), 2);
        QCOMPARE(m_revealed[1].path, QFileInfo(database).absolutePath());
        QVERIFY(!m_revealed[1].selectItem);
        QVERIFY(QFileInfo(m_revealed[1].path).isDir()); // made, so there is something to open
        QVERIFY(!QFileInfo::exists(database)); // but no database is made up

        writeFile(database, QByteArray());
        safety->databaseButton()->click();
        QCOMPARE(m_revealed.size(), 3);
        QCOMPARE(m_revealed[2].path, database);
        QVERIFY(m_revealed[2].selectItem);
        QFile::remove(database);
    }

    // Styles
    void choosingACardSelectsTheProfileAndShowsSliders()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        window->show();
        window->showTab(SettingsWindow::Styles);
        StyleTab *style = window->styleTab();
        QCOMPARE(style->cards().size(), 5);
        QVERIFY(style->cards()[0]->isSelected());
        QVERIFY(!style->fineTuning()->isVisible());

        QTest::mouseClick(style->cards()[1], Qt::LeftButton);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Portrait);
        QVERIFY(style->cards()[1]->isSelected());
        QVERIFY(!style->cards()[0]->isSelected());
        QVERIFY(!style->fineTuning()->isVisible());

        QTest::mouseClick(style->cards()[4], Qt::LeftButton);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Custom);
        QVERIFY(style->fineTuning()->isVisible());
    }

    void cardsAnswerTheKeyboard()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        ProfileCard *landscape = window->styleTab()->cards()[2];
        QCOMPARE(landscape->focusPolicy(), Qt::StrongFocus);
        QTest::keyClick(landscape, Qt::Key_Space);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Landscape);
        QTest::keyClick(window->styleTab()->cards()[3], Qt::Key_Return);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Cinematic);
    }

    void badgesStayWhenSlidersMove()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        ProfileCard *portrait = window->styleTab()->cards()[1];
        auto texts = [portrait] {
            QStringList list;
            for (const settingsui::Badge *badge : portrait->badges())
                list << badge->name() + u' ' + badge->value();
            return list;
        };
        const QStringList expected = { u"Mid 0.50st"_s,  u"Power Mid 0.55"_s, u"Power Hi 1.25"_s,
                                       u"Chroma 0.20"_s, u"Skin Damp 0.70"_s, u"Scale 0.75"_s };
        QCOMPARE(texts(), expected);
        window->styleTab()->fineTuning()->slider(FineTuning::MidTarget)->setValue(90);
        QCOMPARE(texts(), expected);
        QCOMPARE(window->styleTab()->cards()[4]->badges().size(), 2);
    }

    void slidersClampOnlyWhatTheUserDrags()
    {
        // A chroma boost above the slider's end, as a hand-edited file holds it.
        m_model->setCustomChromaBoost(0.35);
        QScopedPointer<SettingsWindow> window(makeWindow());
        FineTuningPanel *panel = window->styleTab()->fineTuning();
        QSlider *chroma = panel->slider(FineTuning::ChromaBoost);
        QCOMPARE(chroma->maximum(), 28);
        QCOMPARE(chroma->value(), 28); // pinned at its end
        QCOMPARE(panel->valueLabel(FineTuning::ChromaBoost)->text(), u"0.35"_s);
        QCOMPARE(m_model->customChromaBoost(), 0.35); // showing it did not clamp it

        // The user drags: now the range applies.
        chroma->triggerAction(QAbstractSlider::SliderSingleStepSub);
        QCOMPARE(m_model->customChromaBoost(), 0.27);
        QCOMPARE(panel->valueLabel(FineTuning::ChromaBoost)->text(), u"0.27"_s);
        chroma->triggerAction(QAbstractSlider::SliderToMaximum);
        QCOMPARE(m_model->customChromaBoost(), 0.28);
        chroma->setValue(40);
        QCOMPARE(m_model->customChromaBoost(), 0.28);

        // A recipe's values are taken as they are, even outside the ranges.
        UserRecipe wild;
        wild.id = QUuid::createUuid();
        wild.name = u"Wild"_s;
        wild.createdAt = QDateTime::currentDateTimeUtc();
        wild.midTarget = 2.0;
        wild.powerHi = 0.5;
        m_model->applyRecipe(wild);
        QCOMPARE(m_model->customMidTarget(), 2.0);
        QCOMPARE(m_model->customPowerHi(), 0.5);
        QCOMPARE(panel->slider(FineTuning::MidTarget)->value(), 150);
        QCOMPARE(panel->slider(FineTuning::PowerHi)->value(), 100);
        QCOMPARE(panel->valueLabel(FineTuning::MidTarget)->text(), u"2.00"_s);

        // Steps land on exact hundredths.
        QSlider *mid = panel->slider(FineTuning::MidTarget);
        mid->setValue(55);
        QCOMPARE(m_model->customMidTarget(), 0.55);
        QCOMPARE(mid->singleStep(), 1);
    }

    void resetRestoresTheDefaults()
    {
        m_model->setSelectedProfile(StyleProfile::Custom);
        m_model->setCustomPowerMid(1.2);
        m_model->setCustomSkinDamp(0.9);
        QScopedPointer<SettingsWindow> window(makeWindow());
        FineTuningPanel *panel = window->styleTab()->fineTuning();
        panel->resetButton()->click();
        QCOMPARE(m_model->customPowerMid(), 0.45);
        QCOMPARE(m_model->customSkinDamp(), 0.4);
        QCOMPARE(panel->slider(FineTuning::PowerMid)->value(), 45);
        QCOMPARE(panel->valueLabel(FineTuning::SkinDamp)->text(), u"0.40"_s);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Custom);
    }

    void recipesSaveApplyRenameAndDeleteThroughTheFile()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        window->show();
        window->showTab(SettingsWindow::Styles);
        RecipePanel *recipes = window->styleTab()->recipes();
        QVERIFY(recipes->emptyHint()->isVisible());
        QVERIFY(recipes->rows().isEmpty());

        m_model->setCustomMidTarget(0.7);
        m_nextName = u"  Sunset \n"_s;
        recipes->saveButton()->click();
        QCOMPARE(m_model->userRecipes().size(), 1);
        QCOMPARE(m_model->userRecipes()[0].name, u"Sunset"_s);
        QCOMPARE(m_model->selectedProfile(), StyleProfile::Custom);
        QCOMPARE(recipes->rows().size(), 1);
        QVERIFY(!recipes->emptyHint()->isVisible());
        QVERIFY(recipes->rows()[0]->property("active").toBool());

        m_model->setCustomMidTarget(0.3);
        m_nextName = u"Noon"_s;
        recipes->saveButton()->click();
        QCOMPARE(recipes->rows().size(), 2);
        // Newest first; only the newest is marked.
        QCOMPARE(recipes->rows()[0]->property("recipeId").toUuid(), m_model->userRecipes()[0].id);
        QVERIFY(recipes->rows()[0]->property("active").toBool());
        QVERIFY(!recipes->rows()[1]->property("active").toBool());

        // Apply the older one.
        const QUuid sunset = recipes->rows()[1]->property("recipeId").toUuid();
        rowButton(recipes->rows()[1], "applyRecipe")->click();
        QCOMPARE(m_model->customMidTarget(), 0.7);
        QCOMPARE(m_model->activeRecipeId(), sunset);
        QVERIFY(recipes->rows()[1]->property("active").toBool());

        // Rename: the entry starts from the current name and the result is trimmed.
        QString offered;
        m_hooks.askRecipeName
            = [&offered](const QString &, const QString &initial) -> std::optional<QString> {
            offered = initial;
            return u" Golden Sunset\t"_s;
        };
        QScopedPointer<SettingsWindow> second(makeWindow());
        RecipePanel *secondRecipes = second->styleTab()->recipes();
        rowButton(secondRecipes->rows()[1], "renameRecipe")->click();
        QCOMPARE(offered, u"Sunset"_s);
        QCOMPARE(RecipeService::shared().loadRecipes()[1].name, u"Golden Sunset"_s);
        QTRY_COMPARE(recipes->rows().size(), 2);

        // Delete the active one: its mark goes with it.
        rowButton(secondRecipes->rows()[1], "deleteRecipe")->click();
        QCOMPARE(m_model->userRecipes().size(), 1);
        QVERIFY(m_model->activeRecipeId().isNull());
        QCOMPARE(RecipeService::shared().loadRecipes().size(), 1);
        QCOMPARE(secondRecipes->rows().size(), 1);
        QVERIFY(!secondRecipes->rows()[0]->property("active").toBool());
    }

    void cancelledNameEntryChangesNothing()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        m_nextName.reset();
        window->styleTab()->recipes()->saveButton()->click();
        QVERIFY(m_model->userRecipes().isEmpty());
        QVERIFY(!QFileInfo::exists(RecipeService::shared().primaryPath()));
        m_nextName = u"   "_s; // blank names are ignored too
        window->styleTab()->recipes()->saveButton()->click();
        QVERIFY(m_model->userRecipes().isEmpty());
    }

    void nameEntryOffersSaveOnlyForARealName()
    {
        RecipeNameDialog dialog(u"Rename Recipe"_s, u"Recipe name"_s, u"Save"_s, u"Cancel"_s);
        QVERIFY(!dialog.saveButton()->isEnabled());
        QTest::keyClicks(dialog.field(), u"  \t "_s);
        QVERIFY(!dialog.saveButton()->isEnabled());
        QTest::keyClicks(dialog.field(), u"Blue Hour"_s);
        QVERIFY(dialog.saveButton()->isEnabled());
        dialog.setName(u"Sunset"_s);
        QCOMPARE(dialog.name(), u"Sunset"_s);
        QVERIFY(dialog.saveButton()->isEnabled());
        QCOMPARE(dialog.field()->placeholderText(), u"Recipe name"_s);
    }

    void exportReportsSuccessAndFailure()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        RecipePanel *recipes = window->styleTab()->recipes();
        m_nextName = u"Keeper"_s;
        recipes->saveButton()->click();

        m_nextFile.clear(); // cancelled: no message
        recipes->exportButton()->click();
        QVERIFY(recipes->message()->isHidden());

        m_nextFile = QDir::homePath() + u"/exports/orvanta_recipes.json"_s;
        QDir().mkpath(QDir::homePath() + u"/exports"_s);
        recipes->exportButton()->click();
        QCOMPARE(recipes->message()->text(), u"Recipes exported successfully!"_s);
        QVERIFY(recipes->messageIsSuccess());
        QCOMPARE(readAll(m_nextFile), readAll(RecipeService::shared().primaryPath()));

        m_nextFile = QDir::homePath() + u"/no/such/folder/recipes.json"_s;
        recipes->exportButton()->click();
        QVERIFY2(recipes->message()->text().startsWith(u"Failed to export recipes: "_s),
                 qPrintable(recipes->message()->text()));
        QVERIFY(!recipes->messageIsSuccess());
    }

    void importReportsTheCountOrTheReason()
    {
        QScopedPointer<SettingsWindow> window(makeWindow());
        RecipePanel *recipes = window->styleTab()->recipes();
        m_nextName = u"Existing"_s;
        recipes->saveButton()->click();
        const UserRecipe existing = m_model->userRecipes()[0];

        UserRecipe fresh;
        fresh.id = QUuid::createUuid();
        fresh.name = u"Fresh"_s;
        fresh.createdAt = QDateTime::fromString(u"2026-01-02T03:04:05Z"_s, Qt::ISODate);
        UserRecipe sameName = fresh;
        sameName.id = QUuid::createUuid();
        sameName.name = u"Existing"_s;
        m_nextFile = QDir::homePath() + u"/incoming.json"_s;
        writeFile(m_nextFile, RecipeService::encode({ existing, fresh, sameName }));
        recipes->importButton()->click();
        QCOMPARE(recipes->message()->text(), u"Successfully imported 1 recipe!"_s);
        QCOMPARE(m_model->userRecipes().size(), 2);
        QCOMPARE(recipes->rows().size(), 2);

        recipes->importButton()->click();
        QCOMPARE(recipes->message()->text(), u"Successfully imported 0 recipes!"_s);

        // A file that is not a list of recipes changes nothing.
        const QByteArray before = readAll(RecipeService::shared().primaryPath());
        writeFile(m_nextFile, R"({"name": "not a list"})");
        recipes->importButton()->click();
        QVERIFY2(recipes->message()->text().startsWith(u"Failed to import recipes: "_s),
                 qPrintable(recipes->message()->text()));
        QVERIFY(!recipes->messageIsSuccess());
        QCOMPARE(readAll(RecipeService::shared().primaryPath()), before);
        QCOMPARE(m_model->userRecipes().size(), 2);
    }

    // Updates and about
    void withoutAnUpdaterNothingCanBePressed()
    {
        QScopedPointer<SettingsWindow> window(makeWindow(nullptr));
        window->show();
        window->showTab(SettingsWindow::Updates);
        UpdatesTab *updates = window->updatesTab();
        QVERIFY(!updates->checkNowButton()->isEnabled());
        QVERIFY(!updates->automaticSwitch()->box()->isEnabled());
        QVERIFY(updates->automaticSwitch()->box()->isChecked()); // reads as on
        QVERIFY(updates->unavailableNote()->isVisible());

        Updater unconfigured({});
        QScopedPointer<SettingsWindow> second(makeWindow(&unconfigured));
        QVERIFY(!second->updatesTab()->checkNowButton()->isEnabled());
    }

    void checkNowIsDisabledWhileACheckRuns()
    {
        // A feed on a local port that answers nothing useful: the check fails
        // quickly, which is all the button needs.
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        connect(&server, &QTcpServer::newConnection, &server, [&server] {
            while (QTcpSocket *socket = server.nextPendingConnection()) {
                socket->write(
                    "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
                socket->disconnectFromHost();
            }
        });
        UpdaterConfig config;
        config.feedUrl = QUrl(u"http://127.0.0.1:%1/appcast.xml"_s.arg(server.serverPort()));
        config.publicKey = QByteArrayLiteral("AAAA");
        Updater updater(config);
        QSignalSpy finished(&updater, &Updater::checkFinished);
        QScopedPointer<SettingsWindow> window(makeWindow(&updater));
        window->show();
        window->showTab(SettingsWindow::Updates);
        UpdatesTab *updates = window->updatesTab();
        QVERIFY(!updates->unavailableNote()->isVisible());
        QVERIFY(updates->checkNowButton()->isEnabled());

        updates->checkNowButton()->click();
        QVERIFY(!updates->checkNowButton()->isEnabled());
        QTRY_COMPARE(finished.size(), 1);
        QVERIFY(updates->checkNowButton()->isEnabled());
        QVERIFY(finished[0][0].value<UpdateCheckResult>().userInitiated);
    }

    void automaticChecksSwitchIsStored()
    {
        UpdaterConfig config;
        config.feedUrl = QUrl(u"http://127.0.0.1:9/appcast.xml"_s);
        config.publicKey = QByteArrayLiteral("AAAA");
        Updater updater(config);
        QScopedPointer<SettingsWindow> window(makeWindow(&updater));
        QCheckBox *automatic = window->updatesTab()->automaticSwitch()->box();
        QVERIFY(automatic->isEnabled());
        QVERIFY(automatic->isChecked());
        automatic->click();
        QVERIFY(!updater.automaticallyChecksForUpdates());
        QCOMPARE(QSettings().value(QLatin1StringView(Updater::kAutomaticChecksKey)).toBool(),
                 false);

        QScopedPointer<SettingsWindow> reopened(makeWindow(&updater));
        QVERIFY(!reopened->updatesTab()->automaticSwitch()->box()->isChecked());
    }

    void aboutNamesVersionAndLibraries()
    {
        UpdaterConfig config;
        config.currentShortVersion = u"2.3.1"_s;
        config.currentBuild = u"57"_s;
        Updater updater(config);
        QScopedPointer<SettingsWindow> window(makeWindow(&updater));
        QCOMPARE(window->aboutTab()->versionLabel()->text(), u"2.3.1 (Build 57)"_s);

        QStringList shown;
        for (const QLabel *label :
             window->aboutTab()->acknowledgementList()->findChildren<QLabel *>())
            shown << label->text();
        const QStringList required
            = { u"Qt 6"_s,          u"LGPL-3.0"_s,         u"SQLite"_s, u"Public Domain"_s,
                u"Exiv2"_s,         u"GPL-2.0-or-later"_s, u"LibRaw"_s, u"LGPL-2.1 / CDDL-1.0"_s,
                u"libjpeg-turbo"_s, u"libsodium"_s,        u"ISC"_s };
        for (const QString &text : required)
            QVERIFY2(shown.contains(text), qPrintable(text));
    }

private:
    SettingsWindow *makeWindow(Updater *updater = nullptr);

    std::unique_ptr<AppViewModel> m_model;
    SettingsHooks m_hooks;
    QString m_nextFolder;
    std::optional<QString> m_nextName;
    QString m_nextFile;
    QList<diagnostics::RevealTarget> m_revealed;
};

SettingsWindow *SettingsWindowTest::makeWindow(Updater *updater)
{
    return new SettingsWindow(*m_model, updater, m_hooks);
}

ORVANTA_TEST_WIDGETS_MAIN(SettingsWindowTest)
#include "tst_settingswindow.moc"
