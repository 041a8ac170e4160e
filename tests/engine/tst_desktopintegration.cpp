// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Notifications, launcher progress and the file manager against our own
// small desktop servers on a private session bus.
#include "common/TestEnvironment.h"
#include "engine/DockProgressManager.h"
#include "engine/FakeDesktopServer.h"
#include "engine/NotificationManager.h"
#include "i18n/LocalizationService.h"
#include "platform/FileManager.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QtTest>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

// Receives what QDesktopServices would hand to xdg-open.
class UrlSink : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl &url) { opened << url; }
};

uint postAndWait(NotificationManager &nm, qint64 ok, qint64 failed, const QString &dir)
{
    QSignalSpy posted(&nm, &NotificationManager::notificationPosted);
    nm.sendBatchCompletion(ok, failed, 1.0, dir, true);
    if (!posted.wait(5000))
        return 0;
    return posted.first().first().toUInt();
}

} // namespace

class TestDesktopIntegration : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { LocalizationService::shared().setCurrentLanguage(AppLanguage::English); }

    void notificationCarriesTitleBodyActionsAndHints();
    void soundCanBeSwitchedOff();
    void actionOpensTheDeliveryFolderOnlyIfItExists();
    void actionsOfOtherClientsAreIgnored();
    void capabilitiesAreReadInsteadOfAskingPermission();
    void withoutAServerNothingIsShownAndNothingFails();

    void launcherShowsProgressOnlyInsideTheRun();
    void progressFloodCollapsesIntoOneUpdate();
    void badgeAndAttentionAtTheEnd();
    void windowIconCarriesTheBarWhileRunning();

    void fileManagerFallsBackToOpeningTheFolder();
};

void TestDesktopIntegration::notificationCarriesTitleBodyActionsAndHints()
{
    FakeDesktop desktop;
    NotificationManager nm(QDBusConnection::sessionBus());
    QVERIFY(postAndWait(nm, 5, 0, u"/tmp/out"_s));
    QCOMPARE(desktop.notifications.received.size(), 1);
    const ReceivedNotification n = desktop.notifications.received.first();
    QCOMPARE(n.appName, u"Orvanta"_s);
    QCOMPARE(n.summary, u"Batch Processing Completed"_s);
    QCOMPARE(n.body, u"Successfully delivered 5 Ultra HDR photos in 1.0s."_s);
    QCOMPARE(n.actions,
             (QStringList { u"default"_s, u"Show in File Manager"_s, u"OPEN_DELIVERY_ACTION"_s,
                            u"Show in File Manager"_s }));
    QCOMPARE(n.hints.value(u"sound-name"_s).toString(), u"complete"_s);
    QCOMPARE(n.hints.value(u"desktop-entry"_s).toString(), u"io.github.orvanta.Orvanta"_s);
    QCOMPARE(n.hints.value(u"category"_s).toString(), u"transfer.complete"_s);

    QVERIFY(postAndWait(nm, 7, 2, QString()));
    const ReceivedNotification failed = desktop.notifications.received.last();
    QCOMPARE(failed.body, u"7 succeeded, 2 failed."_s);
    QVERIFY(failed.actions.isEmpty()); // nothing to open without a folder
}

void TestDesktopIntegration::soundCanBeSwitchedOff()
{
    FakeDesktop desktop;
    NotificationManager nm(QDBusConnection::sessionBus());
    QSignalSpy posted(&nm, &NotificationManager::notificationPosted);
    nm.sendBatchCompletion(1, 0, 2.4, u"/tmp"_s, false);
    QVERIFY(posted.wait(5000));
    const QVariantMap hints = desktop.notifications.received.first().hints;
    QVERIFY(!hints.contains(u"sound-name"_s));
    QCOMPARE(hints.value(u"suppress-sound"_s).toBool(), true);
    QCOMPARE(desktop.notifications.received.first().body,
             u"Successfully delivered 1 Ultra HDR photo in 2.4s."_s);
}

