// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/EdrGlSurface.h"

#include "ui/compare/EdrShaders.h"

#include <QElapsedTimer>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QSurfaceFormat>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

EdrGlSurface::EdrGlSurface(StateSource source, QWidget *parent)
    : QOpenGLWidget(parent)
    , m_source(std::move(source))
    , m_textures(this, [this] { update(); })
{
    QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    setFormat(format);
    // The viewer around this surface takes the pointer input.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    // The framebuffer keeps the last frame, so a divider drag redraws only
    // the strip the divider crossed and a pan moves what is already drawn.
    setUpdateBehavior(QOpenGLWidget::PartialUpdate);
}

bool differsOnlyInSplit(const EdrFrameState &a, const EdrFrameState &b)
{
    return a.placement == b.placement && a.mode == b.mode && a.zebra == b.zebra
        && a.zebraThreshold == b.zebraThreshold && a.shadowZebra == b.shadowZebra
        && a.shadowThreshold == b.shadowThreshold && a.filmic == b.filmic
        && a.filmicGain == b.filmicGain && a.encodeSrgb == b.encodeSrgb;
}

EdrGlSurface::~EdrGlSurface()
{
    disconnect(m_contextGone);
    if (context() && isValid()) {
        makeCurrent();
        releaseGl();
        doneCurrent();
    }
}

void EdrGlSurface::releaseGl()
{
    m_textures.release();
    m_shown.reset();
    m_layer.reset();
    m_vao.reset();
    m_composeProgram.reset();
    m_program.reset();
}

void EdrGlSurface::setPictures(const QImage &sdr, const QImage &hdr)
{
    m_textures.setPictures(sdr, hdr);
    if (m_program && isValid()) {
        makeCurrent();
        m_textures.prepareStorage();
        doneCurrent();
    }
}

void EdrGlSurface::initializeGL()
{
    initializeOpenGLFunctions();
    m_textures.initialize();
    disconnect(m_contextGone);
    m_contextGone = connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, [this] {
        // The pictures went with the context; the next pair brings new ones.
        makeCurrent();
        releaseGl();
        doneCurrent();
    });
    auto program = std::make_unique<QOpenGLShaderProgram>();
    if (!program->addShaderFromSourceCode(QOpenGLShader::Vertex, edrshaders::kVertexShader)
        || !program->addShaderFromSourceCode(QOpenGLShader::Fragment, edrshaders::frameShader())
        || !program->link()) {
        qWarning("EDR viewer: shader build failed: %s", qPrintable(program->log()));
        return;
    }
    auto compose = std::make_unique<QOpenGLShaderProgram>();
    if (!compose->addShaderFromSourceCode(QOpenGLShader::Vertex, edrshaders::kVertexShader)
        || !compose->addShaderFromSourceCode(QOpenGLShader::Fragment, edrshaders::composeShader())
        || !compose->link()) {
        qWarning("EDR viewer: shader build failed: %s", qPrintable(compose->log()));
        return;
    }
    m_program = std::move(program);
    m_composeProgram = std::move(compose);
    m_vao = std::make_unique<QOpenGLVertexArrayObject>();
    m_vao->create();
}

void EdrGlSurface::uploadPending(bool wait)
{
    if (m_textures.uploadReduced(wait)) {
        m_shown.reset();
        Q_EMIT picturesUploaded();
        if (!wait) {
            // After this frame is on screen.
            QMetaObject::invokeMethod(this, &EdrGlSurface::uploadDetail, Qt::QueuedConnection);
            return;
        }
    }
    // A readback shows the full resolution even before its turn has come.
    if (wait && m_textures.detailPending()) {
        while (m_textures.uploadNextDetail()) { }
        m_shown.reset();
        Q_EMIT detailUploaded();
    }
}

void EdrGlSurface::uploadDetail()
{
    if (!m_textures.detailPending() || !isValid())
        return;
    makeCurrent();
    bool sideDone = false;
    const bool more = m_textures.uploadNextDetail(&sideDone);
    doneCurrent();
    if (sideDone) {
        m_shown.reset(); // the last frame may have read a reduced level in its place
        update();
    }
    if (more) // one band per turn, so input and frames come between them
        QMetaObject::invokeMethod(this, &EdrGlSurface::uploadDetail, Qt::QueuedConnection);
    else
        Q_EMIT detailUploaded();
}

void EdrGlSurface::resizeGL(int, int)
{
    m_shown.reset(); // a new framebuffer holds nothing yet
}

namespace {

// The columns from a to b, widened to cover the divider's two pixels either side.
QRect dividerColumns(double a, double b, int height)
{
    const int from = int(std::floor(std::min(a, b))) - 2;
    return QRect(from, 0, int(std::ceil(std::max(a, b))) + 2 - from, height);
}

} // namespace

bool EdrGlSurface::usesLayer(const EdrFrameState &state) const
{
    return m_textures.hasTextures() && !state.placement.isEmpty() && state.encodeSrgb;
}

