// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/SafetyTab.h"

#include "core/AppViewModel.h"
#include "history/HistoryService.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"

#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

SafetyTab::SafetyTab(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_hooks(hooks)
{
    QVBoxLayout *optionsBox = nullptr;
    QFrame *options = card(this, &optionsBox);
    optionsBox->setSpacing(12);
    m_canary = new SwitchRow(options);
    m_canary->box()->setObjectName(u"canarySwitch"_s);
    m_masks = new SwitchRow(options);
    m_masks->box()->setObjectName(u"masksSwitch"_s);
    m_sound = new SwitchRow(options);
    m_sound->box()->setObjectName(u"soundSwitch"_s);
    optionsBox->addWidget(m_canary);
    optionsBox->addWidget(m_masks);
    optionsBox->addWidget(m_sound);

    QVBoxLayout *diagnosticsBox = nullptr;
    QFrame *diagnostics = card(this, &diagnosticsBox);
    m_diagnosticsTitle = label(u"cardTitle"_s, diagnostics);
    m_logs = new QPushButton(diagnostics);
    m_logs->setObjectName(u"revealLogs"_s);
    m_logs->setIcon(icons::icon(u"doc.text"_s, theme::kAccent));
    m_database = new QPushButton(diagnostics);
    m_database->setObjectName(u"revealDatabase"_s);
    m_database->setIcon(icons::icon(u"cylinder"_s, theme::kAccent));
    // One under the other: both texts are long in several languages.
    auto *buttons = new QVBoxLayout;
    buttons->setSpacing(6);
    buttons->addWidget(m_logs, 0, Qt::AlignLeft);
    buttons->addWidget(m_database, 0, Qt::AlignLeft);
    m_hardened = label(u"tertiary"_s, diagnostics);
    diagnosticsBox->addWidget(m_diagnosticsTitle);
    diagnosticsBox->addLayout(buttons);
    diagnosticsBox->addWidget(m_hardened);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(options);
    layout->addWidget(diagnostics);
    layout->addStretch(1);

    connect(m_canary->box(), &QCheckBox::toggled, &m_model, &AppViewModel::setEnableCanary);
    connect(m_masks->box(), &QCheckBox::toggled, &m_model, &AppViewModel::setExportDebugMasks);
    connect(m_sound->box(), &QCheckBox::toggled, &m_model,
            &AppViewModel::setNotificationSoundEnabled);
    connect(m_logs, &QPushButton::clicked, this,
            [this] { m_hooks.reveal(diagnostics::prepareLogsReveal()); });
    connect(m_database, &QPushButton::clicked, this, [this] {
        const QString path = m_model.historyService() ? m_model.historyService()->dbPath()
                                                      : HistoryService::defaultDbPath();
        m_hooks.reveal(diagnostics::prepareStateDatabaseReveal(path));
    });
    for (auto changed :
         { &AppViewModel::enableCanaryChanged, &AppViewModel::exportDebugMasksChanged,
           &AppViewModel::notificationSoundEnabledChanged })
        connect(&m_model, changed, this, &SafetyTab::showValues);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &SafetyTab::retranslate);
    showValues();
    retranslate();
}

void SafetyTab::retranslate()
{
    m_canary->setTexts(m_model.t("settings_canary_label"), m_model.t("settings_canary_desc"));
    m_masks->setTexts(m_model.t("settings_masks_label"));
    m_sound->setTexts(m_model.t("settings_sound_label"), m_model.t("settings_sound_desc"));
    m_diagnosticsTitle->setText(m_model.t("settings_diagnostics_title"));
    m_logs->setText(theme::literal(m_model.t("settings_btn_open_logs")));
    m_database->setText(theme::literal(m_model.t("settings_btn_open_db")));
    m_hardened->setText(m_model.t("settings_core_hardened"));
}

void SafetyTab::showValues()
{
    m_canary->box()->setChecked(m_model.enableCanary());
    m_masks->box()->setChecked(m_model.exportDebugMasks());
    m_sound->box()->setChecked(m_model.notificationSoundEnabled());
}

} // namespace orvanta
