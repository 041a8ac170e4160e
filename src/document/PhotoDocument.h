// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One photo file, loaded in stages on demand and shared by every view that
// shows it (inspector, histogram, quick preview, compare window), so a file
// is read once per stage however many views ask. Main thread only; the
// stages are read on the pools of the PhotoDocumentCache that made it.
#pragma once

#include "document/PhotoReader.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <map>
#include <memory>
#include <variant>

namespace orvanta {

class PhotoDocumentCache;

// Which file a document was read from: the same path rewritten by a new run
// has another size or modification time, so it is another document.
struct FileIdentity
{
    QString path;
    qint64 size = -1;
    qint64 modifiedMs = 0;
    bool exists = false;

    static FileIdentity of(const QString &path);
    bool operator==(const FileIdentity &) const = default;
};

enum class PhotoStage { Metadata, GainMap, SdrRendition, HdrRendition, Histogram, Preview };
enum class StageStatus { NotLoaded, Loading, Loaded, Failed };

// A stage and, for the histogram and the preview, what it was asked with.
struct StageKey
{
    StageKey(PhotoStage which, quint64 with = 0)
        : stage(which)
        , param(with)
    {
    }
    static StageKey histogram(std::optional<double> peakStops);
    static StageKey preview(QSize bounds);
    auto operator<=>(const StageKey &) const = default;

    PhotoStage stage;
    quint64 param;
};

class PhotoDocument : public std::enable_shared_from_this<PhotoDocument>
{
public:
    using Done = std::function<void()>;
    using Value = std::variant<std::monostate, ProPhotoMetadata, GainMapSummary, Rendition,
                               HDRHistogramData, QImage>;
    struct Outcome
    {
        Value value;
        QString error;
    };

    PhotoDocument(FileIdentity identity, PhotoDocumentCache *cache);

    const FileIdentity &identity() const { return m_identity; }
    const QString &path() const { return m_identity.path; }

    // Starts reading the stage unless it is loaded or being read, and calls
    // `done` on the main thread once it has loaded or failed: at once when
    // it already has. Nothing is called once `context` is gone.
    void load(StageKey key, QObject *context, Done done);

    StageStatus status(StageKey key) const;
    QString error(StageKey key) const; // why the stage failed; empty otherwise
    // Each stage's value; the empty value until it has loaded, and after a failure.
    ProPhotoMetadata metadata() const { return value<ProPhotoMetadata>(PhotoStage::Metadata); }
    GainMapSummary gainMap() const { return value<GainMapSummary>(PhotoStage::GainMap); }
    Rendition rendition(bool hdr) const
    {
        return value<Rendition>(hdr ? PhotoStage::HdrRendition : PhotoStage::SdrRendition);
    }
    HDRHistogramData histogram(std::optional<double> peakStops) const
    {
        return value<HDRHistogramData>(StageKey::histogram(peakStops));
    }
    QImage preview(QSize bounds) const { return value<QImage>(StageKey::preview(bounds)); }

    // Bytes of decoded pixels held: what the cache's bound counts.
    qint64 decodedBytes() const;

private:
    friend class PhotoDocumentCache;
    struct Waiter
    {
        QPointer<QObject> context;
        Done done;
    };
    struct Slot
    {
        StageStatus status = StageStatus::NotLoaded;
        Outcome outcome;
        std::vector<Waiter> waiters;
    };

    template<typename T> T value(StageKey key) const
    {
        const auto it = m_slots.find(key);
        const T *v = it == m_slots.end() ? nullptr : std::get_if<T>(&it->second.outcome.value);
        return v ? *v : T {};
    }
    void finish(StageKey key, Outcome outcome);

    FileIdentity m_identity;
    QPointer<PhotoDocumentCache> m_cache;
    std::map<StageKey, Slot> m_slots;
};

} // namespace orvanta
