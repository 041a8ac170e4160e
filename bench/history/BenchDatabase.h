// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Generated state databases for the history benchmarks: rows like a
// photographer's archive, with or without an index on every sortable column.
#pragma once

#include <QString>

namespace orvanta::bench {

// Writes `rows` rows into a new database at `path` (an existing file is replaced).
bool generate(const QString &path, int rows, bool indexed);

} // namespace orvanta::bench
