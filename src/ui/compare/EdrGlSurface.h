// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The OpenGL drawing of the EDR viewer: keeps the photo pair as half-float
// textures (uploaded once per pair, with reduced levels) and composes each
// frame in one full-screen pass running the zebra and filmic kernels. Main thread.
#pragma once

#include "hdr/EdrViewerTypes.h"
#include "ui/compare/EdrPictureTextures.h"

#include <QImage>
#include <QList>
#include <QOpenGLExtraFunctions>
#include <QOpenGLWidget>
#include <QRect>
#include <QRectF>

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QOpenGLFramebufferObject;
class QOpenGLShaderProgram;
class QOpenGLVertexArrayObject;

namespace orvanta {

// Everything one frame depends on besides the pictures, in drawable pixels
// with y pointing up.
struct EdrFrameState
{
    QRectF placement;
    double splitX = 0;
    EDRCompareMode mode = EDRCompareMode::Split;
    bool zebra = false;
    float zebraThreshold = 1.0f;
    bool shadowZebra = false;
    float shadowThreshold = 0.02f;
    bool filmic = false; // HDR side through the filmic roll-off
    float filmicGain = 1.0f; // scale before the curve (1 / simulated headroom)
    bool encodeSrgb = true; // false: linear extended values (HDR output or readback)
};

// Whether two frames differ in the divider position at most.
bool differsOnlyInSplit(const EdrFrameState &a, const EdrFrameState &b);

class EdrGlSurface : public QOpenGLWidget, protected QOpenGLExtraFunctions
{
    Q_OBJECT
public:
    using StateSource = std::function<EdrFrameState(QSizeF drawable)>;

    explicit EdrGlSurface(StateSource source, QWidget *parent = nullptr);
    ~EdrGlSurface() override;

    // The first frame after their reduced levels are averaged shows these
    // (the old pictures stay until then); the full resolution follows. The
    // images must be RGBA16FPx4 in linear light.
    void setPictures(const QImage &sdr, const QImage &hdr);
    bool hasPictures() const { return m_textures.hasTextures() || m_textures.hasPending(); }
    // Whether everything of the last pair is on the GPU.
    bool uploadsComplete() const { return !m_textures.hasPending() && !m_textures.detailPending(); }

    // Renders the current state into a float framebuffer of `size` and reads
    // it back (rows top-down) as RGBA32FPx4, without sRGB encoding.
    QImage renderLinear(QSize size);

    // For measurements: wait for the GPU at the end of every frame.
    void setFinishEachFrame(bool finish) { m_finishEachFrame = finish; }
    bool isReady() const { return m_program != nullptr; }
    // How long the last paintGL took, including the wait when finishing each frame.
    double lastPaintMs() const { return m_lastPaintMs; }

Q_SIGNALS:
    // A new pair is drawn (from its reduced levels).
    void picturesUploaded();
    // ... and its full resolution is on the GPU as well.
    void detailUploaded();

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;

private:
    // `wait`: blocks until the pending pair is averaged and uploads all of it.
    void uploadPending(bool wait);
    void uploadDetail();
    // toLayer: the picture without stripes, sRGB-encoded, which stripes go in
    // alpha; `layerShift`: where the screen's (0, 0) lies in the target.
    void drawFrame(const EdrFrameState &state, QSizeF drawable, QPoint layerShift, bool toLayer);
    bool usesLayer(const EdrFrameState &state) const;
    void paintLayered(const EdrFrameState &state, QSizeF drawable);
    // The parts of a screen rectangle and their offsets into the layer, which
    // wraps around at its edges.
    QList<std::pair<QRect, QPoint>> layerPieces(const QRect &screen) const;
    // Puts the layer's `regions` on screen, with the stripes.
    void present(const EdrFrameState &state, const QList<QRect> &regions);
    // The screen parts of the layer that must be drawn for `state` given what
    // it holds now (moving its origin by a pan first); empty: everything.
    QList<QRect> changedRegions(const EdrFrameState &state, QSize size, bool &panned);
    void releaseGl();

    StateSource m_source;
    std::unique_ptr<QOpenGLShaderProgram> m_program;
    // Cut in the destructor: QOpenGLWidget destroys the context after this
    // class is gone, and the handler must not run on the remains.
    QMetaObject::Connection m_contextGone;
    std::unique_ptr<QOpenGLVertexArrayObject> m_vao;
    EdrPictureTextures m_textures;
    bool m_finishEachFrame = false;
    // What the framebuffer holds now; empty when it must be drawn in full.
    std::optional<EdrFrameState> m_shown;
    // The picture as last drawn, stripe kinds in alpha, kept so a pan or a
    // divider drag draws only what it uncovers. It wraps around: screen
    // pixel p is its pixel (p + m_layerOrigin) modulo its size.
    std::unique_ptr<QOpenGLFramebufferObject> m_layer;
    QPoint m_layerOrigin;
    std::unique_ptr<QOpenGLShaderProgram> m_composeProgram;
    double m_lastPaintMs = 0;
};

} // namespace orvanta
