// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Where a top-level window opens and how large: the design size bounded to
// the screen's free area, or the place the user left it when that is still
// on a screen. Main thread.
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

class QWidget;

namespace orvanta::placement {

// `preferred` shrunk to fit `available` with room for the window frame
// (title bar, borders) that the window manager adds outside it.
QSize fitted(QSize preferred, const QRect &available);

// Restores the geometry saved under `key` when its title bar lands on a
// screen that is there now; otherwise sizes the window to `preferred`
// fitted to its screen and centres it. Also bounds the window's minimum
// size to that screen, so its edges can always be reached.
void restore(QWidget *window, const QString &key, QSize preferred);
void save(const QWidget *window, const QString &key);

} // namespace orvanta::placement
