// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the machine can spare: available memory for the automatic worker count
// and the kernel's memory pressure for the throttle. Any thread.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

namespace orvanta::engine {

// Memory one worker needs for a 24-megapixel pair, with margin.
constexpr qint64 kWorkerMemoryBudget = 1ll << 30;

qint64 availableMemoryBytes(); // MemAvailable from /proc/meminfo; 4 GiB when unknown
// "some avg10" of /proc/pressure/memory; none without PSI.
std::optional<double> memoryPressureAvg10(const QByteArray &psiText);
bool memoryPressureHigh(); // avg10 above 10 %

} // namespace orvanta::engine
