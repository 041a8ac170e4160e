// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The main window as the photographer uses it: drops on the window and on
// the source field, folder panels, the run button through a real batch of
// the test engine, footer and header states, the icon set, and a language
// switch while the window is open.
#include "MainWindowHarness.h"
#include "app/AppMenus.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "engine/EngineScenario.h"
#include "i18n/LocalizationService.h"
#include "ui/ConsoleLogView.h"
#include "ui/DonateSheet.h"
#include "ui/DropOverlay.h"
#include "ui/FolderField.h"
#include "ui/FolderPickerBar.h"
#include "ui/HeaderBar.h"
#include "ui/Icons.h"
#include "ui/MainWindow.h"
#include "ui/Theme.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QLabel>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QToolButton>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// Sends a whole drag (enter, then drop) of `urls` to `target`.
void dropOn(QWidget *target, const QList<QUrl> &urls)
{
    QMimeData mime;
    mime.setUrls(urls);
    const QPoint pos = target->rect().center();
    QDragEnterEvent enter(pos, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(QPointF(pos), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
}

int countStartingWith(const QStringList &lines, const QString &prefix)
{
    return int(std::count_if(lines.begin(), lines.end(),
                             [&](const QString &l) { return l.startsWith(prefix); }));
}

} // namespace

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void opensAsTheNamedMainWindow();
    void dropOnTheWindowAppliesTheRules_data();
    void dropOnTheWindowAppliesTheRules();
    void dropDuringARunChangesNothing();
    void overlayShowsOnlyWhileFilesAreDraggedOverTheWindow();
    void sourceFieldTakesDropsAndHintsWhileDragging();
    void cancelledFolderPanelChangesNothing();
    void runButtonFollowsARealBatchThroughStartStopAndEnd();
    void languageSwitchReRendersEveryVisibleText();
    void footerAndHeaderShowStorageAndEnvironment();
    void japaneseTextsHaveEveryGlyphInTheInterfaceFont();
    void everyInterfaceSymbolHasADrawing_data();
    void everyInterfaceSymbolHasADrawing();

private:
    QString path(const QString &relative) const { return m_files.filePath(relative); }
    QStringList visibleTexts() const;

    QTemporaryDir m_files;
    std::unique_ptr<test::MainWindowHarness> m_harness;
    AppViewModel *m_model = nullptr;
    MainWindow *m_window = nullptr;
};

void MainWindowTest::initTestCase()
{
    test::writeTestPhotos(m_files.path());
}

