// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HistoryRowDelegate.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/history/HistoryTableModel.h"

#include <QAbstractItemView>
#include <QHash>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

QList<RowAction> rowActions(const PhotoRecord &record, bool canCompare)
{
    const bool success = record.status == u"SUCCESS"_s;
    QList<RowAction> actions;
    if (success && canCompare)
        actions << RowAction::Compare;
    actions << RowAction::Inspector << RowAction::QuickLook << RowAction::Reveal
            << RowAction::Share;
    if (!success)
        actions << RowAction::ViewError;
    return actions;
}

QString rowActionSymbol(RowAction action)
{
    switch (action) {
    case RowAction::Compare:
        return u"sun.max.fill"_s;
    case RowAction::Inspector:
        return u"info.circle"_s;
    case RowAction::QuickLook:
        return u"eye"_s;
    case RowAction::Reveal:
        return u"folder"_s;
    case RowAction::Share:
        return u"square.and.arrow.up"_s;
    case RowAction::ViewError:
        return u"exclamationmark.triangle.fill"_s;
    }
    return {};
}

const char *rowActionKey(RowAction action)
{
    switch (action) {
    case RowAction::Compare:
        return "action_edr_compare";
    case RowAction::Inspector:
        return "action_inspector";
    case RowAction::QuickLook:
        return "action_quicklook";
    case RowAction::Reveal:
        return "action_reveal_finder";
    case RowAction::Share:
        return "action_share_sheet";
    case RowAction::ViewError:
        return "action_view_error";
    }
    return "";
}

// The row symbols, drawn once per tint and size: rendering the SVG for every
// cell of every frame would dominate the cost of a scroll.
static QPixmap cachedIcon(const QString &symbol, const QColor &color, int size, qreal dpr)
{
    static QHash<QString, QPixmap> cache;
    const QString key = symbol + u'|' + color.name(QColor::HexArgb) + u'|' + QString::number(size)
        + u'|' + QString::number(dpr);
    auto it = cache.constFind(key);
    if (it != cache.constEnd())
        return *it;
    const QPixmap pixmap = icons::pixmap(symbol, color, size, dpr);
    if (cache.size() < 256)
        cache.insert(key, pixmap);
    return pixmap;
}

void paintThumbnailCell(QPainter &p, const QRectF &rect, RowMediaStore::ThumbState state,
                        const QImage &image, qreal opacity)
{
    p.save();
    QPainterPath clip;
    clip.addRoundedRect(rect, 4, 4);
    p.setClipPath(clip);
    QColor secondary = theme::kTextSecondary;
    if (state == RowMediaStore::ThumbState::Image && !image.isNull()) {
        // Fill the frame, cropping the longer side, like an aspect-fill.
        const QSizeF scaled
            = QSizeF(image.size()).scaled(rect.size(), Qt::KeepAspectRatioByExpanding);
        const QRectF target(rect.center().x() - scaled.width() / 2,
                            rect.center().y() - scaled.height() / 2, scaled.width(),
                            scaled.height());
        p.setOpacity(opacity);
        p.setRenderHint(QPainter::SmoothPixmapTransform);
        p.drawImage(target, image);
    } else {
        const bool missing = state == RowMediaStore::ThumbState::Missing;
        QColor back = secondary;
        back.setAlphaF(missing ? 0.12f : 0.15f);
        p.fillRect(rect, back);
        QColor fore = secondary;
        fore.setAlphaF(missing ? 0.45f : 0.6f);
        const int size = 13;
        const QPixmap icon
            = cachedIcon(missing ? u"photo.badge.exclamationmark"_s : u"photo"_s, fore, size,
                         p.device() ? p.device()->devicePixelRatioF() : 1.0);
        p.drawPixmap(QPointF(rect.center().x() - size / 2.0, rect.center().y() - size / 2.0), icon);
    }
    p.restore();
}

