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

    // What can be clicked in a row's actions cell, as painted: the "HDR
    // Compare" pill of a successful row stays at the right end whether or not
    // the row is hovered, and the hover buttons for the other actions sit
    // beside it, so the pill the user aims at is the pill that gets the click.
    struct Target
    {
        RowAction action;
        QRect rect;
        bool pill = false;
    };
    QList<Target> targets(const QRect &cell, const PhotoRecord &record, bool hovered) const;
    // The width the actions cell needs for its widest row.
    int actionsWidth() const;

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

    QFont pillFont() const;
    int pillWidth() const;

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