void MainWindowTest::init()
{
    m_harness = std::make_unique<test::MainWindowHarness>(m_files.path());
    m_model = m_harness->model.get();
    m_window = m_harness->window.get();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void MainWindowTest::cleanup()
{
    m_harness.reset();
}

void MainWindowTest::opensAsTheNamedMainWindow()
{
    QCOMPARE(m_window->objectName(), u"main"_s);
    // The design size where the screen has room, else what it has: whole,
    // with every edge reachable, on the history page too.
    const QRect available = m_window->screen()->availableGeometry();
    QCOMPARE(m_window->size(),
             QSize(MainWindow::kDefaultWidth, MainWindow::kDefaultHeight)
                 .boundedTo(available.size() - QSize(16, 48)));
    QVERIFY(available.contains(m_window->frameGeometry()));
    m_model->setSelectedTab(1);
    m_model->setIsConsoleDrawerExpanded(true);
    QVERIFY(m_window->minimumSizeHint().height() <= available.height() - 48);
    QVERIFY(m_window->minimumSizeHint().width() <= available.width());
    QCOMPARE(m_window->windowTitle(), u"Orvanta"_s);

    // A laptop at 200 % (960x540 points): the window is bounded below its
    // content's minimum, so the body scrolls instead of its parts being
    // pressed into each other.
    m_window->setMinimumSize(1, 1);
    m_window->resize(944, 492);
    QTRY_COMPARE(m_window->size(), QSize(944, 492));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    const auto rectOf
        = [this](const QWidget *w) { return QRect(w->mapTo(m_window, QPoint()), w->size()); };
    QVERIFY(m_window->folderBar()->height() >= m_window->folderBar()->minimumSizeHint().height());
    QVERIFY(!rectOf(m_window->folderBar()).intersects(rectOf(m_window->consoleToggle())));
    QVERIFY(!rectOf(m_window->consoleToggle()).intersects(rectOf(m_window->console())));
}

void MainWindowTest::dropOnTheWindowAppliesTheRules_data()
{
    QTest::addColumn<QStringList>("dropped"); // relative to the test folder; "/" ends a folder
    QTest::addColumn<QString>("source"); // expected, relative; empty: unchanged
    QTest::addColumn<QString>("stem");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("log");

    QTest::newRow("folder dropped with files wins, files ignored")
        << QStringList { u"shots/A.JPG"_s, u"Lofoten/"_s, u"shots/B.JPG"_s } << u"Lofoten"_s
        << QString() << u"Loaded source folder: Lofoten"_s
        << u"📥 Loaded source folder: %1/Lofoten"_s;
    QTest::newRow("first of two folders wins")
        << QStringList { u"Lofoten/"_s, u"shots/"_s } << u"Lofoten"_s << QString()
        << u"Loaded source folder: Lofoten"_s << u"📥 Loaded source folder: %1/Lofoten"_s;
    QTest::newRow("RAW and JPG of one shot give one stem")
        << QStringList { u"shots/A.ARW"_s, u"shots/A.JPG"_s, u"shots/B.JPG"_s } << u"shots"_s
        << u"A, B"_s << u"Loaded 2 photos: A, B"_s << u"📥 Loaded 2 photos: A, B"_s;
    QTest::newRow("only the last extension is removed")
        << QStringList { u"x.tar.gz"_s } << QString(u"."_s) << u"x.tar"_s
        << u"Loaded 1 photo: x.tar"_s << u"📥 Loaded 1 photo: x.tar"_s;
    QTest::newRow("any existing file counts, extension or not")
        << QStringList { u"notes"_s, u"shots/B.JPG"_s } << QString(u"."_s) << u"notes, B"_s
        << u"Loaded 2 photos: notes, B"_s << u"📥 Loaded 2 photos: notes, B"_s;
    QTest::newRow("missing paths are skipped")
        << QStringList { u"gone/C.ARW"_s, u"shots/B.JPG"_s } << u"shots"_s << u"B"_s
        << u"Loaded 1 photo: B"_s << u"📥 Loaded 1 photo: B"_s;
    QTest::newRow("only missing paths: nothing happens")
        << QStringList { u"gone/"_s, u"gone/D.JPG"_s } << QString() << QString() << QString()
        << QString();
}

void MainWindowTest::dropOnTheWindowAppliesTheRules()
{
    QFETCH(QStringList, dropped);
    QFETCH(QString, source);
    QFETCH(QString, stem);
    QFETCH(QString, status);
    QFETCH(QString, log);
    AppViewModel &m = *m_model;
    m.setTargetStem(u"OLD"_s);
    m.setSelectedTab(1);
    m.setStatus(u"status_ready"_s);
    const QString sourceBefore = m.sourceDir();
    const QStringList logsBefore = m.consoleLogs();

    QList<QUrl> urls;
    for (const QString &name : dropped)
        urls << QUrl::fromLocalFile(path(name));
    dropOn(m_window, urls);

    if (source.isEmpty()) {
        QCOMPARE(m.sourceDir(), sourceBefore);
        QCOMPARE(m.targetStem(), u"OLD"_s);
        QCOMPARE(m.selectedTab(), 1);
        QCOMPARE(m.statusMessage(), u"Ready"_s);
        QCOMPARE(m.consoleLogs(), logsBefore);
        return;
    }
    QCOMPARE(m.sourceDir(), QDir::cleanPath(path(source)));
    QCOMPARE(m.targetStem(), stem);
    QCOMPARE(m.selectedTab(), 0);
    QCOMPARE(m.statusMessage(), status);
    QCOMPARE(m.consoleLogs().last(), log.contains(u"%1"_s) ? log.arg(m_files.path()) : log);
    // The folder bar shows what the model now holds.
    QCOMPARE(m_window->folderBar()->sourceField()->displayedText(), m.sourceDir());
    QCOMPARE(m_window->findChild<QLineEdit *>(u"singleTarget"_s)->text(), stem);
}

void MainWindowTest::dropDuringARunChangesNothing()
{
    AppViewModel &m = *m_model;
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = true; });
    const QString before = m.sourceDir();
    dropOn(m_window, { QUrl::fromLocalFile(path(u"Lofoten"_s)) });
    dropOn(m_window->folderBar()->sourceField(), { QUrl::fromLocalFile(path(u"shots/A.JPG"_s)) });
    QCOMPARE(m.sourceDir(), before);
    QVERIFY(m.targetStem().isEmpty());
    QVERIFY(m.consoleLogs().isEmpty());
    m.batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
}

