// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Entry point: one state object, one main window with its menus, and the
// update checks.
#include "app/AppMenus.h"
#include "app/ComparePanels.h"
#include "app/UpdateAnnouncer.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "platform/AppId.h"
#include "ui/MainWindow.h"
#include "ui/QuitGuard.h"
#include "ui/Theme.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/compare/HDRCompareWindowManager.h"
#include "ui/history/HistoryView.h"
#include "ui/settings/SettingsWindow.h"
#include "update/Updater.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>

namespace {
// --help and --version only print: they must work without a display too.
void answerWithoutDisplay(int argc, char *argv[])
{
    for (int i = 1; i < argc; ++i) {
        const QByteArrayView arg(argv[i]);
        if (arg == "--help" || arg == "-h" || arg == "--help-all" || arg == "--version"
            || arg == "-v")
            qputenv("QT_QPA_PLATFORM", "offscreen");
    }
}
} // namespace

int main(int argc, char *argv[])
{
    answerWithoutDisplay(argc, argv);
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANTA_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Orvanta"));
    // Lets docks and notification servers match our windows to our desktop file.
    QGuiApplication::setDesktopFileName(orvanta::appId());
    // The installed theme icon when there is one, so the window matches the
    // launcher; the built-in one otherwise (a run from the build tree).
    QGuiApplication::setWindowIcon(
        QIcon::fromTheme(orvanta::appId(), QIcon(QStringLiteral(":/orvanta.svg"))));
    orvanta::theme::apply(app, orvanta::LocalizationService::shared().effectiveLanguageCode());

    // Folders and photos given by "Open With" in a file manager (%F of the
    // desktop file) are taken as if dropped on the window.
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Turns RAW+JPG pairs into Ultra HDR photos."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("paths"),
                                 QStringLiteral("A source folder, or photos to convert."),
                                 QStringLiteral("[paths...]"));
    parser.process(app);

    orvanta::AppViewModel model;
    orvanta::MainWindow window(model);
    window.setDonationPage(QUrl(QStringLiteral(ORVANTA_DONATE_URL)));
    auto *history = new orvanta::HistoryView(model);
    auto &compare = orvanta::HDRCompareWindowManager::shared();
    compare.setPanelProvider(std::make_unique<orvanta::HistoryComparePanels>());
    history->setCompareOpener([&model, &compare](const orvanta::PhotoRecord &record,
                                                 const QList<orvanta::PhotoRecord> &list) {
        compare.open(model, record, list);
    });
    window.setHistoryView(history);
    if (const QStringList paths = parser.positionalArguments(); !paths.isEmpty()) {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromUserInput(path, QDir::currentPath(), QUrl::AssumeLocalFile);
        model.handleDroppedURLs(urls);
    }

    orvanta::UpdaterConfig updates { QUrl(QStringLiteral(ORVANTA_UPDATE_FEED_URL)),
                                     QByteArrayLiteral(ORVANTA_UPDATE_PUBLIC_KEY),
                                     QStringLiteral(ORVANTA_BUILD_NUMBER),
                                     QStringLiteral(ORVANTA_VERSION) };
#ifdef ORVANTA_PACKAGED_BUILD
    updates.packageManaged = true;
#else
    updates.packageManaged
        = orvanta::Updater::isPackageManagedLocation(QCoreApplication::applicationDirPath());
#endif
    orvanta::Updater updater(updates);
    orvanta::AppMenus menus(model, window, &updater);
    orvanta::UpdateAnnouncer announcer(updater, &window);
    window.setSettingsFactory([&updater](orvanta::AppViewModel &m, QWidget *parent) -> QDialog * {
        return new orvanta::SettingsWindow(m, &updater, {}, parent);
    });

    // Closing the window, Ctrl+Q, the application menu and a logout all ask
    // before a running batch is given up.
    orvanta::QuitGuard quitGuard(model, window);

    window.show();
    updater.start();
    return app.exec();
}
