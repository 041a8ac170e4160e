// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/EdrGlSurface.h"

#include "hdr/EdrKernels.h"

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

namespace {

// One triangle that covers the whole viewport; no vertex buffer needed.
constexpr auto kVertexShader = R"(#version 330 core
void main() {
    vec2 corner = vec2(float((gl_VertexID << 1) & 2), float(gl_VertexID & 2));
    gl_Position = vec4(corner * 2.0 - 1.0, 0.0, 1.0);
}
)";

QString fragmentShader()
{
    QString source = u"#version 330 core\n"_s;
    source += edr::filmicRollOffGlsl();
    source += edr::zebraFilterGlsl();
    source += edr::shadowZebraFilterGlsl();
    source += uR"(
uniform sampler2D sdrTexture;
uniform sampler2D hdrTexture;
uniform vec4 placement;      // x, y, width, height in drawable pixels, y up
uniform float splitX;
uniform int mode;            // 0 split, 1 HDR only, 2 SDR only
uniform float zebraOn;
uniform float zebraThreshold;
uniform float shadowOn;
uniform float shadowThreshold;
uniform float filmicOn;
uniform float filmicGain;
uniform int encodeSrgb;
uniform float sdrLod;        // mipmap level, fixed per frame: the scale is the same everywhere
uniform float hdrLod;
uniform int toLayer;         // 1: sRGB picture without stripes, stripe kind in alpha
out vec4 fragColor;

vec3 srgbEncode(vec3 c) {
    c = clamp(c, 0.0, 1.0);
    return mix(c * 12.92, 1.055 * pow(c, vec3(1.0 / 2.4)) - 0.055, step(vec3(0.0031308), c));
}

// 2: shadow stripes (they cover the highlight ones), 1: highlight stripes, 0: none.
float hdrStripeKind(vec4 hdr) {
    vec4 probe = vec4(-1.0);
    if (shadowZebraFilter(probe, hdr, ivec2(0), shadowThreshold, shadowOn) != probe)
        return 2.0;
    return zebraFilter(probe, hdr, ivec2(0), zebraThreshold, zebraOn) != probe ? 1.0 : 0.0;
}

void main() {
    vec2 p = gl_FragCoord.xy;
    vec4 color = vec4(0.08, 0.09, 0.09, 1.0);
    vec2 uv = (p - placement.xy) / placement.zw;
    if (all(greaterThanEqual(uv, vec2(0.0))) && all(lessThan(uv, vec2(1.0)))) {
        vec2 tc = vec2(uv.x, 1.0 - uv.y);
        bool sdrSide = mode == 2 || (mode == 0 && p.x < splitX);
        // Each side reads only the textures it needs: one per pixel unless
        // the stripes need the HDR reference under the SDR side too.
        vec4 hdr = vec4(0.0);
        if (!sdrSide || zebraOn > 0.5 || shadowOn > 0.5)
            hdr = textureLod(hdrTexture, tc, hdrLod);
        vec4 picture;
        if (sdrSide)
            picture = textureLod(sdrTexture, tc, sdrLod);
        else
            picture = filmicOn > 0.5 ? filmicRollOff(vec4(hdr.rgb * filmicGain, hdr.a)) : hdr;
        if (toLayer != 0) {
            float kind = hdrStripeKind(hdr);
            color = vec4(picture.rgb * picture.a + color.rgb * (1.0 - picture.a), 1.0);
            fragColor = vec4(srgbEncode(color.rgb), kind / 255.0);
            return;
        }
        ivec2 pixel = ivec2(floor(p));
        picture = zebraFilter(picture, hdr, pixel, zebraThreshold, zebraOn);
        picture = shadowZebraFilter(picture, hdr, pixel, shadowThreshold, shadowOn);
        color = vec4(picture.rgb * picture.a + color.rgb * (1.0 - picture.a), 1.0);
    }
    if (toLayer != 0) {
        fragColor = vec4(srgbEncode(color.rgb), 0.0);
        return;
    }
    if (mode == 0 && p.x >= splitX - 1.0 && p.x < splitX + 1.0)
        color = vec4(vec3(0.95) + color.rgb * 0.05, 1.0);
    fragColor = encodeSrgb != 0 ? vec4(srgbEncode(color.rgb), 1.0) : color;
}
)"_s;
    return source;
}

// Puts the cached picture layer on screen, adding the stripes where its alpha
// says so: the stripes follow the screen, the layer follows the picture.
QString composeShader()
{
    QString source = u"#version 330 core\n"_s;
    source += edr::zebraFilterGlsl();
    source += edr::shadowZebraFilterGlsl();
    source += uR"(
uniform sampler2D layer;
out vec4 fragColor;

vec3 srgbEncode(vec3 c) {
    c = clamp(c, 0.0, 1.0);
    return mix(c * 12.92, 1.055 * pow(c, vec3(1.0 / 2.4)) - 0.055, step(vec3(0.0031308), c));
}

void main() {
    ivec2 pixel = ivec2(floor(gl_FragCoord.xy));
    vec4 stored = texelFetch(layer, pixel, 0);
    int kind = int(stored.a * 255.0 + 0.5);
    vec4 color = vec4(stored.rgb, 1.0);
    // The kernels decide the stripe colour; a reference past any threshold asks for it.
    if (kind == 1)
        color = vec4(srgbEncode(zebraFilter(color, vec4(1.0), pixel, 0.0, 1.0).rgb), 1.0);
    else if (kind == 2)
        color = vec4(srgbEncode(shadowZebraFilter(color, vec4(0.0), pixel, 1.0, 1.0).rgb), 1.0);
    fragColor = color;
}
)"_s;
    return source;
}

} // namespace

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
    m_scratch.reset();
    m_layer.reset();
    m_vao.reset();
    m_composeProgram.reset();
    m_program.reset();
}

