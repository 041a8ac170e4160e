// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update/Updater.h"

#include <QCoreApplication>
#include <QDir>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSettings>
#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
// Feeds are small; a longer one is cut here and then fails its signature.
constexpr qint64 kMaxFeedBytes = 4 * 1024 * 1024;

UpdateCheckResult failed(UpdateCheckResult::Failure failure, const QString &error)
{
    UpdateCheckResult result;
    result.outcome = UpdateCheckResult::Outcome::Failed;
    result.failure = failure;
    result.error = error;
    return result;
}
} // namespace

Updater::Updater(UpdaterConfig config, QObject *parent)
    : QObject(parent)
    , m_config(std::move(config))
    , m_network(new QNetworkAccessManager(this))
    , m_schedule(new QTimer(this))
{
    // No transfer may hang forever: Qt's default timeout is none.
    m_network->setTransferTimeout(m_config.transferTimeoutMs);
    m_schedule->setSingleShot(true);
    connect(m_schedule, &QTimer::timeout, this, &Updater::checkForUpdatesInBackground);
    // A packaged installation keeps the menu item: it says where updates come from.
    m_canCheck = checksFeed() || m_config.packageManaged;
}

Updater::~Updater() = default;

bool Updater::isConfigured() const
{
    return m_config.feedUrl.isValid() && !m_config.feedUrl.isEmpty()
        && !m_config.publicKey.isEmpty();
}

bool Updater::isPackageManagedLocation(const QString &applicationDir)
{
    const QString dir = QDir::cleanPath(applicationDir) + u'/';
    if (dir.startsWith(u"/usr/local/"_s))
        return false;
    return dir.startsWith(u"/usr/"_s) || dir.startsWith(u"/app/"_s) || dir.startsWith(u"/snap/"_s);
}

bool Updater::automaticallyChecksForUpdates() const
{
    if (m_config.packageManaged)
        return false; // the package system's own schedule applies
    if (!isConfigured())
        return true;
    return QSettings().value(QLatin1StringView(kAutomaticChecksKey), true).toBool();
}

void Updater::setAutomaticallyChecksForUpdates(bool on)
{
    QSettings().setValue(QLatin1StringView(kAutomaticChecksKey), on);
    if (on)
        scheduleNext();
    else
        m_schedule->stop();
}

QString Updater::currentVersionString() const
{
    const QString version
        = m_config.currentShortVersion.isEmpty() ? u"1.0.0"_s : m_config.currentShortVersion;
    const QString build = m_config.currentBuild.isEmpty() ? u"1"_s : m_config.currentBuild;
    return version + u" (Build "_s + build + u")"_s;
}

void Updater::checkForUpdates()
{
    if (m_config.packageManaged) {
        UpdateCheckResult result;
        result.outcome = UpdateCheckResult::Outcome::PackageManaged;
        result.userInitiated = true;
        // Delivered like a real check's result, after the caller returns.
        QMetaObject::invokeMethod(
            this, [this, result] { Q_EMIT checkFinished(result); }, Qt::QueuedConnection);
        return;
    }
    beginCheck(true);
}

void Updater::checkForUpdatesInBackground()
{
    beginCheck(false);
}

void Updater::start()
{
    if (checksFeed() && automaticallyChecksForUpdates())
        scheduleNext();
}

qint64 Updater::secondsUntilDue(const QDateTime &lastCheck, const QDateTime &now,
                                int intervalSeconds)
{
    if (!lastCheck.isValid() || lastCheck > now)
        return 0;
    return std::max<qint64>(0, intervalSeconds - lastCheck.secsTo(now));
}

void Updater::scheduleNext()
{
    if (!checksFeed())
        return;
    const QDateTime last = QSettings().value(QLatin1StringView(kLastCheckKey)).toDateTime();
    const qint64 due
        = secondsUntilDue(last, QDateTime::currentDateTimeUtc(), m_config.checkIntervalSeconds);
    // A few seconds' grace at start-up so the first check never competes with
    // loading the window.
    m_schedule->start(int(std::clamp<qint64>(due * 1000, 5000, qint64(INT_MAX))));
}

void Updater::setCanCheck(bool canCheck)
{
    if (m_canCheck == canCheck)
        return;
    m_canCheck = canCheck;
    Q_EMIT canCheckForUpdatesChanged(canCheck);
}

void Updater::beginCheck(bool userInitiated)
{
    if (!m_canCheck || !checksFeed())
        return; // unconfigured, packaged, or a check is already under way
    setCanCheck(false);
    m_userInitiated = userInitiated;
    QNetworkRequest request(m_config.feedUrl);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      u"Orvanta/%1"_s.arg(m_config.currentShortVersion));
    QNetworkReply *reply = m_network->get(request);
    connect(reply, &QNetworkReply::finished, this, [this, reply] { onFeedFinished(reply); });
}

void Updater::onFeedFinished(QNetworkReply *reply)
{
    using Failure = UpdateCheckResult::Failure;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError)
        return finish(failed(Failure::Network, reply->errorString()));
    // The signature covers the whole feed, so its versions and addresses are
    // trusted as they stand and no release is downloaded to check it.
    const SignedFeed feed = splitSignedFeed(reply->read(kMaxFeedBytes));
    if (feed.signatureBase64.isEmpty())
        return finish(failed(Failure::UnsignedFeed, u"the update feed is not signed"_s));
    if (!verifyEd25519(feed.content, feed.signatureBase64, m_config.publicKey))
        return finish(failed(Failure::BadSignature, u"the update feed's signature is not valid"_s));
    QString parseError;
    const QList<AppcastItem> items = parseAppcast(feed.content, &parseError);
    if (!parseError.isEmpty())
        return finish(failed(Failure::MalformedFeed, u"malformed update feed: "_s + parseError));
    const std::optional<AppcastItem> newest = newestItem(items);
    UpdateCheckResult result;
    result.item = newest.value_or(AppcastItem {});
    result.outcome = newest && compareVersions(newest->version, m_config.currentBuild) > 0
        ? UpdateCheckResult::Outcome::UpdateAvailable
        : UpdateCheckResult::Outcome::UpToDate;
    finish(result);
}

void Updater::finish(UpdateCheckResult result)
{
    result.userInitiated = m_userInitiated;
    QSettings().setValue(QLatin1StringView(kLastCheckKey), QDateTime::currentDateTimeUtc());
    setCanCheck(true);
    if (automaticallyChecksForUpdates() && checksFeed())
        m_schedule->start(m_config.checkIntervalSeconds * 1000);
    Q_EMIT checkFinished(result);
}

} // namespace orvanta
