// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/MainWindow.h"

#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/ConsoleLogView.h"
#include "ui/DonateSheet.h"
#include "ui/DropOverlay.h"
#include "ui/FolderField.h"
#include "ui/FolderPickerBar.h"
#include "ui/HeaderBar.h"
#include "ui/Icons.h"
#include "ui/TaskProgressCard.h"
#include "ui/Theme.h"
#include "ui/WindowPlacement.h"

#include <QDialog>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// A scroll area sizes a body whose layout wraps text to its preferred
// height and would scroll long before the content is really short of room;
// asking for the minimum makes it fill the window and scroll only below it.
class WindowBody : public QWidget
{
public:
    int heightForWidth(int) const override { return minimumSizeHint().height(); }
};

} // namespace

MainWindow::MainWindow(AppViewModel &model, QWidget *parent)
    : QMainWindow(parent)
    , m_model(model)
{
    setObjectName(u"main"_s);
    setWindowIcon(QIcon(u":/orvanta.svg"_s));
    setAcceptDrops(true);

    auto *central = new QWidget(this);
    central->setObjectName(u"mainContent"_s);
    m_header = new HeaderBar(model, central);
    m_folderBar = new FolderPickerBar(
        model,
        [this](const QString &prompt, const QString &start) { return chooseFolder(prompt, start); },
        central);

    m_pages = new QStackedWidget(central);
    m_progressCard = new TaskProgressCard(model);
    auto *liveScroll = new QScrollArea(m_pages);
    liveScroll->setObjectName(u"livePage"_s);
    liveScroll->setWidget(m_progressCard);
    liveScroll->setWidgetResizable(true);
    liveScroll->setFrameShape(QFrame::NoFrame);
    liveScroll->viewport()->setAutoFillBackground(false);
    liveScroll->setMinimumHeight(kPageMinimumHeight);
    liveScroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pages->addWidget(liveScroll);
    m_historyPage = buildHistoryPlaceholder();
    m_pages->addWidget(m_historyPage);

    m_console = new ConsoleLogView(model, central);
    m_console->setMinimumHeight(kConsoleMinimumHeight);

    // The drawer shares the space below the tabs with the current page; the
    // handle lets the user give either more room (the card scrolls when short).
    m_drawerSplitter = new QSplitter(Qt::Vertical, central);
    m_drawerSplitter->setObjectName(u"drawerSplitter"_s);
    m_drawerSplitter->setChildrenCollapsible(false);
    m_drawerSplitter->setHandleWidth(10);
    m_drawerSplitter->addWidget(m_pages);
    m_drawerSplitter->addWidget(m_console);
    m_drawerSplitter->setStretchFactor(0, 1);
    m_drawerSplitter->setStretchFactor(1, 0);
    m_drawerSplitter->setSizes({ kDefaultHeight, kConsoleDefaultHeight });

    // On a small screen (a laptop at 150 % or 200 %) the window may be
    // smaller than its content needs: the body then scrolls as a whole
    // instead of its parts being pressed into each other.
    auto *body = new WindowBody;
    body->setObjectName(u"mainBody"_s);
    auto *content = new QVBoxLayout(body);
    content->setContentsMargins(16, 4, 16, 10);
    content->setSpacing(10);
    content->addWidget(m_folderBar);
    content->addWidget(buildTabRow());
    content->addWidget(m_drawerSplitter, 1);
    m_bodyScroll = new QScrollArea(central);
    m_bodyScroll->setObjectName(u"mainBodyScroll"_s);
    m_bodyScroll->setWidget(body);
    m_bodyScroll->setWidgetResizable(true);
    m_bodyScroll->setFrameShape(QFrame::NoFrame);
    m_bodyScroll->viewport()->setAutoFillBackground(false);
    body->setAutoFillBackground(false);

    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_bodyScroll, 1);
    layout->addWidget(buildFooter());
    setCentralWidget(central);

    m_overlay = new DropOverlay(this);
    m_donateSheet = new DonateSheet(model, m_donationPage, this);
    connect(m_donateSheet, &QDialog::finished, this,
            [this] { m_model.setIsShowingDonateSheet(false); });

    connect(&m_model, &AppViewModel::selectedTabChanged, this, &MainWindow::updateTabs);
    connect(&m_model, &AppViewModel::isConsoleDrawerExpandedChanged, this,
            &MainWindow::updateConsoleDrawer);
    for (auto signal : { &AppViewModel::volumeNameChanged, &AppViewModel::volumeFreeGBChanged,
                         &AppViewModel::isVolumeSafeChanged, &AppViewModel::statusMessageChanged })
        connect(&m_model, signal, this, &MainWindow::updateFooter);
    connect(&m_model, &AppViewModel::historyStatsChanged, this,
            &MainWindow::updateHistoryPlaceholder);
    connect(&m_model, &AppViewModel::isShowingSettingsChanged, this,
            &MainWindow::updateSettingsPresentation);
    connect(&m_model, &AppViewModel::isShowingDonateSheetChanged, this,
            &MainWindow::updateDonatePresentation);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &MainWindow::retranslate);

    retranslate();
    updateTabs();
    updateConsoleDrawer();
    // Ctrl+1 and Ctrl+2 switch tabs and put the keyboard in the page, so the
    // history can be browsed with the arrows straight away.
    for (int tab = 0; tab < 2; ++tab) {
        auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + tab)), this);
        connect(shortcut, &QShortcut::activated, this, [this, tab] {
            m_model.setSelectedTab(tab);
            m_pages->currentWidget()->setFocus(Qt::ShortcutFocusReason);
        });
    }
    placement::restore(this, u"main"_s, QSize(kDefaultWidth, kDefaultHeight));
}

