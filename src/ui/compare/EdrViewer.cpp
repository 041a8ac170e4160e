// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/EdrViewer.h"

#include "document/PhotoDocumentCache.h"
#include "document/PicturePairLoader.h"
#include "ui/compare/DisplayHeadroom.h"
#include "ui/compare/EdrGlSurface.h"

#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QtCore/qfloat16.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// Larger pictures than this are reduced once after decoding: common GL
// drivers refuse textures past 16384 pixels a side.
constexpr int kMaxTextureSide = 16384;

QImage textureReady(QImage image)
{
    if (image.isNull())
        return image;
    if (image.format() != QImage::Format_RGBA16FPx4)
        image = image.convertToFormat(QImage::Format_RGBA16FPx4);
    if (image.width() > kMaxTextureSide || image.height() > kMaxTextureSide)
        image = image.scaled(kMaxTextureSide, kMaxTextureSide, Qt::KeepAspectRatio,
                             Qt::SmoothTransformation);
    return image;
}

} // namespace

bool EdrViewer::openGlAvailable()
{
    // Qt 6.4's offscreen platform brings a window with a GL widget down, so
    // it counts as having no OpenGL even where a context could be made.
    if (QGuiApplication::platformName() == u"offscreen"_s)
        return false;
    static const bool available = [] {
        QOpenGLContext context;
        if (!context.create())
            return false;
        QOffscreenSurface surface;
        surface.setFormat(context.format());
        surface.create();
        const bool current = context.makeCurrent(&surface);
        if (current)
            context.doneCurrent();
        return current;
    }();
    return available;
}

EdrViewer::EdrViewer(const QString &noGlText, QWidget *parent)
    : QWidget(parent)
{
    setObjectName(u"edrViewer"_s);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_AcceptTouchEvents, false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (openGlAvailable()) {
        m_surface
            = new EdrGlSurface([this](QSizeF drawable) { return frameState(drawable); }, this);
        m_surface->setObjectName(u"edrSurface"_s);
        layout->addWidget(m_surface);
    } else {
        m_fallback = new QLabel(noGlText, this);
        m_fallback->setObjectName(u"edrNoGl"_s);
        m_fallback->setAlignment(Qt::AlignCenter);
        m_fallback->setWordWrap(true);
        layout->addWidget(m_fallback);
    }
}

EdrViewer::~EdrViewer() = default;

void EdrViewer::loadImages(const QString &sdrPath, const QString &hdrPath)
{
    m_sdrPath = sdrPath;
    m_hdrPath = hdrPath;
    const int generation = ++m_loadGeneration;
    // The files' shared documents decode them (once, on their own pool), so
    // stepping back to a photo, or its histogram and inspector, reads nothing again.
    loadPicturePair(PhotoDocumentCache::shared(), sdrPath, hdrPath, this,
                    [this, generation](const EdrPicturePair &pair) {
                        // A newer request makes this result stale.
                        if (m_loadGeneration != generation)
                            return;
                        m_shownGeneration = generation;
                        showPair({ textureReady(pair.sdr), textureReady(pair.hdr), pair.imageSize,
                                   pair.sdrFromHdrFile, pair.hdrIssue });
                    });
}

void EdrViewer::setPictures(const EdrPicturePair &pair)
{
    m_shownGeneration = ++m_loadGeneration;
    EdrPicturePair ready = pair;
    ready.sdr = textureReady(ready.sdr);
    ready.hdr = textureReady(ready.hdr);
    showPair(ready);
}

void EdrViewer::showPair(const EdrPicturePair &pair)
{
    // Both sides are needed to compare; without them the last frame stays.
    if (pair.sdr.isNull() || pair.hdr.isNull() || pair.imageSize.isEmpty()) {
        Q_EMIT picturesLoaded();
        return;
    }
    m_hdr = pair.hdr;
    m_imageSize = pair.imageSize;
    m_sdrFromHdrFile = pair.sdrFromHdrFile;
    m_model.resetView();
    if (m_surface)
        m_surface->setPictures(pair.sdr, pair.hdr);
    Q_EMIT pixelReadoutChanged(std::nullopt);
    Q_EMIT picturesLoaded();
}

void EdrViewer::updateState(const EdrViewerSettings &settings)
{
    m_settings = settings;
    m_model.setSplitPosition(settings.splitPosition);
    m_settings.splitPosition = m_model.splitPosition();
    if (m_surface)
        m_surface->update();
}

double EdrViewer::displayHeadroom() const
{
    return displayheadroom::current(this);
}

