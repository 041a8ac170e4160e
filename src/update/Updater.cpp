// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update/Updater.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSettings>
#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
// Feeds are small; a payload larger than this is not something we announce.
constexpr qint64 kMaxFeedBytes = 4 * 1024 * 1024;
constexpr qint64 kMaxPayloadBytes = qint64(512) * 1024 * 1024;
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
    m_canCheck = isConfigured();
}

Updater::~Updater() = default;

bool Updater::isConfigured() const
{
    return m_config.feedUrl.isValid() && !m_config.feedUrl.isEmpty()
        && !m_config.publicKey.isEmpty();
}

bool Updater::automaticallyChecksForUpdates() const
{
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
    beginCheck(true);
}

void Updater::checkForUpdatesInBackground()
{
    beginCheck(false);
}

void Updater::start()
{
    if (isConfigured() && automaticallyChecksForUpdates())
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
    if (!isConfigured())
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
    if (!m_canCheck)
        return; // unconfigured, or a check is already under way
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
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError)
        return finish({ UpdateCheckResult::Outcome::Failed, {}, reply->errorString() });
    const QByteArray body = reply->read(kMaxFeedBytes);
    QString parseError;
    const QList<AppcastItem> items = parseAppcast(body, &parseError);
    if (!parseError.isEmpty())
        return finish(
            { UpdateCheckResult::Outcome::Failed, {}, u"malformed update feed: "_s + parseError });
    const std::optional<AppcastItem> newest = newestItem(items);
    if (!newest || compareVersions(newest->version, m_config.currentBuild) <= 0)
        return finish(
            { UpdateCheckResult::Outcome::UpToDate, newest.value_or(AppcastItem {}), {} });
    if (newest->edSignature.isEmpty())
        return finish(
            { UpdateCheckResult::Outcome::Failed, *newest, u"the update is not signed"_s });

    // An announcement is only made for a file that is really ours: fetch it
    // and check its signature before telling the user about it.
    QNetworkReply *payload = m_network->get(QNetworkRequest(newest->downloadUrl));
    connect(payload, &QNetworkReply::downloadProgress, this, [payload](qint64 received, qint64) {
        if (received > kMaxPayloadBytes)
            payload->abort();
    });
    const AppcastItem item = *newest;
    connect(payload, &QNetworkReply::finished, this,
            [this, payload, item] { onPayloadFinished(payload, item); });
}

void Updater::onPayloadFinished(QNetworkReply *reply, const AppcastItem &item)
{
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError)
        return finish({ UpdateCheckResult::Outcome::Failed, item, reply->errorString() });
    const QByteArray data = reply->readAll();
    if (item.length > 0 && data.size() != item.length)
        return finish(
            { UpdateCheckResult::Outcome::Failed, item, u"the update has the wrong size"_s });
    if (!verifyEd25519(data, item.edSignature, m_config.publicKey))
        return finish(
            { UpdateCheckResult::Outcome::Failed, item, u"the update's signature is not valid"_s });
    finish({ UpdateCheckResult::Outcome::UpdateAvailable, item, {} });
}

void Updater::finish(UpdateCheckResult result)
{
    result.userInitiated = m_userInitiated;
    QSettings().setValue(QLatin1StringView(kLastCheckKey), QDateTime::currentDateTimeUtc());
    setCanCheck(true);
    if (automaticallyChecksForUpdates() && isConfigured())
        m_schedule->start(m_config.checkIntervalSeconds * 1000);
    Q_EMIT checkFinished(result);
}

} // namespace orvanta
