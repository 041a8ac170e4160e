// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/StyleTab.h"

#include "core/AppViewModel.h"
#include "ui/settings/FineTuningPanel.h"
#include "ui/settings/ProfileCard.h"
#include "ui/settings/RecipePanel.h"
#include "ui/settings/SettingsWidgets.h"

namespace orvanta {

using namespace Qt::StringLiterals;

StyleTab::StyleTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    m_title = settingsui::label(u"title"_s, this);
    m_description = settingsui::label(u"secondary"_s, this);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(10);
    layout->addWidget(m_title);
    layout->addWidget(m_description);
    layout->addSpacing(4);
    for (StyleProfile profile : allStyleProfiles()) {
        auto *card = new ProfileCard(profile, this);
        connect(card, &ProfileCard::chosen, &m_model, &AppViewModel::setSelectedProfile);
        layout->addWidget(card);
        m_cards.append(card);
    }
    m_fineTuning = new FineTuningPanel(m_model, this);
    m_recipes = new RecipePanel(m_model, hooks, this);
    layout->addSpacing(6);
    layout->addWidget(m_fineTuning);
    layout->addWidget(m_recipes);
    layout->addStretch(1);

    connect(&m_model, &AppViewModel::selectedProfileChanged, this, &StyleTab::showSelection);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &StyleTab::retranslate);
    retranslate();
    showSelection();
}

void StyleTab::retranslate()
{
    m_title->setText(m_model.t("style_profile_title"));
    m_description->setText(m_model.t("settings_styles_desc"));
    for (ProfileCard *card : std::as_const(m_cards))
        card->retranslate();
}

void StyleTab::showSelection()
{
    for (ProfileCard *card : std::as_const(m_cards))
        card->setSelected(card->profile() == m_model.selectedProfile());
    // The sliders belong to the custom style and show only with it.
    m_fineTuning->setVisible(m_model.selectedProfile() == StyleProfile::Custom);
}

} // namespace orvanta