void EdrGlSurface::paintGL()
{
    if (!m_program)
        return;
    QElapsedTimer timer;
    timer.start();
    uploadPending(false);
    const QSizeF drawable = QSizeF(size()) * devicePixelRatioF();
    const EdrFrameState state = m_source(drawable);
    if (usesLayer(state)) {
        paintLayered(state, drawable);
    } else {
        glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
        drawFrame(state, drawable, {}, false);
        m_shown.reset();
    }
    if (m_finishEachFrame)
        glFinish();
    m_lastPaintMs = timer.nsecsElapsed() / 1e6;
}

void EdrGlSurface::paintLayered(const EdrFrameState &state, QSizeF drawable)
{
    const QSize size = drawable.toSize();
    if (!m_layer || m_layer->size() != size) {
        m_layer = std::make_unique<QOpenGLFramebufferObject>(size);
        m_shown.reset();
    }
    bool panned = false;
    QList<QRect> regions = m_shown ? changedRegions(state, size, panned) : QList<QRect>();
    if (regions.isEmpty()) {
        m_layerOrigin = QPoint();
        regions.append(QRect(QPoint(), size));
    }
    glBindFramebuffer(GL_FRAMEBUFFER, m_layer->handle());
    glEnable(GL_SCISSOR_TEST);
    for (const QRect &region : std::as_const(regions)) {
        for (const auto &[piece, offset] : layerPieces(region)) {
            const QRect r = piece.translated(offset);
            glScissor(r.x(), r.y(), r.width(), r.height());
            drawFrame(state, drawable, offset, true);
        }
    }
    glDisable(GL_SCISSOR_TEST);
    // The stripes stay put on screen while the picture pans under them.
    glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
    present(state, panned ? QList { QRect(QPoint(), size) } : regions);
    if (state.mode == EDRCompareMode::Split) {
        const QRect divider = dividerColumns(state.splitX, state.splitX, size.height());
        glEnable(GL_SCISSOR_TEST);
        glScissor(divider.x(), divider.y(), divider.width(), divider.height());
        drawFrame(state, drawable, {}, false);
        glDisable(GL_SCISSOR_TEST);
    }
    m_shown = state;
}

QList<std::pair<QRect, QPoint>> EdrGlSurface::layerPieces(const QRect &screen) const
{
    const QSize size = m_layer->size();
    const int wrapX = size.width() - m_layerOrigin.x();
    const int wrapY = size.height() - m_layerOrigin.y();
    QList<std::pair<QRect, QPoint>> pieces;
    for (const QRect &columns : { QRect(0, 0, wrapX, size.height()),
                                  QRect(wrapX, 0, size.width() - wrapX, size.height()) }) {
        for (const QRect &rows : { QRect(0, 0, size.width(), wrapY),
                                   QRect(0, wrapY, size.width(), size.height() - wrapY) }) {
            const QRect piece = screen & columns & rows;
            if (piece.isEmpty())
                continue;
            const QPoint offset(m_layerOrigin.x() - (piece.x() < wrapX ? 0 : size.width()),
                                m_layerOrigin.y() - (piece.y() < wrapY ? 0 : size.height()));
            pieces.append({ piece, offset });
        }
    }
    return pieces;
}

void EdrGlSurface::present(const EdrFrameState &state, const QList<QRect> &regions)
{
    const QSize size = m_layer->size();
    if (!state.zebra && !state.shadowZebra) {
        // Without stripes the layer is the picture as shown: copied, not drawn.
        glBindFramebuffer(GL_READ_FRAMEBUFFER, m_layer->handle());
        for (const QRect &region : regions) {
            for (const auto &[piece, offset] : layerPieces(region)) {
                const QRect from = piece.translated(offset);
                glBlitFramebuffer(from.left(), from.top(), from.right() + 1, from.bottom() + 1,
                                  piece.left(), piece.top(), piece.right() + 1, piece.bottom() + 1,
                                  GL_COLOR_BUFFER_BIT, GL_NEAREST);
            }
        }
        glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
        return;
    }
    glViewport(0, 0, size.width(), size.height());
    m_composeProgram->bind();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, m_layer->texture());
    m_composeProgram->setUniformValue("layer", 0);
    // An integer vector: Qt's QPoint overload sets floats.
    glUniform2i(m_composeProgram->uniformLocation("origin"), m_layerOrigin.x(), m_layerOrigin.y());
    m_vao->bind();
    glEnable(GL_SCISSOR_TEST);
    for (const QRect &region : regions) {
        glScissor(region.x(), region.y(), region.width(), region.height());
        glDrawArrays(GL_TRIANGLES, 0, 3);
    }
    glDisable(GL_SCISSOR_TEST);
    m_vao->release();
    m_composeProgram->release();
}