void MainWindowTest::overlayShowsOnlyWhileFilesAreDraggedOverTheWindow()
{
    DropOverlay *overlay = m_window->dropOverlay();
    QVERIFY(!overlay->isVisible());

    QMimeData text;
    text.setText(u"not a file"_s);
    QDragEnterEvent textEnter(QPoint(10, 10), Qt::CopyAction, &text, Qt::LeftButton,
                              Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &textEnter);
    QVERIFY(!textEnter.isAccepted());
    QVERIFY(!overlay->isVisible());

    QMimeData files;
    files.setUrls({ QUrl::fromLocalFile(path(u"Lofoten"_s)) });
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window, &enter);
    QVERIFY(enter.isAccepted());
    QVERIFY(overlay->isVisible());
    QCOMPARE(overlay->geometry(), m_window->rect());

    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(m_window, &leave);
    QVERIFY(!overlay->isVisible());
    QCOMPARE(m_model->sourceDir(), path(u"in"_s)); // leaving drops nothing

    dropOn(m_window, { QUrl::fromLocalFile(path(u"Lofoten"_s)) });
    QVERIFY(!overlay->isVisible());
}

void MainWindowTest::sourceFieldTakesDropsAndHintsWhileDragging()
{
    FolderField *source = m_window->folderBar()->sourceField();
    FolderField *dest = m_window->folderBar()->destField();
    QVERIFY(source->acceptDrops());
    QVERIFY(!dest->acceptDrops());

    QMimeData mime;
    mime.setUrls({ QUrl::fromLocalFile(path(u"shots/A.ARW"_s)) });
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(source, &enter);
    QVERIFY(source->isShowingDropHint());
    QCOMPARE(source->displayedText(), u"Release to set as Source Photos folder"_s);
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(source, &leave);
    QVERIFY(!source->isShowingDropHint());
    QCOMPARE(source->displayedText(), path(u"in"_s));

    dropOn(source,
           { QUrl::fromLocalFile(path(u"shots/A.ARW"_s)),
             QUrl::fromLocalFile(path(u"shots/B.JPG"_s)) });
    QVERIFY(!source->isShowingDropHint());
    QCOMPARE(m_model->sourceDir(), path(u"shots"_s));
    QCOMPARE(m_model->targetStem(), u"A, B"_s);
}

void MainWindowTest::cancelledFolderPanelChangesNothing()
{
    int asked = 0;
    m_window->setFolderChooser([&](const QString &, const QString &) {
        ++asked;
        return QString();
    });
    m_window->folderBar()->sourceField()->browseButton()->click();
    m_window->folderBar()->destField()->browseButton()->click();
    QCOMPARE(asked, 2);
    QCOMPARE(m_model->sourceDir(), path(u"in"_s));
    QCOMPARE(m_model->destDir(), path(u"out"_s));
    QVERIFY(m_model->consoleLogs().isEmpty());

    m_model->batch()->setStateForTest(
        [&](BatchRunState &s) { s.isRunning = true; }); // no panel at all during a run
    m_window->perform(Command::SelectSourceFolder);
    QCOMPARE(asked, 2);
    m_model->batch()->setStateForTest([&](BatchRunState &s) { s.isRunning = false; });
}

