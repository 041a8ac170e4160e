// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ConsoleLineDelegate.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QtMath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
const QString kEmojiFamily = u"Noto Color Emoji"_s;
constexpr int kMarkerGap = 2;
} // namespace

std::pair<QString, QString> splitEmojiMarker(const QString &line)
{
    // A marker is the run of symbol code points (and their variation
    // selectors and joiners) before the first blank.
    qsizetype end = 0;
    while (end < line.size() && line.at(end) != u' ') {
        const QChar c = line.at(end);
        if (c.unicode() < 0x2000 && !c.isSurrogate())
            return { QString(), line };
        ++end;
    }
    if (end == 0 || end == line.size())
        return { QString(), line };
    return { line.left(end), line.mid(end) };
}

ConsoleLineDelegate::ConsoleLineDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{
}

QFont ConsoleLineDelegate::emojiFont(const QFont &base) const
{
    QFont font(base);
    if (QFontDatabase::hasFamily(kEmojiFamily))
        font.setFamilies({ kEmojiFamily, base.family() });
    return font;
}

const QPixmap &ConsoleLineDelegate::markerPixmap(const QString &marker, const QFont &base,
                                                 qreal dpr) const
{
    const QString key = marker + u'|' + base.key() + u'|' + QString::number(dpr);
    auto it = m_markers.find(key);
    if (it != m_markers.end())
        return *it;
    const QFont emoji = emojiFont(base);
    const QFontMetrics metrics(emoji);
    const QSize size(metrics.horizontalAdvance(marker), metrics.height());
    QPixmap pm(size * dpr);
    pm.setDevicePixelRatio(dpr);
    pm.fill(Qt::transparent);
    if (!size.isEmpty()) {
        QPainter p(&pm);
        p.setFont(emoji);
        p.drawText(QRect(QPoint(0, 0), size), Qt::AlignLeft | Qt::AlignVCenter, marker);
    }
    return *m_markers.insert(key, pm);
}

void ConsoleLineDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                const QModelIndex &index) const
{
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const QString line = opt.text;
    opt.text.clear();
    const QWidget *widget = opt.widget;
    QStyle *style = widget ? widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &opt, painter, widget);

    const auto [marker, rest] = splitEmojiMarker(line);
    const QRect textRect = style->subElementRect(QStyle::SE_ItemViewItemText, &opt, widget);
    const QColor colour = index.data(Qt::ForegroundRole).value<QColor>();
    painter->save();
    painter->setClipRect(textRect);
    QRect r = textRect;
    if (!marker.isEmpty()) {
        const qreal dpr = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        const QPixmap &pm = markerPixmap(marker, opt.font, dpr);
        const QSizeF logical = pm.deviceIndependentSize();
        painter->drawPixmap(QPointF(r.left(), r.top() + (r.height() - logical.height()) / 2.0), pm);
        r.setLeft(r.left() + qCeil(logical.width()) + kMarkerGap);
    }
    painter->setFont(opt.font);
    painter->setPen(colour.isValid() ? colour : opt.palette.color(QPalette::Text));
    painter->drawText(r, Qt::AlignLeft | Qt::AlignVCenter, marker.isEmpty() ? line : rest);
    painter->restore();
}

QSize ConsoleLineDelegate::sizeHint(const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    // The colour emoji face is taller than the monospace one.
    const int emojiHeight = QFontMetrics(emojiFont(option.font)).height();
    size.setHeight(std::max(size.height(), std::min(emojiHeight, size.height() + 4)));
    return size;
}

} // namespace orvanta
