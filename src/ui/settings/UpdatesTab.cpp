// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/UpdatesTab.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"
#include "update/Updater.h"

#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

UpdatesTab::UpdatesTab(AppViewModel &model, Updater *updater, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_updater(updater)
{
    QVBoxLayout *box = nullptr;
    QFrame *frame = card(this, &box);
    box->setSpacing(10);
    m_title = label(u"cardTitle"_s, frame);
    m_automatic = new SwitchRow(frame);
    m_automatic->box()->setObjectName(u"automaticUpdates"_s);

    auto *divider = new QFrame(frame);
    divider->setProperty("role", u"divider"_s);
    m_manualTitle = label(QString(), frame);
    QFont bold = m_manualTitle->font();
    bold.setBold(true);
    m_manualTitle->setFont(bold);
    m_manualNote = label(u"secondary"_s, frame);
    m_checkNow = new QPushButton(frame);
    m_checkNow->setObjectName(u"checkNow"_s);
    m_checkNow->setIcon(icons::icon(u"arrow.triangle.2.circlepath"_s, theme::kTextPrimary));
    auto *manual = new QHBoxLayout;
    auto *manualText = new QVBoxLayout;
    manualText->setSpacing(2);
    manualText->addWidget(m_manualTitle);
    manualText->addWidget(m_manualNote);
    manual->addLayout(manualText, 1);
    manual->addWidget(m_checkNow, 0, Qt::AlignVCenter);

    m_unavailable = label(u"tertiary"_s, frame);
    m_unavailable->setObjectName(u"updatesUnavailable"_s);

    box->addWidget(m_title);
    box->addWidget(m_automatic);
    box->addWidget(divider);
    box->addLayout(manual);
    box->addWidget(m_unavailable);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);
    layout->addStretch(1);

    connect(m_automatic->box(), &QCheckBox::toggled, this, [this](bool on) {
        if (m_updater)
            m_updater->setAutomaticallyChecksForUpdates(on);
    });
    connect(m_checkNow, &QPushButton::clicked, this, [this] {
        if (m_updater)
            m_updater->checkForUpdates();
    });
    if (m_updater)
        connect(m_updater, &Updater::canCheckForUpdatesChanged, this, &UpdatesTab::showState);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &UpdatesTab::retranslate);
    retranslate();
    showState();
}

void UpdatesTab::retranslate()
{
    m_title->setText(m_model.t("settings_updates_title"));
    m_automatic->setTexts(m_model.t("settings_auto_check"), m_model.t("settings_auto_check_desc"));
    m_manualTitle->setText(m_model.t("settings_manual_check"));
    m_manualNote->setText(m_model.t("settings_manual_check_desc"));
    m_checkNow->setText(theme::literal(m_model.t("btn_check_now")));
    // A packaged installation gets its updates from the package system.
    const bool packaged = m_updater && m_updater->isPackageManaged();
    m_unavailable->setText(
        m_model.t(packaged ? "update_packaged_note" : "settings_updates_unavailable"));
}

void UpdatesTab::showState()
{
    const bool packaged = m_updater && m_updater->isPackageManaged();
    const bool configured = m_updater && m_updater->isConfigured() && !packaged;
    {
        const QSignalBlocker blocker(m_automatic->box());
        m_automatic->box()->setChecked(m_updater ? m_updater->automaticallyChecksForUpdates()
                                                 : true);
    }
    m_automatic->box()->setEnabled(configured);
    // Disabled while a check is under way, as the menu item is.
    // Packaged, "Check Now" says where updates come from.
    m_checkNow->setEnabled((configured || packaged) && m_updater->canCheckForUpdates());
    m_unavailable->setVisible(!configured);
}

} // namespace orvanta