void MainWindowTest::runButtonFollowsARealBatchThroughStartStopAndEnd()
{
    test::EngineScenario scenario({ u"on-sigint exit130"_s, u"print started"_s, u"wait-signal"_s });
    AppMenus &menus = *m_harness->menus;
    AppViewModel &m = *m_model;
    QPushButton *run = m_window->folderBar()->runButton();
    QPushButton *browse = m_window->folderBar()->sourceField()->browseButton();
    QCOMPARE(run->text(), u"Start Batch"_s);
    QCOMPARE(run->property("role").toString(), u"primary"_s);
    QVERIFY(run->toolTip().endsWith(u" (Ctrl+R)"_s));

    QTest::mouseClick(run, Qt::LeftButton);
    QVERIFY(m.isRunning());
    QCOMPARE(run->text(), u"Stop Processing"_s);
    QCOMPARE(run->property("role").toString(), u"danger"_s);
    QVERIFY(run->toolTip().endsWith(u" (Ctrl+.)"_s));
    QVERIFY(run->isEnabled());
    QVERIFY(!browse->isEnabled()); // folders and options are locked during a run
    QTRY_VERIFY_WITH_TIMEOUT(m.consoleLogs().contains(u"started"_s), 10000);

    // The menu command arrives again while running; the window starts nothing.
    menus.action(Command::StartBatchPipeline)->trigger();
    QCOMPARE(countStartingWith(m.consoleLogs(), u"🚀"_s), 1);

    QTest::mouseClick(run, Qt::LeftButton);
    QVERIFY(m.isStopping());
    QCOMPARE(run->text(), u"Stopping..."_s);
    QVERIFY(!run->isEnabled());

    QTRY_VERIFY_WITH_TIMEOUT(!m.isRunning(), 10000);
    QCOMPARE(run->text(), u"Start Batch"_s);
    QCOMPARE(run->property("role").toString(), u"primary"_s);
    QVERIFY(run->isEnabled());
    QVERIFY(browse->isEnabled());
    QVERIFY(m.consoleLogs().last().startsWith(u"⚠️"_s));
}

QStringList MainWindowTest::visibleTexts() const
{
    // Every text a user can read in the window, in a stable order.
    QStringList texts;
    const QList<QWidget *> widgets = m_window->findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        if (!w->isVisibleTo(m_window))
            continue;
        if (auto *label = qobject_cast<QLabel *>(w))
            texts << label->text();
        else if (auto *button = qobject_cast<QAbstractButton *>(w))
            texts << button->text() << button->toolTip();
        else if (auto *edit = qobject_cast<QLineEdit *>(w))
            texts << edit->placeholderText();
        else if (auto *combo = qobject_cast<QComboBox *>(w))
            texts << combo->currentText();
        else if (auto *field = qobject_cast<FolderField *>(w))
            texts << field->displayedText();
    }
    for (QAction *menu : m_window->menuBar()->actions()) {
        texts << menu->text();
        for (QAction *item : menu->menu()->actions())
            texts << item->text();
    }
    texts << m_window->windowTitle();
    return texts;
}

