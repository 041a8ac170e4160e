// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

#include <algorithm>

namespace orvanta::placement {

namespace {

// What a typical window manager adds around the client area; the exact
// frame is only known once the window is mapped.
constexpr QSize kFrameAllowance(16, 48);

QSettings settings()
{
    return QSettings(QStringLiteral("orvanta"), QStringLiteral("orvanta"));
}

QString settingsKey(const QString &key)
{
    return QStringLiteral("window/") + key + QStringLiteral("/geometry");
}

const QScreen *screenShowing(const QPoint &point)
{
    for (const QScreen *screen : QGuiApplication::screens()) {
        if (screen->availableGeometry().contains(point))
            return screen;
    }
    return nullptr;
}

// Only when the content asks for more than the screen has: an explicit
// minimum replaces the one the layout keeps up to date.
void boundMinimum(QWidget *window, QSize limit)
{
    const QSize content = window->minimumSize().expandedTo(window->minimumSizeHint());
    if (content.isValid() && content.boundedTo(limit) != content)
        window->setMinimumSize(content.boundedTo(limit));
}

} // namespace

QSize fitted(QSize preferred, const QRect &available)
{
    if (available.isEmpty())
        return preferred;
    return preferred.boundedTo(available.size() - kFrameAllowance).expandedTo(QSize(1, 1));
}

void restore(QWidget *window, const QString &key, QSize preferred)
{
    const QByteArray saved = settings().value(settingsKey(key)).toByteArray();
    const QScreen *screen = nullptr;
    if (!saved.isEmpty() && window->restoreGeometry(saved)) {
        // The title bar must be reachable: a monitor unplugged since would
        // otherwise leave the window out of sight.
        const QRect frame = window->geometry();
        screen = screenShowing(QPoint(frame.center().x(), frame.top() + 8));
        if (screen) {
            const QRect available = screen->availableGeometry();
            boundMinimum(window, fitted(available.size(), available));
            window->resize(window->size().boundedTo(fitted(available.size(), available)));
            return;
        }
    }
    screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
    if (!screen) {
        window->resize(preferred);
        return;
    }
    const QRect available = screen->availableGeometry();
    const QSize size = fitted(preferred, available);
    boundMinimum(window, size);
    window->resize(size);
    QRect frame(QPoint(), size + kFrameAllowance);
    frame.moveCenter(available.center());
    window->move(std::max(frame.left(), available.left()), std::max(frame.top(), available.top()));
}

void save(const QWidget *window, const QString &key)
{
    settings().setValue(settingsKey(key), window->saveGeometry());
}

} // namespace orvanta::placement
