// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Everything of the EDR viewer that is not drawing: fitting and placing the
// picture, keeping the pan inside it, and the mouse, pinch, scroll and
// double-click rules, as a small state object the widget feeds its events to.
// Main thread (owned by the viewer widget).
//
// Coordinates: view points have y pointing down (as Qt delivers them);
// drawable pixels, the placement and the pan have y pointing up (as the
// renderer composes), which is why vertical input changes the pan with the
// opposite sign.
#pragma once

#include <QFlags>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace orvanta {

namespace edr {

inline constexpr double kMinZoom = 1.0;
inline constexpr double kMaxZoom = 5.0;
inline constexpr double kMinSplit = 0.01;
inline constexpr double kMaxSplit = 0.99;
inline constexpr double kDividerGrabPixels = 40.0; // in drawable pixels
inline constexpr double kSdrHeadroomLimit = 1.05; // at or below: an SDR display

double fitScale(QSizeF drawable, QSizeF image);
// Where the picture lies in the drawable (y up), scaled by fit × zoom and
// shifted from centre by the pan. Empty when either size is not positive.
QRectF placement(QSizeF drawable, QSizeF image, double zoomScale, QPointF pan);
// The pan limited so the picture cannot be moved past its own edges; (0, 0)
// when a size is not positive. A picture smaller than the drawable cannot move.
QPointF clampPanOffset(QPointF pan, QSizeF drawable, QSizeF image, double zoomScale);

// The divider: x of the split in drawable pixels, and the 2-pixel bar drawn over it.
double splitX(double drawableWidth, double splitPosition);
QRectF dividerRect(QSizeF drawable, double splitPosition);

// Whether the display shows values above 1.0 (otherwise tone mapping may apply).
bool isHdrDisplay(double headroom);

} // namespace edr

class EdrViewerModel
{
public:
    enum Effect {
        NoEffect = 0,
        Render = 1, // draw a new frame
        SplitChanged = 2, // tell the owner the new divider position
    };
    Q_DECLARE_FLAGS(Effects, Effect)

    // What the input rules need to know about the view at the time of an event.
    struct Viewport
    {
        QSizeF bounds; // view size in points
        double contentsScale = 1.0; // drawable pixels per point
        QSizeF drawable; // in pixels
        QSizeF image; // picture size in pixels
    };

    double splitPosition() const { return m_splitPosition; }
    double zoomScale() const { return m_zoomScale; }
    QPointF panOffset() const { return m_panOffset; }
    bool isDraggingSplit() const { return m_draggingSplit; }
    bool isPanningImage() const { return m_panningImage; }

    void setSplitPosition(double position); // from the owner, clamped
    void resetView(); // zoom 1, no pan (a new picture was loaded)

    Effects mouseDown(QPointF point, int clickCount, const Viewport &viewport);
    Effects mouseDragged(QPointF point, const Viewport &viewport);
    Effects mouseUp();
    Effects magnify(double magnification, const Viewport &viewport);
    Effects scrollWheel(QPointF delta, const Viewport &viewport);

private:
    void clampPan(const Viewport &viewport);

    double m_splitPosition = 0.5;
    double m_zoomScale = 1.0;
    QPointF m_panOffset;
    bool m_draggingSplit = false;
    bool m_panningImage = false;
    QPointF m_lastDragLocation;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(EdrViewerModel::Effects)

} // namespace orvanta
