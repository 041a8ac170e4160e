// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/DonateSheet.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

DonateSheet::DonateSheet(AppViewModel &model, const QUrl &page, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
    , m_page(page)
{
    setObjectName(u"donateSheet"_s);
    setModal(true);
    setFixedWidth(440);

    auto *heart = new QLabel(this);
    heart->setPixmap(
        icons::pixmap(u"heart.fill"_s, QColor(0xff, 0x5a, 0x7a), 48, devicePixelRatioF()));
    heart->setAlignment(Qt::AlignHCenter);
    m_title = new QLabel(this);
    m_title->setProperty("role", u"cardTitle"_s);
    m_title->setAlignment(Qt::AlignHCenter);
    m_title->setWordWrap(true);
    m_text = new QLabel(this);
    m_text->setProperty("role", u"secondary"_s);
    m_text->setAlignment(Qt::AlignHCenter);
    m_text->setWordWrap(true);

    m_later = new QPushButton(this);
    m_later->setObjectName(u"donateLater"_s);
    m_open = new QPushButton(this);
    m_open->setObjectName(u"donateOpen"_s);
    m_open->setProperty("role", u"primary"_s);
    m_open->setIcon(icons::pixmap(u"heart.fill"_s, Qt::white, 14, devicePixelRatioF()));
    m_open->setDefault(true);
    m_open->setVisible(m_page.isValid() && !m_page.isEmpty());

    auto *buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(m_later);
    buttons->addWidget(m_open);
    buttons->addStretch(1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(28, 24, 28, 22);
    layout->setSpacing(12);
    layout->addWidget(heart);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addSpacing(6);
    layout->addLayout(buttons);

    connect(m_later, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_open, &QPushButton::clicked, this, [this] {
        QDesktopServices::openUrl(m_page);
        accept();
    });
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &DonateSheet::retranslate);
    retranslate();
}

void DonateSheet::retranslate()
{
    setWindowTitle(m_model.t("menu_sponsor"));
    m_title->setText(m_model.t("donate_title"));
    m_text->setText(m_model.t("donate_desc"));
    m_later->setText(theme::literal(m_model.t("donate_btn_later")));
    m_open->setText(theme::literal(m_model.t("donate_btn_open")));
}

} // namespace orvanta
