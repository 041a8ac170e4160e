// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/EdrPictureTextures.h"

#include "hdr/EdrKernels.h"

#include <algorithm>
#include <memory>

namespace orvanta {

EdrPictureTextures::EdrPictureTextures(QObject *context, std::function<void()> reducedReady)
    : m_context(context)
    , m_reducedReady(std::move(reducedReady))
{
    // One thread per side of the pair.
    m_pool.setMaxThreadCount(2);
}

EdrPictureTextures::~EdrPictureTextures()
{
    m_pool.waitForDone();
}

void EdrPictureTextures::initialize()
{
    m_gl.initializeOpenGLFunctions();
}

void EdrPictureTextures::release()
{
    for (Side *side : { &m_sdr, &m_hdr }) {
        for (unsigned *texture : { &side->reduced, &side->detail, &side->nextReduced }) {
            if (*texture)
                m_gl.glDeleteTextures(1, texture);
            *texture = 0;
        }
        side->reducedStorage = side->detailStorage = side->nextReducedStorage = QSize();
        side->hasDetail = false;
        side->pendingDetail = QImage();
    }
    m_hasTextures = false;
}

void EdrPictureTextures::setPictures(const QImage &sdr, const QImage &hdr)
{
    m_pendingSdr = sdr;
    m_pendingHdr = hdr;
    ++m_generation;
    if (sdr.isNull() || hdr.isNull()) {
        m_pendingSdr = m_pendingHdr = QImage();
        return;
    }
    m_sdrLevels = average(sdr, m_generation);
    m_hdrLevels = average(hdr, m_generation);
}

std::shared_future<EdrPictureTextures::Levels> EdrPictureTextures::average(const QImage &picture,
                                                                           int generation)
{
    auto promise = std::make_shared<std::promise<Levels>>();
    std::shared_future<Levels> levels = promise->get_future().share();
    // The pool's destructor waits for this task, and the call it posts is
    // dropped with the context, so neither outlives what it uses.
    m_pool.start([this, picture, promise, generation] {
        promise->set_value(edr::reducedLevels(picture));
        QMetaObject::invokeMethod(
            m_context,
            [this, generation] {
                if (generation == m_generation)
                    m_reducedReady();
            },
            Qt::QueuedConnection);
    });
    return levels;
}

void EdrPictureTextures::prepareStorage()
{
    if (!hasPending())
        return;
    prepareSide(m_sdr, m_pendingSdr.size());
    prepareSide(m_hdr, m_pendingHdr.size());
}

void EdrPictureTextures::prepareSide(Side &side, QSize size)
{
    // The sizes reducedLevels() will return: each level half the one before, down to 1x1.
    const QSize half(std::max(1, size.width() / 2), std::max(1, size.height() / 2));
    int levels = 0;
    for (int length = std::max(size.width(), size.height()); length > 1; length /= 2)
        ++levels;
    // The current pair's storage is drawn from until the new pair replaces it.
    if (levels == 0 || (side.reduced && side.reducedStorage == half))
        return;
    allocate(side.nextReduced, side.nextReducedStorage, half, levels);
}

bool EdrPictureTextures::uploadReduced(bool wait)
{
    if (!hasPending())
        return false;
    const auto ready = [](const std::shared_future<Levels> &f) {
        return f.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    };
    if (!wait && !(ready(m_sdrLevels) && ready(m_hdrLevels)))
        return false;
    uploadReducedSide(m_sdr, m_pendingSdr, m_sdrLevels.get());
    uploadReducedSide(m_hdr, m_pendingHdr, m_hdrLevels.get());
    m_sdrLevels = m_hdrLevels = {};
    m_pendingSdr = m_pendingHdr = QImage();
    m_hasTextures = true;
    return true;
}

bool EdrPictureTextures::uploadNextDetail(bool *sideDone)
{
    // The HDR side first: the split opens with it on the larger half.
    Side &side = m_hdr.pendingDetail.isNull() ? m_sdr : m_hdr;
    const bool done = !side.pendingDetail.isNull() && uploadDetailBand(side);
    if (sideDone)
        *sideDone = done;
    return detailPending();
}

void EdrPictureTextures::uploadReducedSide(Side &side, const QImage &picture, const Levels &levels)
{
    side.size = picture.size();
    // The full resolution of the previous pair no longer matches.
    side.hasDetail = false;
    side.pendingDetail = picture;
    side.detailRows = 0;
    if (levels.empty()) {
        // A single pixel has no reduced levels: its full resolution is all there is.
        if (side.reduced)
            m_gl.glDeleteTextures(1, &side.reduced);
        side.reduced = 0;
        side.reducedStorage = QSize();
        while (!uploadDetailBand(side)) { }
        return;
    }
    if (side.nextReduced) {
        // Storage made for this pair replaces the old; storage made for a pair
        // that never showed is let go.
        const bool fits = side.nextReducedStorage == levels.front().size();
        unsigned &unused = fits ? side.reduced : side.nextReduced;
        if (unused)
            m_gl.glDeleteTextures(1, &unused);
        if (fits) {
            side.reduced = side.nextReduced;
            side.reducedStorage = side.nextReducedStorage;
        }
        side.nextReduced = 0;
        side.nextReducedStorage = QSize();
    }
    allocate(side.reduced, side.reducedStorage, levels.front().size(), int(levels.size()));
    for (std::size_t i = 0; i < levels.size(); ++i)
        uploadLevel(int(i), levels[i]);
}

bool EdrPictureTextures::uploadDetailBand(Side &side)
{
    const QImage &picture = side.pendingDetail;
    if (side.detailRows == 0)
        allocate(side.detail, side.detailStorage, picture.size(), 1);
    else
        m_gl.glBindTexture(GL_TEXTURE_2D, side.detail);
    // About 16 MB a band: a few tens of milliseconds for a software driver.
    const int band = int(std::max<qsizetype>(1, (qsizetype(16) << 20) / picture.bytesPerLine()));
    const int rows = std::min(band, picture.height() - side.detailRows);
    uploadLevel(0, picture, side.detailRows, rows);
    side.detailRows += rows;
    if (side.detailRows < picture.height())
        return false;
    side.pendingDetail = QImage(); // the viewer keeps what it needs of the picture
    side.detailRows = 0;
    side.hasDetail = true;
    return true;
}

void EdrPictureTextures::allocate(unsigned &texture, QSize &storage, QSize size, int levels)
{
    if (texture && storage == size) {
        // Photos from one camera share a size: overwriting keeps the storage,
        // whose allocation is the slowest part of an upload.
        m_gl.glBindTexture(GL_TEXTURE_2D, texture);
        return;
    }
    if (texture)
        m_gl.glDeleteTextures(1, &texture); // storage of a fixed size cannot be resized
    m_gl.glGenTextures(1, &texture);
    m_gl.glBindTexture(GL_TEXTURE_2D, texture);
    // Every level at once: levels given one by one would make the driver
    // allocate and then copy the whole chain again before the first draw.
    m_gl.glTexStorage2D(GL_TEXTURE_2D, levels, GL_RGBA16F, size.width(), size.height());
    storage = size;
    // A frame reads the one level its scale calls for (bilinear within it), so
    // it never filters the whole picture and costs two texel reads at most.
    // Both textures of a side filter alike (a single level needs no mipmap
    // filter), as a software driver builds its shaders anew for each filter.
    m_gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR_MIPMAP_NEAREST);
    m_gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    m_gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
    m_gl.glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
}

void EdrPictureTextures::uploadLevel(int level, const QImage &image, int firstRow, int rows)
{
    if (rows < 0)
        rows = image.height() - firstRow;
    // The pictures are half floats already, so the driver copies rows as they are.
    m_gl.glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    m_gl.glPixelStorei(GL_UNPACK_ROW_LENGTH, int(image.bytesPerLine() / 8));
    m_gl.glTexSubImage2D(GL_TEXTURE_2D, level, 0, firstRow, image.width(), rows, GL_RGBA,
                         GL_HALF_FLOAT, image.constScanLine(firstRow));
    m_gl.glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
}

EdrPictureTextures::Binding EdrPictureTextures::binding(const Side &side, int level)
{
    if (side.hasDetail && (level <= 0 || !side.reduced))
        return { side.detail, 0 };
    return { side.reduced, float(std::max(0, level - 1)) };
}

} // namespace orvanta
