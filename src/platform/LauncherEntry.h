// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Progress bar, count badge and urgency of our launcher icon, announced as
// the com.canonical.Unity.LauncherEntry "Update" signal that docks and task
// managers (Plasma, Dash to Dock, Ubuntu Dock) listen to. Main thread.
#pragma once

#include <QDBusConnection>
#include <QString>
#include <QVariantMap>

namespace orvanta {

class LauncherEntry
{
public:
    // `desktopFile` is the name of our installed .desktop file.
    LauncherEntry(const QDBusConnection &bus, const QString &desktopFile);

    QString appUri() const { return m_appUri; }

    void setProgress(double fraction); // shows the bar
    void hideProgress();
    void setCount(qint64 count); // shows the badge
    void hideCount();
    void setUrgent(bool urgent);

    // Sends one update with any of: "progress" (d), "progress-visible" (b),
    // "count" (x), "count-visible" (b), "urgent" (b).
    void update(const QVariantMap &properties);

private:
    QDBusConnection m_bus;
    QString m_appUri;
    QString m_objectPath;
};

} // namespace orvanta
