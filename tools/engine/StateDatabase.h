// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine's record of every pair it has processed (table processed_files),
// in WAL mode so the application can read while a batch writes. One object per
// run, shared by the workers; every call is serialised by a mutex.
#pragma once

#include "db/Sqlite.h"

#include <QString>

#include <mutex>
#include <optional>

namespace orvanta::engine {

struct ProcessedRow
{
    QString fingerprint;
    QString stem;
    QString rawPath;
    QString jpgPath;
    std::optional<QString> outputPath;
    QString status; // "SUCCESS" or "FAILED"
    std::optional<double> peakStops;
    std::optional<int> numFaces;
    std::optional<double> rawClipPct;
    QString processedAt;
    std::optional<double> durationSec;
    std::optional<QString> errorMessage;
    std::optional<int> rating;
    // RMS error in stops of the fit of the RAW's colours to the JPG's.
    std::optional<double> colourResidual;
};

class StateDatabase
{
public:
    StateDatabase() = default;
    StateDatabase(const StateDatabase &) = delete;
    StateDatabase &operator=(const StateDatabase &) = delete;

    // ~/.local/share/Orvanta/pipeline_state.db (XDG_DATA_HOME honoured).
    static QString defaultPath();

    // Creates the folder, the file, the table and its indexes as needed.
    bool open(const QString &path);
    QString error() const { return m_error; }

    // True when the pair with this fingerprint was delivered and its output
    // file is still there.
    bool isDelivered(const QString &fingerprint);
    bool write(const ProcessedRow &row);
    // The stem of the photo whose delivered file is `outputPath`, if any.
    std::optional<QString> stemForOutput(const QString &outputPath);

private:
    bool exec(const char *sql);

    db::Connection m_db;
    std::mutex m_mutex;
    QString m_error;
};

QString timestampNow(); // local time, "yyyy-MM-ddTHH:mm:ss", sorts as text

} // namespace orvanta::engine
