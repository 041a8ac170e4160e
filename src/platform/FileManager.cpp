// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/FileManager.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QPointer>
#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

FileManager::FileManager(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
}

void FileManager::showFolder(const QString &path)
{
    call(u"ShowFolders"_s, path, path);
}

void FileManager::showItem(const QString &path)
{
    call(u"ShowItems"_s, path, QFileInfo(path).absolutePath());
}

void FileManager::call(const QString &method, const QString &path, const QString &fallbackFolder)
{
    auto fallback = [this, fallbackFolder] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(fallbackFolder));
        Q_EMIT fellBack(fallbackFolder);
    };
    if (!m_bus.isConnected()) {
        fallback();
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
        u"org.freedesktop.FileManager1"_s, method);
    message << QStringList { QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded) } << QString();
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, fallback] {
        watcher->deleteLater();
        if (QDBusPendingReply<> reply = *watcher; reply.isError())
            fallback();
    });
}

} // namespace orvanta
