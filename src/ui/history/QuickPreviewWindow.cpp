// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/QuickPreviewWindow.h"

#include "core/AppViewModel.h"
#include "media/MetadataService.h"
#include "ui/Theme.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QImageReader>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QThreadPool>

namespace orvanta {

using namespace Qt::StringLiterals;

QImage readPreviewImage(const QString &path, QSize bounds)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    if (size.isValid()) {
        if (reader.transformation() & QImageIOHandler::TransformationRotate90)
            size.transpose();
        if (size.width() > bounds.width() || size.height() > bounds.height())
            size.scale(bounds, Qt::KeepAspectRatio);
        QSize stored = size;
        if (reader.transformation() & QImageIOHandler::TransformationRotate90)
            stored.transpose();
        reader.setScaledSize(stored); // the JPEG decoder scales while decoding
    }
    return reader.read();
}

QuickPreviewWindow::QuickPreviewWindow(AppViewModel &model, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , m_model(model)
{
    setObjectName(u"historyQuickPreview"_s);
    setAttribute(Qt::WA_DeleteOnClose, false);
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, theme::kSurfaceSunken);
    setPalette(palette);
}

void QuickPreviewWindow::showFile(const QString &path, const QString &title)
{
    m_path = path;
    m_image = QImage();
    setWindowTitle(title);
    const QScreen *screen = this->screen() ? this->screen() : QGuiApplication::primaryScreen();
    const QSize available = screen ? screen->availableGeometry().size() : QSize(1280, 800);
    const QSize bounds = available * 0.8;
    resize(bounds.width(), bounds.height());
    show();
    raise();
    activateWindow();
    const quint64 request = ++m_request;
    const qreal dpr = devicePixelRatioF();
    QPointer<QuickPreviewWindow> self(this);
    MetadataService::pool().start([self, path, request, bounds, dpr] {
        QImage image = readPreviewImage(path, bounds * dpr);
        QMetaObject::invokeMethod(
            qApp,
            [self, request, image = std::move(image)] {
                // Only the newest request counts: an older one may finish later.
                if (!self || request != self->m_request)
                    return;
                self->m_image = image;
                self->update();
                Q_EMIT self->imageReady();
            },
            Qt::QueuedConnection);
    });
}

void QuickPreviewWindow::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), theme::kSurfaceSunken);
    if (m_image.isNull())
        return;
    const QSizeF logical = QSizeF(m_image.size()) / devicePixelRatioF();
    const QSizeF fitted = logical.width() > width() || logical.height() > height()
        ? logical.scaled(size(), Qt::KeepAspectRatio)
        : logical;
    const QRectF target((width() - fitted.width()) / 2, (height() - fitted.height()) / 2,
                        fitted.width(), fitted.height());
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(target, m_image);
}

void QuickPreviewWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace orvanta