EdrFrameState EdrViewer::frameState(QSizeF drawable) const
{
    EdrFrameState state;
    state.placement
        = edr::placement(drawable, m_imageSize, m_model.zoomScale(), m_model.panOffset());
    state.splitX = edr::splitX(drawable.width(), m_model.splitPosition());
    state.mode = m_settings.compareMode;
    state.zebra = m_settings.zebraEnabled;
    state.zebraThreshold = m_settings.zebraThreshold;
    state.shadowZebra = m_settings.shadowZebraEnabled;
    state.shadowThreshold = m_settings.shadowThreshold;
    // A display with real headroom shows the HDR side as it is; a standard
    // one may compress its highlights.
    const bool hdrDisplay = edr::isHdrDisplay(displayHeadroom());
    state.filmic = !hdrDisplay && m_settings.toneMapMode == SDRToneMapMode::FilmicRollOff;
    state.filmicGain = float(1.0 / std::max(1.0, m_settings.simulatedHeadroom));
    // The widget's framebuffer is 8-bit sRGB whatever the display; values
    // above 1.0 only reach the screen through an extended-range surface.
    state.encodeSrgb = true;
    return state;
}

EdrViewerModel::Viewport EdrViewer::viewport() const
{
    const double dpr = devicePixelRatioF();
    return { QSizeF(size()), dpr, QSizeF(size()) * dpr, m_imageSize };
}

void EdrViewer::apply(EdrViewerModel::Effects effects)
{
    if (effects.testFlag(EdrViewerModel::Render) && m_surface)
        m_surface->update();
    if (effects.testFlag(EdrViewerModel::SplitChanged)) {
        m_settings.splitPosition = m_model.splitPosition();
        if (onSplitChanged)
            onSplitChanged(m_model.splitPosition());
    }
}

void EdrViewer::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    apply(m_model.mouseDown(event->position(), 1, viewport()));
}

void EdrViewer::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseDoubleClickEvent(event);
    apply(m_model.mouseDown(event->position(), 2, viewport()));
    updateReadout(event->position());
}

void EdrViewer::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() & Qt::LeftButton)
        apply(m_model.mouseDragged(event->position(), viewport()));
    updateReadout(event->position());
}

void EdrViewer::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        apply(m_model.mouseUp());
}

void EdrViewer::wheelEvent(QWheelEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier) {
        // Mice have no pinch: Ctrl+wheel zooms by the same rule.
        apply(m_model.magnify(event->angleDelta().y() / 1200.0, viewport()));
    } else {
        const QPointF delta = event->pixelDelta().isNull() ? QPointF(event->angleDelta()) / 4.0
                                                           : QPointF(event->pixelDelta());
        apply(m_model.scrollWheel(delta, viewport()));
    }
    updateReadout(event->position());
    event->accept();
}

bool EdrViewer::event(QEvent *event)
{
    if (event->type() == QEvent::NativeGesture) {
        auto *gesture = static_cast<QNativeGestureEvent *>(event);
        if (gesture->gestureType() == Qt::ZoomNativeGesture) {
            apply(m_model.magnify(gesture->value(), viewport()));
            updateReadout(gesture->position());
            return true;
        }
    }
    return QWidget::event(event);
}

void EdrViewer::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!m_imageSize.isEmpty())
        apply(m_model.scrollWheel({}, viewport())); // keeps the pan inside the new size
}

void EdrViewer::updateReadout(QPointF point)
{
    if (m_hdr.isNull() || !(m_model.zoomScale() > 1.0)) {
        Q_EMIT pixelReadoutChanged(std::nullopt);
        return;
    }
    const double dpr = devicePixelRatioF();
    const QSizeF drawable = QSizeF(size()) * dpr;
    const QRectF placed
        = edr::placement(drawable, m_imageSize, m_model.zoomScale(), m_model.panOffset());
    const QPointF p(point.x() * dpr, drawable.height() - point.y() * dpr); // y up
    const double u = (p.x() - placed.x()) / placed.width();
    const double v = 1.0 - (p.y() - placed.y()) / placed.height();
    if (placed.isEmpty() || u < 0 || u >= 1 || v < 0 || v >= 1) {
        Q_EMIT pixelReadoutChanged(std::nullopt);
        return;
    }
    const QPoint pixel(int(u * m_hdr.width()), int(v * m_hdr.height()));
    const auto *row = reinterpret_cast<const qfloat16 *>(m_hdr.constScanLine(pixel.y()));
    const qfloat16 *px = row + 4 * pixel.x();
    Q_EMIT pixelReadoutChanged(
        EdrPixelReadout { pixel, { float(px[0]), float(px[1]), float(px[2]), float(px[3]) } });
}

} // namespace orvanta