MainWindow::~MainWindow() = default;

QWidget *MainWindow::buildTabRow()
{
    auto *row = new QWidget(centralWidget());
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 2, 0, 0);
    layout->setSpacing(6);
    const QString symbols[2] = { u"bolt.fill"_s, u"photo.stack"_s };
    for (int i = 0; i < 2; ++i) {
        auto *button = new QToolButton(row);
        button->setObjectName(i == 0 ? u"tabLive"_s : u"tabHistory"_s);
        button->setProperty("role", u"tab"_s);
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setIcon(icons::icon(symbols[i], theme::kTextSecondary));
        button->setIconSize(QSize(15, 15));
        button->setCursor(Qt::PointingHandCursor);
        connect(button, &QToolButton::clicked, this, [this, i] { m_model.setSelectedTab(i); });
        m_tabButtons[i] = button;
        layout->addWidget(button);
    }
    layout->addStretch(1);
    m_consoleToggle = new QToolButton(row);
    m_consoleToggle->setObjectName(u"consoleToggle"_s);
    m_consoleToggle->setProperty("role", u"tab"_s);
    m_consoleToggle->setCheckable(true);
    m_consoleToggle->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_consoleToggle->setIcon(icons::icon(u"terminal"_s, theme::kTextSecondary));
    m_consoleToggle->setIconSize(QSize(15, 15));
    m_consoleToggle->setCursor(Qt::PointingHandCursor);
    connect(m_consoleToggle, &QToolButton::clicked, this,
            [this](bool on) { m_model.setIsConsoleDrawerExpanded(on); });
    layout->addWidget(m_consoleToggle);
    return row;
}

QWidget *MainWindow::buildFooter()
{
    auto *footer = new QFrame(centralWidget());
    footer->setObjectName(u"footer"_s);
    footer->setProperty("role", u"footer"_s);
    m_footerIcon = new QLabel(footer);
    m_footerStorage = new QLabel(footer);
    m_footerStorage->setObjectName(u"footerStorage"_s);
    m_footerStatus = new QLabel(footer);
    m_footerStatus->setObjectName(u"footerStatus"_s);
    m_footerStatus->setProperty("role", u"secondary"_s);
    m_footerStatus->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_footerStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(18, 6, 18, 6);
    layout->setSpacing(7);
    layout->addWidget(m_footerIcon);
    layout->addWidget(m_footerStorage);
    layout->addSpacing(16);
    layout->addWidget(m_footerStatus, 1);
    return footer;
}

QWidget *MainWindow::buildHistoryPlaceholder()
{
    // Stands in for the history table until one is installed.
    auto *page = new QFrame(m_pages);
    page->setProperty("role", u"card"_s);
    auto *icon = new QLabel(page);
    icon->setAlignment(Qt::AlignCenter);
    icon->setPixmap(icons::pixmap(u"photo.stack"_s, theme::kTextTertiary, 40, devicePixelRatioF()));
    m_historyPlaceholder = new QLabel(page);
    m_historyPlaceholder->setObjectName(u"historyPlaceholder"_s);
    m_historyPlaceholder->setProperty("role", u"secondary"_s);
    m_historyPlaceholder->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(page);
    layout->addStretch(1);
    layout->addWidget(icon);
    layout->addWidget(m_historyPlaceholder);
    layout->addStretch(1);
    return page;
}

