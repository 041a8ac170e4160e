// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryService.h"

#include "db/Sqlite.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThreadPool>

#include <memory>
#include <sqlite3.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// The historical (and smallest) limit on bound parameters per statement;
// longer deletes are split into statements of at most this many fingerprints.
constexpr qsizetype kMaxDeleteParameters = 999;

using db::Connection;
using db::Statement;

// How long a read waits for another connection's lock. Reads run on a pool
// of two threads, so a long wait would hold up every other history read;
// the caller retries a busy read later instead of waiting here.
constexpr int kReadBusyTimeoutMs = 250;

bool isBusyCode(int rc)
{
    const int primary = rc & 0xff;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED;
}

// Records a lock seen by the last call on `db` (a failed prepare) or by `rc`
// (a step's result).
void noteBusy(HistoryReadStatus *status, sqlite3 *db, int rc = SQLITE_OK)
{
    if (status && (isBusyCode(rc) || (db && isBusyCode(sqlite3_extended_errcode(db)))))
        status->busy = true;
}

// Never creates the file: the engine owns the database and its schema. A
// file we may not write is still read.
Connection openDatabase(const QString &dbPath, bool allowReadOnly)
{
    if (dbPath.isEmpty() || !QFileInfo::exists(dbPath))
        return nullptr;
    const QByteArray path = QFile::encodeName(dbPath);
    Connection db = db::open(path.constData(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX);
    if (!db && allowReadOnly)
        db = db::open(path.constData(), SQLITE_OPEN_READONLY | SQLITE_OPEN_FULLMUTEX);
    if (db && allowReadOnly)
        sqlite3_busy_timeout(db.get(), kReadBusyTimeoutMs);
    return db;
}

Statement prepare(sqlite3 *db, const QString &sql)
{
    const QByteArray utf8 = sql.toUtf8();
    return db::prepare(db, std::string_view(utf8.constData(), size_t(utf8.size())));
}

// Binds without a copy (SQLITE_STATIC): the caller keeps `text` alive until
// the statement is finalized.
void bindText(sqlite3_stmt *statement, int index, const QByteArray &text)
{
    sqlite3_bind_text(statement, index, text.constData(), int(text.size()), SQLITE_STATIC);
}

bool isNull(sqlite3_stmt *statement, int column)
{
    return sqlite3_column_type(statement, column) == SQLITE_NULL;
}

QString columnText(sqlite3_stmt *statement, int column)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

std::optional<QString> optionalText(sqlite3_stmt *statement, int column)
{
    if (isNull(statement, column))
        return std::nullopt;
    return columnText(statement, column);
}

std::optional<double> optionalDouble(sqlite3_stmt *statement, int column)
{
    if (isNull(statement, column))
        return std::nullopt;
    return sqlite3_column_double(statement, column);
}

// One row of the page query. The engine's schema never leaves fingerprint,
// stem, status or processed_at empty; a row that does comes from a damaged
// or foreign database and is skipped.
std::optional<PhotoRecord> readRecord(sqlite3_stmt *statement)
{
    for (int required : { 0, 1, 5, 9 }) {
        if (isNull(statement, required))
            return std::nullopt;
    }
    PhotoRecord record;
    record.fingerprint = columnText(statement, 0);
    record.stem = columnText(statement, 1);
    record.rawPath = optionalText(statement, 2);
    record.jpgPath = optionalText(statement, 3);
    record.outputPath = optionalText(statement, 4);
    record.status = columnText(statement, 5);
    record.peakStops = optionalDouble(statement, 6);
    if (!isNull(statement, 7))
        record.numFaces = sqlite3_column_int64(statement, 7);
    record.rawClipPct = optionalDouble(statement, 8);
    record.processedAt = columnText(statement, 9);
    record.durationSec = optionalDouble(statement, 10);
    record.errorMessage = optionalText(statement, 11);
    record.rating = isNull(statement, 12) ? 0 : sqlite3_column_int64(statement, 12);
    return record;
}

// The WHERE clause shared by the page and count queries, with its text
// parameters in binding order. The user's "%" and "_" are LIKE wildcards on
// purpose: they are not escaped.
struct Filter
{
    QString clause;
    QList<QByteArray> parameters; // alive until the statement is finalized

    Filter(const std::optional<QString> &query, const std::optional<QString> &statusFilter)
    {
        QStringList conditions;
        if (query) {
            const QString trimmed = query->trimmed();
            if (!trimmed.isEmpty()) {
                conditions << u"stem LIKE ?"_s;
                parameters << QString(u'%' + trimmed + u'%').toUtf8();
            }
        }
        if (statusFilter && (*statusFilter == "SUCCESS"_L1 || *statusFilter == "FAILED"_L1)) {
            conditions << u"status = ?"_s;
            parameters << statusFilter->toUtf8();
        }
        if (!conditions.isEmpty())
            clause = u"WHERE "_s + conditions.join(" AND "_L1);
    }

    void bind(sqlite3_stmt *statement) const
    {
        for (qsizetype i = 0; i < parameters.size(); ++i)
            bindText(statement, int(i + 1), parameters[i]);
    }
};

QString sortColumn(const QString &sortField)
{
    if (sortField == "peakStops"_L1)
        return u"peak_stops"_s;
    if (sortField == "faces"_L1)
        return u"num_faces"_s;
    if (sortField == "duration"_L1)
        return u"duration_sec"_s;
    if (sortField == "stem"_L1)
        return u"stem"_s;
    if (sortField == "rating"_L1)
        return u"rating"_s;
    return u"processed_at"_s;
}

QString deleteStatement(qsizetype count)
{
    QString placeholders;
    placeholders.reserve(count * 2);
    for (qsizetype i = 0; i < count; ++i)
        placeholders += i == 0 ? "?"_L1 : ",?"_L1;
    return u"DELETE FROM processed_files WHERE fingerprint IN ("_s + placeholders + u')';
}

void deleteChunk(sqlite3 *db, const QList<QByteArray> &fingerprints)
{
    Statement statement = prepare(db, deleteStatement(fingerprints.size()));
    if (!statement)
        return;
    for (qsizetype i = 0; i < fingerprints.size(); ++i)
        bindText(statement.get(), int(i + 1), fingerprints[i]);
    sqlite3_step(statement.get()); // a failed delete leaves the rows; the next refresh shows them
}

} // namespace