void TestDesktopIntegration::actionOpensTheDeliveryFolderOnlyIfItExists()
{
    FakeDesktop desktop;
    NotificationManager nm(QDBusConnection::sessionBus());
    QSignalSpy handled(&nm, &NotificationManager::responseHandled);
    QTemporaryDir delivery;
    const QString folder = delivery.path() + u"/Ultra HDR"_s;
    QVERIFY(QDir().mkpath(folder));

    const uint id = postAndWait(nm, 3, 0, folder);
    QVERIFY(id);
    desktop.notifications.invokeAction(id, u"OPEN_DELIVERY_ACTION"_s);
    QTRY_COMPARE(desktop.fileManager.shownFolders.size(), 1);
    QCOMPARE(QUrl(desktop.fileManager.shownFolders.first()).toLocalFile(), folder);
    QCOMPARE(handled.size(), 1);
    QCOMPARE(handled.first().at(1).toBool(), true);

    // A click on the notification body opens it as well.
    desktop.notifications.invokeAction(id, u"default"_s);
    QTRY_COMPARE(desktop.fileManager.shownFolders.size(), 2);

    // Once the folder is gone, a click opens nothing.
    const uint gone = postAndWait(nm, 3, 0, folder);
    QVERIFY(QDir(folder).removeRecursively());
    desktop.notifications.invokeAction(gone, u"OPEN_DELIVERY_ACTION"_s);
    QTRY_COMPARE(handled.size(), 3);
    QCOMPARE(handled.last().at(1).toBool(), false);
    QCOMPARE(desktop.fileManager.shownFolders.size(), 2);
}

void TestDesktopIntegration::actionsOfOtherClientsAreIgnored()
{
    FakeDesktop desktop;
    NotificationManager nm(QDBusConnection::sessionBus());
    QSignalSpy handled(&nm, &NotificationManager::responseHandled);
    QTemporaryDir delivery;
    const uint id = postAndWait(nm, 1, 0, delivery.path());
    desktop.notifications.invokeAction(id + 1000, u"OPEN_DELIVERY_ACTION"_s); // someone else's
    desktop.notifications.invokeAction(id, u"snooze"_s); // not our action
    desktop.notifications.invokeAction(id, u"OPEN_DELIVERY_ACTION"_s);
    QTRY_COMPARE(handled.size(), 1);
    // The server's signals arrive in order, and a round trip comes after
    // them: the first two did nothing.
    QSignalSpy roundTrip(&nm, &NotificationManager::capabilitiesReceived);
    nm.requestAuthorization();
    QVERIFY(roundTrip.wait(5000));
    QCOMPARE(handled.size(), 1);

    // After the server closed it, the notification is forgotten.
    desktop.notifications.close(id);
    desktop.notifications.invokeAction(id, u"OPEN_DELIVERY_ACTION"_s);
    const uint next = postAndWait(nm, 1, 0, delivery.path());
    desktop.notifications.invokeAction(next, u"default"_s);
    QTRY_COMPARE(handled.size(), 2);
    // The folder is shown by an asynchronous call that reaches the file
    // manager after responseHandled; a round trip lets it arrive.
    nm.requestAuthorization();
    QVERIFY(roundTrip.wait(5000));
    QCOMPARE(handled.size(), 2);
    QCOMPARE(desktop.fileManager.shownFolders.size(), 2);
}

void TestDesktopIntegration::capabilitiesAreReadInsteadOfAskingPermission()
{
    FakeDesktop desktop;
    NotificationManager nm(QDBusConnection::sessionBus());
    QSignalSpy received(&nm, &NotificationManager::capabilitiesReceived);
    nm.requestAuthorization();
    QVERIFY(received.wait(5000));
    QCOMPARE(nm.serverCapabilities(), desktop.notifications.capabilities);
}

void TestDesktopIntegration::withoutAServerNothingIsShownAndNothingFails()
{
    NotificationManager nm(QDBusConnection::sessionBus());
    QSignalSpy failed(&nm, &NotificationManager::notificationFailed);
    QSignalSpy caps(&nm, &NotificationManager::capabilitiesReceived);
    nm.sendBatchCompletion(1, 0, 1.0, u"/tmp"_s, true);
    nm.requestAuthorization();
    QVERIFY(failed.wait(5000));
    QTRY_COMPARE(caps.size(), 1);
    QVERIFY(nm.serverCapabilities().isEmpty());
}

void TestDesktopIntegration::launcherShowsProgressOnlyInsideTheRun()
{
    FakeDesktop desktop;
    DockProgressManager dock(QDBusConnection::sessionBus());
    dock.updateProgress(0.0);
    dock.updateProgress(1.0);
    dock.clearProgress(); // a marker: the only update so far must be this one
    QTRY_COMPARE(desktop.launcher.updates.size(), 1);
    QCOMPARE(desktop.launcher.updates.first().first,
             u"application://io.github.orvanta.Orvanta.desktop"_s);
    QCOMPARE(desktop.launcher.updates.first().second,
             (QVariantMap { { u"progress-visible"_s, false } }));
    QVERIFY(!dock.overlayProgress());

    dock.updateProgress(0.25);
    QTRY_COMPARE(desktop.launcher.updates.size(), 2);
    const QVariantMap shown = desktop.launcher.updates.last().second;
    QCOMPARE(shown.value(u"progress"_s).toDouble(), 0.25);
    QCOMPARE(shown.value(u"progress-visible"_s).toBool(), true);
    QCOMPARE(dock.overlayProgress(), 0.25);
}

