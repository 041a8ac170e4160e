// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Looks for new versions of the application: fetches the update feed, checks
// the feed's Ed25519 signature, picks the newest item and announces it. Never
// downloads or installs a release; an installation that a package system
// owns is only told that updates come from there. Checks once per interval
// when automatic checks are on. Main thread.
#pragma once

#include "update/Appcast.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

namespace orvanta {

struct UpdaterConfig
{
    QUrl feedUrl; // empty: no updater
    QByteArray publicKey; // base64 Ed25519 key; empty: no updater
    QString currentBuild; // compared with the feed's versions
    QString currentShortVersion;
    int checkIntervalSeconds = 86400;
    int transferTimeoutMs = 30000;
    // Installed by a package system (apt, Flatpak...): it brings the updates.
    bool packageManaged = false;
};

struct UpdateCheckResult
{
    enum class Outcome { UpToDate, UpdateAvailable, Failed, PackageManaged };
    enum class Failure { None, Network, MalformedFeed, UnsignedFeed, BadSignature };
    Outcome outcome = Outcome::Failed;
    AppcastItem item; // the newest item (UpdateAvailable)
    QString error; // why it failed (Failed), in English for the log
    bool userInitiated = false;
    Failure failure = Failure::None;

    // The page to open for an available update: its link, else its download.
    QUrl pageUrl() const
    {
        return item.link.isValid() && !item.link.isEmpty() ? item.link : item.downloadUrl;
    }
};

class Updater : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates NOTIFY canCheckForUpdatesChanged)
public:
    static constexpr const char *kAutomaticChecksKey = "SUEnableAutomaticChecks";
    static constexpr const char *kLastCheckKey = "SULastCheckTime";

    explicit Updater(UpdaterConfig config, QObject *parent = nullptr);
    ~Updater() override;

    // True when a feed and key are configured and no check is under way.
    bool canCheckForUpdates() const { return m_canCheck; }
    // Stored in the user's settings; reads true when nothing is stored or no
    // updater is configured.
    bool automaticallyChecksForUpdates() const;
    void setAutomaticallyChecksForUpdates(bool on);
    // "2.3.1 (Build 57)".
    QString currentVersionString() const;
    bool isConfigured() const;
    bool isPackageManaged() const { return m_config.packageManaged; }

    // True for a program under /usr (but not /usr/local), /app (Flatpak) or
    // /snap: places only a package system writes to.
    static bool isPackageManagedLocation(const QString &applicationDir);

    // A check the user asked for: the result is always announced. In a
    // package-managed installation it reports PackageManaged at once.
    void checkForUpdates();
    // A scheduled check: announced only when there is something new.
    void checkForUpdatesInBackground();
    // Arms the schedule: the first automatic check is due one interval
    // after the previous one (at once if that is past).
    void start();

    // Seconds until the next automatic check is due, from the last check time.
    static qint64 secondsUntilDue(const QDateTime &lastCheck, const QDateTime &now,
                                  int intervalSeconds);

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheck);
    void checkFinished(const orvanta::UpdateCheckResult &result);

private:
    void beginCheck(bool userInitiated);
    void onFeedFinished(QNetworkReply *reply);
    void finish(UpdateCheckResult result);
    void setCanCheck(bool canCheck);
    void scheduleNext();
    bool checksFeed() const { return isConfigured() && !m_config.packageManaged; }

    UpdaterConfig m_config;
    QNetworkAccessManager *m_network = nullptr;
    QTimer *m_schedule = nullptr;
    bool m_canCheck = false;
    bool m_userInitiated = false;
};

} // namespace orvanta

Q_DECLARE_METATYPE(orvanta::UpdateCheckResult)
