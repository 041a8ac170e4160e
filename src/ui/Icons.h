// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Our own SVG icon set, addressed by the symbol names the interface uses
// ("play.fill", "globe", ...) and tinted on request. Main thread.
#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>

namespace orvanta::icons {

// True when the set has a drawing for `symbol`.
bool has(const QString &symbol);
// The symbol drawn in `color` at `size` logical pixels for the given device
// pixel ratio. An unknown symbol gives a null pixmap.
QPixmap pixmap(const QString &symbol, const QColor &color, int size, qreal dpr = 1.0);
// An icon with the normal and disabled tints (disabled is a dimmer grey).
QIcon icon(const QString &symbol, const QColor &color);

} // namespace orvanta::icons
