// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The compare window's content: one processed photo as a camera-JPEG /
// Ultra HDR pair on the EDR viewer, stepping through the history list it was
// opened from, with the toolbar, the standard-display banner, the side
// labels, the floating histogram, the footer hints, the inspector at the
// trailing side, the keyboard shortcuts and the clean (picture-only) mode.
// Main thread.
#pragma once

#include "hdr/EdrViewerTypes.h"
#include "history/HistoryTypes.h"
#include "ui/compare/EdrViewer.h"

#include <QList>
#include <QWidget>

class QLabel;

namespace orvanta {

class AppViewModel;
class CompareToolbar;
class FileManager;
class ComparePanelProvider;
class SdrBanner;

struct CompareState
{
    double splitPosition = 0.5;
    EDRCompareMode compareMode = EDRCompareMode::Split;
    bool isInspectorPresented = false;
    bool isZebraEnabled = false;
    float zebraThreshold = 1.0f;
    bool isHistogramPresented = false;
    bool isCleanMode = false;
    SDRToneMapMode sdrToneMapMode = SDRToneMapMode::Natural;
    bool isShadowZebraEnabled = false;
    float shadowThreshold = 0.02f;
    double simulatedHeadroom = 1.0;

    friend bool operator==(const CompareState &, const CompareState &) = default;
};

class HDRCompareView : public QWidget
{
    Q_OBJECT
public:
    // The size a compare window opens at on a screen that has room for it.
    static constexpr QSize kDefaultSize { 1280, 800 };
    static constexpr QSize kMinimumSize { 800, 560 };
    // The floating histogram is at least this wide, so its title and legend
    // read on one or two lines.
    static constexpr int kFloatingHistogramWidth = 330;

    // `provider` may be null: the inspector and histogram toggles are then hidden.
    HDRCompareView(AppViewModel &model, const PhotoRecord &record,
                   const QList<PhotoRecord> &allRecords, ComparePanelProvider *provider,
                   QWidget *parent = nullptr);
    ~HDRCompareView() override;

    const PhotoRecord &currentRecord() const { return m_currentRecord; }
    const QList<PhotoRecord> &allRecords() const { return m_allRecords; }
    int currentIndex() const { return m_currentIndex; }
    const CompareState &state() const { return m_state; }
    EdrViewer *viewer() const { return m_viewer; }
    QWidget *inspector() const { return m_inspector; }
    QWidget *histogram() const { return m_histogram; }

    // The file behind each side, or empty when the record has none on disk.
    static QString sdrPath(const PhotoRecord &record);
    static QString hdrPath(const PhotoRecord &record);

    void showPreviousPhoto();
    void showNextPhoto();
    void setState(const CompareState &state);

Q_SIGNALS:
    void stateChanged();
    void recordChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void updateMinimumSize();
    void takeMoreHistory();
    void updatePosition();
    void buildLayout();
    void connectControls();
    void installShortcuts();
    void retranslate();
    void showRecord();
    void sync();
    void syncControls();
    void syncVisibility();
    void makeRoomForInspector();
    void placeOverlays();
    void showReadout(const std::optional<EdrPixelReadout> &readout);
    QLabel *overlayLabel(const QString &name);
    template<typename Change> void change(Change &&apply)
    {
        CompareState next = m_state;
        apply(next);
        setState(next);
    }

    AppViewModel &m_model;
    ComparePanelProvider *m_provider = nullptr;
    PhotoRecord m_currentRecord;
    QList<PhotoRecord> m_allRecords;
    int m_currentIndex = 0;
    // Opened on the history's loaded list: counts every matching photo and
    // pages further through the history at the end of what is loaded.
    bool m_followsHistory = false;
    bool m_advanceWhenLoaded = false;
    CompareState m_state;

    CompareToolbar *m_toolbar = nullptr;
    SdrBanner *m_banner = nullptr;
    EdrViewer *m_viewer = nullptr;
    QWidget *m_footer = nullptr;
    QLabel *m_dragHint = nullptr;
    QLabel *m_zoomHint = nullptr;
    QLabel *m_sdrLabel = nullptr;
    QLabel *m_hdrLabel = nullptr;
    QLabel *m_notice = nullptr;
    QLabel *m_readout = nullptr;
    QWidget *m_inspector = nullptr;
    QWidget *m_inspectorPane = nullptr; // scrolls the inspector when it is taller than the window
    QWidget *m_histogram = nullptr;
    FileManager *m_fileManager = nullptr;
};

} // namespace orvanta
