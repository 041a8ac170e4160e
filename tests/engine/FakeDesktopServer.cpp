// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/FakeDesktopServer.h"

#include <QtTest>

namespace orvanta::test {

uint FakeNotificationServer::Notify(const QString &appName, uint, const QString &appIcon,
                                    const QString &summary, const QString &body,
                                    const QStringList &actions, const QVariantMap &hints, int)
{
    const uint id = m_nextId++;
    received.append({ id, appName, appIcon, summary, body, actions, hints });
    return id;
}

FakeDesktop::FakeDesktop(bool withFileManager)
    : m_connection(QDBusConnection::connectToBus(QDBusConnection::SessionBus,
                                                 QStringLiteral("orvanta-fake-desktop")))
{
    QVERIFY2(m_connection.isConnected(), "the tests need a private session bus");
    const auto exported = QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals;
    m_connection.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &notifications,
                                exported);
    m_connection.registerService(QStringLiteral("org.freedesktop.Notifications"));
    if (withFileManager) {
        m_connection.registerObject(QStringLiteral("/org/freedesktop/FileManager1"), &fileManager,
                                    exported);
        m_connection.registerService(QStringLiteral("org.freedesktop.FileManager1"));
    }
    m_connection.connect(QString(), QString(), QStringLiteral("com.canonical.Unity.LauncherEntry"),
                         QStringLiteral("Update"), &launcher, SLOT(update(QString, QVariantMap)));
}

FakeDesktop::~FakeDesktop()
{
    m_connection.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
    m_connection.unregisterService(QStringLiteral("org.freedesktop.FileManager1"));
    m_connection.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
    m_connection.unregisterObject(QStringLiteral("/org/freedesktop/FileManager1"));
    QDBusConnection::disconnectFromBus(QStringLiteral("orvanta-fake-desktop"));
}

} // namespace orvanta::test
