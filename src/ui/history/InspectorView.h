// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The metadata and HDR inspector for one history record: camera, exposure,
// the HDR figures the engine recorded plus what the file's gain map really
// carries, the file's histogram, file size and the display's headroom.
// Read-only. Main thread; files are read in the background.
#pragma once

#include "document/PhotoReader.h"
#include "history/HistoryTypes.h"
#include "media/ProPhotoMetadata.h"

#include <QWidget>

#include <functional>
#include <memory>

class QLabel;
class QVBoxLayout;

namespace orvanta {

class AppViewModel;
class AsyncThumbnailView;
class EngineVersion;
class HdrHistogramView;
class PhotoDocument;

class InspectorView : public QWidget
{
    Q_OBJECT

public:
    using HeadroomProvider = std::function<double()>;
    using EnginePathProvider = std::function<QString()>;

    explicit InspectorView(AppViewModel &model, QWidget *parent = nullptr);

    void setRecord(const PhotoRecord &record);
    const PhotoRecord &record() const { return m_record; }
    // The file read: output, else JPG, else RAW, the first that exists.
    QString targetPath() const { return m_targetPath; }
    const ProPhotoMetadata &metadata() const { return m_metadata; }
    // The value shown beside a label key; null when that row is not shown.
    QString valueText(const QString &labelKey) const;
    // The display's headroom (1.0 on an SDR display; Qt on Linux has no
    // HDR output yet, so that is the default).
    void setDisplayHeadroomProvider(HeadroomProvider provider);
    // Where the engine whose version is shown lives; by default the engine
    // a batch would start. Asked again at every rebuild, so a changed
    // configuration shows at once.
    void setEnginePathProvider(EnginePathProvider provider);
    HdrHistogramView *histogram() const { return m_histogram; }
    AsyncThumbnailView *thumbnail() const { return m_thumbnail; }

Q_SIGNALS:
    void closeRequested();
    // The file's metadata and gain map have been read for the current record.
    void loaded();

private:
    void rebuild();
    QWidget *buildCameraSection();
    QWidget *buildExposureSection();
    QWidget *buildHdrRows();
    QWidget *buildFileSection();
    QString gainMapText() const;
    QString displayText() const;
    QString engineVersionText();

    AppViewModel &m_model;
    PhotoRecord m_record;
    QString m_targetPath;
    ProPhotoMetadata m_metadata;
    GainMapSummary m_gainMap;
    HeadroomProvider m_headroom;
    EnginePathProvider m_enginePath;
    EngineVersion *m_engineVersion = nullptr;
    std::shared_ptr<PhotoDocument> m_document;
    bool m_fileRead = false; // metadata and gain map of the current record are in
    QLabel *m_title = nullptr;
    QLabel *m_stem = nullptr;
    AsyncThumbnailView *m_thumbnail = nullptr;
    QVBoxLayout *m_upper = nullptr;
    QVBoxLayout *m_lower = nullptr;
    HdrHistogramView *m_histogram = nullptr;
};

} // namespace orvanta
