// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The texts of the progress card as pure functions of the model's fields, so
// their rules (truncated percentage, unwrapped minutes, the phase shown) are
// tested without a window. Main thread (texts follow the current language).
#pragma once

#include <QString>

#include <optional>

namespace orvanta {

class AppViewModel;

// Whole minutes and seconds, "%02d:%02d"; minutes do not wrap at 60 (3725 s
// give "62:05"). Negative input counts as 0.
QString formatElapsed(qint64 seconds);

// The line under the title: the ratio with the truncated percentage while
// items are known, the pairs found during the scan, or empty.
QString progressLineText(const AppViewModel &model);

// The time badge: the running clock, the last photo's duration, or a zero clock.
QString timeBadgeText(const AppViewModel &model);

// Seconds still to go for the running batch: the items not finished times the
// batch's average wall-clock time per finished item. Known only once two items
// are finished and while some remain.
std::optional<qint64> estimateRemainingSeconds(qint64 totalPending, double progressFraction,
                                               qint64 elapsedSeconds);

// The estimate as the card shows it ("05:00 left  ·  8.2s / photo") while a
// batch runs and the estimate is known; empty otherwise.
QString timeLeftText(const AppViewModel &model);

} // namespace orvanta