HistoryRowDelegate::HistoryRowDelegate(AppViewModel &model, HistoryTableModel &table,
                                       RowMediaStore &media, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
    , m_table(table)
    , m_media(media)
{
}

QFont HistoryRowDelegate::pillFont() const
{
    QFont font;
    font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

int HistoryRowDelegate::pillWidth() const
{
    return QFontMetrics(pillFont()).horizontalAdvance(m_model.t("btn_xdr_compare_pill")) + 32;
}

QList<HistoryRowDelegate::Target>
HistoryRowDelegate::targets(const QRect &cell, const PhotoRecord &record, bool hovered) const
{
    QList<Target> found;
    int right = cell.right() - 8;
    const int y = cell.center().y() - ActionButton / 2;
    for (RowAction action : rowActions(record, m_canCompare)) {
        if (action == RowAction::Compare) {
            const int width = pillWidth();
            found.append({ action, QRect(right - width, cell.center().y() - 10, width, 20), true });
            right -= width + 6;
        } else if (hovered) {
            found.append({ action, QRect(), false });
        }
    }
    // The buttons fill leftwards from the pill (or the cell's end), in order.
    int x = right
        - int(std::count_if(found.begin(), found.end(), [](const Target &t) { return !t.pill; }))
            * (ActionButton + 2);
    for (Target &target : found) {
        if (!target.pill) {
            target.rect = QRect(x + 2, y, ActionButton, ActionButton);
            x += ActionButton + 2;
        }
    }
    return found;
}

int HistoryRowDelegate::actionsWidth() const
{
    const int button = ActionButton + 2;
    const int withPill = pillWidth() + 6 + 4 * button; // compare + four buttons
    const int withoutPill = 5 * button; // a failed row: four + the error details
    return 8 + std::max(withPill, withoutPill) + 8;
}

QSize HistoryRowDelegate::sizeHint(const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const
{
    return QSize(QStyledItemDelegate::sizeHint(option, index).width(), RowHeight);
}

void HistoryRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                               const QModelIndex &index) const
{
    QPainter &p = *painter;
    const PhotoRecord &record = m_table.record(index.row());
    const bool hovered = index.row() == m_hoveredRow;
    const bool selected = index.data(HistoryTableModel::SelectedRole).toBool();
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    if (selected)
        p.fillRect(option.rect, QColor(0x2f, 0x8c, 0xff, 40));
    else if (hovered)
        p.fillRect(option.rect, QColor(255, 255, 255, 10));
    p.setPen(theme::kBorder);
    p.drawLine(option.rect.bottomLeft(), option.rect.bottomRight());
    const QRect r = option.rect;
    const HistoryColumn &column = m_table.column(index.column());
    switch (column.kind) {
    case HistoryColumn::Kind::Select: {
        const QPixmap box = cachedIcon(selected ? u"checkmark.square.fill"_s : u"square"_s,
                                       selected ? theme::kAccent : theme::kTextSecondary, 16,
                                       p.device()->devicePixelRatioF());
        p.drawPixmap(r.center().x() - 8, r.center().y() - 8, box);
        break;
    }
    case HistoryColumn::Kind::Name:
        paintName(p, r, record);
        break;
    case HistoryColumn::Kind::Status:
        paintStatus(p, r, record);
        break;
    case HistoryColumn::Kind::Optional:
        paintOptional(p, r, record, column.optional);
        break;
    case HistoryColumn::Kind::Actions:
        paintActions(p, r, record, hovered);
        break;
    }
    p.restore();
}

void HistoryRowDelegate::paintName(QPainter &p, const QRect &r, const PhotoRecord &record) const
{
    const RowMediaStore::Thumb thumb = m_media.thumbnail(record);
    const QRectF thumbRect(r.left() + 6, r.center().y() - 11, 38, 22);
    paintThumbnailCell(p, thumbRect, thumb.state, thumb.image);
    const int x = int(thumbRect.right()) + 10;
    QFont bold = p.font();
    bold.setWeight(QFont::DemiBold);
    p.setFont(bold);
    p.setPen(theme::kTextPrimary);
    const QRect top(x, r.top() + 5, r.right() - x - 4, 18);
    p.drawText(top, Qt::AlignLeft | Qt::AlignVCenter,
               QFontMetrics(bold).elidedText(record.stem, Qt::ElideMiddle, top.width()));
    QFont small = p.font();
    small.setWeight(QFont::Normal);
    small.setPointSizeF(small.pointSizeF() * 0.85);
    p.setFont(small);
    const QRect bottom(x, r.top() + 23, r.right() - x - 4, 16);
    const QPixmap star
        = cachedIcon(u"star.fill"_s, theme::kYellow, 10, p.device()->devicePixelRatioF());
    p.drawPixmap(bottom.left(), bottom.center().y() - 5, star);
    p.setPen(theme::kTextSecondary);
    const QString rating = QString::number(record.rating);
    p.drawText(bottom.adjusted(13, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, rating);
    if (record.status == u"SUCCESS"_s && record.peakStops) {
        const int offset = 13 + QFontMetrics(small).horizontalAdvance(rating) + 10;
        p.setPen(theme::kYellow);
        p.drawText(bottom.adjusted(offset, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   peakLabel(*record.peakStops));
    }
}

void HistoryRowDelegate::paintStatus(QPainter &p, const QRect &r, const PhotoRecord &record) const
{
    const bool success = record.status == u"SUCCESS"_s;
    const QColor color = success ? theme::kGreen : theme::kRed;
    const QPixmap icon
        = cachedIcon(success ? u"checkmark.circle.fill"_s : u"exclamationmark.triangle.fill"_s,
                     color, 14, p.device()->devicePixelRatioF());
    p.drawPixmap(r.left() + 6, r.center().y() - 7, icon);
    p.setPen(color);
    const QRect text = r.adjusted(26, 0, -4, 0);
    p.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
               p.fontMetrics().elidedText(
                   m_model.t(success ? "history_row_success" : "history_row_failed"),
                   Qt::ElideRight, text.width()));
}

void HistoryRowDelegate::paintOptional(QPainter &p, const QRect &r, const PhotoRecord &record,
                                       ListColumn column) const
{
    const QRect text = r.adjusted(6, 0, -6, 0);
    QString line = recordCellText(record, column);
    QString second;
    QColor color = theme::kTextPrimary;
    if (line.isNull()) {
        const ProPhotoMetadata *meta = m_media.metadata(record);
        const QString none = missingValuePlaceholder();
        if (!meta) {
            line = none;
            color = theme::kTextTertiary;
        } else if (column == ListColumn::Exposure) {
            // One dash for what is unknown, not one per part.
            QStringList parts;
            for (const QString &part : { meta->apertureString(), meta->shutterSpeedString() }) {
                if (part != none)
                    parts << part;
            }
            line = parts.isEmpty() ? none : parts.join(u"  "_s);
            if (meta->isoString() != none)
                second = u"ISO "_s + meta->isoString();
        } else if (column == ListColumn::CameraLens) {
            line = meta->cameraModel.value_or(meta->cameraMake.value_or(none));
            second = meta->lensModel.value_or(none);
        } else if (column == ListColumn::FileSize) {
            line = meta->fileSizeString();
        } else {
            line = meta->dateTimeOriginal.value_or(none);
        }
    } else if (column == ListColumn::PeakStops && record.peakStops) {
        color = theme::kYellow;
    }
    const QFontMetrics metrics = p.fontMetrics();
    p.setPen(color);
    if (second.isEmpty()) {
        p.drawText(text, Qt::AlignLeft | Qt::AlignVCenter,
                   metrics.elidedText(line, Qt::ElideRight, text.width()));
        return;
    }
    p.drawText(QRect(text.left(), r.top() + 5, text.width(), 18), Qt::AlignLeft | Qt::AlignVCenter,
               metrics.elidedText(line, Qt::ElideRight, text.width()));
    p.setPen(theme::kTextSecondary);
    p.drawText(QRect(text.left(), r.top() + 22, text.width(), 17), Qt::AlignLeft | Qt::AlignVCenter,
               metrics.elidedText(second, Qt::ElideRight, text.width()));
}

void HistoryRowDelegate::paintActions(QPainter &p, const QRect &r, const PhotoRecord &record,
                                      bool hovered) const
{
    const qreal dpr = p.device()->devicePixelRatioF();
    for (const Target &target : targets(r, record, hovered)) {
        if (target.pill) {
            p.setPen(QColor(0xff, 0xd0, 0x2e, hovered ? 170 : 110));
            p.setBrush(QColor(0xff, 0xd0, 0x2e, hovered ? 48 : 30));
            p.drawRoundedRect(target.rect, 10, 10);
            p.drawPixmap(target.rect.left() + 8, target.rect.center().y() - 6,
                         cachedIcon(u"sun.max.fill"_s, theme::kYellow, 12, dpr));
            p.setFont(pillFont());
            p.setPen(theme::kYellow);
            p.drawText(target.rect.adjusted(24, 0, -6, 0), Qt::AlignLeft | Qt::AlignVCenter,
                       m_model.t("btn_xdr_compare_pill"));
            continue;
        }
        p.setPen(Qt::NoPen);
        p.setBrush(theme::kSurfaceRaised);
        p.drawRoundedRect(target.rect, 6, 6);
        const QColor tint
            = target.action == RowAction::ViewError ? theme::kRed : theme::kTextPrimary;
        p.drawPixmap(target.rect.center().x() - 7, target.rect.center().y() - 7,
                     cachedIcon(rowActionSymbol(target.action), tint, 14, dpr));
    }
}

bool HistoryRowDelegate::editorEvent(QEvent *event, QAbstractItemModel *,
                                     const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::MouseButtonRelease || !index.isValid())
        return false;
    auto *mouse = static_cast<QMouseEvent *>(event);
    if (mouse->button() != Qt::LeftButton)
        return false;
    const PhotoRecord record = m_table.record(index.row());
    const HistoryColumn &column = m_table.column(index.column());
    if (column.kind == HistoryColumn::Kind::Select) {
        Q_EMIT selectionToggled(record.id());
        return true;
    }
    if (column.kind != HistoryColumn::Kind::Actions)
        return false;
    const QPoint pos = mouse->position().toPoint();
    for (const Target &target : targets(option.rect, record, index.row() == m_hoveredRow)) {
        if (target.rect.contains(pos)) {
            Q_EMIT actionTriggered(target.action, record);
            return true;
        }
    }
    return false;
}

bool HistoryRowDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                                   const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (index.isValid() && m_table.column(index.column()).kind == HistoryColumn::Kind::Actions) {
        const PhotoRecord &record = m_table.record(index.row());
        for (const Target &target : targets(option.rect, record, index.row() == m_hoveredRow)) {
            if (target.rect.contains(event->pos())) {
                QToolTip::showText(event->globalPos(), m_model.t(rowActionKey(target.action)),
                                   view);
                return true;
            }
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

} // namespace orvanta
