// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Value types shared by the history reader, the history half of AppViewModel
// and the history table: a processed photo, the whole-table statistics, and
// the filter, sort and column keys. Plain values; any thread.
#pragma once

#include <QList>
#include <QMetaType>
#include <QString>

#include <optional>

namespace orvanta {

// One row of the engine's `processed_files` table.
struct PhotoRecord
{
    QString fingerprint; // identity
    QString stem;
    std::optional<QString> rawPath;
    std::optional<QString> jpgPath;
    std::optional<QString> outputPath;
    QString status; // "SUCCESS" or "FAILED"
    std::optional<double> peakStops;
    std::optional<qint64> numFaces;
    std::optional<double> rawClipPct;
    QString processedAt;
    std::optional<double> durationSec;
    std::optional<QString> errorMessage;
    qint64 rating = 0;

    const QString &id() const { return fingerprint; }
    friend bool operator==(const PhotoRecord &, const PhotoRecord &) = default;
};

struct DashboardStats
{
    qint64 total = 0;
    qint64 success = 0;
    qint64 failed = 0;
    std::optional<QString> lastProcessedAt;
    double avgDurationSec = 0;

    friend bool operator==(const DashboardStats &, const DashboardStats &) = default;
};

enum class HistoryStatusFilter { All, SuccessOnly, FailedOnly };
QString rawValue(HistoryStatusFilter filter);
std::optional<HistoryStatusFilter> historyStatusFilterFromRawValue(QStringView raw);
// The status text the query filters on, or none for All.
std::optional<QString> statusText(HistoryStatusFilter filter);
const QList<HistoryStatusFilter> &allHistoryStatusFilters();

enum class HistorySortField { Date, PeakStops, Faces, Duration, Stem };
QString rawValue(HistorySortField field);
std::optional<HistorySortField> historySortFieldFromRawValue(QStringView raw);
const QList<HistorySortField> &allHistorySortFields();

// The optional columns of the history table, in header order.
enum class ListColumn {
    PeakStops,
    Exposure,
    CameraLens,
    Faces,
    BayerClip,
    Duration,
    FileSize,
    Date
};
QString rawValue(ListColumn column);
std::optional<ListColumn> listColumnFromRawValue(QStringView raw);
QString titleKey(ListColumn column);
const QList<ListColumn> &allListColumns();

// A set of columns; kept as a sorted list so that it iterates in header order.
using ListColumnSet = QList<ListColumn>;
ListColumnSet defaultVisibleColumns();
// Sorted in header order, duplicates removed.
ListColumnSet normalizedColumnSet(ListColumnSet columns);

} // namespace orvanta

Q_DECLARE_METATYPE(orvanta::PhotoRecord)
Q_DECLARE_METATYPE(orvanta::DashboardStats)
