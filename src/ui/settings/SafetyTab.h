// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page for protecting a batch and looking into it: the storage
// canary, debug masks, the completion sound, and the buttons that show the
// logs and the state database in the file manager. Main thread.
#pragma once

#include "ui/settings/SettingsHooks.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace orvanta {

class AppViewModel;
namespace settingsui {
class SwitchRow;
}

class SafetyTab : public QWidget
{
    Q_OBJECT
public:
    SafetyTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent = nullptr);

    settingsui::SwitchRow *canarySwitch() const { return m_canary; }
    settingsui::SwitchRow *masksSwitch() const { return m_masks; }
    settingsui::SwitchRow *soundSwitch() const { return m_sound; }
    QPushButton *logsButton() const { return m_logs; }
    QPushButton *databaseButton() const { return m_database; }

private:
    void retranslate();
    void showValues();

    AppViewModel &m_model;
    const SettingsHooks &m_hooks;
    settingsui::SwitchRow *m_canary = nullptr;
    settingsui::SwitchRow *m_masks = nullptr;
    settingsui::SwitchRow *m_sound = nullptr;
    QLabel *m_diagnosticsTitle = nullptr;
    QPushButton *m_logs = nullptr;
    QPushButton *m_database = nullptr;
    QLabel *m_hardened = nullptr;
};

} // namespace orvanta
