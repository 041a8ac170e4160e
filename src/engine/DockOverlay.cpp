// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/DockOverlay.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace orvanta {

namespace {
constexpr qreal kSideInset = 14.0;
constexpr qreal kBottomInset = 10.0;
constexpr qreal kBarHeight = 11.0;
constexpr qreal kRadius = 5.5;
} // namespace

DockOverlayGeometry dockOverlayGeometry(const QSizeF &bounds, double progress)
{
    DockOverlayGeometry g;
    g.radius = kRadius;
    const qreal width = bounds.width() - 2 * kSideInset;
    const qreal top = bounds.height() - kBottomInset - kBarHeight;
    g.track = QRectF(kSideInset, top, width, kBarHeight);
    g.visible = progress > 0.0 && progress < 1.0;
    const qreal fillWidth = std::min(std::max(width * progress, kBarHeight), width);
    g.fill = QRectF(kSideInset, top, fillWidth, kBarHeight);
    return g;
}

QImage renderDockOverlay(const QImage &appIcon, double progress, const QColor &accent, int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!appIcon.isNull())
        painter.drawImage(QRectF(0, 0, size, size), appIcon);

    const DockOverlayGeometry g = dockOverlayGeometry(QSizeF(size, size), progress);
    if (g.visible) {
        QPainterPath track;
        track.addRoundedRect(g.track, g.radius, g.radius);
        painter.fillPath(track, QColor(0, 0, 0, int(0.65 * 255 + 0.5)));
        painter.setPen(QPen(QColor(255, 255, 255, int(0.25 * 255 + 0.5)), 1.0));
        painter.drawPath(track);

        QPainterPath fill;
        fill.addRoundedRect(g.fill, g.radius, g.radius);
        painter.fillPath(fill, accent);
    }
    painter.end();
    return image;
}

} // namespace orvanta