QThreadPool &HistoryService::pool()
{
    // Never destroyed: a worker may still wait on a file or a lock when the
    // application exits, and nothing should wait for it then.
    static QThreadPool *const pool = [] {
        auto *p = new QThreadPool;
        p->setObjectName(QStringLiteral("orvanta.history"));
        p->setMaxThreadCount(2);
        return p;
    }();
    return *pool;
}

QString HistoryService::defaultDbPath()
{
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (base.isEmpty())
        base = QDir::homePath() + u"/.local/share"_s;
    const QString primary = base + u"/Orvanta/pipeline_state.db"_s;
    if (QFileInfo::exists(primary))
        return primary;

    // Earlier product names kept the database in their own folders. The
    // first one found is copied (never moved, so the old version keeps
    // working); failures are ignored and the current path is used anyway.
    for (const auto legacyFolder : { "Pemvira"_L1, "Dravik"_L1, "Tarne"_L1 }) {
        const QString legacy = base + u'/' + legacyFolder + u"/pipeline_state.db"_s;
        if (!QFileInfo::exists(legacy))
            continue;
        QDir().mkpath(QFileInfo(primary).absolutePath());
        // Rows not yet checkpointed out of a write-ahead log live in the -wal
        // file next to it; bring that along so none are lost.
        if (QFile::copy(legacy, primary) && QFileInfo::exists(legacy + u"-wal"_s))
            QFile::copy(legacy + u"-wal"_s, primary + u"-wal"_s);
        break;
    }
    return primary;
}

HistoryService::HistoryService()
    : HistoryService(defaultDbPath())
{
}

HistoryService::HistoryService(QString dbPath)
    : m_dbPath(std::move(dbPath))
{
}

