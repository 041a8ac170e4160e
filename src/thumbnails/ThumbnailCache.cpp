// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/ThumbnailCache.h"

namespace orvanta {

ThumbnailCache::ThumbnailCache(int countLimit, qint64 costLimit)
    : m_countLimit(countLimit)
    , m_costLimit(costLimit)
{
}

qint64 ThumbnailCache::costOf(const QImage &image)
{
    // Both factors are ints, so the product cannot overflow 64 bits.
    return qint64(image.width()) * qint64(image.height()) * 4;
}

std::optional<QImage> ThumbnailCache::find(const QString &key)
{
    const QMutexLocker lock(&m_mutex);
    const auto it = m_index.constFind(key);
    if (it == m_index.constEnd())
        return std::nullopt;
    m_order.splice(m_order.begin(), m_order, *it);
    return m_order.front().image;
}

bool ThumbnailCache::contains(const QString &key) const
{
    const QMutexLocker lock(&m_mutex);
    return m_index.contains(key);
}

bool ThumbnailCache::insert(const QString &key, const QImage &image)
{
    const qint64 cost = costOf(image);
    const QMutexLocker lock(&m_mutex);
    if (const auto it = m_index.constFind(key); it != m_index.constEnd())
        eraseLocked(*it);
    if (cost > m_costLimit || m_countLimit < 1)
        return false;
    while (!m_order.empty()
           && (int(m_order.size()) >= m_countLimit || m_totalCost + cost > m_costLimit))
        eraseLocked(std::prev(m_order.end()));
    m_order.push_front(Entry { key, image, cost });
    m_index.insert(key, m_order.begin());
    m_totalCost += cost;
    return true;
}

void ThumbnailCache::remove(const QString &key)
{
    const QMutexLocker lock(&m_mutex);
    if (const auto it = m_index.constFind(key); it != m_index.constEnd())
        eraseLocked(*it);
}

void ThumbnailCache::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_order.clear();
    m_index.clear();
    m_totalCost = 0;
}

int ThumbnailCache::count() const
{
    const QMutexLocker lock(&m_mutex);
    return int(m_order.size());
}

qint64 ThumbnailCache::totalCost() const
{
    const QMutexLocker lock(&m_mutex);
    return m_totalCost;
}

void ThumbnailCache::eraseLocked(Order::iterator it)
{
    m_totalCost -= it->cost;
    m_index.remove(it->key);
    m_order.erase(it);
}

} // namespace orvanta
