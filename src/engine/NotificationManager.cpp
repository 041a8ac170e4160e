// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/NotificationManager.h"

#include "i18n/LocalizationService.h"
#include "platform/AppId.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPointer>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
// Enough for every notification still on screen; beyond it one is forgotten.
constexpr qsizetype kMaxRemembered = 64;
} // namespace

NotificationManager &NotificationManager::shared()
{
    static QPointer<NotificationManager> instance;
    if (!instance)
        instance
            = new NotificationManager(QDBusConnection::sessionBus(), QCoreApplication::instance());
    return *instance;
}

NotificationManager::NotificationManager(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_notifications(bus)
    , m_fileManager(bus)
{
    connect(&m_notifications, &DesktopNotifications::actionInvoked, this,
            &NotificationManager::onActionInvoked);
    connect(&m_notifications, &DesktopNotifications::notificationClosed, this,
            [this](uint id, uint) { m_destDirs.remove(id); });
}

void NotificationManager::requestAuthorization()
{
    m_notifications.queryCapabilities([this](const QStringList &capabilities) {
        m_capabilities = capabilities;
        Q_EMIT capabilitiesReceived();
    });
}

DesktopNotification NotificationManager::batchCompletion(qint64 successCount, qint64 failedCount,
                                                         double durationSec, bool withFolder,
                                                         bool playSound)
{
    DesktopNotification n;
    n.appName = u"Orvanta"_s;
    n.appIcon = appId(); // the installed theme icon
    n.summary = t("notif_batch_completed_title");
    // A run that found nothing to do says so rather than "delivered 0".
    if (failedCount != 0)
        n.body = t("notif_batch_failed_body", { successCount, failedCount });
    else if (successCount == 0)
        n.body = t("status_nothing_to_do");
    else
        n.body = t("notif_batch_success_body", { successCount, durationSec });
    if (withFolder) {
        // "default" is a click on the notification itself.
        const QString label = t("notif_action_open_folder");
        n.actions = { u"default"_s, label, QString::fromLatin1(openActionIdentifier), label };
    }
    n.hints.insert(u"desktop-entry"_s, appId());
    n.hints.insert(u"category"_s, u"transfer.complete"_s);
    n.hints.insert(u"x-orvanta-category"_s, QString::fromLatin1(categoryIdentifier));
    if (playSound)
        n.hints.insert(u"sound-name"_s, u"complete"_s);
    else
        n.hints.insert(u"suppress-sound"_s, true);
    return n;
}

void NotificationManager::sendBatchCompletion(qint64 successCount, qint64 failedCount,
                                              double durationSec,
                                              const std::optional<QString> &destDir, bool playSound)
{
    const QString folder = destDir.value_or(QString());
    const DesktopNotification n
        = batchCompletion(successCount, failedCount, durationSec, !folder.isEmpty(), playSound);
    m_notifications.notify(n, [this, folder](std::optional<uint> id) {
        if (!id) {
            Q_EMIT notificationFailed();
            return;
        }
        if (!folder.isEmpty()) {
            if (m_destDirs.size() >= kMaxRemembered)
                m_destDirs.erase(m_destDirs.begin());
            m_destDirs.insert(*id, folder);
        }
        Q_EMIT notificationPosted(*id);
    });
}

void NotificationManager::onActionInvoked(uint id, const QString &actionKey)
{
    // The signal reaches every client of the server: only our own ids count.
    const auto it = m_destDirs.constFind(id);
    if (it == m_destDirs.constEnd())
        return;
    if (actionKey != u"default"_s && actionKey != QLatin1StringView(openActionIdentifier))
        return;
    const QString folder = *it;
    const bool exists = !folder.isEmpty() && QFileInfo::exists(folder);
    if (exists)
        m_fileManager.showFolder(folder);
    Q_EMIT responseHandled(folder, exists);
}

} // namespace orvanta
