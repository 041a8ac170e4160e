// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The shared configuration file ~/.config/orvanta/config.json: where it is
// (with the carry-over from the product's earlier folder names), reading it
// as a JSON object, writing it back in place, and the typed value rules.
// Used synchronously on the main thread; every failure is silent.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

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
    // or not an object.
    std::optional<QJsonObject> read() const;
    // Serializes `object` and writes it over the primary file in place.
    // Returns false on failure, which callers ignore.
    bool write(const QJsonObject &object);

    // How many times write() succeeded: lets tests see that a start-up
    // rewrites the file exactly once.
    int writeCount() const { return m_writeCount; }

    // Lossless conversions; none when the value does not convert.
    static std::optional<qint64> toWholeNumber(const QJsonValue &value);
    static std::optional<bool> toBoolean(const QJsonValue &value);
    static std::optional<double> toReal(const QJsonValue &value);
    static std::optional<QString> toString(const QJsonValue &value);

private:
    QString m_homeDir;
    int m_writeCount = 0;
};

} // namespace orvanta
