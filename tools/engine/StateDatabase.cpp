// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "StateDatabase.h"

#include "db/ProcessedFiles.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

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

QString StateDatabase::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + u"/Orvanta/pipeline_state.db"_s;
}

bool StateDatabase::exec(const char *sql)
{
    std::string message;
    if (db::exec(m_db.get(), sql, &message))
        return true;
    m_error = QString::fromStdString(message);
    return false;
}

bool StateDatabase::open(const QString &path)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    std::string message;
    m_db = db::open(QFile::encodeName(path).constData(),
                    SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_FULLMUTEX, &message);
    if (!m_db) {
        m_error = QString::fromStdString(message);
        return false;
    }
    if (!exec("PRAGMA journal_mode=WAL;") || !exec("PRAGMA synchronous=NORMAL;"))
        return false;
    if (db::createProcessedFiles(m_db.get(), &message))
        return true;
    m_error = QString::fromStdString(message);
    return false;
}

bool StateDatabase::isDelivered(const QString &fingerprint)
{
    std::lock_guard lock(m_mutex);
    const db::Statement st = db::prepare(
        m_db.get(),
        "SELECT output_path FROM processed_files WHERE fingerprint = ? AND status = 'SUCCESS'");
    if (!st)
        return false;
    bindText(st.get(), 1, fingerprint);
    if (sqlite3_step(st.get()) != SQLITE_ROW)
        return false;
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(st.get(), 0));
    return text && QFileInfo::exists(QString::fromUtf8(text));
}

std::optional<QString> StateDatabase::stemForOutput(const QString &outputPath)
{
    std::lock_guard lock(m_mutex);
    const db::Statement st = db::prepare(m_db.get(),
                                         "SELECT stem FROM processed_files WHERE output_path = ? "
                                         "ORDER BY processed_at DESC LIMIT 1");
    if (!st)
        return std::nullopt;
    bindText(st.get(), 1, outputPath);
    if (sqlite3_step(st.get()) != SQLITE_ROW)
        return std::nullopt;
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(st.get(), 0)));
}

bool StateDatabase::write(const ProcessedRow &row)
{
    std::lock_guard lock(m_mutex);
    std::string message;
    const db::Statement statement
        = db::prepare(m_db.get(),
                      "INSERT OR REPLACE INTO processed_files (fingerprint, stem, raw_path, "
                      "jpg_path, output_path, status, peak_stops, num_faces, raw_clip_pct, "
                      "processed_at, duration_sec, error_message, rating) VALUES "
                      "(?,?,?,?,?,?,?,?,?,?,?,?,?)",
                      &message);
    if (!statement) {
        m_error = QString::fromStdString(message);
        return false;
    }
    sqlite3_stmt *st = statement.get();
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
    const bool ok = sqlite3_step(st) == SQLITE_DONE;
    if (!ok)
        m_error = QString::fromUtf8(sqlite3_errmsg(m_db.get()));
    return ok;
}

QString timestampNow()
{
    return QDateTime::currentDateTime().toString(u"yyyy-MM-ddTHH:mm:ss"_s);
}

} // namespace orvanta::engine
