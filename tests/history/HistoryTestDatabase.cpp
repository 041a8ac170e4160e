// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryTestDatabase.h"

#include <QDateTime>
#include <QFile>
#include <QMutex>
#include <QtTest>

#include <sqlite3.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

const char *const kEngineTable = R"(
CREATE TABLE processed_files (
    fingerprint TEXT PRIMARY KEY NOT NULL,
    stem TEXT NOT NULL,
    raw_path TEXT,
    jpg_path TEXT,
    output_path TEXT,
    status TEXT NOT NULL,
    peak_stops REAL,
    num_faces INTEGER,
    raw_clip_pct REAL,
    processed_at TEXT NOT NULL,
    duration_sec REAL,
    error_message TEXT,
    rating INTEGER
))";

const char *const kUnconstrainedTable = R"(
CREATE TABLE processed_files (
    fingerprint, stem, raw_path, jpg_path, output_path, status, peak_stops,
    num_faces, raw_clip_pct, processed_at, duration_sec, error_message, rating
))";

void bindText(sqlite3_stmt *statement, int index, const std::optional<QString> &value)
{
    if (!value) {
        sqlite3_bind_null(statement, index);
        return;
    }
    const QByteArray utf8 = value->toUtf8();
    sqlite3_bind_text(statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void bindDouble(sqlite3_stmt *statement, int index, std::optional<double> value)
{
    value ? sqlite3_bind_double(statement, index, *value) : sqlite3_bind_null(statement, index);
}

void bindInt(sqlite3_stmt *statement, int index, std::optional<qint64> value)
{
    value ? sqlite3_bind_int64(statement, index, *value) : sqlite3_bind_null(statement, index);
}

QMutex logMutex;
QStringList logged;

int traceStatement(unsigned, void *, void *statement, void *)
{
    const QString sql = QString::fromUtf8(sqlite3_sql(static_cast<sqlite3_stmt *>(statement)));
    const QMutexLocker lock(&logMutex);
    logged << sql;
    return 0;
}

int traceNewConnection(sqlite3 *db, const char **, const void *)
{
    sqlite3_trace_v2(db, SQLITE_TRACE_STMT, traceStatement, nullptr);
    return SQLITE_OK;
}

} // namespace

TestDatabase::TestDatabase(const QString &path, Schema schema)
{
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &m_db,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    if (rc != SQLITE_OK)
        qFatal("cannot create the test database %s", qPrintable(path));
    sqlite3_busy_timeout(m_db, 5000);
    if (schema != Schema::NoTable)
        exec(QString::fromLatin1(schema == Schema::Engine ? kEngineTable : kUnconstrainedTable));
}

TestDatabase::~TestDatabase()
{
    close();
}

void TestDatabase::close()
{
    sqlite3_close_v2(m_db);
    m_db = nullptr;
}

bool TestDatabase::exec(const QString &sql)
{
    char *error = nullptr;
    const int rc = sqlite3_exec(m_db, sql.toUtf8().constData(), nullptr, nullptr, &error);
    if (rc != SQLITE_OK)
        qWarning("test database: %s", error);
    sqlite3_free(error);
    return rc == SQLITE_OK;
}

void TestDatabase::insert(const Row &row)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(m_db, "INSERT INTO processed_files VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)", -1,
                       &statement, nullptr);
    bindText(statement, 1, row.fingerprint);
    bindText(statement, 2, row.stem ? row.stem : row.fingerprint);
    bindText(statement, 3, row.rawPath);
    bindText(statement, 4, row.jpgPath);
    bindText(statement, 5, row.outputPath);
    bindText(statement, 6, row.status);
    bindDouble(statement, 7, row.peakStops);
    bindInt(statement, 8, row.numFaces);
    bindDouble(statement, 9, row.rawClipPct);
    bindText(statement, 10, row.processedAt);
    bindDouble(statement, 11, row.durationSec);
    bindText(statement, 12, row.errorMessage);
    bindInt(statement, 13, row.rating);
    if (sqlite3_step(statement) != SQLITE_DONE)
        qWarning("test database: insert failed: %s", sqlite3_errmsg(m_db));
    sqlite3_finalize(statement);
}

void TestDatabase::insertNumbered(int count, const QString &stemPrefix)
{
    const QDateTime start(QDate(2026, 1, 1), QTime(8, 0), Qt::UTC);
    exec(u"BEGIN"_s);
    for (int i = 0; i < count; ++i) {
        Row row;
        row.fingerprint = u"fp%1"_s.arg(i, 4, 10, QLatin1Char('0'));
        row.stem = stemPrefix + u"%1"_s.arg(i, 4, 10, QLatin1Char('0'));
        row.processedAt = start.addSecs(i).toString(Qt::ISODate);
        row.durationSec = 1.0 + i % 7;
        insert(row);
    }
    exec(u"COMMIT"_s);
}

qint64 TestDatabase::count(const QString &where)
{
    sqlite3_stmt *statement = nullptr;
    const QByteArray sql = (u"SELECT COUNT(*) FROM processed_files "_s + where).toUtf8();
    sqlite3_prepare_v2(m_db, sql.constData(), -1, &statement, nullptr);
    const qint64 result
        = sqlite3_step(statement) == SQLITE_ROW ? sqlite3_column_int64(statement, 0) : -1;
    sqlite3_finalize(statement);
    return result;
}

void StatementLog::install()
{
    // The void(*)(void) type is SQLite's generic entry-point type.
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(traceNewConnection));
}

void StatementLog::clear()
{
    const QMutexLocker lock(&logMutex);
    logged.clear();
}

QStringList StatementLog::statements()
{
    const QMutexLocker lock(&logMutex);
    return logged;
}

qsizetype StatementLog::countStartingWith(const QString &prefix)
{
    const QMutexLocker lock(&logMutex);
    return std::count_if(logged.cbegin(), logged.cend(),
                         [&](const QString &sql) { return sql.startsWith(prefix); });
}

} // namespace orvanta::test
