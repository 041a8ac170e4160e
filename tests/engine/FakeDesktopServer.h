// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Our own stand-ins for the desktop's notification server and file manager,
// and a listener for launcher entry updates, served on a second connection
// to the private test bus. They record every call they receive.
#pragma once

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace orvanta::test {

struct ReceivedNotification
{
    uint id = 0;
    QString appName;
    QString appIcon;
    QString summary;
    QString body;
    QStringList actions;
    QVariantMap hints;
};

class FakeNotificationServer : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    QList<ReceivedNotification> received;
    QStringList capabilities { QStringLiteral("actions"), QStringLiteral("body"),
                               QStringLiteral("sound") };

    void invokeAction(uint id, const QString &key) { Q_EMIT ActionInvoked(id, key); }
    void close(uint id) { Q_EMIT NotificationClosed(id, 2); }

public Q_SLOTS:
    uint Notify(const QString &appName, uint replacesId, const QString &appIcon,
                const QString &summary, const QString &body, const QStringList &actions,
                const QVariantMap &hints, int timeout);
    QStringList GetCapabilities() { return capabilities; }
    void CloseNotification(uint id) { close(id); }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString &actionKey);
    void NotificationClosed(uint id, uint reason);

private:
    uint m_nextId = 100;
};

class FakeFileManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")
public:
    QStringList shownFolders;
    QStringList shownItems;

public Q_SLOTS:
    void ShowFolders(const QStringList &uris, const QString &) { shownFolders << uris; }
    void ShowItems(const QStringList &uris, const QString &) { shownItems << uris; }
    void ShowItemProperties(const QStringList &, const QString &) { }
};

class LauncherListener : public QObject
{
    Q_OBJECT
public:
    QList<std::pair<QString, QVariantMap>> updates;

public Q_SLOTS:
    void update(const QString &appUri, const QVariantMap &properties)
    {
        updates.append({ appUri, properties });
    }
};

// Owns the three on their own connection; `withFileManager` false leaves
// the file manager name unowned (a desktop without one).
class FakeDesktop
{
public:
    explicit FakeDesktop(bool withFileManager = true);
    ~FakeDesktop();

    FakeNotificationServer notifications;
    FakeFileManager fileManager;
    LauncherListener launcher;

private:
    QDBusConnection m_connection;
};

} // namespace orvanta::test
