// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The progress bar drawn over the application icon while a batch runs:
// its geometry and its rendering into an image. Pure functions; any thread
// (QImage and QPainter on images are thread-safe).
#pragma once

#include <QColor>
#include <QImage>
#include <QRectF>
#include <QSizeF>

namespace orvanta {

struct DockOverlayGeometry
{
    bool visible = false; // only for 0 < progress < 1
    QRectF track; // in image coordinates (origin top left)
    QRectF fill;
    qreal radius = 5.5;
};

// For a square icon of `bounds` (128 x 128 by design): the track sits 14
// from the sides and 10 above the bottom edge, 11 high; the filled part is
// never narrower than its height, so its rounded ends stay round.
DockOverlayGeometry dockOverlayGeometry(const QSizeF &bounds, double progress);

// The icon with the bar drawn over it (the icon alone outside 0 < p < 1).
QImage renderDockOverlay(const QImage &appIcon, double progress, const QColor &accent,
                         int size = 128);

} // namespace orvanta
