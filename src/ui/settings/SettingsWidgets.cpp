// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/SettingsWidgets.h"

#include "ui/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace orvanta::settingsui {

using namespace Qt::StringLiterals;

QFrame *card(QWidget *parent, QVBoxLayout **layout)
{
    auto *frame = new QFrame(parent);
    frame->setProperty("role", u"card"_s);
    auto *box = new QVBoxLayout(frame);
    box->setContentsMargins(16, 14, 16, 14);
    box->setSpacing(8);
    if (layout)
        *layout = box;
    return frame;
}

QLabel *label(const QString &role, QWidget *parent, bool wrap)
{
    auto *l = new QLabel(parent);
    if (!role.isEmpty())
        l->setProperty("role", role);
    l->setWordWrap(wrap);
    return l;
}

QScrollArea *scrollPage(QWidget *content, QWidget *parent)
{
    auto *area = new QScrollArea(parent);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(content);
    // The page shows the window's colour, not the view's sunken one.
    area->viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    return area;
}

SwitchRow::SwitchRow(QWidget *parent)
    : QWidget(parent)
{
    m_box = new QCheckBox(this);
    m_note = label(u"secondary"_s, this);
    m_note->setContentsMargins(23, 0, 0, 0); // under the text, past the box
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addWidget(m_box);
    layout->addWidget(m_note);
}

void SwitchRow::setTexts(const QString &title, const QString &note)
{
    m_box->setText(theme::literal(title));
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
}

Badge::Badge(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Badge::setTexts(const QString &name, const QString &value)
{
    m_name = name;
    m_value = value;
    updateGeometry();
    update();
}

QSize Badge::sizeHint() const
{
    const QFontMetrics fm(font());
    QFont bold = font();
    bold.setBold(true);
    const int width
        = fm.horizontalAdvance(m_name) + QFontMetrics(bold).horizontalAdvance(m_value) + 5 + 16;
    return { width, fm.height() + 6 };
}

void Badge::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath pill;
    pill.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    p.fillPath(pill, theme::kSurfaceRaised);
    p.setPen(theme::kBorder);
    p.drawPath(pill);

    const QFontMetrics fm(font());
    const int baseline = (height() + fm.ascent() - fm.descent()) / 2;
    p.setPen(theme::kTextSecondary);
    p.drawText(8, baseline, m_name);
    QFont bold = font();
    bold.setBold(true);
    p.setFont(bold);
    p.setPen(theme::kTextPrimary);
    p.drawText(8 + fm.horizontalAdvance(m_name) + 5, baseline, m_value);
}

} // namespace orvanta::settingsui
