// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page for the look of the results: one card per style profile,
// the custom style's sliders while it is selected, and the user's recipes.
// Main thread.
#pragma once

#include "ui/settings/SettingsHooks.h"

#include <QList>
#include <QWidget>

class QLabel;

namespace orvanta {

class AppViewModel;
class FineTuningPanel;
class ProfileCard;
class RecipePanel;

class StyleTab : public QWidget
{
    Q_OBJECT
public:
    StyleTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent = nullptr);

    QList<ProfileCard *> cards() const { return m_cards; }
    FineTuningPanel *fineTuning() const { return m_fineTuning; }
    RecipePanel *recipes() const { return m_recipes; }

private:
    void retranslate();
    void showSelection();

    AppViewModel &m_model;
    QLabel *m_title = nullptr;
    QLabel *m_description = nullptr;
    QList<ProfileCard *> m_cards;
    FineTuningPanel *m_fineTuning = nullptr;
    RecipePanel *m_recipes = nullptr;
};

} // namespace orvanta
