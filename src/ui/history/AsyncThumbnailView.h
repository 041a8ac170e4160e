// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A small picture of a photo file: asks the thumbnail manager for the
// delivered file (falling back to the camera JPEG) at twice its size, shows a
// placeholder while loading, a missing-file mark when neither file exists,
// and fades the picture in when it arrives. Main thread.
#pragma once

#include "thumbnails/ThumbnailManager.h"
#include "ui/history/RowMediaStore.h"

#include <QImage>
#include <QWidget>

class QVariantAnimation;

namespace orvanta {

class AsyncThumbnailView : public QWidget
{
    Q_OBJECT

public:
    explicit AsyncThumbnailView(QSize points, QWidget *parent = nullptr,
                                ThumbnailManager &manager = ThumbnailManager::shared());
    ~AsyncThumbnailView() override;

    // Loads again whenever the target changes.
    void setPaths(const QString &targetPath, const QString &fallbackPath);

    RowMediaStore::ThumbState state() const { return m_state; }
    bool isLoading() const { return m_loading; }
    const QImage &image() const { return m_image; }
    // The pixel size asked for: the larger side in points, times two.
    int requestedPixelSize() const;

    QSize sizeHint() const override { return m_points; }

Q_SIGNALS:
    void finished();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void load();
    void apply(const ThumbnailResult &result);

    ThumbnailManager &m_manager;
    QSize m_points;
    QString m_target;
    QString m_fallback;
    ThumbnailManager::Ticket m_ticket = 0;
    RowMediaStore::ThumbState m_state = RowMediaStore::ThumbState::Loading;
    bool m_loading = true;
    QImage m_image;
    QVariantAnimation *m_fade = nullptr;
};

} // namespace orvanta
