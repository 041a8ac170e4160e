// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Decoded thumbnails by key ("<path>_<maxPixelSize>"), bounded both by entry
// count and by pixel bytes (width × height × 4), least recently used evicted
// first. Every member is safe to call from any thread.
#pragma once

#include <QHash>
#include <QImage>
#include <QMutex>
#include <QString>

#include <list>
#include <optional>

namespace orvanta {

class ThumbnailCache
{
public:
    static constexpr int DefaultCountLimit = 150;
    static constexpr qint64 DefaultCostLimit = 30 * 1048576; // 30 MiB

    explicit ThumbnailCache(int countLimit = DefaultCountLimit,
                            qint64 costLimit = DefaultCostLimit);

    // The bytes an image counts for: width × height × 4 whatever its format.
    static qint64 costOf(const QImage &image);

    // A hit also marks the entry as most recently used.
    std::optional<QImage> find(const QString &key);
    bool contains(const QString &key) const;
    // Replaces an entry with the same key, then evicts until both limits hold.
    // An image that alone exceeds the cost limit is not stored (returns false).
    bool insert(const QString &key, const QImage &image);
    void remove(const QString &key);
    void clear();

    int count() const;
    qint64 totalCost() const;
    int countLimit() const { return m_countLimit; }
    qint64 costLimit() const { return m_costLimit; }

private:
    struct Entry
    {
        QString key;
        QImage image;
        qint64 cost;
    };
    using Order = std::list<Entry>; // most recently used first

    void eraseLocked(Order::iterator it);

    const int m_countLimit;
    const qint64 m_costLimit;
    mutable QMutex m_mutex;
    Order m_order;
    QHash<QString, Order::iterator> m_index;
    qint64 m_totalCost = 0;
};

} // namespace orvanta
