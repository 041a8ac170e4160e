// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Thumbnails for the history rows: picks the file (output, else fallback),
// answers from a bounded memory cache, and otherwise decodes on one serial
// loader thread, newest request first, delivering on the main thread.
// The manager itself lives on the main thread.
#pragma once

#include "thumbnails/ThumbnailCache.h"
#include "thumbnails/ThumbnailResult.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QThreadPool>

#include <functional>
#include <memory>
#include <optional>

namespace orvanta {

class ThumbnailManager : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(const ThumbnailResult &)>;
    // Decodes one file; runs on the loader thread.
    using Decoder = std::function<ThumbnailResult(const QString &path, int maxPixelSize)>;
    using Ticket = quint64; // 0: answered at once, nothing to cancel

    static constexpr int DefaultMaxPixelSize = 160;

    static ThumbnailManager &shared();

    explicit ThumbnailManager(QObject *parent = nullptr);
    // `decoder` replaces the real one (tests use it to hold the loader).
    explicit ThumbnailManager(Decoder decoder, QObject *parent = nullptr);
    ~ThumbnailManager() override;

    // A missing file or a cache hit calls `completion` before returning, with
    // Ticket 0. Otherwise the file is queued and `completion` later runs on
    // the main thread, unless `context` (when given) has been destroyed by
    // then or the ticket was cancelled. The decoded image is cached either way.
    Ticket loadThumbnail(const QString &targetPath, const QString &fallbackPath, int maxPixelSize,
                         QObject *context, Completion completion);

    // Drops the completion of a request whose row left the view. Returns true
    // when the file had not been decoded yet and now never will be.
    bool cancel(Ticket ticket);

    // The file a request reads: the target when it names an existing file,
    // else the fallback under the same rule; a null string when neither does.
    static QString chooseFile(const QString &targetPath, const QString &fallbackPath);
    // "<path>_<maxPixelSize>_<mtime ms>_<bytes>": a rewritten file is a new entry.
    static QString cacheKey(const QString &path, int maxPixelSize);
    // The pixel size a view of `points` requests on a double-density screen:
    // the larger side × 2, truncated. None for a non-finite or absurd size.
    static std::optional<int> pixelSizeForView(QSizeF points);

    ThumbnailCache &cache();
    // Requests queued and not yet taken by the loader.
    int pendingCount() const;
    // Files the loader has decoded (cache hits excluded).
    int decodeCount() const;

private:
    struct Waiter
    {
        QPointer<QObject> context;
        bool hasContext = false;
        Completion completion;
    };
    struct Loader;

    void deliver(Ticket ticket, const ThumbnailResult &result);

    std::shared_ptr<Loader> m_loader;
    QThreadPool m_pool; // declared last: destroyed (and joined) first
    QHash<Ticket, Waiter> m_waiters;
    Ticket m_nextTicket = 1;
};

} // namespace orvanta