QList<PhotoRecord> HistoryService::fetchRecords(int limit, int offset,
                                                const std::optional<QString> &query,
                                                const std::optional<QString> &statusFilter,
                                                const QString &sortField, bool sortAscending,
                                                HistoryReadStatus *status) const
{
    const Connection db = openDatabase(m_dbPath, true);
    if (!db)
        return {};

    const Filter filter(query, statusFilter);
    const QString sql = u"SELECT fingerprint, stem, raw_path, jpg_path, output_path, status,\n"
                        "       peak_stops, num_faces, raw_clip_pct, processed_at, duration_sec, "
                        "error_message,\n"
                        "       COALESCE(rating, 0)\n"
                        "FROM processed_files\n"_s
        + filter.clause + u"\nORDER BY "_s + sortColumn(sortField) + u' '
        + (sortAscending ? "ASC"_L1 : "DESC"_L1) + u" NULLS LAST\nLIMIT ? OFFSET ?"_s;
    const Statement statement = prepare(db.get(), sql);
    if (!statement) {
        noteBusy(status, db.get());
        return {};
    }

    filter.bind(statement.get());
    const int next = int(filter.parameters.size()) + 1;
    sqlite3_bind_int(statement.get(), next, limit);
    sqlite3_bind_int(statement.get(), next + 1, offset);

    QList<PhotoRecord> records;
    records.reserve(qMax(0, limit));
    // Any result other than a row ends the page: a step error mid-way
    // returns what was read so far.
    int rc = SQLITE_ROW;
    while ((rc = sqlite3_step(statement.get())) == SQLITE_ROW) {
        if (std::optional<PhotoRecord> record = readRecord(statement.get()))
            records << std::move(*record);
    }
    noteBusy(status, nullptr, rc);
    return records;
}

qint64 HistoryService::fetchCount(const std::optional<QString> &query,
                                  const std::optional<QString> &statusFilter,
                                  HistoryReadStatus *status) const
{
    const Connection db = openDatabase(m_dbPath, true);
    if (!db)
        return 0;
    const Filter filter(query, statusFilter);
    const Statement statement
        = prepare(db.get(), u"SELECT COUNT(*) FROM processed_files "_s + filter.clause);
    if (!statement) {
        noteBusy(status, db.get());
        return 0;
    }
    filter.bind(statement.get());
    if (const int rc = sqlite3_step(statement.get()); rc != SQLITE_ROW) {
        noteBusy(status, nullptr, rc);
        return 0;
    }
    return sqlite3_column_int64(statement.get(), 0);
}

DashboardStats HistoryService::fetchStats(HistoryReadStatus *status) const
{
    DashboardStats stats;
    const Connection db = openDatabase(m_dbPath, true);
    if (!db)
        return stats;

    if (const Statement totals
        = prepare(db.get(),
                  u"SELECT COUNT(*), SUM(CASE WHEN status='SUCCESS' THEN 1 ELSE 0 END), "
                  "SUM(CASE WHEN status='FAILED' THEN 1 ELSE 0 END), AVG(CASE WHEN "
                  "status='SUCCESS' THEN duration_sec ELSE NULL END) FROM processed_files"_s)) {
        // SUM and AVG of no rows are NULL, which read as 0.
        const int rc = sqlite3_step(totals.get());
        if (rc == SQLITE_ROW) {
            stats.total = sqlite3_column_int64(totals.get(), 0);
            stats.success = sqlite3_column_int64(totals.get(), 1);
            stats.failed = sqlite3_column_int64(totals.get(), 2);
            stats.avgDurationSec = sqlite3_column_double(totals.get(), 3);
        }
        noteBusy(status, nullptr, rc);
    } else {
        noteBusy(status, db.get());
    }
    if (const Statement latest = prepare(
            db.get(),
            u"SELECT processed_at FROM processed_files ORDER BY processed_at DESC LIMIT 1"_s)) {
        if (sqlite3_step(latest.get()) == SQLITE_ROW && !isNull(latest.get(), 0))
            stats.lastProcessedAt = columnText(latest.get(), 0);
    }
    return stats;
}

void HistoryService::deleteRecords(const QStringList &fingerprints) const
{
    if (fingerprints.isEmpty())
        return;
    const Connection db = openDatabase(m_dbPath, false); // deleting needs write access
    if (!db)
        return;

    QList<QByteArray> utf8;
    utf8.reserve(fingerprints.size());
    for (const QString &fingerprint : fingerprints)
        utf8 << fingerprint.toUtf8();

    if (utf8.size() <= kMaxDeleteParameters) {
        deleteChunk(db.get(), utf8);
        return;
    }
    // A very long selection goes in several statements, inside one
    // transaction so that the engine never sees half of it.
    sqlite3_exec(db.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (qsizetype start = 0; start < utf8.size(); start += kMaxDeleteParameters)
        deleteChunk(db.get(), utf8.mid(start, kMaxDeleteParameters));
    sqlite3_exec(db.get(), "COMMIT", nullptr, nullptr, nullptr);
}

} // namespace orvanta
