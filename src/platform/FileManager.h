// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Shows folders and files in the user's file manager through the
// org.freedesktop.FileManager1 service, falling back to opening the folder
// with the desktop's default handler. Main thread; asynchronous calls only.
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>

namespace orvanta {

class FileManager : public QObject
{
    Q_OBJECT
public:
    explicit FileManager(const QDBusConnection &bus, QObject *parent = nullptr);

    // Opens the folder itself.
    void showFolder(const QString &path);
    // Opens the containing folder with the item selected.
    void showItem(const QString &path);

Q_SIGNALS:
    // Emitted when the file manager service was not available and the
    // fallback was used instead (tests and diagnostics).
    void fellBack(const QString &openedFolder);

private:
    void call(const QString &method, const QString &path, const QString &fallbackFolder);

    QDBusConnection m_bus;
};

} // namespace orvanta
