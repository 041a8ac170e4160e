// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "BenchDatabase.h"

#include "db/ProcessedFiles.h"
#include "db/Sqlite.h"

#include <QDateTime>
#include <QFile>
#include <QRandomGenerator>

#include <sqlite3.h>

namespace orvanta::bench {

namespace {

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
    const db::Connection connection
        = db::open(QFile::encodeName(path).constData(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    if (!connection)
        return false;
    sqlite3 *const handle = connection.get();
    if (!db::exec(handle, "PRAGMA journal_mode=WAL; PRAGMA synchronous=OFF;")
        || !db::exec(handle, db::kProcessedFilesTable) || !db::exec(handle, "BEGIN"))
        return false;
    db::Statement statement = db::prepare(
        handle,
        "INSERT INTO processed_files (fingerprint, stem, raw_path, jpg_path, output_path, status, "
        "peak_stops, num_faces, raw_clip_pct, processed_at, duration_sec, error_message, rating) "
        "VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
    if (!statement)
        return false;
    sqlite3_stmt *const insert = statement.get();
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
    statement.reset();
    // Indexes, when asked for, are built after the rows: faster than row by row.
    return db::exec(handle, "COMMIT") && (!indexed || db::exec(handle, db::kProcessedFilesIndexes))
        && db::exec(handle,
                    "PRAGMA wal_checkpoint(TRUNCATE); PRAGMA journal_mode=DELETE; ANALYZE;");
}

} // namespace orvanta::bench
