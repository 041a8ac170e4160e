// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "db/ProcessedFiles.h"

#include "db/Sqlite.h"

namespace orvanta::db {

const char *const kProcessedFilesTable = R"(
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
    rating INTEGER
);)";

const char *const kProcessedFilesIndexes = R"(
CREATE INDEX IF NOT EXISTS idx_processed_files_status ON processed_files(status);
CREATE INDEX IF NOT EXISTS idx_processed_files_processed_at ON processed_files(processed_at);
CREATE INDEX IF NOT EXISTS idx_processed_files_stem ON processed_files(stem);
CREATE INDEX IF NOT EXISTS idx_processed_files_peak_stops ON processed_files(peak_stops);
CREATE INDEX IF NOT EXISTS idx_processed_files_num_faces ON processed_files(num_faces);
CREATE INDEX IF NOT EXISTS idx_processed_files_duration ON processed_files(duration_sec);
CREATE INDEX IF NOT EXISTS idx_processed_files_rating ON processed_files(rating);
CREATE INDEX IF NOT EXISTS idx_processed_files_output ON processed_files(output_path);
)";

bool createProcessedFiles(sqlite3 *db, std::string *error)
{
    return exec(db, kProcessedFilesTable, error) && exec(db, kProcessedFilesIndexes, error);
}

} // namespace orvanta::db
