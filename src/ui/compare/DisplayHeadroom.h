// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// How far above SDR white the screen under a window can show: the ratio the
// viewer and the compare window decide their HDR and SDR paths by. Main thread.
#pragma once

#include <functional>

class QWidget;

namespace orvanta::displayheadroom {

// The headroom of the screen showing `widget` (or the primary screen when it
// has no window yet). Qt on Linux has no HDR output path, so this is 1.0
// there unless an override is installed.
double current(const QWidget *widget = nullptr);

// Replaces the platform answer, e.g. to try the HDR path; an empty function
// restores it.
void setOverride(std::function<double()> provider);

} // namespace orvanta::displayheadroom