void MainWindow::setHistoryView(QWidget *view)
{
    if (!view)
        return;
    const bool current = m_pages->currentIndex() == 1;
    m_pages->removeWidget(m_historyPage);
    m_historyPage->deleteLater();
    m_historyPlaceholder = nullptr;
    m_historyPage = view;
    m_pages->insertWidget(1, view);
    if (current)
        m_pages->setCurrentIndex(1);
}

void MainWindow::setSettingsFactory(SettingsFactory factory)
{
    m_settingsFactory = std::move(factory);
}

void MainWindow::setDonationPage(const QUrl &page)
{
    m_donationPage = page;
    delete m_donateSheet;
    m_donateSheet = new DonateSheet(m_model, page, this);
    connect(m_donateSheet, &QDialog::finished, this,
            [this] { m_model.setIsShowingDonateSheet(false); });
}

void MainWindow::setFolderChooser(FolderChooser chooser)
{
    m_folderChooser = std::move(chooser);
}

QToolButton *MainWindow::tabButton(int index) const
{
    return index >= 0 && index < 2 ? m_tabButtons[index] : nullptr;
}

void MainWindow::perform(Command command)
{
    switch (command) {
    case Command::OpenDonateView:
        m_model.setIsShowingDonateSheet(true);
        break;
    case Command::OpenSettings:
        m_model.setIsShowingSettings(true);
        break;
    case Command::SelectSourceFolder:
        m_model.selectSourceFolder(
            [this](const QString &p, const QString &s) { return chooseFolder(p, s); });
        break;
    case Command::SelectDestFolder:
        m_model.selectDestFolder(
            [this](const QString &p, const QString &s) { return chooseFolder(p, s); });
        break;
    case Command::StartBatchPipeline:
        if (!m_model.isRunning())
            m_model.startProcessing();
        break;
    case Command::StopPipeline:
        if (m_model.isRunning())
            m_model.stopProcessing();
        break;
    case Command::PausePipeline:
        m_model.setBatchPaused(!m_model.isPaused());
        break;
    case Command::RefreshHistory:
        m_model.refreshHistory();
        break;
    }
}