void MainWindowTest::languageSwitchReRendersEveryVisibleText()
{
    m_model->setSourceDir(QString()); // the placeholder is a text too
    m_model->setStatus(u"status_ready"_s);
    m_model->setIsConsoleDrawerExpanded(true);
    QApplication::processEvents();
    const QStringList english = visibleTexts();
    const QString footerBefore = m_window->footerStorage()->text();

    // Choose German in the header's language menu, as a user would.
    QMenu *languages = m_window->header()->languageButton()->menu();
    QAction *german = nullptr;
    for (QAction *action : languages->actions())
        if (action->data().toString() == u"de")
            german = action;
    QVERIFY(german);
    QStringList names;
    for (QAction *action : languages->actions())
        if (!action->isSeparator())
            names << action->text();
    QCOMPARE(names.value(0), u"Auto (System)"_s);
    QVERIFY(names.contains(u"Deutsch"_s) && names.contains(u"English"_s)
            && names.contains(u"日本語"_s));
    german->trigger();
    QTRY_COMPARE(m_model->currentLanguage(), AppLanguage::German);
    QApplication::processEvents();
    const QStringList germanTexts = visibleTexts();

    // Same widgets (no restart), and every wording text changed. Texts that
    // are the same in both languages carry no words: names, numbers, paths.
    QCOMPARE(germanTexts.size(), english.size());
    const QRegularExpression neutral(uR"(^(Orvanta|/.*|[\d\s.,:%+s/()\[\]-]*)$)"_s);
    for (qsizetype i = 0; i < english.size(); ++i) {
        if (english.at(i) == germanTexts.at(i))
            QVERIFY2(neutral.match(english.at(i)).hasMatch(),
                     qPrintable(u"not re-rendered: "_s + english.at(i)));
    }
    QVERIFY(germanTexts.contains(m_model->t("folder_source_placeholder")));
    QVERIFY(germanTexts.contains(m_model->t("status_ready")));
    QVERIFY(germanTexts.contains(m_model->t("tab_history").replace(u'&', u"&&"_s)));
    QVERIFY(m_window->footerStorage()->text() != footerBefore);
    QCOMPARE(m_window->folderBar()->runButton()->text(), m_model->t("btn_start_batch"));

    // Qt's own texts follow too: standard buttons of message boxes and dialogs.
    if (!QFile::exists(QLibraryInfo::path(QLibraryInfo::TranslationsPath) + u"/qtbase_de.qm"_s))
        QSKIP("Qt's German catalog (qt6-translations-l10n) is not installed");
    QMessageBox box(QMessageBox::Question, u"?"_s, u"?"_s, QMessageBox::Cancel);
    QCOMPARE(box.button(QMessageBox::Cancel)->text(), u"Abbrechen"_s);
}

void MainWindowTest::japaneseTextsHaveEveryGlyphInTheInterfaceFont()
{
    if (theme::fontFamilyFor(u"ja"_s).isEmpty())
        QSKIP("the Japanese interface font (fonts-noto-cjk) is not installed");
    m_model->setSourceDir(QString());
    m_model->setIsConsoleDrawerExpanded(true);
    m_model->setCurrentLanguage(AppLanguage::Japanese);
    QApplication::processEvents();
    const QFont font = QApplication::font();
    QCOMPARE(font.family(), u"Noto Sans CJK JP"_s);
    // Glyphs drawn by a fallback face would come out in a Chinese style (or
    // as boxes); every character must be in the chosen face itself.
    const QFontMetrics metrics(font);
    QString missing;
    for (const QString &text : visibleTexts()) {
        for (char32_t c : text.toUcs4())
            if (!QChar::isSpace(c) && !metrics.inFontUcs4(c)
                && !missing.contains(QString::fromUcs4(&c, 1)))
                missing += QString::fromUcs4(&c, 1);
    }
    QVERIFY2(missing.isEmpty(), qPrintable(u"no glyph for: "_s + missing));
}

