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
    // What the binary links (see the top-level CMakeLists.txt): Qt for the
    // interface, SQLite for the engine's history, exiv2 and LibRaw for photo
    // metadata and RAW previews, libjpeg-turbo for JPEG coding, libsodium for
    // checking update signatures.
    static const QList<Acknowledgement> list = {
        {u"Qt 6"_s, u"LGPL-3.0"_s, u"qt.io"_s},
        {u"SQLite"_s, u"Public Domain"_s, u"sqlite.org"_s},
        {u"Exiv2"_s, u"GPL-2.0-or-later"_s, u"exiv2.org"_s},
        {u"LibRaw"_s, u"LGPL-2.1 / CDDL-1.0"_s, u"libraw.org"_s},
        {u"libjpeg-turbo"_s, u"IJG / BSD-3-Clause"_s, u"libjpeg-turbo.org"_s},
        {u"libsodium"_s, u"ISC"_s, u"libsodium.org"_s},
    };
    return list;
}

AboutTab::AboutTab(AppViewModel &model, Updater *updater, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    QVBoxLayout *headBox = nullptr;
    QFrame *head = card(this, &headBox);
    headBox->setContentsMargins(20, 20, 20, 20);
    auto *logo = new QLabel(head);
    logo->setPixmap(QIcon(u":/orvanta.svg"_s).pixmap(72, 72));
    logo->setAlignment(Qt::AlignHCenter);
    m_title = label(u"title"_s, head);
    m_title->setAlignment(Qt::AlignHCenter);
    m_tagline = label(u"secondary"_s, head);
    m_tagline->setAlignment(Qt::AlignHCenter);
    m_version = label(u"tertiary"_s, head);
    m_version->setObjectName(u"aboutVersion"_s);
    m_version->setAlignment(Qt::AlignHCenter);
    m_version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_version->setText(updater ? updater->currentVersionString()
                               : QStringLiteral(ORVANTA_VERSION " (Build " ORVANTA_BUILD_NUMBER ")"));
    m_badge = new QLabel(head);
    m_badge->setObjectName(u"engineBadge"_s);
    QPalette badgePalette = m_badge->palette();
    badgePalette.setColor(QPalette::WindowText, theme::kAccent);
    m_badge->setPalette(badgePalette);
    auto *badgeRow = new QHBoxLayout;
    auto *bolt = new QLabel(head);
    bolt->setPixmap(icons::pixmap(u"bolt.fill"_s, theme::kAccent, 14, devicePixelRatioF()));
    badgeRow->addStretch(1);
    badgeRow->addWidget(bolt);
    badgeRow->addWidget(m_badge);
    badgeRow->addStretch(1);
    headBox->addWidget(logo);
    headBox->addWidget(m_title);
    headBox->addWidget(m_tagline);
    headBox->addWidget(m_version);
    headBox->addSpacing(4);
    headBox->addLayout(badgeRow);

    QVBoxLayout *ackBox = nullptr;
    QFrame *ack = card(this, &ackBox);
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
    ackBox->addWidget(m_ackTitle);
    ackBox->addWidget(m_ackDescription);
    ackBox->addWidget(m_list);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(head);
    layout->addWidget(ack);
    layout->addStretch(1);

    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &AboutTab::retranslate);
    retranslate();
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
