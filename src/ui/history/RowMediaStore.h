// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the history rows show beside the record: the 76-pixel thumbnail and
// the photo's metadata. Loaded only for rows that are painted; rows that
// leave the view give up what they asked for. Main thread; decoding and
// metadata reading run on background threads.
#pragma once

#include "history/HistoryTypes.h"
#include "media/ProPhotoMetadata.h"
#include "thumbnails/ThumbnailManager.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSet>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace orvanta {

class RowMediaStore : public QObject
{
    Q_OBJECT

public:
    static constexpr int RowThumbnailPixels = 76; // a 38 × 22 point cell at double density

    enum class ThumbState { Loading, Image, Missing, DecodeError };
    struct Thumb
    {
        ThumbState state = ThumbState::Loading;
        QImage image;
    };

    explicit RowMediaStore(ThumbnailManager &thumbnails, QObject *parent = nullptr);
    ~RowMediaStore() override;

    // The row's thumbnail as far as it is known; asks for it the first time.
    Thumb thumbnail(const PhotoRecord &record);
    // The row's metadata, or none yet; asks for it the first time.
    const ProPhotoMetadata *metadata(const PhotoRecord &record);

    // Cancels every request of a row not in `visible` and forgets it.
    void retainOnly(const QSet<QString> &visible);
    // Forgets everything (a new list, new files).
    void clear();

    int pendingThumbnails() const { return int(m_tickets.size()); }
    int pendingMetadata() const { return int(m_metaJobs.size()); }
    int cancelledCount() const { return m_cancelled; }

Q_SIGNALS:
    void rowChanged(const QString &fingerprint);

private:
    void requestMetadata(const PhotoRecord &record);
    void forgetIfChanged(const PhotoRecord &record);

    ThumbnailManager &m_thumbnails;
    QHash<QString, Thumb> m_thumbs;
    QHash<QString, ThumbnailManager::Ticket> m_tickets;
    QHash<QString, ProPhotoMetadata> m_metadata;
    QHash<QString, PhotoRecord> m_records; // the record each row's media was loaded for
    QHash<QString, std::shared_ptr<std::atomic_bool>> m_metaJobs; // cancel flags
    QThreadPool m_metaPool;
    int m_cancelled = 0;
};

// The file the metadata of a record is read from: its output, else its JPG,
// else its RAW, the first that names an existing file; null when none does.
QString metadataPathOf(const PhotoRecord &record);

} // namespace orvanta
