// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The shared configuration file ~/.config/orvanta/config.json: where it is
// (with the carry-over from the product's earlier folder names), reading it
// as a JSON object, writing it whole through a temporary file, and the typed
// value rules. Used on the main thread; large files are written on a thread
// of its own. Failures are silent except that an unreadable file is kept.
#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace orvanta {

class ConfigStore
{
public:
    // `homeDir` defaults to the user's home directory ($HOME).
    explicit ConfigStore(QString homeDir = {});

    QString homeDir() const { return m_homeDir; }
    QString primaryPath() const;
    QStringList legacyPaths() const; // in the order they are tried

    // The primary path. When no file is there yet, the first legacy file
    // found is copied to it (the legacy file stays). Errors are ignored.
    QString configPath() const;

    // The file's top-level object; none when missing, unreadable, malformed
    // or not an object. A file that is there but cannot be used is first
    // copied to "config.json.broken-<time>" beside it (see brokenFileKept),
    // so the save that follows loses nothing the user wrote. The file is
    // parsed again only when it changed since this store last read or wrote
    // it; a write still under way counts as the file's content.
    std::optional<QJsonObject> read() const;
    // Serializes `object` and replaces the primary file with it through a
    // temporary file renamed into place, so a full disk or a crash leaves
    // the old file whole. Small files are written before this returns;
    // large ones on the writer thread, where a newer object replaces one
    // still waiting. Returns false on a failed (small) write, which callers
    // ignore.
    bool write(const QJsonObject &object);
    // Waits until every write handed over has reached the disk.
    void flush() const;

    // Called with the backup's path when an unreadable file was kept.
    void setBrokenFileHandler(std::function<void(const QString &backupPath)> handler);

    // How many writes were handed over: lets tests see that a start-up
    // rewrites the file exactly once.
    int writeCount() const { return m_writeCount; }

    // Files up to this size are written synchronously.
    static constexpr qint64 kSynchronousWriteBytes = 1 << 20;

    // Lossless conversions; none when the value does not convert.
    static std::optional<qint64> toWholeNumber(const QJsonValue &value);
    static std::optional<bool> toBoolean(const QJsonValue &value);
    static std::optional<double> toReal(const QJsonValue &value);
    static std::optional<QString> toString(const QJsonValue &value);

private:
    struct Shared;
    void keepBrokenFile(const QString &path, qint64 size, const QDateTime &time) const;
    QString m_homeDir;
    int m_writeCount = 0;
    std::shared_ptr<Shared> m_shared;
};

} // namespace orvanta
