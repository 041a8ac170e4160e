// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The one definition of the engine's processed_files table: one row per
// RAW+JPG pair the engine processed, read by the history. Thread-neutral.
#pragma once

#include <string>

struct sqlite3;

namespace orvanta::db {

// The table alone; "IF NOT EXISTS", so it runs on every open.
extern const char *const kProcessedFilesTable;
// One index per column the history sorts or filters by, and on output_path,
// which the engine looks a delivered file up by. Also "IF NOT EXISTS".
extern const char *const kProcessedFilesIndexes;

// Creates the table and its indexes where they are missing.
bool createProcessedFiles(sqlite3 *db, std::string *error = nullptr);

} // namespace orvanta::db
