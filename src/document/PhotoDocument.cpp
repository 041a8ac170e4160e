// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/PhotoDocument.h"

#include "document/PhotoDocumentCache.h"

#include <QDateTime>
#include <QFileInfo>

#include <bit>

namespace orvanta {

using namespace Qt::StringLiterals;

FileIdentity FileIdentity::of(const QString &path)
{
    FileIdentity identity;
    if (path.isEmpty())
        return identity;
    const QFileInfo info(path);
    identity.path = info.absoluteFilePath();
    identity.exists = info.isFile();
    if (identity.exists) {
        identity.size = info.size();
        identity.modifiedMs = info.lastModified().toMSecsSinceEpoch();
    }
    return identity;
}

StageKey StageKey::histogram(std::optional<double> peakStops)
{
    // The counting takes the peak as a float and an absent peak as 0, so
    // those are the histograms that can differ.
    return { PhotoStage::Histogram, std::bit_cast<quint32>(float(peakStops.value_or(0.0))) };
}

StageKey StageKey::preview(QSize bounds)
{
    return { PhotoStage::Preview,
             (quint64(quint32(bounds.width())) << 32) | quint32(bounds.height()) };
}

PhotoDocument::PhotoDocument(FileIdentity identity, PhotoDocumentCache *cache)
    : m_identity(std::move(identity))
    , m_cache(cache)
{
}

void PhotoDocument::load(StageKey key, QObject *context, Done done)
{
    Slot &slot = m_slots[key];
    if (slot.status == StageStatus::Loaded || slot.status == StageStatus::Failed) {
        if (context)
            done();
        return;
    }
    slot.waiters.push_back({ context, std::move(done) });
    if (slot.status == StageStatus::Loading)
        return; // joins the read already under way
    slot.status = StageStatus::Loading;
    if (!m_identity.exists || !m_cache) {
        finish(key, { {}, m_identity.path.isEmpty() ? u"No file"_s : u"No such file"_s });
        return;
    }
    m_cache->start(*this, key);
}

void PhotoDocument::finish(StageKey key, Outcome outcome)
{
    Slot &slot = m_slots[key];
    slot.status = outcome.error.isEmpty() ? StageStatus::Loaded : StageStatus::Failed;
    if (!outcome.error.isEmpty())
        outcome.value = {}; // a failed stage holds the empty value, whatever came back
    slot.outcome = std::move(outcome);
    const std::vector<Waiter> waiters = std::move(slot.waiters);
    slot.waiters.clear();
    // A waiter may drop the last reference to this document: keep it alive.
    const std::shared_ptr<PhotoDocument> self = weak_from_this().lock();
    for (const Waiter &waiter : waiters) {
        if (waiter.context)
            waiter.done();
    }
}

StageStatus PhotoDocument::status(StageKey key) const
{
    const auto it = m_slots.find(key);
    return it == m_slots.end() ? StageStatus::NotLoaded : it->second.status;
}

QString PhotoDocument::error(StageKey key) const
{
    const auto it = m_slots.find(key);
    return it == m_slots.end() ? QString() : it->second.outcome.error;
}

qint64 PhotoDocument::decodedBytes() const
{
    qint64 bytes = 0;
    for (const auto &[key, slot] : m_slots) {
        if (const auto *r = std::get_if<Rendition>(&slot.outcome.value))
            bytes += r->image.sizeInBytes();
        else if (const auto *image = std::get_if<QImage>(&slot.outcome.value))
            bytes += image->sizeInBytes();
    }
    return bytes;
}

} // namespace orvanta
