// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Owning SQLite handles and the open/exec/prepare steps every connection to
// the state database shares. Thread-neutral: a connection is used by one
// thread at a time, or opened with SQLITE_OPEN_FULLMUTEX.
#pragma once

#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace orvanta::db {

// The engine writes while the application reads and the tests hold locks on
// purpose: every connection waits this long for another's lock before failing.
inline constexpr int kBusyTimeoutMs = 5000;

struct ConnectionCloser
{
    void operator()(sqlite3 *db) const;
};
struct StatementFinalizer
{
    void operator()(sqlite3_stmt *statement) const;
};
using Connection = std::unique_ptr<sqlite3, ConnectionCloser>;
using Statement = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// Opens `path` (in the file system's encoding) with SQLite's open `flags` and
// the busy timeout set. Null on failure, with SQLite's reason in `error`.
Connection open(const char *path, int flags, std::string *error = nullptr);
// Runs one or more statements that return no rows.
bool exec(sqlite3 *db, const char *sql, std::string *error = nullptr);
// Null when the statement does not compile, with SQLite's reason in `error`.
Statement prepare(sqlite3 *db, std::string_view sql, std::string *error = nullptr);

} // namespace orvanta::db
