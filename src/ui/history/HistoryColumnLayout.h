// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How the history table shares its width: the name column never drops below
// what shows a typical camera stem; when the chosen columns do not fit
// beside it, the least useful ones step aside first. Pure function; any thread.
#pragma once

#include "history/HistoryTypes.h"

#include <QList>

namespace orvanta {

struct ColumnSpec
{
    int natural = 0; // what the title and typical content need
    bool fills = false; // takes the room left over (the name column), at least `natural`
    int dropRank = -1; // lower ranks step aside first; -1 never
};

struct ColumnPlan
{
    QList<int> widths;
    QList<bool> hidden;
};

ColumnPlan planColumns(const QList<ColumnSpec> &columns, int available);

// The order in which optional columns step aside when room runs out: the
// details first, the peak gain (what a row is about) last.
int dropRank(ListColumn column);

} // namespace orvanta
