// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "BenchDatabase.h"

#include <QDateTime>
#include <QFile>
#include <QRandomGenerator>

#include <sqlite3.h>

namespace orvanta::bench {

namespace {

const char *const kTable = R"(
CREATE TABLE processed_files (
    fingerprint TEXT PRIMARY KEY NOT NULL, stem TEXT NOT NULL, raw_path TEXT, jpg_path TEXT,
    output_path TEXT, status TEXT NOT NULL, peak_stops REAL, num_faces INTEGER,
    raw_clip_pct REAL, processed_at TEXT NOT NULL, duration_sec REAL, error_message TEXT,
    rating INTEGER))";

const char *const kIndexes = R"(
CREATE INDEX idx_processed_at ON processed_files(processed_at);
CREATE INDEX idx_peak_stops ON processed_files(peak_stops);
CREATE INDEX idx_num_faces ON processed_files(num_faces);
CREATE INDEX idx_duration ON processed_files(duration_sec);
CREATE INDEX idx_stem ON processed_files(stem);
CREATE INDEX idx_rating ON processed_files(rating);
CREATE INDEX idx_status ON processed_files(status);)";

void bindOptionalDouble(sqlite3_stmt *s, int i, bool present, double value)
{
    present ? sqlite3_bind_double(s, i, value) : sqlite3_bind_null(s, i);
}

// Rows like a photographer's archive: a few camera naming schemes, one pair
// in ten failed, optional measurements sometimes missing.
} // namespace

bool generate(const QString &path, int rows, bool indexed)
{
    QFile::remove(path);
    sqlite3 *db = nullptr;
    if (sqlite3_open(QFile::encodeName(path).constData(), &db) != SQLITE_OK)
        return false;
    sqlite3_exec(db, "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF;", nullptr, nullptr, nullptr);
    sqlite3_exec(db, kTable, nullptr, nullptr, nullptr);
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt *insert = nullptr;
    sqlite3_prepare_v2(db, "INSERT INTO processed_files VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)", -1,
                       &insert, nullptr);
    QRandomGenerator random(42);
    const QDateTime start(QDate(2023, 1, 1), QTime(0, 0), Qt::UTC);
    qint64 seconds = 0;
    for (int i = 0; i < rows; ++i) {
        static const char *const prefixes[] = { "DSC", "IMG_", "_MG_", "P" };
        const QByteArray stem = QByteArray(prefixes[random.bounded(4)])
            + QByteArray::number(random.bounded(100000)).rightJustified(5, '0');
        const QByteArray fingerprint
            = QByteArray::number(random.generate64(), 16) + QByteArray::number(i, 16);
        const QByteArray raw
            = "/home/ana/Pictures/2024/card" + QByteArray::number(i / 500) + '/' + stem + ".ARW";
        const QByteArray jpg = raw.chopped(4) + ".JPG";
        const QByteArray out = "/home/ana/Pictures/UltraHDR/" + stem + "_hdr.jpg";
        const bool failed = random.bounded(10) == 0;
        seconds += 1 + random.bounded(30);
        const QByteArray at = start.addSecs(seconds).toString(Qt::ISODate).toUtf8();

        sqlite3_bind_text(insert, 1, fingerprint.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 2, stem.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 3, raw.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 4, jpg.constData(), -1, SQLITE_TRANSIENT);
        failed ? sqlite3_bind_null(insert, 5)
               : sqlite3_bind_text(insert, 5, out.constData(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(insert, 6, failed ? "FAILED" : "SUCCESS", -1, SQLITE_STATIC);
        bindOptionalDouble(insert, 7, !failed && random.bounded(20) != 0, random.bounded(6.0));
        random.bounded(3) == 0 ? sqlite3_bind_null(insert, 8)
                               : sqlite3_bind_int(insert, 8, random.bounded(6));
        bindOptionalDouble(insert, 9, random.bounded(10) != 0, random.bounded(2.0));
        sqlite3_bind_text(insert, 10, at.constData(), -1, SQLITE_TRANSIENT);
        bindOptionalDouble(insert, 11, random.bounded(50) != 0, 1.0 + random.bounded(20.0));
        failed ? sqlite3_bind_text(insert, 12, "gain map: headroom out of range", -1, SQLITE_STATIC)
               : sqlite3_bind_null(insert, 12);
        random.bounded(5) == 0 ? sqlite3_bind_null(insert, 13)
                               : sqlite3_bind_int(insert, 13, random.bounded(6));
        sqlite3_step(insert);
        sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    if (indexed)
        sqlite3_exec(db, kIndexes, nullptr, nullptr, nullptr);
    sqlite3_exec(db, "PRAGMA wal_checkpoint(TRUNCATE); PRAGMA journal_mode=DELETE; ANALYZE;",
                 nullptr, nullptr, nullptr);
    sqlite3_close(db);
    return true;
}

} // namespace orvanta::bench
