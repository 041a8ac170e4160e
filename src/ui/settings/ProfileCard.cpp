// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/ProfileCard.h"

#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace orvanta {

using namespace Qt::StringLiterals;

ProfileCard::ProfileCard(StyleProfile profile, QWidget *parent)
    : QWidget(parent)
    , m_profile(profile)
{
    setObjectName(u"profileCard_"_s + rawValue(profile));
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);

    m_icon = new QLabel(this);
    m_icon->setPixmap(
        icons::pixmap(iconName(profile), accentColor(profile), 26, devicePixelRatioF()));
    m_icon->setFixedSize(34, 34);
    m_icon->setAlignment(Qt::AlignCenter);
    m_title = settingsui::label(u"cardTitle"_s, this);
    m_subtitle = settingsui::label(u"secondary"_s, this);
    m_badgeGrid = new QGridLayout;
    m_badgeGrid->setHorizontalSpacing(6);
    m_badgeGrid->setVerticalSpacing(6);

    auto *text = new QVBoxLayout;
    text->setSpacing(3);
    text->addWidget(m_title);
    text->addWidget(m_subtitle);
    text->addSpacing(4);
    auto *badgeRow = new QHBoxLayout;
    badgeRow->addLayout(m_badgeGrid);
    badgeRow->addStretch(1);
    text->addLayout(badgeRow);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 12);
    layout->setSpacing(12);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addLayout(text, 1);
    retranslate();
}

void ProfileCard::setSelected(bool selected)
{
    if (m_selected == selected)
        return;
    m_selected = selected;
    update();
}

void ProfileCard::retranslate()
{
    m_title->setText(displayName(m_profile));
    m_subtitle->setText(subtitle(m_profile));
    const auto summary = parametersSummary(m_profile);
    while (m_badges.size() < summary.size()) {
        auto *badge = new settingsui::Badge(this);
        // Three to a row keeps six badges in two tidy rows.
        const int index = int(m_badges.size());
        m_badgeGrid->addWidget(badge, index / 3, index % 3, Qt::AlignLeft);
        m_badges.append(badge);
    }
    for (qsizetype i = 0; i < m_badges.size(); ++i)
        m_badges[i]->setTexts(summary.value(i).first, summary.value(i).second);
}

void ProfileCard::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal width = m_selected ? 2.0 : 1.0;
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2), 12,
                         12);
    QColor fill = m_selected ? theme::kSurfaceRaised : theme::kSurface;
    if (m_hovered && !m_selected)
        fill = fill.lighter(112);
    p.fillPath(shape, fill);
    p.setPen(QPen(m_selected ? accentColor(m_profile) : theme::kBorder, width));
    p.drawPath(shape);
    if (hasFocus() && !m_selected) {
        p.setPen(QPen(theme::kAccent, 1, Qt::DashLine));
        p.drawPath(shape);
    }
}

void ProfileCard::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT chosen(m_profile);
    QWidget::mouseReleaseEvent(event);
}

void ProfileCard::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Return
        || event->key() == Qt::Key_Enter) {
        Q_EMIT chosen(m_profile);
        return;
    }
    QWidget::keyPressEvent(event);
}

void ProfileCard::enterEvent(QEnterEvent *event)
{
    m_hovered = true;
    update();
    QWidget::enterEvent(event);
}

void ProfileCard::leaveEvent(QEvent *event)
{
    m_hovered = false;
    update();
    QWidget::leaveEvent(event);
}

} // namespace orvanta
