// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The menu bar: application, Folders and Processing menus with their
// shortcuts. Commands are posted on the CommandDispatcher; only "Check for
// Updates..." talks to the updater directly. Main thread.
#pragma once

#include "ui/CommandDispatcher.h"

#include <QObject>

class QAction;
class QMenu;
class QMainWindow;

namespace orvanta {

class AppViewModel;
class Updater;

class AppMenus : public QObject
{
    Q_OBJECT
public:
    // Fills `window`'s menu bar. `updater` may be null (no update checks).
    AppMenus(AppViewModel &model, QMainWindow &window, Updater *updater);

    QAction *action(Command command) const;
    QAction *checkForUpdatesAction() const { return m_checkUpdates; }

private:
    QAction *addCommand(QMenu *menu, Command command, const QKeySequence &shortcut);
    void retranslate();

    AppViewModel &m_model;
    QMainWindow &m_window;
    Updater *m_updater = nullptr;
    QMenu *m_appMenu = nullptr;
    QMenu *m_foldersMenu = nullptr;
    QMenu *m_pipelineMenu = nullptr;
    QAction *m_checkUpdates = nullptr;
    QList<std::pair<Command, QAction *>> m_actions;
};

} // namespace orvanta
