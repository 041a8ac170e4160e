// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "history/HistoryTypes.h"

#include <algorithm>

namespace orvanta {

namespace {

template<typename Enum, std::size_t N>
std::optional<Enum> fromRaw(QStringView raw, const char16_t *const (&names)[N])
{
    for (std::size_t i = 0; i < N; ++i) {
        if (raw == QStringView(names[i]))
            return Enum(i);
    }
    return std::nullopt;
}

template<typename Enum, std::size_t N> QList<Enum> allOf(const char16_t *const (&)[N])
{
    QList<Enum> all;
    for (std::size_t i = 0; i < N; ++i)
        all << Enum(i);
    return all;
}

constexpr const char16_t *kFilterNames[] = { u"all", u"success", u"failed" };
constexpr const char16_t *kSortNames[] = { u"date", u"peakStops", u"faces", u"duration", u"stem" };
constexpr const char16_t *kColumnNames[] = { u"peak_stops", u"exposure", u"camera_lens", u"faces",
                                             u"bayer_clip", u"duration", u"file_size",   u"date" };

} // namespace

QString rawValue(HistoryStatusFilter filter)
{
    return QString::fromUtf16(kFilterNames[int(filter)]);
}

std::optional<HistoryStatusFilter> historyStatusFilterFromRawValue(QStringView raw)
{
    return fromRaw<HistoryStatusFilter>(raw, kFilterNames);
}

std::optional<QString> statusText(HistoryStatusFilter filter)
{
    switch (filter) {
    case HistoryStatusFilter::SuccessOnly:
        return QStringLiteral("SUCCESS");
    case HistoryStatusFilter::FailedOnly:
        return QStringLiteral("FAILED");
    case HistoryStatusFilter::All:
        break;
    }
    return std::nullopt;
}

const QList<HistoryStatusFilter> &allHistoryStatusFilters()
{
    static const auto all = allOf<HistoryStatusFilter>(kFilterNames);
    return all;
}

QString rawValue(HistorySortField field)
{
    return QString::fromUtf16(kSortNames[int(field)]);
}

std::optional<HistorySortField> historySortFieldFromRawValue(QStringView raw)
{
    return fromRaw<HistorySortField>(raw, kSortNames);
}

const QList<HistorySortField> &allHistorySortFields()
{
    static const auto all = allOf<HistorySortField>(kSortNames);
    return all;
}

QString rawValue(ListColumn column)
{
    return QString::fromUtf16(kColumnNames[int(column)]);
}

std::optional<ListColumn> listColumnFromRawValue(QStringView raw)
{
    return fromRaw<ListColumn>(raw, kColumnNames);
}

QString titleKey(ListColumn column)
{
    return QStringLiteral("col_") + rawValue(column);
}

const QList<ListColumn> &allListColumns()
{
    static const auto all = allOf<ListColumn>(kColumnNames);
    return all;
}

ListColumnSet defaultVisibleColumns()
{
    return { ListColumn::PeakStops, ListColumn::Exposure, ListColumn::CameraLens, ListColumn::Faces,
             ListColumn::Duration };
}

ListColumnSet normalizedColumnSet(ListColumnSet columns)
{
    std::sort(columns.begin(), columns.end());
    columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
    return columns;
}

} // namespace orvanta
