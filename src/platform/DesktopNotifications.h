// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Posts desktop notifications through the org.freedesktop.Notifications
// service and reports clicks on their actions. Main thread; every bus call
// is asynchronous, so a slow or missing notification server never blocks
// the interface, and without one nothing is shown and nothing fails.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace orvanta {

struct DesktopNotification
{
    QString appName;
    QString appIcon;
    QString summary;
    QString body;
    QStringList actions; // key, label, key, label, ...
    QVariantMap hints;
    int timeoutMs = -1; // the server's default
};

class DesktopNotifications : public QObject
{
    Q_OBJECT
public:
    explicit DesktopNotifications(const QDBusConnection &bus, QObject *parent = nullptr);

    // `done` gets the server's id for the notification, or nothing when it
    // could not be shown. It is not called once this object is gone.
    void notify(const DesktopNotification &notification,
                std::function<void(std::optional<uint>)> done = {});
    // The server's capabilities ("actions", "sound", "body", ...); empty
    // when there is no server.
    void queryCapabilities(std::function<void(const QStringList &)> done);

Q_SIGNALS:
    // Broadcast by the server for every client: filter by your own ids.
    void actionInvoked(uint id, const QString &actionKey);
    void notificationClosed(uint id, uint reason);

private Q_SLOTS:
    void onActionInvoked(uint id, const QString &actionKey);
    void onNotificationClosed(uint id, uint reason);

private:
    QDBusConnection m_bus;
};

} // namespace orvanta
