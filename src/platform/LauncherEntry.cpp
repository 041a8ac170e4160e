// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LauncherEntry.h"

#include <QCryptographicHash>
#include <QDBusMessage>

namespace orvanta {

using namespace Qt::StringLiterals;

LauncherEntry::LauncherEntry(const QDBusConnection &bus, const QString &desktopFile)
    : m_bus(bus)
    , m_appUri(u"application://"_s + desktopFile)
{
    // Listeners take any sender and object path; a path derived from the
    // application keeps ours stable and distinct from other clients'.
    const QByteArray hash
        = QCryptographicHash::hash(m_appUri.toUtf8(), QCryptographicHash::Md5).toHex();
    m_objectPath = u"/com/canonical/unity/launcherentry/"_s + QString::fromLatin1(hash);
}

void LauncherEntry::setProgress(double fraction)
{
    update({ { u"progress"_s, fraction }, { u"progress-visible"_s, true } });
}

void LauncherEntry::hideProgress()
{
    update({ { u"progress-visible"_s, false } });
}

void LauncherEntry::setCount(qint64 count)
{
    update({ { u"count"_s, count }, { u"count-visible"_s, true } });
}

void LauncherEntry::hideCount()
{
    update({ { u"count-visible"_s, false } });
}

void LauncherEntry::setUrgent(bool urgent)
{
    update({ { u"urgent"_s, urgent } });
}

void LauncherEntry::update(const QVariantMap &properties)
{
    if (!m_bus.isConnected())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(
        m_objectPath, u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    signal << m_appUri << properties;
    m_bus.send(signal);
}

} // namespace orvanta
