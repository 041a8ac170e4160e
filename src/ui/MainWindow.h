// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The application's main window ("main"): header, folder bar, the live-run
// and history tabs, the console drawer, the storage footer and the drop
// overlay; performs the menu commands while shown. Main thread.
#pragma once

#include "ui/CommandDispatcher.h"

#include <QDialog>
#include <QMainWindow>
#include <QPointer>
#include <QUrl>

#include <functional>

class QLabel;
class QScrollArea;
class QSplitter;
class QStackedWidget;
class QToolButton;

namespace orvanta {

class AppViewModel;
class ConsoleLogView;
class DonateSheet;
class DropOverlay;
class FolderPickerBar;
class HeaderBar;
class TaskProgressCard;

class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    // The design size: the history's columns side by side with room for
    // the stem, and a dozen rows. Smaller screens get what they have.
    static constexpr int kDefaultWidth = 1240;
    static constexpr int kDefaultHeight = 840;
    static constexpr int kConsoleDefaultHeight = 200;
    static constexpr int kConsoleMinimumHeight = 110;
    static constexpr int kPageMinimumHeight = 60;

    // Builds the preferences window when the model asks for it.
    using SettingsFactory = std::function<QDialog *(AppViewModel &model, QWidget *parent)>;

    explicit MainWindow(AppViewModel &model, QWidget *parent = nullptr);
    ~MainWindow() override;

    // The history tab's content; the window takes ownership.
    void setHistoryView(QWidget *view);
    void setSettingsFactory(SettingsFactory factory);
    // The donation page of this build (empty: the sheet has no open button).
    void setDonationPage(const QUrl &page);
    // Replaces the folder panel (a portal or a test can answer instead);
    // an empty function restores the panel.
    using FolderChooser = std::function<QString(const QString &prompt, const QString &startDir)>;
    void setFolderChooser(FolderChooser chooser);

    // Performs one menu command the way the menus ask for it.
    void perform(Command command);

    HeaderBar *header() const { return m_header; }
    FolderPickerBar *folderBar() const { return m_folderBar; }
    TaskProgressCard *progressCard() const { return m_progressCard; }
    ConsoleLogView *console() const { return m_console; }
    DropOverlay *dropOverlay() const { return m_overlay; }
    QLabel *footerStorage() const { return m_footerStorage; }
    QToolButton *consoleToggle() const { return m_consoleToggle; }
    QToolButton *tabButton(int index) const;
    DonateSheet *donateSheet() const { return m_donateSheet; }
    QDialog *settingsDialog() const { return m_settingsDialog; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *buildTabRow();
    QWidget *buildFooter();
    QWidget *buildHistoryPlaceholder();
    void retranslate();
    void updateTabs();
    void updateConsoleDrawer();
    void makeRoomForConsole();
    void updateFooter();
    void updateHistoryPlaceholder();
    void updateSettingsPresentation();
    void updateDonatePresentation();
    void setOverlayVisible(bool visible);
    QString chooseFolder(const QString &prompt, const QString &startDir);

    AppViewModel &m_model;
    HeaderBar *m_header = nullptr;
    FolderPickerBar *m_folderBar = nullptr;
    QToolButton *m_tabButtons[2] = {};
    QToolButton *m_consoleToggle = nullptr;
    QStackedWidget *m_pages = nullptr;
    QSplitter *m_drawerSplitter = nullptr;
    QScrollArea *m_bodyScroll = nullptr;
    TaskProgressCard *m_progressCard = nullptr;
    QWidget *m_historyPage = nullptr;
    QLabel *m_historyPlaceholder = nullptr;
    ConsoleLogView *m_console = nullptr;
    QLabel *m_footerIcon = nullptr;
    QLabel *m_footerStorage = nullptr;
    QLabel *m_footerStatus = nullptr;
    DropOverlay *m_overlay = nullptr;
    DonateSheet *m_donateSheet = nullptr;
    QPointer<QDialog> m_settingsDialog;
    SettingsFactory m_settingsFactory;
    FolderChooser m_folderChooser;
    QUrl m_donationPage;
    QMetaObject::Connection m_commandConnection;
};

} // namespace orvanta