void MainWindowTest::footerAndHeaderShowStorageAndEnvironment()
{
    AppViewModel &m = *m_model;
    m.probes()->setStateForTest([](ProbeState &s) {
        s.volumeName = u"Photos"_s;
        s.volumeFreeGB = 123.456;
        s.isVolumeSafe = true;
    });
    QCOMPARE(m_window->footerStorage()->text(), u"Photos Mounted & Healthy (123.5 GB free)"_s);
    m.probes()->setStateForTest([&](ProbeState &s) { s.isVolumeSafe = false; });
    QCOMPARE(m_window->footerStorage()->text(),
             u"Target storage volume has insufficient space or is unavailable: [Photos]"_s);

    const auto *env = m_window->header()->environmentLabel();
    m.probes()->setStateForTest([&](ProbeState &s) { s.isEnvironmentHealthy = true; });
    QCOMPARE(env->text(), u"Environment Ready"_s);
    m.probes()->setStateForTest([](ProbeState &s) {
        s.missingDependencyMessage = QString();
        s.isEnvironmentHealthy = false;
    });
    QCOMPARE(env->text(), u"Missing Dependencies"_s);
    // The header names the problem itself, not only that there is one.
    m.probes()->setStateForTest([&](ProbeState &s) {
        s.missingDependencyMessage = u"Engine not found: /usr/bin/orvanta_engine"_s;
    });
    QCOMPARE(env->text(), u"Engine not found: /usr/bin/orvanta_engine"_s);
    QCOMPARE(env->parentWidget()->toolTip(), u"Engine not found: /usr/bin/orvanta_engine"_s);
    QCOMPARE(m_window->header()->settingsButton()->toolTip(), u"Preferences (Ctrl+,)"_s);
    m_window->header()->settingsButton()->click();
    QVERIFY(!m.isShowingSettings()); // no settings window installed: the request does not stick

    int built = 0;
    m_window->setSettingsFactory([&](AppViewModel &, QWidget *parent) {
        ++built;
        return new QDialog(parent);
    });
    m_window->header()->settingsButton()->click();
    QVERIFY(m.isShowingSettings());
    QTRY_VERIFY(m_window->settingsDialog() && m_window->settingsDialog()->isVisible());
    CommandDispatcher::shared().post(Command::OpenSettings); // already open: raised, not rebuilt
    QCOMPARE(built, 1);
    m_window->settingsDialog()->reject();
    QVERIFY(!m.isShowingSettings());
}

void MainWindowTest::everyInterfaceSymbolHasADrawing_data()
{
    QTest::addColumn<QString>("symbol");
    // The symbols the interface asks for.
    const QString symbols
        = u"arrow.clockwise arrow.down.doc.fill arrow.up.arrow.down "
          u"arrow.up.left.and.down.right.and.arrow.up.right.and.down.left bolt.fill camera "
          u"camera.aperture camera.fill chart.bar.xaxis checkmark.circle.fill "
          u"checkmark.square.fill chevron.left chevron.right dial.low.fill display "
          u"exclamationmark.triangle.fill externaldrive.fill face.smiling.fill film folder.fill "
          u"gearshape globe heart.fill line.3.horizontal.decrease.circle minus.square.fill "
          u"mountain.2 person.crop.circle photo photo.badge.exclamationmark photo.stack "
          u"play.fill shield.checkerboard sidebar.right slider.horizontal.3 sparkles "
          u"square.and.arrow.up star.fill stop.fill stopwatch.fill sun.max.fill "
          u"tablecells.badge.ellipsis terminal trash tray tray.and.arrow.down.fill "
          u"xmark.circle.fill"_s;
    for (const QString &symbol : symbols.split(u' '))
        QTest::newRow(qPrintable(symbol)) << symbol;
}

void MainWindowTest::everyInterfaceSymbolHasADrawing()
{
    QFETCH(QString, symbol);
    QVERIFY(icons::has(symbol));
    // Drawn in the requested tint, at the requested size and pixel ratio.
    const QImage image = icons::pixmap(symbol, QColor(255, 0, 0), 24, 2.0).toImage();
    QCOMPARE(image.size(), QSize(48, 48));
    int inked = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            if (c.alpha() > 128) {
                ++inked;
                QVERIFY2(c.red() > 200 && c.green() < 60 && c.blue() < 60, qPrintable(c.name()));
            }
        }
    QVERIFY2(inked > 40, qPrintable(QString::number(inked)));
    QVERIFY(icons::pixmap(u"no.such.symbol"_s, Qt::red, 24).isNull());
}

ORVANTA_TEST_WIDGETS_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
