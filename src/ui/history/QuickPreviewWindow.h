// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The quick preview: a frameless-feeling window that shows one photo scaled
// to the screen, decoded off the main thread; Space or Escape closes it.
// Main thread.
#pragma once

#include <QImage>
#include <QWidget>

#include <memory>

namespace orvanta {

class AppViewModel;
class PhotoDocument;

class QuickPreviewWindow : public QWidget
{
    Q_OBJECT

public:
    explicit QuickPreviewWindow(AppViewModel &model, QWidget *parent = nullptr);

    // Shows the window at once and the picture as soon as it is decoded.
    void showFile(const QString &path, const QString &title);
    QString path() const { return m_path; }
    bool hasImage() const { return !m_image.isNull(); }
    QSize imageSize() const { return m_image.size(); }

Q_SIGNALS:
    void imageReady();

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    AppViewModel &m_model;
    QString m_path;
    QImage m_image;
    std::shared_ptr<PhotoDocument> m_document;
};

} // namespace orvanta