QList<QRect> EdrGlSurface::changedRegions(const EdrFrameState &state, QSize size, bool &panned)
{
    const int width = size.width(), height = size.height();
    const bool split = state.mode == EDRCompareMode::Split;
    if (differsOnlyInSplit(state, *m_shown)) {
        // Only the columns the divider crossed change (none in the single modes).
        return { split ? dividerColumns(state.splitX, m_shown->splitX, height)
                       : QRect(0, 0, 1, 1) };
    }
    const QPointF shift = state.placement.topLeft() - m_shown->placement.topLeft();
    const int dx = int(std::lround(shift.x())), dy = int(std::lround(shift.y()));
    EdrFrameState moved = *m_shown;
    moved.placement = state.placement;
    // A pan by whole pixels moves what is drawn.
    if (!differsOnlyInSplit(state, moved) || state.splitX != m_shown->splitX
        || std::abs(shift.x() - dx) > 1e-6 || std::abs(shift.y() - dy) > 1e-6
        || std::abs(dx) >= width || std::abs(dy) >= height)
        return {};
    // The layer wraps around: moving its origin against the pan moves the
    // picture without copying a pixel.
    panned = dx != 0 || dy != 0;
    m_layerOrigin = QPoint(((m_layerOrigin.x() - dx) % width + width) % width,
                           ((m_layerOrigin.y() - dy) % height + height) % height);
    QList<QRect> regions;
    if (dx != 0)
        regions.append(dx > 0 ? QRect(0, 0, dx, height) : QRect(width + dx, 0, -dx, height));
    if (dy != 0)
        regions.append(dy > 0 ? QRect(0, 0, width, dy) : QRect(0, height + dy, width, -dy));
    if (split) // the divider stays while the picture under it changes side
        regions.append(dividerColumns(state.splitX, state.splitX + dx, height));
    if (regions.isEmpty())
        regions.append(QRect(0, 0, 1, 1));
    return regions;
}

void EdrGlSurface::drawFrame(const EdrFrameState &state, QSizeF drawable, QPoint layerShift,
                             bool toLayer)
{
    glViewport(0, 0, int(drawable.width()), int(drawable.height()));
    if (!m_textures.hasTextures() || state.placement.isEmpty()) {
        // Nothing to compare yet: the backdrop only.
        if (state.encodeSrgb)
            glClearColor(0.3130f, 0.3325f, 0.3325f, 1.0f); // the backdrop, sRGB-encoded
        else
            glClearColor(0.08f, 0.09f, 0.09f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        return;
    }
    const QRectF &r = state.placement;
    // One level for the whole frame, chosen from the scale as
    // GL_LINEAR_MIPMAP_NEAREST would: per-pixel level selection costs llvmpipe
    // more than the filtering itself.
    const auto level = [&r](QSize texture) {
        const double lod = std::max(0.0, std::log2(texture.width() / r.width()));
        return lod <= 0.5 ? 0 : int(std::ceil(lod + 0.5)) - 1;
    };
    const EdrPictureTextures::Binding sdr = m_textures.sdrBinding(level(m_textures.sdrSize()));
    const EdrPictureTextures::Binding hdr = m_textures.hdrBinding(level(m_textures.hdrSize()));
    m_program->bind();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, sdr.texture);
    glActiveTexture(GL_TEXTURE1);
    glBindTexture(GL_TEXTURE_2D, hdr.texture);
    m_program->setUniformValue("sdrTexture", 0);
    m_program->setUniformValue("hdrTexture", 1);
    m_program->setUniformValue("placement", float(r.x()), float(r.y()), float(r.width()),
                               float(r.height()));
    m_program->setUniformValue("splitX", float(state.splitX));
    m_program->setUniformValue("mode", int(state.mode));
    m_program->setUniformValue("zebraOn", state.zebra ? 1.0f : 0.0f);
    m_program->setUniformValue("zebraThreshold", state.zebraThreshold);
    m_program->setUniformValue("shadowOn", state.shadowZebra ? 1.0f : 0.0f);
    m_program->setUniformValue("shadowThreshold", state.shadowThreshold);
    m_program->setUniformValue("filmicOn", state.filmic ? 1.0f : 0.0f);
    m_program->setUniformValue("filmicGain", state.filmicGain);
    m_program->setUniformValue("encodeSrgb", state.encodeSrgb ? 1 : 0);
    m_program->setUniformValue("toLayer", toLayer ? 1 : 0);
    m_program->setUniformValue("layerShift", QPointF(layerShift));
    m_program->setUniformValue("sdrLod", sdr.lod);
    m_program->setUniformValue("hdrLod", hdr.lod);
    m_vao->bind();
    glDrawArrays(GL_TRIANGLES, 0, 3);
    m_vao->release();
    m_program->release();
    glActiveTexture(GL_TEXTURE0);
}

QImage EdrGlSurface::renderLinear(QSize size)
{
    if (!isValid())
        return {};
    makeCurrent();
    if (!m_program) {
        doneCurrent();
        return {};
    }
    uploadPending(true);
    QOpenGLFramebufferObjectFormat format;
    format.setInternalTextureFormat(GL_RGBA16F);
    QOpenGLFramebufferObject fbo(size, format);
    fbo.bind();
    EdrFrameState state = m_source(QSizeF(size));
    state.encodeSrgb = false;
    drawFrame(state, QSizeF(size), {}, false);
    QImage image(size, QImage::Format_RGBA32FPx4);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, size.width(), size.height(), GL_RGBA, GL_FLOAT, image.bits());
    fbo.release();
    doneCurrent();
    return image.mirrored(); // GL rows run bottom-up
}

} // namespace orvanta
