// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "thumbnails/ThumbnailManager.h"

#include "media/ExivAdapter.h"
#include "thumbnails/ThumbnailDecoder.h"

#include <QDateTime>
#include <QFileInfo>
#include <QMutex>
#include <QThread>
#include <QThreadPool>

#include <cmath>
#include <deque>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct Job
{
    ThumbnailManager::Ticket ticket;
    QString path;
    int maxPixelSize;
    QString key;
};

} // namespace

// Shared between the manager (main thread) and the loader thread.
struct ThumbnailManager::Loader
{
    explicit Loader(Decoder d)
        : decoder(std::move(d))
    {
    }

    const Decoder decoder;
    ThumbnailCache cache;

    mutable QMutex mutex;
    std::deque<Job> pending; // newest at the back
    bool draining = false;
    bool stopping = false;
    int decoded = 0;

    std::optional<Job> takeNewest()
    {
        const QMutexLocker lock(&mutex);
        if (stopping || pending.empty()) {
            draining = false;
            return std::nullopt;
        }
        Job job = std::move(pending.back());
        pending.pop_back();
        return job;
    }
};

ThumbnailManager &ThumbnailManager::shared()
{
    static ThumbnailManager instance;
    return instance;
}

ThumbnailManager::ThumbnailManager(QObject *parent)
    : ThumbnailManager(Decoder(decodeThumbnail), parent)
{
}

ThumbnailManager::ThumbnailManager(Decoder decoder, QObject *parent)
    : QObject(parent)
    , m_loader(std::make_shared<Loader>(std::move(decoder)))
{
    exiv::initializeExiv2();
    // One thread: decodes run one after another, which bounds the loader's
    // memory to a single image in flight.
    m_pool.setMaxThreadCount(1);
    m_pool.setObjectName(u"com.kobar.orvanta.thumbnail-loader"_s);
}

ThumbnailManager::~ThumbnailManager()
{
    {
        const QMutexLocker lock(&m_loader->mutex);
        m_loader->stopping = true;
        m_loader->pending.clear();
    }
    // At most the one decode in progress is waited for, so the loader never
    // posts to a manager that is already gone.
    m_pool.waitForDone();
}

QString ThumbnailManager::chooseFile(const QString &targetPath, const QString &fallbackPath)
{
    for (const QString &path : { targetPath, fallbackPath }) {
        if (!path.isEmpty() && QFileInfo(path).isFile())
            return path;
    }
    return {};
}

QString ThumbnailManager::cacheKey(const QString &path, int maxPixelSize)
{
    // The file's identity is part of the key: a photo reprocessed at the same
    // path has another modification time or size, so its old picture is
    // never served again.
    const QFileInfo info(path);
    return path + u'_' + QString::number(maxPixelSize) + u'_'
        + QString::number(info.lastModified().toMSecsSinceEpoch()) + u'_'
        + QString::number(info.size());
}

std::optional<int> ThumbnailManager::pixelSizeForView(QSizeF points)
{
    const double pixels = std::max(points.width(), points.height()) * 2.0;
    if (!std::isfinite(pixels) || pixels < 1.0 || pixels > 65536.0)
        return std::nullopt;
    return int(pixels);
}

ThumbnailCache &ThumbnailManager::cache()
{
    return m_loader->cache;
}

int ThumbnailManager::pendingCount() const
{
    const QMutexLocker lock(&m_loader->mutex);
    return int(m_loader->pending.size());
}

int ThumbnailManager::decodeCount() const
{
    const QMutexLocker lock(&m_loader->mutex);
    return m_loader->decoded;
}

ThumbnailManager::Ticket ThumbnailManager::loadThumbnail(const QString &targetPath,
                                                         const QString &fallbackPath,
                                                         int maxPixelSize, QObject *context,
                                                         Completion completion)
{
    Q_ASSERT(QThread::currentThread() == thread());
    const QString path = chooseFile(targetPath, fallbackPath);
    if (path.isNull()) {
        completion(ThumbnailResult::missingOnDisk());
        return 0;
    }
    const QString key = cacheKey(path, maxPixelSize);
    if (std::optional<QImage> hit = m_loader->cache.find(key)) {
        completion(ThumbnailResult::success(std::move(*hit)));
        return 0;
    }

    const Ticket ticket = m_nextTicket++;
    m_waiters.insert(ticket, Waiter { context, context != nullptr, std::move(completion) });
    bool startDrain = false;
    {
        const QMutexLocker lock(&m_loader->mutex);
        m_loader->pending.push_back(Job { ticket, path, maxPixelSize, key });
        startDrain = !std::exchange(m_loader->draining, true);
    }
    if (startDrain) {
        m_pool.start([loader = m_loader, this] {
            while (std::optional<Job> job = loader->takeNewest()) {
                // A request queued twice is decoded once: the second finds the first's result.
                std::optional<QImage> cached = loader->cache.find(job->key);
                ThumbnailResult result = cached ? ThumbnailResult::success(std::move(*cached))
                                                : loader->decoder(job->path, job->maxPixelSize);
                if (!cached) {
                    const QMutexLocker lock(&loader->mutex);
                    ++loader->decoded;
                }
                if (!cached && result.isSuccess())
                    loader->cache.insert(job->key, result.image());
                // Queued with the manager as context: dropped if it is destroyed first.
                QMetaObject::invokeMethod(
                    this,
                    [this, ticket = job->ticket, result = std::move(result)] {
                        deliver(ticket, result);
                    },
                    Qt::QueuedConnection);
            }
        });
    }
    return ticket;
}

bool ThumbnailManager::cancel(Ticket ticket)
{
    if (!m_waiters.remove(ticket))
        return false;
    const QMutexLocker lock(&m_loader->mutex);
    auto &pending = m_loader->pending;
    const auto it = std::find_if(pending.begin(), pending.end(),
                                 [ticket](const Job &job) { return job.ticket == ticket; });
    if (it == pending.end())
        return false;
    pending.erase(it);
    return true;
}

void ThumbnailManager::deliver(Ticket ticket, const ThumbnailResult &result)
{
    const auto it = m_waiters.find(ticket);
    if (it == m_waiters.end())
        return; // cancelled
    const Waiter waiter = std::move(*it);
    m_waiters.erase(it);
    if (waiter.hasContext && !waiter.context)
        return;
    waiter.completion(result);
}

} // namespace orvanta
