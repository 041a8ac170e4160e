// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Hands out the one PhotoDocument of a file and keeps recent ones, bounded by
// the bytes of decoded pixels they hold: the least recently used documents
// that no view holds any more go first. Owns the pools the stages are read
// on (never Qt's global pool, which the raster painter needs). Main thread.
#pragma once

#include "document/PhotoDocument.h"

#include <QObject>
#include <QThreadPool>

#include <list>
#include <memory>

namespace orvanta {

class PhotoDocumentCache : public QObject
{
    Q_OBJECT

public:
    // Room for the renditions of about two compare pairs of 12-megapixel photos.
    static constexpr qint64 kDefaultMaxBytes = 512ll << 20;
    static constexpr int kMaxDocuments = 64; // documents without pixels still cost a little

    explicit PhotoDocumentCache(std::shared_ptr<const PhotoReader> reader = {},
                                QObject *parent = nullptr);
    ~PhotoDocumentCache() override;

    // The application's cache, every view's unless told otherwise.
    static PhotoDocumentCache &shared();

    // The document of the file at `path` as it is now on disk. An empty path
    // gives a document of no file, whose stages all fail.
    std::shared_ptr<PhotoDocument> document(const QString &path);

    void setMaxBytes(qint64 bytes);
    // Reads through `reader` from now on and forgets every document read before.
    void setReader(std::shared_ptr<const PhotoReader> reader);
    qint64 decodedBytes() const;
    int documentCount() const { return int(m_documents.size()); }

private:
    friend class PhotoDocument;
    void start(PhotoDocument &document, StageKey key);
    void trim();

    std::shared_ptr<const PhotoReader> m_reader;
    std::list<std::shared_ptr<PhotoDocument>> m_documents; // most recently used first
    std::vector<std::weak_ptr<PhotoDocument>> m_reading; // documents a job was started for
    qint64 m_maxBytes = kDefaultMaxBytes;
    // Small reads (metadata, gain map, histogram, preview) apart from full
    // decodes, so the inspector fills in while the compare window decodes.
    // One decode at a time: the decoder already uses every core, and two
    // full-size renditions at once would double the peak memory.
    QThreadPool m_readPool;
    QThreadPool m_decodePool;
};

} // namespace orvanta
