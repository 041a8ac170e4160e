// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The top of the main window: application icon, title and subtitle, and on
// the trailing side the language menu, the environment state and the
// preferences button. Main thread.
#pragma once

#include "ui/FolderField.h"

#include <QWidget>

class QLabel;
class QMenu;
class QToolButton;

namespace orvanta {

class AppViewModel;

class HeaderBar : public QWidget
{
    Q_OBJECT
public:
    explicit HeaderBar(AppViewModel &model, QWidget *parent = nullptr);

    QToolButton *languageButton() const { return m_language; }
    QToolButton *settingsButton() const { return m_settings; }
    ElidedLabel *environmentLabel() const { return m_envText; }

private:
    void retranslate();
    void updateEnvironment();
    void rebuildLanguageMenu();

    AppViewModel &m_model;
    QLabel *m_title = nullptr;
    QLabel *m_subtitle = nullptr;
    QWidget *m_env = nullptr;
    QLabel *m_envIcon = nullptr;
    ElidedLabel *m_envText = nullptr;
    QToolButton *m_language = nullptr;
    QMenu *m_languageMenu = nullptr;
    QToolButton *m_settings = nullptr;
};

} // namespace orvanta
