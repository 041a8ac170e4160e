// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The photo pair of the EDR viewer as OpenGL textures, uploaded in stages so a
// new pair shows before all of it is on the GPU. Main thread, with the
// surface's context current; the reduced levels are averaged on a pool of its own.
#pragma once

#include <QImage>
#include <QObject>
#include <QOpenGLExtraFunctions>
#include <QSize>
#include <QThreadPool>

#include <functional>
#include <future>
#include <vector>

namespace orvanta {

// Each side has two textures: the reduced levels (half, quarter, ... of the
// picture) in one mipmapped texture, and the full resolution alone in another.
// Zoomed-out views, the first frame among them, need only the small one;
// allocating the large one costs a software driver more than the rest of the
// upload together, so it follows once the first frame is on screen.
class EdrPictureTextures
{
public:
    // `reducedReady` runs on the main thread (through `context`) when the
    // levels of the latest pair are averaged and uploadReduced() can proceed.
    EdrPictureTextures(QObject *context, std::function<void()> reducedReady);
    ~EdrPictureTextures();

    // With the context current: once after it is made, and before it goes.
    void initialize();
    void release();

    // Starts averaging the levels of the next pair (RGBA16FPx4, linear); the
    // textures of the current pair stay until uploadReduced() replaces them.
    void setPictures(const QImage &sdr, const QImage &hdr);
    // With the context current: allocates the reduced levels' storage for the
    // pending pair while the pool averages them (the driver zeroes it page by
    // page, which takes about as long).
    void prepareStorage();
    bool hasPending() const { return !m_pendingSdr.isNull(); }
    bool hasTextures() const { return m_hasTextures; }
    // Whether some side still lacks its full resolution.
    bool detailPending() const
    {
        return !m_sdr.pendingDetail.isNull() || !m_hdr.pendingDetail.isNull();
    }

    // Puts the reduced levels of the pending pair on the GPU when they are
    // averaged (`wait`: blocks until they are). True when a new pair became drawable.
    bool uploadReduced(bool wait);
    // Uploads the next band of rows of a side's full resolution (bands of a
    // few megabytes, so input and frames come between them); true while more
    // remains. `sideDone` tells whether a side's full resolution became readable.
    bool uploadNextDetail(bool *sideDone = nullptr);

    // The texture and level to read for mipmap level `level` of a side's
    // picture: the full resolution for 0 once it is there, else the reduced
    // texture's nearest level.
    struct Binding
    {
        unsigned texture = 0;
        float lod = 0;
    };
    Binding sdrBinding(int level) const { return binding(m_sdr, level); }
    Binding hdrBinding(int level) const { return binding(m_hdr, level); }
    QSize sdrSize() const { return m_sdr.size; }
    QSize hdrSize() const { return m_hdr.size; }

private:
    struct Side
    {
        unsigned reduced = 0; // levels 1, 2, ... of the picture
        unsigned detail = 0; // level 0
        unsigned nextReduced = 0; // allocated for the pending pair
        QSize nextReducedStorage;
        QSize size;
        QSize reducedStorage; // storage sizes, kept for the next pair of the same size
        QSize detailStorage;
        bool hasDetail = false;
        QImage pendingDetail; // the picture whose level 0 is still to upload
        int detailRows = 0; // rows of it already on the GPU
    };
    using Levels = std::vector<QImage>;

    std::shared_future<Levels> average(const QImage &picture, int generation);
    void prepareSide(Side &side, QSize size);
    void uploadReducedSide(Side &side, const QImage &picture, const Levels &levels);
    bool uploadDetailBand(Side &side);
    void allocate(unsigned &texture, QSize &storage, QSize size, int levels);
    void uploadLevel(int level, const QImage &image, int firstRow = 0, int rows = -1);
    static Binding binding(const Side &side, int level);

    QObject *m_context;
    std::function<void()> m_reducedReady;
    QOpenGLExtraFunctions m_gl;
    Side m_sdr;
    Side m_hdr;
    bool m_hasTextures = false;
    QImage m_pendingSdr;
    QImage m_pendingHdr;
    std::shared_future<Levels> m_sdrLevels;
    std::shared_future<Levels> m_hdrLevels;
    int m_generation = 0;
    // Declared last so it is destroyed first: its tasks post to the context.
    QThreadPool m_pool;
};

} // namespace orvanta
