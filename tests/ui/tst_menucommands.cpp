// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Menu commands as they travel: shortcuts post named commands on the
// dispatcher, the shown window performs them (folder panels, the support
// sheet), a hidden one does not; the update item and its announcements.
#include "MainWindowHarness.h"
#include "app/AppMenus.h"
#include "app/UpdateAnnouncer.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "ui/DonateSheet.h"
#include "ui/MainWindow.h"
#include "update/Updater.h"

#include <QAction>
#include <QDesktopServices>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

using namespace orvanta;
using namespace Qt::StringLiterals;

class MenuCommandsTest : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void openUrl(const QUrl &url) { m_openedUrls << url; }

private Q_SLOTS:
    void initTestCase() { test::writeTestPhotos(m_files.path()); }
    void init()
    {
        m_openedUrls.clear();
        m_harness = std::make_unique<test::MainWindowHarness>(m_files.path());
        m_model = m_harness->model.get();
        m_window = m_harness->window.get();
        QVERIFY(QTest::qWaitForWindowExposed(m_window));
    }
    void cleanup() { m_harness.reset(); }

    void shortcutsPostTheirCommandOnTheDispatcher_data()
    {
        QTest::addColumn<QKeySequence>("keys");
        QTest::addColumn<QString>("command");
        QTest::newRow("Ctrl+,") << QKeySequence(Qt::CTRL | Qt::Key_Comma)
                                << u"OpenOrvantaSettings"_s;
        QTest::newRow("Ctrl+O") << QKeySequence(Qt::CTRL | Qt::Key_O) << u"SelectSourceFolder"_s;
        QTest::newRow("Ctrl+D") << QKeySequence(Qt::CTRL | Qt::Key_D) << u"SelectDestFolder"_s;
        QTest::newRow("Ctrl+R") << QKeySequence(Qt::CTRL | Qt::Key_R) << u"StartBatchPipeline"_s;
        QTest::newRow("Ctrl+.") << QKeySequence(Qt::CTRL | Qt::Key_Period) << u"StopPipeline"_s;
        QTest::newRow("Ctrl+Shift+H")
            << QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_H) << u"RefreshHistory"_s;
    }
    void shortcutsPostTheirCommandOnTheDispatcher()
    {
        QFETCH(QKeySequence, keys);
        QFETCH(QString, command);
        AppMenus &menus = *m_harness->menus;
        m_window->setFolderChooser([](const QString &, const QString &) { return QString(); });
        m_model->setSourceDir(QString()); // Ctrl+R must not start a real run here
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        QSignalSpy posted(&CommandDispatcher::shared(), &CommandDispatcher::posted);

        QTest::keySequence(m_window, keys);
        QCOMPARE(posted.size(), 1);
        QCOMPARE(commandName(posted.at(0).at(0).value<Command>()), command);
        QCOMPARE(menus.action(*commandFromName(command))->shortcut(), keys);
    }
    void shortcutsWorkWhileATextFieldHasFocus()
    {
        QString prompt;
        m_window->setFolderChooser([&](const QString &p, const QString &) {
            prompt = p;
            return path(u"Lofoten"_s);
        });
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window));
        auto *stem = m_window->findChild<QLineEdit *>(u"singleTarget"_s);
        stem->setFocus();
        QTRY_VERIFY(stem->hasFocus());
        QTest::keyClicks(stem, u"DSC0001"_s);
        QCOMPARE(m_model->targetStem(), u"DSC0001"_s);

        QTest::keySequence(m_window, QKeySequence(Qt::CTRL | Qt::Key_D));
        QCOMPARE(prompt, u"Select Folder"_s);
        QCOMPARE(m_model->destDir(), path(u"Lofoten"_s));
        // The field did not take the key as an edit.
        QCOMPARE(stem->text(), u"DSC0001"_s);
        QCOMPARE(m_model->targetStem(), u"DSC0001"_s);
    }
    void folderShortcutsStoreTheChoiceAndLogIt()
    {
        m_window->setFolderChooser([&](const QString &, const QString &start) {
            return start == path(u"in"_s) ? path(u"shots"_s) : path(u"Lofoten"_s);
        });
        CommandDispatcher::shared().post(Command::SelectSourceFolder);
        CommandDispatcher::shared().post(Command::SelectDestFolder);
        QCOMPARE(m_model->sourceDir(), path(u"shots"_s));
        QCOMPARE(m_model->destDir(), path(u"Lofoten"_s));
        QCOMPARE(m_model->consoleLogs(),
                 QStringList({ u"📂 Source directory selected: "_s + path(u"shots"_s),
                               u"📁 Destination directory selected: "_s + path(u"Lofoten"_s) }));
    }
    void hiddenWindowIgnoresCommands()
    {
        m_window->hide();
        CommandDispatcher::shared().post(Command::OpenDonateView);
        QVERIFY(!m_model->isShowingDonateSheet());
        m_window->show();
        CommandDispatcher::shared().post(Command::OpenDonateView);
        QVERIFY(m_model->isShowingDonateSheet());
        QTRY_VERIFY(m_window->donateSheet()->isVisible());
        m_window->donateSheet()->reject();
        QVERIFY(!m_model->isShowingDonateSheet());
    }
    void donateCommandOpensTheSheetAndItsPageInTheBrowser()
    {
        QVERIFY(!m_window->donateSheet()->openButton()->isVisibleTo(m_window->donateSheet()));
        const QUrl page(u"https://donate.example.org/orvanta"_s);
        m_window->setDonationPage(page);
        QDesktopServices::setUrlHandler(u"https"_s, this, "openUrl");
        CommandDispatcher::shared().post(Command::OpenDonateView);
        QTRY_VERIFY(m_window->donateSheet()->isVisible());
        QPushButton *open = m_window->donateSheet()->openButton();
        QVERIFY(open->isVisible());
        QCOMPARE(open->text(), u"Open Donation Page"_s);
        open->click();
        QDesktopServices::unsetUrlHandler(u"https"_s);
        QCOMPARE(m_openedUrls, QList<QUrl> { page });
        QTRY_VERIFY(!m_window->donateSheet()->isVisible());
        QVERIFY(!m_model->isShowingDonateSheet());
    }
    void updateItemIsDisabledWithoutAnUpdater()
    {
        AppMenus &menus = *m_harness->menus;
        QVERIFY(!menus.checkForUpdatesAction()->isEnabled());
        menus.checkForUpdatesAction()->trigger(); // does nothing, and does not crash
    }
    void updateAnnouncementsSpeakOnlyWithNewsOrWhenAsked()
    {
        using Outcome = UpdateCheckResult::Outcome;
        Updater updater(UpdaterConfig {});
        UpdateAnnouncer announcer(updater, m_window);
        const auto boxes = [&] { return m_window->findChildren<QMessageBox *>(); };

        Q_EMIT updater.checkFinished({ Outcome::UpToDate, {}, {}, false });
        Q_EMIT updater.checkFinished({ Outcome::Failed, {}, u"offline"_s, false });
        QVERIFY(boxes().isEmpty()); // a scheduled check with nothing new stays silent

        UpdateCheckResult news { Outcome::UpdateAvailable, {}, {}, false };
        news.item.version = u"58"_s;
        news.item.shortVersion = u"2.4.0"_s;
        news.item.link = QUrl(u"https://orvanta.example/releases/2.4.0"_s);
        Q_EMIT updater.checkFinished(news);
        QTRY_COMPARE(boxes().size(), 1);
        QMessageBox *box = boxes().constFirst();
        QCOMPARE(box->text(), u"Orvanta 2.4.0 is available"_s);
        QAbstractButton *open = nullptr;
        for (QAbstractButton *button : box->buttons())
            if (button->text() == u"Open Download Page"_s)
                open = button;
        QVERIFY(open);
        QDesktopServices::setUrlHandler(u"https"_s, this, "openUrl");
        open->click();
        QDesktopServices::unsetUrlHandler(u"https"_s);
        QCOMPARE(m_openedUrls, QList<QUrl> { news.item.link });
        QTRY_VERIFY(boxes().isEmpty());

        // Asked for by the user: "up to date" is said, in the interface language.
        m_model->setCurrentLanguage(AppLanguage::German);
        Q_EMIT updater.checkFinished({ Outcome::UpToDate, {}, {}, true });
        QTRY_COMPARE(boxes().size(), 1);
        QCOMPARE(boxes().constFirst()->text(), u"Orvanta ist aktuell"_s);
        boxes().constFirst()->close();
        QTRY_VERIFY(boxes().isEmpty());

        // A failure is explained in the interface language too, not in the log's English.
        UpdateCheckResult refused { Outcome::Failed,
                                    {},
                                    u"the update feed's signature is not valid"_s,
                                    true,
                                    UpdateCheckResult::Failure::BadSignature };
        Q_EMIT updater.checkFinished(refused);
        QTRY_COMPARE(boxes().size(), 1);
        QVERIFY(
            boxes().constFirst()->informativeText().contains(u"Signatur der Orvanta-Entwickler"_s));
        boxes().constFirst()->close();
    }

private:
    QString path(const QString &relative) const { return m_files.filePath(relative); }

    QTemporaryDir m_files;
    std::unique_ptr<test::MainWindowHarness> m_harness;
    AppViewModel *m_model = nullptr;
    MainWindow *m_window = nullptr;
    QList<QUrl> m_openedUrls;
};

ORVANTA_TEST_WIDGETS_MAIN(MenuCommandsTest)
#include "tst_menucommands.moc"
