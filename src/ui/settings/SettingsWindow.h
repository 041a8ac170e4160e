// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The preferences window: six pages (performance, paths, safety, styles,
// updates, about) chosen from a side bar, every control bound to the model,
// closed with Done. Opening it takes a fresh memory reading. Main thread.
#pragma once

#include "ui/settings/SettingsHooks.h"

#include <QDialog>
#include <QList>

class QPushButton;
class QStackedWidget;
class QToolButton;

namespace orvanta {

class AboutTab;
class AppViewModel;
class PathsTab;
class PerformanceTab;
class SafetyTab;
class StyleTab;
class Updater;
class UpdatesTab;

class SettingsWindow : public QDialog
{
    Q_OBJECT
public:
    enum Tab { Performance, Paths, Safety, Styles, Updates, About, TabCount };

    // `updater` may be null; empty `hooks` get the interactive dialogs.
    SettingsWindow(AppViewModel &model, Updater *updater, SettingsHooks hooks = {},
                   QWidget *parent = nullptr);

    Tab currentTab() const { return m_current; }
    void showTab(Tab tab);

    QToolButton *tabButton(Tab tab) const { return m_tabButtons.value(tab); }
    QPushButton *doneButton() const { return m_done; }
    PerformanceTab *performanceTab() const { return m_performance; }
    PathsTab *pathsTab() const { return m_paths; }
    SafetyTab *safetyTab() const { return m_safety; }
    StyleTab *styleTab() const { return m_style; }
    UpdatesTab *updatesTab() const { return m_updates; }
    AboutTab *aboutTab() const { return m_about; }

protected:
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *buildSidebar();
    void retranslate();

    AppViewModel &m_model;
    SettingsHooks m_hooks;
    Tab m_current = Performance;
    QList<QToolButton *> m_tabButtons;
    QStackedWidget *m_pages = nullptr;
    QPushButton *m_done = nullptr;
    PerformanceTab *m_performance = nullptr;
    PathsTab *m_paths = nullptr;
    SafetyTab *m_safety = nullptr;
    StyleTab *m_style = nullptr;
    UpdatesTab *m_updates = nullptr;
    AboutTab *m_about = nullptr;
};

} // namespace orvanta