QString MainWindow::chooseFolder(const QString &prompt, const QString &startDir)
{
    if (m_folderChooser)
        return m_folderChooser(prompt, startDir);
    QFileDialog dialog(this, prompt, startDir);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setLabelText(QFileDialog::Accept, prompt);
    // Qt's own panel (no desktop portal) opens too small for its columns
    // to show a folder's name, kind and date in German or French.
    if (const QScreen *shown = screen())
        dialog.resize(placement::fitted(QSize(880, 560), shown->availableGeometry()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

void MainWindow::showEvent(QShowEvent *event)
{
    QMainWindow::showEvent(event);
    // Menu commands reach the window only while it is shown.
    if (!m_commandConnection)
        m_commandConnection = connect(&CommandDispatcher::shared(), &CommandDispatcher::posted,
                                      this, &MainWindow::perform);
}

void MainWindow::hideEvent(QHideEvent *event)
{
    QMainWindow::hideEvent(event);
    placement::save(this, u"main"_s);
    disconnect(m_commandConnection);
    m_commandConnection = {};
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    m_overlay->setGeometry(rect());
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (FolderField::localFileUrls(event->mimeData()).isEmpty())
        return event->ignore();
    event->acceptProposedAction();
    setOverlayVisible(true);
}

void MainWindow::dragMoveEvent(QDragMoveEvent *event)
{
    event->acceptProposedAction();
}

void MainWindow::dragLeaveEvent(QDragLeaveEvent *)
{
    setOverlayVisible(false);
}

void MainWindow::dropEvent(QDropEvent *event)
{
    setOverlayVisible(false);
    const QList<QUrl> urls = FolderField::localFileUrls(event->mimeData());
    if (urls.isEmpty())
        return event->ignore();
    event->acceptProposedAction();
    m_model.handleDroppedURLs(urls);
}

void MainWindow::setOverlayVisible(bool visible)
{
    if (visible) {
        m_overlay->setGeometry(rect());
        m_overlay->raise();
    }
    m_overlay->setVisible(visible);
}

void MainWindow::retranslate()
{
    theme::applyLanguageFont(LocalizationService::shared().effectiveLanguageCode());
    setWindowTitle(m_model.t("app_title"));
    m_tabButtons[0]->setText(theme::literal(m_model.t("tab_live_run")));
    m_tabButtons[1]->setText(theme::literal(m_model.t("tab_history")));
    m_consoleToggle->setText(theme::literal(m_model.t("btn_toggle_console")));
    m_overlay->setTexts(m_model.t("drop_overlay_title"), m_model.t("drop_overlay_subtitle"));
    updateFooter();
    updateHistoryPlaceholder();
}

void MainWindow::updateTabs()
{
    const int tab = m_model.selectedTab() == 1 ? 1 : 0;
    m_tabButtons[tab]->setChecked(true);
    m_pages->setCurrentIndex(tab);
}

void MainWindow::updateConsoleDrawer()
{
    const bool expanded = m_model.isConsoleDrawerExpanded();
    m_consoleToggle->setChecked(expanded);
    if (expanded && !m_console->isVisible())
        makeRoomForConsole();
    m_console->setVisible(expanded);
}

// Opening the drawer must not press the live card into a small scroll
// area: the window grows by what the card would lose, as far as the screen
// allows, and the drawer settles for less where the screen is full.
void MainWindow::makeRoomForConsole()
{
    if (!isVisible())
        return;
    const int pages = m_pages->height();
    const int need = std::max(m_progressCard->sizeHint().height(), kPageMinimumHeight);
    int console = kConsoleDefaultHeight;
    int shortBy = need + m_drawerSplitter->handleWidth() + console - pages;
    if (shortBy > 0 && !isMaximized() && !isFullScreen() && screen()) {
        const QRect available = screen()->availableGeometry();
        const QRect frame = frameGeometry();
        const int grow = std::clamp(available.height() - frame.height(), 0, shortBy);
        if (grow > 0) {
            const int top = std::min(frame.top(), available.bottom() - frame.height() - grow);
            resize(width(), height() + grow);
            move(x(), y() + std::max(available.top(), top) - frame.top());
            shortBy -= grow;
        }
    }
    if (shortBy > 0)
        console = std::max(kConsoleMinimumHeight, console - shortBy);
    m_drawerSplitter->setSizes({ std::max(need, pages - console), console });
}

void MainWindow::updateFooter()
{
    const bool safe = m_model.isVolumeSafe();
    m_footerIcon->setPixmap(
        icons::pixmap(safe ? u"externaldrive.fill"_s : u"exclamationmark.triangle.fill"_s,
                      safe ? theme::kGreen : theme::kRed, 14, devicePixelRatioF()));
    m_footerStorage->setText(
        safe ? m_model.t("footer_storage_safe",
                         { m_model.volumeDisplayName(), m_model.volumeFreeGB() })
             : m_model.t("log_volume_insufficient", { m_model.volumeDisplayName() }));
    QPalette pal = m_footerStorage->palette();
    pal.setColor(QPalette::WindowText, safe ? theme::kTextSecondary : theme::kRed);
    m_footerStorage->setPalette(pal);
    m_footerStatus->setText(m_model.statusMessage());
    m_footerStatus->setToolTip(m_model.statusMessage());
}

void MainWindow::updateHistoryPlaceholder()
{
    if (!m_historyPlaceholder)
        return;
    const qint64 total = m_model.historyStats().total;
    m_historyPlaceholder->setText(total > 0 ? m_model.t("history_all_loaded", { total })
                                            : m_model.t("history_empty"));
}

void MainWindow::updateSettingsPresentation()
{
    if (!m_model.isShowingSettings()) {
        if (m_settingsDialog)
            m_settingsDialog->close();
        return;
    }
    if (m_settingsDialog) {
        m_settingsDialog->raise();
        m_settingsDialog->activateWindow();
        return;
    }
    if (!m_settingsFactory) {
        // Nothing to show yet: keep the flag honest so the next request works.
        m_model.setIsShowingSettings(false);
        return;
    }
    m_settingsDialog = m_settingsFactory(m_model, this);
    m_settingsDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_settingsDialog, &QDialog::finished, this,
            [this] { m_model.setIsShowingSettings(false); });
    m_settingsDialog->open();
}

void MainWindow::updateDonatePresentation()
{
    if (m_model.isShowingDonateSheet())
        m_donateSheet->open();
    else if (m_donateSheet->isVisible())
        m_donateSheet->close();
}

} // namespace orvanta