void TestDesktopIntegration::progressFloodCollapsesIntoOneUpdate()
{
    FakeDesktop desktop;
    DockProgressManager dock(QDBusConnection::sessionBus());
    for (int i = 1; i < 1000; ++i)
        dock.updateProgress(i / 1000.0);
    dock.clearProgress();
    dock.updateProgress(0.5);
    // One update with the newest value, the clear, then the value after it.
    QTRY_COMPARE(desktop.launcher.updates.size(), 3);
    QCOMPARE(desktop.launcher.updates.at(0).second.value(u"progress"_s).toDouble(), 0.999);
    QCOMPARE(desktop.launcher.updates.at(1).second.value(u"progress-visible"_s).toBool(), false);
    QCOMPARE(desktop.launcher.updates.at(2).second.value(u"progress"_s).toDouble(), 0.5);
}

void TestDesktopIntegration::badgeAndAttentionAtTheEnd()
{
    FakeDesktop desktop;
    DockProgressManager dock(QDBusConnection::sessionBus());
    QSignalSpy attention(&dock, &DockProgressManager::attentionRequested);

    dock.finishWithBadge(0);
    QVERIFY(attention.wait(5000));
    QVERIFY(!dock.badge());

    dock.finishWithBadge(3);
    QTRY_COMPARE(attention.size(), 2);
    QTRY_COMPARE(desktop.launcher.updates.size(), 1); // the zero set no badge
    const QVariantMap badge = desktop.launcher.updates.first().second;
    QCOMPARE(badge.value(u"count"_s).metaType(), QMetaType::fromType<qlonglong>());
    QCOMPARE(badge.value(u"count"_s).toLongLong(), 3);
    QCOMPARE(badge.value(u"count-visible"_s).toBool(), true);
    QCOMPARE(dock.badge(), 3);

    dock.clearBadge();
    QTRY_COMPARE(desktop.launcher.updates.size(), 2);
    QCOMPARE(desktop.launcher.updates.last().second,
             (QVariantMap { { u"count-visible"_s, false } }));
    QVERIFY(!dock.badge());
}

void TestDesktopIntegration::windowIconCarriesTheBarWhileRunning()
{
    QImage plain(128, 128, QImage::Format_ARGB32_Premultiplied);
    plain.fill(Qt::white);
    QGuiApplication::setWindowIcon(QIcon(QPixmap::fromImage(plain)));
    DockProgressManager dock(QDBusConnection::sessionBus());
    QSignalSpy changed(&dock, &DockProgressManager::overlayChanged);

    dock.updateProgress(0.5);
    QVERIFY(changed.wait(5000));
    const QImage withBar = QGuiApplication::windowIcon().pixmap(128).toImage();
    QCOMPARE(withBar.pixelColor(64, 40), QColor(Qt::white)); // the icon
    QVERIFY(withBar.pixelColor(100, 112) != QColor(Qt::white)); // the track
    QCOMPARE(dock.overlayImage().size(), QSize(128, 128));

    // Same drawn width: no redraw.
    dock.updateProgress(0.501);
    QTRY_COMPARE(dock.overlayProgress(), 0.501);
    QCOMPARE(changed.size(), 1);

    dock.clearProgress();
    QTRY_COMPARE(changed.size(), 2);
    const QImage restored = QGuiApplication::windowIcon().pixmap(128).toImage();
    QCOMPARE(restored.pixelColor(100, 112), QColor(Qt::white));
}

void TestDesktopIntegration::fileManagerFallsBackToOpeningTheFolder()
{
    UrlSink sink;
    QDesktopServices::setUrlHandler(u"file"_s, &sink, "open");
    FileManager fm(QDBusConnection::sessionBus()); // no file manager on this bus
    QSignalSpy fellBack(&fm, &FileManager::fellBack);
    QTemporaryDir dir;
    fm.showItem(dir.path() + u"/photo.jpg"_s);
    QVERIFY(fellBack.wait(5000));
    QCOMPARE(sink.opened, QList<QUrl> { QUrl::fromLocalFile(dir.path()) });
    QDesktopServices::unsetUrlHandler(u"file"_s);
}

ORVANTA_TEST_GUI_MAIN(TestDesktopIntegration)
#include "tst_desktopintegration.moc"