void EdrGlSurface::setPictures(const QImage &sdr, const QImage &hdr)
{
    m_textures.setPictures(sdr, hdr);
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
    if (!program->addShaderFromSourceCode(QOpenGLShader::Vertex, kVertexShader)
        || !program->addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentShader())
        || !program->link()) {
        qWarning("EDR viewer: shader build failed: %s", qPrintable(program->log()));
        return;
    }
    auto compose = std::make_unique<QOpenGLShaderProgram>();
    if (!compose->addShaderFromSourceCode(QOpenGLShader::Vertex, kVertexShader)
        || !compose->addShaderFromSourceCode(QOpenGLShader::Fragment, composeShader())
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
    if (!m_textures.uploadReduced(wait))
        return;
    m_shown.reset();
    Q_EMIT picturesUploaded();
    if (wait) {
        while (m_textures.uploadNextDetail()) { }
        Q_EMIT detailUploaded();
    } else {
        // After this frame is on screen.
        QMetaObject::invokeMethod(this, &EdrGlSurface::uploadDetail, Qt::QueuedConnection);
    }
}

void EdrGlSurface::uploadDetail()
{
    if (!m_textures.detailPending() || !isValid())
        return;
    makeCurrent();
    const bool more = m_textures.uploadNextDetail();
    doneCurrent();
    m_shown.reset(); // the last frame may have read a reduced level in its place
    update();
    if (more) // one side per turn, so input and frames come between them
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
    return m_textures.hasTextures() && !state.placement.isEmpty() && state.encodeSrgb
        && (state.zebra || state.shadowZebra);
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
    // With stripes on, the picture is drawn into a layer that pans like the
    // picture, and a cheap pass adds the stripes, which stay put on screen.
    const bool layered = usesLayer(state);
    if (layered && (!m_layer || m_layer->size() != drawable.toSize())) {
        m_layer = std::make_unique<QOpenGLFramebufferObject>(drawable.toSize());
        m_shown.reset();
    }
    const GLuint target = layered ? m_layer->handle() : defaultFramebufferObject();
    const QList<QRect> regions = m_shown && m_textures.hasTextures()
        ? changedRegions(state, drawable, target)
        : QList<QRect>();
    glBindFramebuffer(GL_FRAMEBUFFER, target);
    drawRegions(state, drawable, regions, layered);
    if (layered) {
        glBindFramebuffer(GL_FRAMEBUFFER, defaultFramebufferObject());
        composeLayer(drawable);
        if (state.mode == EDRCompareMode::Split)
            drawRegions(state, drawable,
                        { dividerColumns(state.splitX, state.splitX, int(drawable.height())) },
                        false);
    }
    m_shown = m_textures.hasTextures() ? std::optional(state) : std::nullopt;
    if (m_finishEachFrame)
        glFinish();
    m_lastPaintMs = timer.nsecsElapsed() / 1e6;
}

void EdrGlSurface::drawRegions(const EdrFrameState &state, QSizeF drawable,
                               const QList<QRect> &regions, bool toLayer)
{
    if (regions.isEmpty()) {
        drawFrame(state, drawable, toLayer);
        return;
    }
    glEnable(GL_SCISSOR_TEST);
    for (const QRect &r : regions) {
        glScissor(r.x(), r.y(), r.width(), r.height());
        drawFrame(state, drawable, toLayer);
    }
    glDisable(GL_SCISSOR_TEST);
}

void EdrGlSurface::composeLayer(QSizeF drawable)
{
    glViewport(0, 0, int(drawable.width()), int(drawable.height()));
    m_composeProgram->bind();
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, m_layer->texture());
    m_composeProgram->setUniformValue("layer", 0);
    m_vao->bind();
    glDrawArrays(GL_TRIANGLES, 0, 3);
    m_vao->release();
    m_composeProgram->release();
}

QList<QRect> EdrGlSurface::changedRegions(const EdrFrameState &state, QSizeF drawable,
                                          unsigned target)
{
    const int width = int(drawable.width()), height = int(drawable.height());
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
    shiftFramebuffer(target, dx, dy, QSize(width, height));
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

void EdrGlSurface::shiftFramebuffer(unsigned target, int dx, int dy, QSize size)
{
    if (!m_scratch || m_scratch->size() != size)
        m_scratch = std::make_unique<QOpenGLFramebufferObject>(size);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, target);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_scratch->handle());
    glBlitFramebuffer(0, 0, size.width(), size.height(), 0, 0, size.width(), size.height(),
                      GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_scratch->handle());
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, target);
    glBlitFramebuffer(0, 0, size.width(), size.height(), dx, dy, size.width() + dx,
                      size.height() + dy, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    glBindFramebuffer(GL_FRAMEBUFFER, target);
}

void EdrGlSurface::drawFrame(const EdrFrameState &state, QSizeF drawable, bool toLayer)
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
    drawFrame(state, QSizeF(size), false);
    QImage image(size, QImage::Format_RGBA32FPx4);
    glPixelStorei(GL_PACK_ALIGNMENT, 4);
    glReadPixels(0, 0, size.width(), size.height(), GL_RGBA, GL_FLOAT, image.bits());
    fbo.release();
    doneCurrent();
    return image.mirrored(); // GL rows run bottom-up
}

} // namespace orvanta
