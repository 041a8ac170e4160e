// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DesktopNotifications.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
const QString kService = u"org.freedesktop.Notifications"_s;
const QString kPath = u"/org/freedesktop/Notifications"_s;
const QString kInterface = u"org.freedesktop.Notifications"_s;
} // namespace

DesktopNotifications::DesktopNotifications(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
    if (!m_bus.isConnected())
        return;
    m_bus.connect(kService, kPath, kInterface, u"ActionInvoked"_s, this,
                  SLOT(onActionInvoked(uint, QString)));
    m_bus.connect(kService, kPath, kInterface, u"NotificationClosed"_s, this,
                  SLOT(onNotificationClosed(uint, uint)));
}

void DesktopNotifications::notify(const DesktopNotification &n,
                                  std::function<void(std::optional<uint>)> done)
{
    if (!m_bus.isConnected()) {
        if (done)
            done(std::nullopt);
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kPath, kInterface, u"Notify"_s);
    call << n.appName << uint(0) << n.appIcon << n.summary << n.body << n.actions << n.hints
         << qint32(n.timeoutMs);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (done)
            done(reply.isError() ? std::nullopt : std::optional(reply.value()));
    });
}

void DesktopNotifications::queryCapabilities(std::function<void(const QStringList &)> done)
{
    if (!m_bus.isConnected()) {
        done({});
        return;
    }
    const QDBusMessage call
        = QDBusMessage::createMethodCall(kService, kPath, kInterface, u"GetCapabilities"_s);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, done = std::move(done)] {
        watcher->deleteLater();
        const QDBusPendingReply<QStringList> reply = *watcher;
        done(reply.isError() ? QStringList() : reply.value());
    });
}

void DesktopNotifications::onActionInvoked(uint id, const QString &actionKey)
{
    Q_EMIT actionInvoked(id, actionKey);
}

void DesktopNotifications::onNotificationClosed(uint id, uint reason)
{
    Q_EMIT notificationClosed(id, reason);
}

} // namespace orvanta
