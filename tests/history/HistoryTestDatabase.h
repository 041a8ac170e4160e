// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Builds real state databases for the history tests: the engine's table,
// rows with chosen values, locks held from a second connection, and a log
// of every statement any connection in the process runs.
#pragma once

#include "db/Sqlite.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta::test {

// One row of `processed_files`; unset optionals are stored as NULL.
struct Row
{
    QString fingerprint;
    std::optional<QString> stem;
    std::optional<QString> status = QStringLiteral("SUCCESS");
    std::optional<QString> processedAt = QStringLiteral("2026-01-01T00:00:00");
    std::optional<QString> rawPath;
    std::optional<QString> jpgPath;
    std::optional<QString> outputPath;
    std::optional<double> peakStops;
    std::optional<qint64> numFaces;
    std::optional<double> rawClipPct;
    std::optional<double> durationSec;
    std::optional<QString> errorMessage;
    std::optional<qint64> rating;
};

// A connection of the test's own to a database file, outside the code
// under test.
class TestDatabase
{
public:
    enum class Schema {
        Engine, // the engine's table, with its NOT NULL columns
        Unconstrained, // same columns, nothing enforced (a damaged or foreign file)
        NoTable // no table made: a foreign database, or a file that already has one
    };

    explicit TestDatabase(const QString &path, Schema schema = Schema::Engine);
    ~TestDatabase();
    TestDatabase(const TestDatabase &) = delete;
    TestDatabase &operator=(const TestDatabase &) = delete;

    void insert(const Row &row);
    // `count` rows "fp0000".. with stems "<stemPrefix>0000".., all successful.
    void insertNumbered(int count, const QString &stemPrefix = QStringLiteral("IMG_"));
    bool exec(const QString &sql);
    qint64 count(const QString &where = {});
    void close();

private:
    db::Connection m_db;
};

// Records the text of every statement run by any connection opened after
// install(); thread-safe.
namespace StatementLog {
void install();
void clear();
QStringList statements();
qsizetype countStartingWith(const QString &prefix);
} // namespace StatementLog

} // namespace orvanta::test
