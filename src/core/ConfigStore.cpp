// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/ConfigStore.h"

#include "base/JsonWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QVariant>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

ConfigStore::ConfigStore(QString homeDir)
    : m_homeDir(homeDir.isEmpty() ? QDir::homePath() : std::move(homeDir))
{
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
    QFile file(configPath());
    if (!file.exists() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QJsonParseError error {};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    return document.object();
}

bool ConfigStore::write(const QJsonObject &object)
{
    const QString path = configPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    // In place, not through a temporary file: the engine and other tools of
    // the installation may hold the path, and the file's identity is kept.
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const QByteArray bytes = prettyJson(object);
    if (file.write(bytes) != bytes.size())
        return false;
    ++m_writeCount;
    return true;
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
