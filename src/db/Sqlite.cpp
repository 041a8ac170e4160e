// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "db/Sqlite.h"

#include <sqlite3.h>

namespace orvanta::db {

void ConnectionCloser::operator()(sqlite3 *db) const
{
    sqlite3_close_v2(db);
}

void StatementFinalizer::operator()(sqlite3_stmt *statement) const
{
    sqlite3_finalize(statement);
}

Connection open(const char *path, int flags, std::string *error)
{
    sqlite3 *raw = nullptr;
    const int rc = sqlite3_open_v2(path, &raw, flags, nullptr);
    Connection db(raw); // SQLite hands back a handle to close even when opening fails
    if (rc != SQLITE_OK) {
        if (error)
            *error = raw ? sqlite3_errmsg(raw) : sqlite3_errstr(rc);
        return nullptr;
    }
    sqlite3_busy_timeout(db.get(), kBusyTimeoutMs);
    return db;
}

bool exec(sqlite3 *db, const char *sql, std::string *error)
{
    char *message = nullptr;
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, &message);
    if (rc != SQLITE_OK && error)
        *error = message ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    return rc == SQLITE_OK;
}

Statement prepare(sqlite3 *db, std::string_view sql, std::string *error)
{
    sqlite3_stmt *raw = nullptr;
    if (sqlite3_prepare_v2(db, sql.data(), int(sql.size()), &raw, nullptr) != SQLITE_OK) {
        if (error)
            *error = sqlite3_errmsg(db);
        sqlite3_finalize(raw);
        return nullptr;
    }
    return Statement(raw);
}

} // namespace orvanta::db
