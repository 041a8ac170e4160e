// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/AboutTab.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"
#include "update/Updater.h"

#include <QGridLayout>
#include <QIcon>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

const QList<Acknowledgement> &AboutTab::acknowledgements()
{
    // What the build links directly (the top-level CMakeLists.txt): Qt for
    // the interface, SQLite for the engine's history, exiv2 and LibRaw for
    // photo metadata and RAW previews, libjpeg-turbo for JPEG coding,
    // libsodium for checking update signatures. Their own dependencies
    // (zlib, expat, Little CMS, ...) come with them from the system.
    static const QList<Acknowledgement> list = {
        { u"Qt 6"_s, u"LGPL-3.0"_s, u"qt.io"_s },
        { u"SQLite"_s, u"Public Domain"_s, u"sqlite.org"_s },
        { u"Exiv2"_s, u"GPL-2.0-or-later"_s, u"exiv2.org"_s },
        { u"LibRaw"_s, u"LGPL-2.1 / CDDL-1.0"_s, u"libraw.org"_s },
        { u"libjpeg-turbo"_s, u"IJG / BSD-3-Clause"_s, u"libjpeg-turbo.org"_s },
        { u"libsodium"_s, u"ISC"_s, u"libsodium.org"_s },
    };
    return list;
}

AboutTab::AboutTab(AppViewModel &model, Updater *updater, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(buildHeader(updater));
    layout->addWidget(buildAcknowledgements());
    layout->addStretch(1);

    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &AboutTab::retranslate);
    retranslate();
}

QWidget *AboutTab::buildHeader(Updater *updater)
{
    QVBoxLayout *box = nullptr;
    QFrame *head = card(this, &box);
    box->setContentsMargins(20, 20, 20, 20);
    auto *logo = new QLabel(head);
    logo->setPixmap(QIcon(u":/orvanta.svg"_s).pixmap(72, 72));
    logo->setAlignment(Qt::AlignHCenter);
    m_title = label(u"title"_s, head);
    m_tagline = label(u"secondary"_s, head);
    m_version = label(u"tertiary"_s, head);
    m_version->setObjectName(u"aboutVersion"_s);
    m_version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_version->setText(updater
                           ? updater->currentVersionString()
                           : QStringLiteral(ORVANTA_VERSION " (Build " ORVANTA_BUILD_NUMBER ")"));
    for (QLabel *centred : { m_title, m_tagline, m_version })
        centred->setAlignment(Qt::AlignHCenter);

    m_badge = new QLabel(head);
    m_badge->setObjectName(u"engineBadge"_s);
    QPalette badgePalette = m_badge->palette();
    badgePalette.setColor(QPalette::WindowText, theme::kAccent);
    m_badge->setPalette(badgePalette);
    auto *bolt = new QLabel(head);
    bolt->setPixmap(icons::pixmap(u"bolt.fill"_s, theme::kAccent, 14, devicePixelRatioF()));
    auto *badgeRow = new QHBoxLayout;
    badgeRow->addStretch(1);
    badgeRow->addWidget(bolt);
    badgeRow->addWidget(m_badge);
    badgeRow->addStretch(1);

    box->addWidget(logo);
    box->addWidget(m_title);
    box->addWidget(m_tagline);
    box->addWidget(m_version);
    box->addSpacing(4);
    box->addLayout(badgeRow);
    return head;
}

QWidget *AboutTab::buildAcknowledgements()
{
    QVBoxLayout *box = nullptr;
    QFrame *ack = card(this, &box);
    m_ackTitle = label(u"cardTitle"_s, ack);
    m_ackDescription = label(u"secondary"_s, ack);
    m_list = new QWidget(ack);
    m_list->setObjectName(u"acknowledgements"_s);
    auto *grid = new QGridLayout(m_list);
    grid->setContentsMargins(0, 4, 0, 0);
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(5);
    int row = 0;
    for (const Acknowledgement &entry : acknowledgements()) {
        auto *project = new QLabel(entry.project, m_list);
        QFont bold = project->font();
        bold.setBold(true);
        project->setFont(bold);
        auto *licence = label(u"secondary"_s, m_list, false);
        licence->setText(entry.licence);
        auto *site = label(u"tertiary"_s, m_list, false);
        site->setText(entry.website);
        grid->addWidget(project, row, 0);
        grid->addWidget(licence, row, 1);
        grid->addWidget(site, row, 2);
        ++row;
    }
    grid->setColumnStretch(2, 1);
    box->addWidget(m_ackTitle);
    box->addWidget(m_ackDescription);
    box->addWidget(m_list);
    return ack;
}

void AboutTab::retranslate()
{
    m_title->setText(m_model.t("app_title"));
    m_tagline->setText(m_model.t("settings_about_tagline"));
    m_badge->setText(m_model.t("settings_about_engine_badge"));
    m_ackTitle->setText(m_model.t("settings_about_ack_title"));
    m_ackDescription->setText(m_model.t("settings_about_ack_desc"));
}

} // namespace orvanta
