// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Paints one console line: the leading emoji marker in the colour emoji
// face, the rest in the console's monospace font and the line's colour.
// Needed because the monospace face has its own plain drawings of some
// markers ("⚠") that font fallback would otherwise pick. Main thread.
#pragma once

#include <QHash>
#include <QPixmap>
#include <QStyledItemDelegate>

#include <utility>

namespace orvanta {

// The emoji marker a line begins with ("⚠️" of "⚠️ Stop requested") and
// the rest of the line; an empty marker when the line starts otherwise.
std::pair<QString, QString> splitEmojiMarker(const QString &line);

class ConsoleLineDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit ConsoleLineDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QFont emojiFont(const QFont &base) const;
    // Colour emoji glyphs are compressed bitmaps that the font engine
    // unpacks on every draw; a chatty console draws the same few markers
    // over and over, so each is drawn once per size and kept.
    const QPixmap &markerPixmap(const QString &marker, const QFont &base, qreal dpr) const;

    mutable QHash<QString, QPixmap> m_markers;
};

} // namespace orvanta
