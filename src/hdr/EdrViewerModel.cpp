// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/EdrViewerModel.h"

#include <algorithm>

namespace orvanta {

namespace edr {

namespace {
bool positive(QSizeF size)
{
    return size.width() > 0.0 && size.height() > 0.0;
}
} // namespace

double fitScale(QSizeF drawable, QSizeF image)
{
    if (!positive(drawable) || !positive(image))
        return 0.0;
    return std::min(drawable.width() / image.width(), drawable.height() / image.height());
}

QRectF placement(QSizeF drawable, QSizeF image, double zoomScale, QPointF pan)
{
    const double scale = fitScale(drawable, image) * zoomScale;
    if (!(scale > 0.0))
        return {};
    const QSizeF size = image * scale;
    return QRectF(QPointF((drawable.width() - size.width()) * 0.5 + pan.x(),
                          (drawable.height() - size.height()) * 0.5 + pan.y()),
                  size);
}

QPointF clampPanOffset(QPointF pan, QSizeF drawable, QSizeF image, double zoomScale)
{
    if (!positive(drawable) || !positive(image))
        return {};
    const double scale = fitScale(drawable, image) * zoomScale;
    const double mx = std::max(0.0, (image.width() * scale - drawable.width()) * 0.5);
    const double my = std::max(0.0, (image.height() * scale - drawable.height()) * 0.5);
    return { std::clamp(pan.x(), -mx, mx), std::clamp(pan.y(), -my, my) };
}

double splitX(double drawableWidth, double splitPosition)
{
    return drawableWidth * splitPosition;
}

QRectF dividerRect(QSizeF drawable, double splitPosition)
{
    return QRectF(splitX(drawable.width(), splitPosition) - 1.0, 0.0, 2.0, drawable.height());
}

bool isHdrDisplay(double headroom)
{
    return headroom > kSdrHeadroomLimit;
}

} // namespace edr

void EdrViewerModel::setSplitPosition(double position)
{
    m_splitPosition = std::clamp(position, edr::kMinSplit, edr::kMaxSplit);
}

void EdrViewerModel::resetView()
{
    m_zoomScale = 1.0;
    m_panOffset = {};
}

void EdrViewerModel::clampPan(const Viewport &viewport)
{
    m_panOffset = edr::clampPanOffset(m_panOffset, viewport.drawable, viewport.image, m_zoomScale);
}

EdrViewerModel::Effects EdrViewerModel::mouseDown(QPointF point, int clickCount,
                                                  const Viewport &viewport)
{
    if (clickCount == 2) {
        if (m_zoomScale > 1.1) {
            resetView();
        } else {
            // Zoom in towards the clicked point (x right, y down in the view).
            m_zoomScale = 2.0;
            m_panOffset = QPointF((viewport.bounds.width() * 0.5 - point.x()) * 1.8,
                                  (point.y() - viewport.bounds.height() * 0.5) * 1.8);
            clampPan(viewport);
        }
        return Render;
    }
    m_lastDragLocation = point;
    const double clickX = point.x() * viewport.contentsScale;
    if (std::abs(clickX - edr::splitX(viewport.drawable.width(), m_splitPosition))
        < edr::kDividerGrabPixels) {
        m_draggingSplit = true;
        m_panningImage = false;
        return NoEffect;
    }
    if (m_zoomScale > 1.0) {
        m_panningImage = true;
        return NoEffect;
    }
    if (!(viewport.bounds.width() > 0.0))
        return NoEffect;
    setSplitPosition(point.x() / viewport.bounds.width());
    m_draggingSplit = true;
    return Render | SplitChanged;
}

EdrViewerModel::Effects EdrViewerModel::mouseDragged(QPointF point, const Viewport &viewport)
{
    Effects effects;
    if (m_draggingSplit && viewport.bounds.width() > 0.0) {
        setSplitPosition(point.x() / viewport.bounds.width());
        effects = Render | SplitChanged;
    } else if (m_panningImage && m_zoomScale > 1.0) {
        m_panOffset.rx() += (point.x() - m_lastDragLocation.x()) * viewport.contentsScale;
        m_panOffset.ry() -= (point.y() - m_lastDragLocation.y()) * viewport.contentsScale;
        clampPan(viewport);
        effects = Render;
    }
    m_lastDragLocation = point;
    return effects;
}

EdrViewerModel::Effects EdrViewerModel::mouseUp()
{
    m_draggingSplit = false;
    m_panningImage = false;
    return NoEffect;
}

EdrViewerModel::Effects EdrViewerModel::magnify(double magnification, const Viewport &viewport)
{
    m_zoomScale = std::clamp(m_zoomScale * (1.0 + magnification), edr::kMinZoom, edr::kMaxZoom);
    if (m_zoomScale <= 1.01)
        resetView();
    else
        clampPan(viewport);
    return Render;
}

EdrViewerModel::Effects EdrViewerModel::scrollWheel(QPointF delta, const Viewport &viewport)
{
    if (!(m_zoomScale > 1.0))
        return NoEffect;
    m_panOffset.rx() += delta.x();
    m_panOffset.ry() -= delta.y();
    clampPan(viewport);
    return Render;
}

} // namespace orvanta
