// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryTestDatabase.h"

#include "db/ProcessedFiles.h"

#include <QDateTime>
#include <QFile>
#include <QMutex>
#include <QtTest>

#include <sqlite3.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

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
    : m_db(
        db::open(QFile::encodeName(path).constData(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE))
{
    if (!m_db)
        qFatal("cannot create the test database %s", qPrintable(path));
    std::string error;
    const bool made = schema == Schema::NoTable
        || (schema == Schema::Engine ? db::createProcessedFiles(m_db.get(), &error)
                                     : db::exec(m_db.get(), kUnconstrainedTable, &error));
    if (!made)
        qFatal("cannot make the table in %s: %s", qPrintable(path), error.c_str());
}

TestDatabase::~TestDatabase() = default;

void TestDatabase::close()
{
    m_db.reset();
}

bool TestDatabase::exec(const QString &sql)
{
    std::string error;
    if (db::exec(m_db.get(), sql.toUtf8().constData(), &error))
        return true;
    qWarning("test database: %s", error.c_str());
    return false;
}

void TestDatabase::insert(const Row &row)
{
    const db::Statement prepared = db::prepare(
        m_db.get(),
        "INSERT INTO processed_files (fingerprint, stem, raw_path, jpg_path, output_path, status, "
        "peak_stops, num_faces, raw_clip_pct, processed_at, duration_sec, error_message, rating) "
        "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
    sqlite3_stmt *const statement = prepared.get();
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
        qWarning("test database: insert failed: %s", sqlite3_errmsg(m_db.get()));
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
    const QByteArray sql = (u"SELECT COUNT(*) FROM processed_files "_s + where).toUtf8();
    const db::Statement statement = db::prepare(m_db.get(), sql.constData());
    return statement && sqlite3_step(statement.get()) == SQLITE_ROW
        ? sqlite3_column_int64(statement.get(), 0)
        : -1;
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
