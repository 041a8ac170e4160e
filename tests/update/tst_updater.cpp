// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The updater against a real HTTP feed on the loopback interface: signed
// and tampered feeds, stale feeds, broken and stalled servers, packaged
// installations, and the settings it keeps. Keys are made fresh for each run with libsodium.
#include "common/TestEnvironment.h"
#include "update/Appcast.h"
#include "update/Updater.h"

#include <QSettings>
#include <QTcpServer>
#include <QTcpSocket>

#include <sodium.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

// A tiny HTTP/1.1 server on 127.0.0.1: one fixed answer per path, or silence.
class LoopbackServer : public QObject
{
public:
    struct Answer
    {
        int status = 200;
        QByteArray body;
        bool stall = false; // accept the request and never answer
    };

    LoopbackServer()
    {
        QVERIFY(m_server.listen(QHostAddress::LocalHost, 0));
        connect(&m_server, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *socket = m_server.nextPendingConnection())
                connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
        });
    }

    QUrl url(const QString &path) const
    {
        return QUrl(u"http://127.0.0.1:%1%2"_s.arg(m_server.serverPort()).arg(path));
    }
    void set(const QByteArray &path, Answer answer) { m_answers.insert(path, std::move(answer)); }
    QList<QByteArray> requests() const { return m_requests; }

private:
    void serve(QTcpSocket *socket)
    {
        QByteArray &buffer = m_buffers[socket];
        buffer += socket->readAll();
        if (!buffer.contains("\r\n\r\n"))
            return;
        const QByteArray path = buffer.split(' ').value(1);
        m_requests << path;
        const Answer answer = m_answers.value(path, Answer { 404, "not found" });
        if (answer.stall)
            return;
        socket->write("HTTP/1.1 " + QByteArray::number(answer.status)
                      + " X\r\nContent-Length: " + QByteArray::number(answer.body.size())
                      + "\r\nConnection: close\r\n\r\n" + answer.body);
        socket->disconnectFromHost();
    }

    QTcpServer m_server;
    QHash<QByteArray, Answer> m_answers;
    QHash<QTcpSocket *, QByteArray> m_buffers;
    QList<QByteArray> m_requests;
};

struct KeyPair
{
    unsigned char publicKey[crypto_sign_PUBLICKEYBYTES];
    unsigned char secretKey[crypto_sign_SECRETKEYBYTES];

    KeyPair() { crypto_sign_keypair(publicKey, secretKey); }
    QByteArray publicBase64() const
    {
        return QByteArray(reinterpret_cast<const char *>(publicKey), sizeof publicKey).toBase64();
    }
    QByteArray sign(const QByteArray &data) const
    {
        unsigned char sig[crypto_sign_BYTES];
        crypto_sign_detached(sig, nullptr,
                             reinterpret_cast<const unsigned char *>(data.constData()),
                             quint64(data.size()), secretKey);
        return QByteArray(reinterpret_cast<const char *>(sig), sizeof sig).toBase64();
    }
};

struct Release
{
    QString version = u"58"_s;
    QString shortVersion = u"2.4.0"_s;
    QUrl download;
    qint64 length = 0;
    QByteArray signature;
    QUrl page;
};

QByteArray feed(const QList<Release> &releases)
{
    QString items;
    for (const Release &r : releases)
        items += u"<item><title>Orvanta %1</title><link>%2</link>\n"
                 u"<sparkle:version>%3</sparkle:version>"
                 u"<sparkle:shortVersionString>%1</sparkle:shortVersionString>\n"
                 u"<enclosure url=\"%4\" length=\"%5\" type=\"application/octet-stream\""
                 u" sparkle:edSignature=\"%6\"/></item>\n"_s
                     .arg(r.shortVersion, r.page.toString(), r.version, r.download.toString())
                     .arg(r.length)
                     .arg(QString::fromLatin1(r.signature));
    return (u"<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
            u"<rss version=\"2.0\" "
            u"xmlns:sparkle=\"http://www.andymatuschak.org/xml-namespaces/sparkle\">\n"
            u"<channel><title>Orvanta</title>\n"_s
            + items + u"</channel></rss>\n"_s)
        .toUtf8();
}

// The feed as published: its bytes, then the signature of exactly those bytes.
QByteArray signedFeed(const QByteArray &content, const KeyPair &keys)
{
    return content + "<!-- orvanta-signature: " + keys.sign(content) + " -->\n";
}

} // namespace

class UpdaterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(sodium_init() >= 0);
        m_keys = KeyPair();
    }

    void init()
    {
        m_server = std::make_unique<LoopbackServer>();
        QSettings().clear();
    }

    void signedNewerReleaseIsAnnouncedWithItsPage()
    {
        const QByteArray payload(4096, 'p');
        serveSigned({ publish(payload) });
        Updater updater(config());
        QSignalSpy canCheck(&updater, &Updater::canCheckForUpdatesChanged);
        QVERIFY(updater.canCheckForUpdates());

        const UpdateCheckResult result = runCheck(updater);
        QCOMPARE(int(result.outcome), int(UpdateCheckResult::Outcome::UpdateAvailable));
        QVERIFY(result.userInitiated);
        QCOMPARE(result.item.displayVersion(), u"2.4.0"_s);
        QCOMPARE(result.pageUrl(), QUrl(u"https://orvanta.example/releases/2.4.0"_s));
        // Busy while the check ran, free again after it.
        QCOMPARE(canCheck.size(), 2);
        QCOMPARE(canCheck.at(0).at(0).toBool(), false);
        QCOMPARE(canCheck.at(1).at(0).toBool(), true);
        QVERIFY(updater.canCheckForUpdates());
        // The signed feed is enough: the release itself is never downloaded.
        QCOMPARE(m_server->requests(), QList<QByteArray> { "/appcast.xml" });
    }

    void sameOrOlderVersionIsUpToDate_data()
    {
        QTest::addColumn<QString>("version");
        QTest::newRow("same build") << u"57"_s;
        QTest::newRow("older build") << u"56"_s;
        QTest::newRow("older dotted") << u"9.10"_s; // 9 < 57
    }

    void sameOrOlderVersionIsUpToDate()
    {
        QFETCH(QString, version);
        Release r = publish("payload");
        r.version = version;
        serveSigned({ r });
        Updater updater(config());
        const UpdateCheckResult result = runCheck(updater);
        QCOMPARE(int(result.outcome), int(UpdateCheckResult::Outcome::UpToDate));
        QCOMPARE(m_server->requests(), QList<QByteArray> { "/appcast.xml" }); // nothing downloaded
    }

    // Feeds that cannot be believed (tampered, unsigned) or read (server
    // errors, broken XML) fail with their reason and leave the next check free.
    void untrustedOrBrokenFeedsFail_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("published");
        QTest::addColumn<int>("failure");
        Release release;
        release.download = QUrl(u"https://orvanta.example/Orvanta-2.4.0.tar.gz"_s);
        release.signature = m_keys.sign("payload");
        const QByteArray content = feed({ release });
        const QByteArray good = signedFeed(content, m_keys);
        QByteArray flipped = good;
        flipped.replace("2.4.0", "6.6.6"); // a changed version or address
        using F = UpdateCheckResult::Failure;
        QTest::newRow("changed after signing") << 200 << flipped << int(F::BadSignature);
        QTest::newRow("unsigned") << 200 << content << int(F::UnsignedFeed);
        QTest::newRow("garbage signature")
            << 200 << content + "<!-- orvanta-signature: AAAA -->" << int(F::BadSignature);
        QTest::newRow("another key's signature")
            << 200 << signedFeed(content, KeyPair()) << int(F::BadSignature);
        QTest::newRow("items after the signature")
            << 200 << good + "<item><sparkle:version>99</sparkle:version></item>"
            << int(F::UnsignedFeed);
        QTest::newRow("missing feed") << 404 << QByteArray("gone") << int(F::Network);
        QTest::newRow("server error") << 500 << QByteArray("oops") << int(F::Network);
        QTest::newRow("not XML, signed")
            << 200 << signedFeed("<rss><channel><item>", m_keys) << int(F::MalformedFeed);
    }

    void untrustedOrBrokenFeedsFail()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, published);
        QFETCH(int, failure);
        m_server->set("/appcast.xml", { status, published });
        Updater updater(config());
        const UpdateCheckResult result = runCheck(updater);
        QCOMPARE(int(result.outcome), int(UpdateCheckResult::Outcome::Failed));
        QCOMPARE(int(result.failure), failure);
        QVERIFY(!result.error.isEmpty()); // the English detail behind the translated text
        QVERIFY(updater.canCheckForUpdates());
    }

    void stalledServerTimesOutAndAllowsTheNextCheck()
    {
        m_server->set("/appcast.xml", { 200, {}, true });
        Updater updater(config(300));
        const UpdateCheckResult result = runCheck(updater);
        QCOMPARE(int(result.outcome), int(UpdateCheckResult::Outcome::Failed));
        QVERIFY(updater.canCheckForUpdates());

        Release r = publish("new");
        r.version = u"57"_s;
        serveSigned({ r });
        QCOMPARE(int(runCheck(updater).outcome), int(UpdateCheckResult::Outcome::UpToDate));
    }

    void secondCheckWhileOneIsUnderWayIsIgnored()
    {
        Release r = publish("new");
        r.version = u"57"_s;
        serveSigned({ r });
        Updater updater(config());
        QSignalSpy finished(&updater, &Updater::checkFinished);
        updater.checkForUpdates();
        updater.checkForUpdates();
        updater.checkForUpdatesInBackground();
        QVERIFY(finished.wait(15000));
        // A further check after it: any stray duplicate result would arrive first.
        QCOMPARE(int(runCheck(updater).outcome), int(UpdateCheckResult::Outcome::UpToDate));
        QCOMPARE(finished.size(), 2);
        QCOMPARE(m_server->requests().size(), 2);
    }

    void unconfiguredUpdaterCannotCheck()
    {
        QSettings().setValue(QLatin1StringView(Updater::kAutomaticChecksKey), false);
        Updater updater(UpdaterConfig {});
        QSignalSpy finished(&updater, &Updater::checkFinished);
        QSignalSpy canCheck(&updater, &Updater::canCheckForUpdatesChanged);
        QVERIFY(!updater.isConfigured());
        QVERIFY(!updater.canCheckForUpdates());
        QVERIFY(updater.automaticallyChecksForUpdates()); // reads as on without an updater
        updater.checkForUpdates();
        updater.start();
        QCoreApplication::processEvents();
        QCOMPARE(finished.size(), 0);
        QCOMPARE(canCheck.size(), 0);

        UpdaterConfig keyless = config();
        keyless.publicKey.clear();
        QVERIFY(!Updater(keyless).canCheckForUpdates());
    }

    void packagedInstallationLeavesUpdatesToThePackageSystem()
    {
        serveSigned({ publish("new") });
        UpdaterConfig packaged = config();
        packaged.packageManaged = true;
        Updater updater(packaged);
        QVERIFY(updater.canCheckForUpdates()); // the menu item explains
        QVERIFY(!updater.automaticallyChecksForUpdates());
        updater.checkForUpdatesInBackground();
        updater.start();
        const UpdateCheckResult result = runCheck(updater);
        QCOMPARE(int(result.outcome), int(UpdateCheckResult::Outcome::PackageManaged));
        QVERIFY(result.userInitiated);
        QVERIFY(m_server->requests().isEmpty());

        QVERIFY(Updater::isPackageManagedLocation(u"/usr/bin"_s));
        QVERIFY(Updater::isPackageManagedLocation(u"/app/bin"_s)); // Flatpak
        QVERIFY(!Updater::isPackageManagedLocation(u"/usr/local/bin"_s));
        QVERIFY(!Updater::isPackageManagedLocation(u"/usr/lib/../local/bin"_s));
        QVERIFY(!Updater::isPackageManagedLocation(u"/home/ana/orvanta/build/src/app"_s));
        QVERIFY(!Updater::isPackageManagedLocation(u"/usrx/bin"_s));
    }

    void versionsCompareAsPeopleReadThem_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<int>("sign");
        QTest::newRow("numbers, not text") << u"1.10"_s << u"1.9"_s << 1;
        QTest::newRow("equal") << u"2.3.1"_s << u"2.3.1"_s << 0;
        QTest::newRow("longer is newer") << u"2.0.1"_s << u"2.0"_s << 1;
        QTest::newRow("build numbers") << u"57"_s << u"58"_s << -1;
    }

    void versionsCompareAsPeopleReadThem()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(int, sign);
        const int c = compareVersions(a, b);
        QCOMPARE((c > 0) - (c < 0), sign);
        const int reverse = compareVersions(b, a);
        QCOMPARE((reverse > 0) - (reverse < 0), -sign);
    }

    void nextAutomaticCheckIsDueOneIntervalAfterTheLast()
    {
        const QDateTime now = QDateTime::fromSecsSinceEpoch(1800000000, Qt::UTC);
        QCOMPARE(Updater::secondsUntilDue({}, now, 86400), qint64(0)); // never checked
        QCOMPARE(Updater::secondsUntilDue(now.addSecs(-3600), now, 86400), qint64(82800));
        QCOMPARE(Updater::secondsUntilDue(now.addDays(-2), now, 86400), qint64(0)); // overdue
        QCOMPARE(Updater::secondsUntilDue(now.addSecs(600), now, 86400),
                 qint64(0)); // clock went back
    }

