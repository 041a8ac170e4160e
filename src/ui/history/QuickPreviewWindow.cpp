// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/QuickPreviewWindow.h"

#include "core/AppViewModel.h"
#include "document/PhotoDocumentCache.h"
#include "ui/Theme.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace orvanta {

using namespace Qt::StringLiterals;

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
    // Through the photo's shared document: a second look at the same photo
    // on the same screen decodes nothing.
    m_document = PhotoDocumentCache::shared().document(path);
    const QSize pixels = bounds * devicePixelRatioF();
    m_document->load(StageKey::preview(pixels), this, [this, document = m_document.get(), pixels] {
        if (document != m_document.get())
            return; // another photo was asked for meanwhile
        m_image = document->preview(pixels); // null when the file cannot be read
        update();
        Q_EMIT imageReady();
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
