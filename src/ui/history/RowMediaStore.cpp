// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/RowMediaStore.h"

#include "history/HistoryTypes.h"
#include "media/MetadataService.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

namespace orvanta {

QString metadataPathOf(const PhotoRecord &record)
{
    for (const auto *path : { &record.outputPath, &record.jpgPath, &record.rawPath }) {
        if (path->has_value() && !(*path)->isEmpty() && QFileInfo(**path).isFile())
            return **path;
    }
    return {};
}

RowMediaStore::RowMediaStore(ThumbnailManager &thumbnails, QObject *parent)
    : QObject(parent)
    , m_thumbnails(thumbnails)
{
    // Metadata reads are mostly file I/O; two at a time keeps a fast scroll
    // from flooding the disk while leaving a core for the interface.
    m_metaPool.setMaxThreadCount(2);
}

RowMediaStore::~RowMediaStore()
{
    clear();
    m_metaPool.waitForDone();
}

void RowMediaStore::forgetIfChanged(const PhotoRecord &record)
{
    // A reprocessed photo keeps its fingerprint but gets a new record: what
    // was loaded for the old one (picture, metadata) no longer describes it.
    const auto seen = m_records.constFind(record.id());
    if (seen == m_records.constEnd()) {
        m_records.insert(record.id(), record);
        return;
    }
    if (*seen == record)
        return;
    m_records.insert(record.id(), record);
    if (const auto ticket = m_tickets.constFind(record.id()); ticket != m_tickets.constEnd())
        m_thumbnails.cancel(*ticket);
    if (const auto job = m_metaJobs.constFind(record.id()); job != m_metaJobs.constEnd())
        (*job)->store(true);
    m_tickets.remove(record.id());
    m_metaJobs.remove(record.id());
    m_thumbs.remove(record.id());
    m_metadata.remove(record.id());
}

RowMediaStore::Thumb RowMediaStore::thumbnail(const PhotoRecord &record)
{
    forgetIfChanged(record);
    const QString id = record.id();
    auto it = m_thumbs.constFind(id);
    if (it != m_thumbs.constEnd())
        return *it;
    m_thumbs.insert(id, Thumb {});
    const ThumbnailManager::Ticket ticket = m_thumbnails.loadThumbnail(
        record.outputPath.value_or(QString()), record.jpgPath.value_or(QString()),
        RowThumbnailPixels, this, [this, id](const ThumbnailResult &result) {
            m_tickets.remove(id);
            if (!m_thumbs.contains(id))
                return;
            Thumb thumb;
            switch (result.kind()) {
            case ThumbnailResult::Kind::Success:
                thumb = { ThumbState::Image, result.image() };
                break;
            case ThumbnailResult::Kind::MissingOnDisk:
                thumb.state = ThumbState::Missing;
                break;
            case ThumbnailResult::Kind::DecodeError:
                thumb.state = ThumbState::DecodeError;
                break;
            }
            m_thumbs.insert(id, thumb);
            Q_EMIT rowChanged(id);
        });
    if (ticket != 0)
        m_tickets.insert(id, ticket);
    return m_thumbs.value(id);
}

const ProPhotoMetadata *RowMediaStore::metadata(const PhotoRecord &record)
{
    forgetIfChanged(record);
    auto it = m_metadata.constFind(record.id());
    if (it != m_metadata.constEnd())
        return &*it;
    if (!m_metaJobs.contains(record.id()))
        requestMetadata(record);
    return nullptr;
}

void RowMediaStore::requestMetadata(const PhotoRecord &record)
{
    auto cancelled = std::make_shared<std::atomic_bool>(false);
    m_metaJobs.insert(record.id(), cancelled);
    QPointer<RowMediaStore> self(this);
    const QString id = record.id();
    const PhotoRecord copy = record;
    m_metaPool.start([self, id, copy, cancelled] {
        if (*cancelled)
            return; // the row left the view before its turn came
        const QString path = metadataPathOf(copy);
        ProPhotoMetadata metadata
            = path.isEmpty() ? ProPhotoMetadata() : MetadataService::shared().extractMetadata(path);
        QMetaObject::invokeMethod(
            qApp,
            [self, id, cancelled, metadata = std::move(metadata)] {
                if (!self || *cancelled)
                    return;
                self->m_metaJobs.remove(id);
                self->m_metadata.insert(id, metadata);
                Q_EMIT self->rowChanged(id);
            },
            Qt::QueuedConnection);
    });
}

void RowMediaStore::retainOnly(const QSet<QString> &visible)
{
    for (auto it = m_tickets.begin(); it != m_tickets.end();) {
        if (visible.contains(it.key())) {
            ++it;
            continue;
        }
        m_thumbnails.cancel(it.value());
        m_thumbs.remove(it.key());
        ++m_cancelled;
        it = m_tickets.erase(it);
    }
    for (auto it = m_metaJobs.begin(); it != m_metaJobs.end();) {
        if (visible.contains(it.key())) {
            ++it;
            continue;
        }
        it.value()->store(true);
        ++m_cancelled;
        it = m_metaJobs.erase(it);
    }
    // Finished rows far away are dropped too, so memory follows the view
    // rather than everything ever scrolled past; the thumbnail cache keeps
    // the recent images for a quick return.
    if (m_thumbs.size() > 400) {
        for (auto it = m_thumbs.begin(); it != m_thumbs.end();)
            it = visible.contains(it.key()) ? std::next(it) : m_thumbs.erase(it);
    }
    if (m_metadata.size() > 2000) {
        for (auto it = m_metadata.begin(); it != m_metadata.end();)
            it = visible.contains(it.key()) ? std::next(it) : m_metadata.erase(it);
    }
    if (m_records.size() > 2000) {
        for (auto it = m_records.begin(); it != m_records.end();)
            it = visible.contains(it.key()) ? std::next(it) : m_records.erase(it);
    }
}

void RowMediaStore::clear()
{
    for (ThumbnailManager::Ticket ticket : std::as_const(m_tickets))
        m_thumbnails.cancel(ticket);
    for (const auto &flag : std::as_const(m_metaJobs))
        flag->store(true);
    m_tickets.clear();
    m_metaJobs.clear();
    m_thumbs.clear();
    m_metadata.clear();
    m_records.clear();
}

} // namespace orvanta
