// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HistoryColumnLayout.h"

#include <algorithm>

namespace orvanta {

int dropRank(ListColumn column)
{
    switch (column) {
    case ListColumn::FileSize:
        return 0;
    case ListColumn::BayerClip:
        return 1;
    case ListColumn::Faces:
        return 2;
    case ListColumn::CameraLens:
        return 3;
    case ListColumn::Duration:
        return 4;
    case ListColumn::Exposure:
        return 5;
    case ListColumn::Date:
        return 6;
    case ListColumn::PeakStops:
        return 7;
    }
    return 0;
}

ColumnPlan planColumns(const QList<ColumnSpec> &columns, int available)
{
    ColumnPlan plan;
    plan.widths.reserve(columns.size());
    plan.hidden.fill(false, columns.size());
    int used = 0;
    for (const ColumnSpec &column : columns)
        used += column.natural;

    QList<int> droppable;
    for (int i = 0; i < columns.size(); ++i) {
        if (columns[i].dropRank >= 0)
            droppable.append(i);
    }
    std::stable_sort(droppable.begin(), droppable.end(),
                     [&](int a, int b) { return columns[a].dropRank < columns[b].dropRank; });
    for (int i : droppable) {
        if (used <= available)
            break;
        plan.hidden[i] = true;
        used -= columns[i].natural;
    }
    const int spare = std::max(0, available - used);
    for (int i = 0; i < columns.size(); ++i)
        plan.widths.append(columns[i].natural + (columns[i].fills ? spare : 0));
    return plan;
}

} // namespace orvanta
