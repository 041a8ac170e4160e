// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The desktop notification that announces the end of a batch, with an
// action that opens the delivery folder. One shared instance. Main thread;
// nothing blocks on the notification server.
#pragma once

#include "platform/DesktopNotifications.h"
#include "platform/FileManager.h"

#include <QHash>
#include <QObject>

#include <optional>

namespace orvanta {

class NotificationManager : public QObject
{
    Q_OBJECT
public:
    static constexpr const char *categoryIdentifier = "BATCH_COMPLETE_CATEGORY";
    static constexpr const char *openActionIdentifier = "OPEN_DELIVERY_ACTION";

    static NotificationManager &shared();
    explicit NotificationManager(const QDBusConnection &bus, QObject *parent = nullptr);

    // Desktop notifications need no permission; this asks the server what
    // it supports (actions, sound) so the log says why a click may do nothing.
    void requestAuthorization();
    QStringList serverCapabilities() const { return m_capabilities; }

    void sendBatchCompletion(qint64 successCount, qint64 failedCount, double durationSec,
                             const std::optional<QString> &destDir, bool playSound);

    // The notification as it is sent (title, body, actions, hints).
    static DesktopNotification batchCompletion(qint64 successCount, qint64 failedCount,
                                               double durationSec, bool withFolder, bool playSound);

Q_SIGNALS:
    void capabilitiesReceived();
    // A notification was posted (its server id) or could not be.
    void notificationPosted(uint id);
    void notificationFailed();
    // The user clicked one of our notifications; `opened` tells whether its
    // folder still existed and was shown.
    void responseHandled(const QString &destDir, bool opened);

private:
    void onActionInvoked(uint id, const QString &actionKey);

    DesktopNotifications m_notifications;
    FileManager m_fileManager;
    QStringList m_capabilities;
    // The server gives no per-notification payload: remember each one's
    // delivery folder by its id until it is closed.
    QHash<uint, QString> m_destDirs;
};

} // namespace orvanta
