// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The EDR viewer of the compare window: the photo pair across a divider, or
// one side alone, with zoom, pan, zebra stripes and a filmic view of HDR
// highlights on a standard display. Owns the state and input rules and draws
// through an OpenGL surface; where no OpenGL context can be made it says so
// in its area instead. Main thread; pictures are decoded on the thread pool.
#pragma once

#include "document/PicturePairLoader.h"
#include "hdr/EdrKernels.h"
#include "hdr/EdrViewerModel.h"
#include "hdr/EdrViewerTypes.h"

#include <QImage>
#include <QPoint>
#include <QWidget>

#include <functional>
#include <optional>

class QLabel;

namespace orvanta {

class EdrGlSurface;
struct EdrFrameState;

struct EdrViewerSettings
{
    double splitPosition = 0.5;
    EDRCompareMode compareMode = EDRCompareMode::Split;
    bool zebraEnabled = false;
    float zebraThreshold = 1.0f;
    SDRToneMapMode toneMapMode = SDRToneMapMode::Natural;
    // Additions of ours: stripes over deep shadows, and the headroom the
    // filmic view pretends to have so highlights above 1.0 stay apart.
    bool shadowZebraEnabled = false;
    float shadowThreshold = 0.02f;
    double simulatedHeadroom = 1.0;
};

struct EdrPixelReadout
{
    QPoint pixel; // in the HDR picture
    edr::Rgba value; // linear, extended
};

class EdrViewer : public QWidget
{
    Q_OBJECT
public:
    explicit EdrViewer(const QString &noGlText, QWidget *parent = nullptr);
    ~EdrViewer() override;

    // Whether this process can draw with OpenGL (false on the offscreen platform).
    static bool openGlAvailable();
    bool isDrawing() const { return m_surface != nullptr; }
    EdrGlSurface *surface() const { return m_surface; }

    // Decodes the pair in the background; the old pictures stay until it is ready.
    void loadImages(const QString &sdrPath, const QString &hdrPath);
    // Shows an already decoded pair (RGBA16FPx4, linear) at once.
    void setPictures(const EdrPicturePair &pair);
    QString currentSdrPath() const { return m_sdrPath; }
    QString currentHdrPath() const { return m_hdrPath; }
    bool isLoading() const { return m_loadGeneration != m_shownGeneration; }
    QSizeF imageSize() const { return m_imageSize; }
    bool sdrFromHdrFile() const { return m_sdrFromHdrFile; }

    void updateState(const EdrViewerSettings &settings);
    const EdrViewerSettings &settings() const { return m_settings; }
    const EdrViewerModel &model() const { return m_model; }

    // The frame the surface draws now, for a drawable of `drawable` pixels.
    EdrFrameState frameState(QSizeF drawable) const;
    double displayHeadroom() const;

    std::function<void(double)> onSplitChanged;

Q_SIGNALS:
    void picturesLoaded();
    void pixelReadoutChanged(std::optional<orvanta::EdrPixelReadout> readout);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    EdrViewerModel::Viewport viewport() const;
    void apply(EdrViewerModel::Effects effects);
    void showPair(const EdrPicturePair &pair);
    void updateReadout(QPointF point);

    EdrGlSurface *m_surface = nullptr;
    QLabel *m_fallback = nullptr;
    EdrViewerModel m_model;
    EdrViewerSettings m_settings;
    QString m_sdrPath;
    QString m_hdrPath;
    QImage m_hdr; // kept for the pixel readout
    QSizeF m_imageSize { 0, 0 };
    bool m_sdrFromHdrFile = false;
    int m_loadGeneration = 0;
    int m_shownGeneration = 0;
};

} // namespace orvanta

Q_DECLARE_METATYPE(orvanta::EdrPixelReadout)
