// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/AsyncThumbnailView.h"

#include "ui/history/HistoryRowDelegate.h"

#include <QEasingCurve>
#include <QPainter>
#include <QVariantAnimation>

namespace orvanta {

AsyncThumbnailView::AsyncThumbnailView(QSize points, QWidget *parent, ThumbnailManager &manager)
    : QWidget(parent)
    , m_manager(manager)
    , m_points(points)
{
    setFixedSize(points);
    m_fade = new QVariantAnimation(this);
    m_fade->setDuration(200);
    m_fade->setEasingCurve(QEasingCurve::InOutQuad);
    m_fade->setStartValue(0.0);
    m_fade->setEndValue(1.0);
    connect(m_fade, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
}

AsyncThumbnailView::~AsyncThumbnailView()
{
    if (m_ticket != 0)
        m_manager.cancel(m_ticket);
}

int AsyncThumbnailView::requestedPixelSize() const
{
    return ThumbnailManager::pixelSizeForView(QSizeF(m_points))
        .value_or(ThumbnailManager::DefaultMaxPixelSize);
}

void AsyncThumbnailView::setPaths(const QString &targetPath, const QString &fallbackPath)
{
    if (targetPath == m_target && fallbackPath == m_fallback && !m_loading)
        return;
    m_target = targetPath;
    m_fallback = fallbackPath;
    load();
}

void AsyncThumbnailView::load()
{
    if (m_ticket != 0)
        m_manager.cancel(m_ticket); // an older file's picture must not land here
    m_ticket = 0;
    m_loading = true;
    m_state = RowMediaStore::ThumbState::Loading;
    m_image = QImage();
    update();
    const ThumbnailManager::Ticket ticket
        = m_manager.loadThumbnail(m_target, m_fallback, requestedPixelSize(), this,
                                  [this](const ThumbnailResult &result) { apply(result); });
    if (m_loading) // not answered at once
        m_ticket = ticket;
}

void AsyncThumbnailView::apply(const ThumbnailResult &result)
{
    m_ticket = 0;
    m_loading = false;
    switch (result.kind()) {
    case ThumbnailResult::Kind::Success:
        m_state = RowMediaStore::ThumbState::Image;
        m_image = result.image();
        m_fade->stop();
        m_fade->start();
        break;
    case ThumbnailResult::Kind::MissingOnDisk:
        m_state = RowMediaStore::ThumbState::Missing;
        break;
    case ThumbnailResult::Kind::DecodeError:
        m_state = RowMediaStore::ThumbState::DecodeError;
        break;
    }
    update();
    Q_EMIT finished();
}

void AsyncThumbnailView::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal opacity
        = m_fade->state() == QAbstractAnimation::Running ? m_fade->currentValue().toReal() : 1.0;
    paintThumbnailCell(p, QRectF(rect()), m_state, m_image, opacity);
}

} // namespace orvanta
