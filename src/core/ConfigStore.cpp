// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/ConfigStore.h"

#include "base/JsonWriter.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>
#include <QThreadPool>
#include <QVariant>

#include <cmath>
#include <mutex>

namespace orvanta {

using namespace Qt::StringLiterals;

struct ConfigStore::Shared
{
    Shared() { pool.setMaxThreadCount(1); }
    ~Shared() { pool.waitForDone(); }

    // Everything below is guarded by `mutex`; the pool writes one object at
    // a time, always the newest handed over.
    std::mutex mutex;
    std::optional<QJsonObject> pending;
    bool writing = false;
    bool lastWriteOk = true;
    // What this store last read or handed over, and the file's size and
    // time when it matched that object.
    std::optional<QJsonObject> known;
    qint64 knownSize = -1;
    QDateTime knownTime;
    // The size and time of the unreadable file last kept, so it is kept once.
    qint64 brokenSize = -1;
    QDateTime brokenTime;
    std::function<void(const QString &)> onBroken;
    QThreadPool pool;
};

namespace {

bool writeWhole(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

QString brokenCopyPath(const QString &path)
{
    const QString base
        = path + u".broken-"_s + QDateTime::currentDateTime().toString(u"yyyyMMdd-HHmmss"_s);
    QString candidate = base;
    for (int n = 2; QFileInfo::exists(candidate); ++n)
        candidate = base + u'-' + QString::number(n);
    return candidate;
}

} // namespace

ConfigStore::ConfigStore(QString homeDir)
    : m_homeDir(homeDir.isEmpty() ? QDir::homePath() : std::move(homeDir))
    , m_shared(std::make_shared<Shared>())
{
}

void ConfigStore::setBrokenFileHandler(std::function<void(const QString &)> handler)
{
    std::lock_guard lock(m_shared->mutex);
    m_shared->onBroken = std::move(handler);
}

void ConfigStore::flush() const
{
    m_shared->pool.waitForDone();
}

QString ConfigStore::primaryPath() const
{
    return m_homeDir + u"/.config/orvanta/config.json"_s;
}

QStringList ConfigStore::legacyPaths() const
{
    return { m_homeDir + u"/.config/pemvira/config.json"_s,
             m_homeDir + u"/.config/dravik/config.json"_s,
             m_homeDir + u"/.config/tarne/config.json"_s };
}

QString ConfigStore::configPath() const
{
    const QString primary = primaryPath();
    if (QFileInfo::exists(primary))
        return primary;
    for (const QString &legacy : legacyPaths()) {
        if (!QFileInfo::exists(legacy))
            continue;
        QDir().mkpath(QFileInfo(primary).absolutePath());
        QFile::copy(legacy, primary);
        break;
    }
    return primary;
}

std::optional<QJsonObject> ConfigStore::read() const
{
    const QString path = configPath();
    Shared &sh = *m_shared;
    {
        std::lock_guard lock(sh.mutex);
        if (sh.pending || sh.writing)
            return sh.known; // what is being written is the newest content
    }
    const QFileInfo info(path);
    if (!info.exists())
        return std::nullopt;
    const qint64 size = info.size();
    const QDateTime time = info.lastModified();
    {
        std::lock_guard lock(sh.mutex);
        if (sh.known && size == sh.knownSize && time == sh.knownTime)
            return sh.known; // unchanged since we read or wrote it: no parse
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QJsonParseError error {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        keepBrokenFile(path, size, time);
        return std::nullopt;
    }
    std::lock_guard lock(sh.mutex);
    sh.known = document.object();
    sh.knownSize = size;
    sh.knownTime = time;
    return sh.known;
}

void ConfigStore::keepBrokenFile(const QString &path, qint64 size, const QDateTime &time) const
{
    Shared &sh = *m_shared;
    std::function<void(const QString &)> onBroken;
    {
        std::lock_guard lock(sh.mutex);
        // An empty file holds nothing to keep; the same broken file is kept once.
        if (size == 0 || (size == sh.brokenSize && time == sh.brokenTime))
            return;
        sh.brokenSize = size;
        sh.brokenTime = time;
        onBroken = sh.onBroken;
    }
    const QString copy = brokenCopyPath(path);
    if (QFile::copy(path, copy) && onBroken)
        onBroken(copy);
}

bool ConfigStore::write(const QJsonObject &object)
{
    const QString path = configPath();
    ++m_writeCount;
    Shared &sh = *m_shared;
    bool startWriter = false;
    bool synchronous = false;
    {
        std::lock_guard lock(sh.mutex);
        sh.known = object;
        sh.pending = object;
        synchronous = sh.knownSize < kSynchronousWriteBytes;
        startWriter = !sh.writing;
        sh.writing = true;
    }
    if (startWriter) {
        const std::shared_ptr<Shared> shared = m_shared;
        sh.pool.start([shared, path] {
            for (;;) {
                QJsonObject next;
                {
                    std::lock_guard lock(shared->mutex);
                    if (!shared->pending) {
                        shared->writing = false;
                        return;
                    }
                    next = *std::exchange(shared->pending, std::nullopt);
                }
                const bool ok = writeWhole(path, prettyJson(next));
                const QFileInfo info(path);
                std::lock_guard lock(shared->mutex);
                shared->lastWriteOk = ok;
                if (ok) {
                    shared->knownSize = info.size();
                    shared->knownTime = info.lastModified();
                }
            }
        });
    }
    if (!synchronous)
        return true;
    flush();
    std::lock_guard lock(sh.mutex);
    return sh.lastWriteOk;
}

std::optional<qint64> ConfigStore::toWholeNumber(const QJsonValue &value)
{
    if (!value.isDouble())
        return std::nullopt;
    const QVariant variant = value.toVariant();
    if (variant.typeId() == QMetaType::LongLong)
        return variant.toLongLong();
    const double d = value.toDouble();
    // Whole and inside the 64-bit range (2^63 itself is already outside).
    if (!std::isfinite(d) || d != std::trunc(d) || d >= 9223372036854775808.0
        || d < -9223372036854775808.0)
        return std::nullopt;
    return qint64(d);
}

std::optional<bool> ConfigStore::toBoolean(const QJsonValue &value)
{
    if (value.isBool())
        return value.toBool();
    if (value.isDouble()) {
        const double d = value.toDouble();
        if (d == 1.0)
            return true;
        if (d == 0.0)
            return false;
    }
    return std::nullopt;
}

std::optional<double> ConfigStore::toReal(const QJsonValue &value)
{
    if (!value.isDouble())
        return std::nullopt;
    return value.toDouble();
}

std::optional<QString> ConfigStore::toString(const QJsonValue &value)
{
    if (!value.isString())
        return std::nullopt;
    return value.toString();
}

} // namespace orvanta
