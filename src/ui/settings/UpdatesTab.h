// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page for software updates: the automatic daily check and a check
// on demand, both through the application's updater. Main thread.
#pragma once

#include <QPointer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace orvanta {

class AppViewModel;
class Updater;
namespace settingsui {
class SwitchRow;
}

class UpdatesTab : public QWidget
{
    Q_OBJECT
public:
    // `updater` may be null (no updater in this process): the page then
    // says that updates are not available and offers nothing to press.
    UpdatesTab(AppViewModel &model, Updater *updater, QWidget *parent = nullptr);

    settingsui::SwitchRow *automaticSwitch() const { return m_automatic; }
    QPushButton *checkNowButton() const { return m_checkNow; }
    QLabel *unavailableNote() const { return m_unavailable; }

private:
    void retranslate();
    void showState();

    AppViewModel &m_model;
    QPointer<Updater> m_updater;
    QLabel *m_title = nullptr;
    settingsui::SwitchRow *m_automatic = nullptr;
    QLabel *m_manualTitle = nullptr;
    QLabel *m_manualNote = nullptr;
    QPushButton *m_checkNow = nullptr;
    QLabel *m_unavailable = nullptr;
};

} // namespace orvanta
