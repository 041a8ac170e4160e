// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/DropOverlay.h"

#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace orvanta {

using namespace Qt::StringLiterals;

DropOverlay::DropOverlay(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"dropOverlay"_s);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropOverlay::setTexts(const QString &title, const QString &subtitle)
{
    m_title = title;
    m_subtitle = subtitle;
    update();
}

void DropOverlay::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QColor veil = theme::kWindow;
    veil.setAlphaF(0.86f);
    p.fillRect(rect(), veil);

    const QRectF frame = QRectF(rect()).adjusted(28, 28, -28, -28);
    QColor fill = theme::kAccent;
    fill.setAlphaF(0.08f);
    QPen dashed(theme::kAccent, 2, Qt::DashLine);
    dashed.setDashPattern({ 6, 5 });
    p.setPen(dashed);
    p.setBrush(fill);
    p.drawRoundedRect(frame, 22, 22);

    const int iconSize = 72;
    const QPointF centre = frame.center();
    const QPixmap icon = icons::pixmap(u"tray.and.arrow.down.fill"_s, theme::kAccent, iconSize,
                                       devicePixelRatioF());
    p.drawPixmap(QPointF(centre.x() - iconSize / 2.0, centre.y() - iconSize - 22), icon);

    QFont titleFont = font();
    titleFont.setPointSizeF(font().pointSizeF() * 1.9);
    titleFont.setWeight(QFont::DemiBold);
    p.setFont(titleFont);
    p.setPen(theme::kTextPrimary);
    const QRectF titleRect(frame.left() + 24, centre.y() - 8, frame.width() - 48, 44);
    p.drawText(titleRect, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_title);

    QFont subFont = font();
    subFont.setPointSizeF(font().pointSizeF() * 1.1);
    p.setFont(subFont);
    p.setPen(theme::kTextSecondary);
    const QRectF subRect(frame.left() + 40, titleRect.bottom() + 4, frame.width() - 80, 60);
    p.drawText(subRect, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, m_subtitle);
}

} // namespace orvanta
