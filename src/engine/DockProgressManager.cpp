// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/DockProgressManager.h"

#include "engine/DockOverlay.h"
#include "platform/AppId.h"

#include <QGuiApplication>
#include <QPalette>
#include <QPointer>
#include <QWindow>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
constexpr int kOverlaySize = 128;
// A single, short request, like one bounce of a dock icon.
constexpr int kAttentionMs = 1000;

QGuiApplication *guiApp()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance());
}
} // namespace

DockProgressManager &DockProgressManager::shared()
{
    static QPointer<DockProgressManager> instance;
    if (!instance)
        instance
            = new DockProgressManager(QDBusConnection::sessionBus(), QCoreApplication::instance());
    return *instance;
}

DockProgressManager::DockProgressManager(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_launcher(bus, appDesktopFileName())
{
    // The badge is read once the user comes back to the application.
    if (QGuiApplication *app = guiApp()) {
        connect(app, &QGuiApplication::applicationStateChanged, this,
                [this](Qt::ApplicationState state) {
                    if (state == Qt::ApplicationActive)
                        clearBadge();
                });
    }
}

DockProgressManager::~DockProgressManager() = default;

void DockProgressManager::post(std::function<void()> work)
{
    QMetaObject::invokeMethod(this, std::move(work), Qt::QueuedConnection);
}

void DockProgressManager::updateProgress(double fraction)
{
    if (m_pendingProgress) {
        *m_pendingProgress = fraction;
        return;
    }
    auto slot = std::make_shared<double>(fraction);
    m_pendingProgress = slot;
    post([this, slot] {
        if (m_pendingProgress == slot)
            m_pendingProgress.reset();
        applyProgress(*slot);
    });
}

void DockProgressManager::finishWithBadge(qint64 count)
{
    m_pendingProgress.reset(); // later updates queue behind this one
    post([this, count] { applyFinish(count); });
}

void DockProgressManager::clearProgress()
{
    m_pendingProgress.reset();
    post([this] { applyClearProgress(); });
}

void DockProgressManager::clearBadge()
{
    m_pendingProgress.reset();
    post([this] { applyClearBadge(); });
}

void DockProgressManager::setPaused(bool paused)
{
    post([this, paused] {
        if (m_paused == paused)
            return;
        m_paused = paused;
        m_drawnFillWidth = -1; // redraw in the other colour
        if (m_overlayProgress)
            applyProgress(*m_overlayProgress);
    });
}

void DockProgressManager::applyProgress(double fraction)
{
    if (!(fraction > 0.0 && fraction < 1.0))
        return;
    if (m_overlayProgress != fraction)
        m_launcher.setProgress(fraction);
    m_overlayProgress = fraction;

    // Redraw only when the bar's drawn width changes: a fast engine sends
    // far more updates than a 128-pixel bar can show.
    const DockOverlayGeometry g = dockOverlayGeometry(QSizeF(kOverlaySize, kOverlaySize), fraction);
    const int width = int(std::lround(g.fill.width()));
    if (width == m_drawnFillWidth)
        return;
    m_drawnFillWidth = width;
    QGuiApplication *app = guiApp();
    if (app && !m_savedIcon)
        m_savedIcon = QGuiApplication::windowIcon();
    const QIcon base = m_savedIcon.value_or(QIcon());
    const QColor accent = m_paused ? QColor(0x8e, 0x8e, 0x93)
        : app                      ? QGuiApplication::palette().color(QPalette::Highlight)
                                   : QColor(0x0a, 0x84, 0xff);
    const QImage baseImage = app && !base.isNull() ? base.pixmap(kOverlaySize).toImage() : QImage();
    m_overlayImage = renderDockOverlay(baseImage, fraction, accent, kOverlaySize);
    setWindowIcon(m_overlayImage);
    Q_EMIT overlayChanged();
}

void DockProgressManager::applyFinish(qint64 count)
{
    if (count >= 1) {
        m_badge = count;
        m_launcher.setCount(count);
    }
    if (guiApp()) {
        const auto windows = QGuiApplication::topLevelWindows();
        for (QWindow *window : windows) {
            if (window->isVisible() && window->type() == Qt::Window)
                window->alert(kAttentionMs);
        }
    }
    Q_EMIT attentionRequested();
}

void DockProgressManager::applyClearProgress()
{
    m_launcher.hideProgress();
    const bool hadOverlay = m_overlayProgress.has_value();
    m_overlayProgress.reset();
    m_drawnFillWidth = -1;
    m_paused = false;
    m_overlayImage = QImage();
    if (m_savedIcon) {
        QGuiApplication::setWindowIcon(*m_savedIcon);
        m_savedIcon.reset();
    }
    if (hadOverlay)
        Q_EMIT overlayChanged();
}

void DockProgressManager::applyClearBadge()
{
    m_badge.reset();
    m_launcher.hideCount();
}

void DockProgressManager::setWindowIcon(const QImage &image)
{
    if (!guiApp())
        return;
    QIcon icon;
    icon.addPixmap(QPixmap::fromImage(image));
    QGuiApplication::setWindowIcon(icon);
}

} // namespace orvanta
