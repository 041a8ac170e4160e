// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "StateDatabase.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

const char *const kSchema = R"(
CREATE TABLE IF NOT EXISTS processed_files (
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
    rating INTEGER,
    colour_residual REAL
);
CREATE INDEX IF NOT EXISTS idx_processed_files_status ON processed_files(status);
CREATE INDEX IF NOT EXISTS idx_processed_files_processed_at ON processed_files(processed_at);
CREATE INDEX IF NOT EXISTS idx_processed_files_stem ON processed_files(stem);
CREATE INDEX IF NOT EXISTS idx_processed_files_peak_stops ON processed_files(peak_stops);
CREATE INDEX IF NOT EXISTS idx_processed_files_num_faces ON processed_files(num_faces);
CREATE INDEX IF NOT EXISTS idx_processed_files_duration ON processed_files(duration_sec);
CREATE INDEX IF NOT EXISTS idx_processed_files_rating ON processed_files(rating);
CREATE INDEX IF NOT EXISTS idx_processed_files_output ON processed_files(output_path);
)";

void bindText(sqlite3_stmt *st, int index, const std::optional<QString> &value)
{
    if (!value) {
        sqlite3_bind_null(st, index);
        return;
    }
    const QByteArray utf8 = value->toUtf8();
    sqlite3_bind_text(st, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

void bindDouble(sqlite3_stmt *st, int index, std::optional<double> value)
{
    value ? sqlite3_bind_double(st, index, *value) : sqlite3_bind_null(st, index);
}

void bindInt(sqlite3_stmt *st, int index, std::optional<int> value)
{
    value ? sqlite3_bind_int(st, index, *value) : sqlite3_bind_null(st, index);
}

} // namespace

StateDatabase::~StateDatabase()
{
    if (m_db)
        sqlite3_close(m_db);
}

QString StateDatabase::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + u"/Orvanta/pipeline_state.db"_s;
}

bool StateDatabase::exec(const char *sql)
{
    char *message = nullptr;
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, &message) == SQLITE_OK)
        return true;
    m_error = QString::fromUtf8(message ? message : "unknown SQLite error");
    sqlite3_free(message);
    return false;
}

bool StateDatabase::open(const QString &path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    const QByteArray file = path.toUtf8();
    if (sqlite3_open_v2(file.constData(), &m_db,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, nullptr)
        != SQLITE_OK) {
        m_error = QString::fromUtf8(sqlite3_errmsg(m_db));
        sqlite3_close(m_db);
        m_db = nullptr;
        return false;
    }
    sqlite3_busy_timeout(m_db, 5000);
    return exec("PRAGMA journal_mode=WAL;") && exec("PRAGMA synchronous=NORMAL;") && exec(kSchema)
        && addMissingColumns();
}

// Databases written before a column existed get it, empty for their rows.
bool StateDatabase::addMissingColumns()
{
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(m_db, "SELECT colour_residual FROM processed_files LIMIT 0", -1, &st,
                           nullptr)
        == SQLITE_OK) {
        sqlite3_finalize(st);
        return true;
    }
    sqlite3_finalize(st);
    return exec("ALTER TABLE processed_files ADD COLUMN colour_residual REAL;");
}

bool StateDatabase::isDelivered(const QString &fingerprint)
{
    std::lock_guard lock(m_mutex);
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(m_db,
                           "SELECT output_path FROM processed_files WHERE fingerprint = ? "
                           "AND status = 'SUCCESS'",
                           -1, &st, nullptr)
        != SQLITE_OK)
        return false;
    bindText(st, 1, fingerprint);
    bool delivered = false;
    if (sqlite3_step(st) == SQLITE_ROW) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(st, 0));
        delivered = text && QFileInfo::exists(QString::fromUtf8(text));
    }
    sqlite3_finalize(st);
    return delivered;
}

std::optional<QString> StateDatabase::stemForOutput(const QString &outputPath)
{
    std::lock_guard lock(m_mutex);
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(m_db,
                           "SELECT stem FROM processed_files WHERE output_path = ? "
                           "ORDER BY processed_at DESC LIMIT 1",
                           -1, &st, nullptr)
        != SQLITE_OK)
        return std::nullopt;
    bindText(st, 1, outputPath);
    std::optional<QString> stem;
    if (sqlite3_step(st) == SQLITE_ROW)
        stem = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(st, 0)));
    sqlite3_finalize(st);
    return stem;
}

bool StateDatabase::write(const ProcessedRow &row)
{
    std::lock_guard lock(m_mutex);
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(m_db,
                           "INSERT OR REPLACE INTO processed_files (fingerprint, stem, raw_path, "
                           "jpg_path, output_path, status, peak_stops, num_faces, raw_clip_pct, "
                           "processed_at, duration_sec, error_message, rating, colour_residual) "
                           "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?,?)",
                           -1, &st, nullptr)
        != SQLITE_OK) {
        m_error = QString::fromUtf8(sqlite3_errmsg(m_db));
        return false;
    }
    bindText(st, 1, row.fingerprint);
    bindText(st, 2, row.stem);
    bindText(st, 3, row.rawPath);
    bindText(st, 4, row.jpgPath);
    bindText(st, 5, row.outputPath);
    bindText(st, 6, row.status);
    bindDouble(st, 7, row.peakStops);
    bindInt(st, 8, row.numFaces);
    bindDouble(st, 9, row.rawClipPct);
    bindText(st, 10, row.processedAt);
    bindDouble(st, 11, row.durationSec);
    bindText(st, 12, row.errorMessage);
    bindInt(st, 13, row.rating);
    bindDouble(st, 14, row.colourResidual);
    const bool ok = sqlite3_step(st) == SQLITE_DONE;
    if (!ok)
        m_error = QString::fromUtf8(sqlite3_errmsg(m_db));
    sqlite3_finalize(st);
    return ok;
}

QString timestampNow()
{
    return QDateTime::currentDateTime().toString(u"yyyy-MM-ddTHH:mm:ss"_s);
}

} // namespace orvanta::engine
