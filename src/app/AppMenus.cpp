// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AppMenus.h"

#include "core/AppViewModel.h"
#include "ui/Theme.h"
#include "update/Updater.h"

#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
const char *titleKey(Command command)
{
    switch (command) {
    case Command::OpenSettings:
        return "menu_settings";
    case Command::SelectSourceFolder:
        return "menu_open_source";
    case Command::SelectDestFolder:
        return "menu_open_dest";
    case Command::StartBatchPipeline:
        return "menu_start_pipeline";
    case Command::StopPipeline:
        return "menu_stop_pipeline";
    case Command::PausePipeline:
        return "menu_pause_pipeline";
    case Command::RefreshHistory:
        return "menu_refresh_history";
    case Command::OpenDonateView:
        return "menu_sponsor";
    }
    return "";
}
} // namespace

AppMenus::AppMenus(AppViewModel &model, QMainWindow &window, Updater *updater)
    : QObject(&window)
    , m_model(model)
    , m_window(window)
    , m_updater(updater)
{
    QMenuBar *bar = window.menuBar();
    m_appMenu = bar->addMenu(QString());
    m_checkUpdates = m_appMenu->addAction(QString());
    m_checkUpdates->setObjectName(u"menuCheckUpdates"_s);
    m_checkUpdates->setEnabled(m_updater && m_updater->canCheckForUpdates());
    if (m_updater) {
        connect(m_checkUpdates, &QAction::triggered, m_updater, &Updater::checkForUpdates);
        connect(m_updater, &Updater::canCheckForUpdatesChanged, m_checkUpdates,
                &QAction::setEnabled);
    }
    addCommand(m_appMenu, Command::OpenDonateView, {});
    m_appMenu->addSeparator();
    // Set explicitly: the platform's standard Preferences key is empty here.
    addCommand(m_appMenu, Command::OpenSettings, QKeySequence(Qt::CTRL | Qt::Key_Comma));
    m_appMenu->addSeparator();
    QAction *quit = m_appMenu->addAction(QString());
    quit->setObjectName(u"menuQuit"_s);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    quit->setMenuRole(QAction::QuitRole);
    connect(quit, &QAction::triggered, qApp, &QApplication::closeAllWindows);

    m_foldersMenu = bar->addMenu(QString());
    addCommand(m_foldersMenu, Command::SelectSourceFolder, QKeySequence(Qt::CTRL | Qt::Key_O));
    addCommand(m_foldersMenu, Command::SelectDestFolder, QKeySequence(Qt::CTRL | Qt::Key_D));

    m_pipelineMenu = bar->addMenu(QString());
    addCommand(m_pipelineMenu, Command::StartBatchPipeline, QKeySequence(Qt::CTRL | Qt::Key_R));
    addCommand(m_pipelineMenu, Command::StopPipeline, QKeySequence(Qt::CTRL | Qt::Key_Period));
    addCommand(m_pipelineMenu, Command::PausePipeline, QKeySequence(Qt::CTRL | Qt::Key_P));
    m_pipelineMenu->addSeparator();
    addCommand(m_pipelineMenu, Command::RefreshHistory,
               QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_H));

    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &AppMenus::retranslate);
    retranslate();
}

QAction *AppMenus::addCommand(QMenu *menu, Command command, const QKeySequence &shortcut)
{
    QAction *action = menu->addAction(QString());
    action->setObjectName(u"menu"_s + commandName(command));
    action->setShortcut(shortcut);
    // Shortcuts work while any widget of the window has focus, text fields included.
    action->setShortcutContext(Qt::WindowShortcut);
    if (command == Command::OpenSettings)
        action->setMenuRole(QAction::PreferencesRole);
    connect(action, &QAction::triggered, this,
            [command] { CommandDispatcher::shared().post(command); });
    m_actions.append({ command, action });
    return action;
}

QAction *AppMenus::action(Command command) const
{
    for (const auto &[c, a] : m_actions)
        if (c == command)
            return a;
    return nullptr;
}

void AppMenus::retranslate()
{
    m_appMenu->setTitle(theme::literal(m_model.t("app_title")));
    m_foldersMenu->setTitle(theme::literal(m_model.t("menu_folders")));
    m_pipelineMenu->setTitle(theme::literal(m_model.t("menu_pipeline")));
    m_checkUpdates->setText(theme::literal(m_model.t("menu_check_updates")));
    for (const auto &[command, action] : std::as_const(m_actions))
        action->setText(theme::literal(m_model.t(titleKey(command))));
    if (QAction *quit = m_window.findChild<QAction *>(u"menuQuit"_s))
        quit->setText(theme::literal(m_model.t("menu_quit")));
}

} // namespace orvanta
