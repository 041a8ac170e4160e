// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/PhotoDocumentCache.h"

#include <QCoreApplication>
#include <QPointer>

#include <bit>

namespace orvanta {

namespace {

// The read behind one stage, on a pool thread.
PhotoDocument::Outcome read(const PhotoReader &reader, const QString &path, StageKey key)
{
    const auto wrap = [](auto result) {
        return PhotoDocument::Outcome { std::move(result.value), std::move(result.error) };
    };
    switch (key.stage) {
    case PhotoStage::Metadata:
        return wrap(reader.metadata(path));
    case PhotoStage::GainMap:
        return wrap(reader.gainMap(path));
    case PhotoStage::SdrRendition:
    case PhotoStage::HdrRendition:
        return wrap(reader.rendition(path, key.stage == PhotoStage::HdrRendition));
    case PhotoStage::Histogram: {
        const float peak = std::bit_cast<float>(quint32(key.param));
        return wrap(reader.histogram(path, peak == 0.0f ? std::nullopt : std::optional(peak)));
    }
    case PhotoStage::Preview:
        return wrap(reader.preview(path, QSize(int(key.param >> 32), int(key.param & 0xffffffff))));
    }
    return {};
}

} // namespace

PhotoDocumentCache::PhotoDocumentCache(std::shared_ptr<const PhotoReader> reader, QObject *parent)
    : QObject(parent)
    , m_reader(reader ? std::move(reader) : std::make_shared<PhotoReader>())
{
    m_readPool.setMaxThreadCount(2);
    m_readPool.setObjectName(QStringLiteral("PhotoDocumentReads"));
    m_decodePool.setMaxThreadCount(1);
    m_decodePool.setObjectName(QStringLiteral("PhotoDocumentDecodes"));
}

PhotoDocumentCache::~PhotoDocumentCache()
{
    // The jobs post their results to this object: let them finish first.
    m_readPool.clear();
    m_decodePool.clear();
    m_readPool.waitForDone();
    m_decodePool.waitForDone();
    // Reads that never ran never call back: drop their waiters, which may
    // hold their document (a picture pair does) and would keep it for ever.
    for (const std::weak_ptr<PhotoDocument> &weak : m_reading) {
        if (const std::shared_ptr<PhotoDocument> document = weak.lock()) {
            for (auto &[key, slot] : document->m_slots)
                slot.waiters.clear();
        }
    }
}

PhotoDocumentCache &PhotoDocumentCache::shared()
{
    static QPointer<PhotoDocumentCache> instance;
    if (!instance) // owned by the application, so it goes before the app does
        instance = new PhotoDocumentCache({}, QCoreApplication::instance());
    return *instance;
}

std::shared_ptr<PhotoDocument> PhotoDocumentCache::document(const QString &path)
{
    FileIdentity identity = FileIdentity::of(path);
    if (identity.path.isEmpty())
        return std::make_shared<PhotoDocument>(identity, this);
    for (auto it = m_documents.begin(); it != m_documents.end(); ++it) {
        if ((*it)->path() != identity.path)
            continue;
        if ((*it)->identity() == identity) {
            m_documents.splice(m_documents.begin(), m_documents, it);
            return m_documents.front();
        }
        // Rewritten since: views still holding the old one keep what they show.
        m_documents.erase(it);
        break;
    }
    m_documents.push_front(std::make_shared<PhotoDocument>(std::move(identity), this));
    const std::shared_ptr<PhotoDocument> made = m_documents.front();
    trim();
    return made;
}

void PhotoDocumentCache::start(PhotoDocument &document, StageKey key)
{
    const bool decode
        = key.stage == PhotoStage::SdrRendition || key.stage == PhotoStage::HdrRendition;
    QThreadPool &pool = decode ? m_decodePool : m_readPool;
    std::erase_if(m_reading, [](const auto &weak) { return weak.expired(); });
    m_reading.push_back(document.weak_from_this());
    pool.start(
        [this, reader = m_reader, path = document.path(), key, weak = document.weak_from_this()] {
            PhotoDocument::Outcome outcome = read(*reader, path, key);
            QMetaObject::invokeMethod(
                this,
                [this, weak, key, outcome = std::move(outcome)]() mutable {
                    if (const std::shared_ptr<PhotoDocument> loaded = weak.lock())
                        loaded->finish(key, std::move(outcome));
                    trim(); // the new pixels may take the cache over its bound
                },
                Qt::QueuedConnection);
        });
}

qint64 PhotoDocumentCache::decodedBytes() const
{
    qint64 bytes = 0;
    for (const auto &document : m_documents)
        bytes += document->decodedBytes();
    return bytes;
}

void PhotoDocumentCache::setMaxBytes(qint64 bytes)
{
    m_maxBytes = bytes;
    trim();
}

void PhotoDocumentCache::setReader(std::shared_ptr<const PhotoReader> reader)
{
    m_reader = reader ? std::move(reader) : std::make_shared<PhotoReader>();
    m_documents.clear();
}

void PhotoDocumentCache::trim()
{
    qint64 bytes = decodedBytes();
    // Oldest first; a document a view still holds stays whatever it costs.
    for (auto it = m_documents.end(); it != m_documents.begin();) {
        --it;
        if (bytes <= m_maxBytes && int(m_documents.size()) <= kMaxDocuments)
            return;
        if (it->use_count() > 1)
            continue;
        bytes -= (*it)->decodedBytes();
        it = m_documents.erase(it);
    }
}

} // namespace orvanta