private:
    UpdaterConfig config(int timeoutMs = 10000) const
    {
        return { m_server->url(u"/appcast.xml"_s),
                 m_keys.publicBase64(),
                 u"57"_s,
                 u"2.3.1"_s,
                 86400,
                 timeoutMs };
    }
    // A release of `payload`, described in a feed; the payload is never served.
    Release publish(const QByteArray &payload)
    {
        Release r;
        r.download = m_server->url(u"/Orvanta-2.4.0.tar.gz"_s);
        r.length = payload.size();
        r.signature = m_keys.sign(payload);
        r.page = QUrl(u"https://orvanta.example/releases/2.4.0"_s);
        return r;
    }
    void serveSigned(const QList<Release> &releases)
    {
        m_server->set("/appcast.xml", { 200, signedFeed(feed(releases), m_keys) });
    }
    UpdateCheckResult runCheck(Updater &updater)
    {
        QSignalSpy finished(&updater, &Updater::checkFinished);
        updater.checkForUpdates();
        if (!finished.wait(15000) || finished.isEmpty())
            return { UpdateCheckResult::Outcome::Failed, {}, u"<no result>"_s };
        return finished.first().first().value<UpdateCheckResult>();
    }

    KeyPair m_keys;
    std::unique_ptr<LoopbackServer> m_server;
};

ORVANTA_TEST_GUILESS_MAIN(UpdaterTest)
#include "tst_updater.moc"
