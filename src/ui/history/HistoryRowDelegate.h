// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Paints the cells of the history table (selection box, thumbnail and stem,
// status, optional columns, hover actions) and turns clicks on the boxes and
// action buttons into signals. Main thread.
#pragma once

#include "history/HistoryTypes.h"
#include "ui/history/RowMediaStore.h"

#include <QList>
#include <QRect>
#include <QStyledItemDelegate>

#include <functional>

namespace orvanta {

class AppViewModel;
class HistoryTableModel;

enum class RowAction { Compare, Inspector, QuickLook, Reveal, Share, ViewError };

// The actions a row offers, in button and menu order: compare only for a
// successful record when a compare window can be opened; the error details
// only for a failed one.
QList<RowAction> rowActions(const PhotoRecord &record, bool canCompare);
QString rowActionSymbol(RowAction action);
const char *rowActionKey(RowAction action);

class HistoryRowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    static constexpr int RowHeight = 44;
    static constexpr int ActionButton = 24;

    HistoryRowDelegate(AppViewModel &model, HistoryTableModel &table, RowMediaStore &media,
                       QObject *parent = nullptr);

    void setHoveredRow(int row) { m_hoveredRow = row; }
    int hoveredRow() const { return m_hoveredRow; }
    void setCanCompare(bool can) { m_canCompare = can; }

    // Where the action buttons of a hovered row sit in its actions cell.
    QList<QRect> actionRects(const QRect &cell, int count) const;
    QRect pillRect(const QRect &cell) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

Q_SIGNALS:
    void selectionToggled(const QString &fingerprint);
    void actionTriggered(orvanta::RowAction action, const orvanta::PhotoRecord &record);

private:
    void paintName(QPainter &p, const QRect &r, const PhotoRecord &record) const;
    void paintStatus(QPainter &p, const QRect &r, const PhotoRecord &record) const;
    void paintOptional(QPainter &p, const QRect &r, const PhotoRecord &record,
                       ListColumn column) const;
    void paintActions(QPainter &p, const QRect &r, const PhotoRecord &record, bool hovered) const;

    AppViewModel &m_model;
    HistoryTableModel &m_table;
    RowMediaStore &m_media;
    int m_hoveredRow = -1;
    bool m_canCompare = false;
};

// Draws a thumbnail cell in any of its states: the picture filling the frame,
// the missing-file mark, or the plain photo placeholder while loading or
// when the file could not be decoded.
void paintThumbnailCell(QPainter &p, const QRectF &rect, RowMediaStore::ThumbState state,
                        const QImage &image, qreal opacity = 1.0);

} // namespace orvanta
