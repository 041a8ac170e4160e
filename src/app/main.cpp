// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Entry point: one state object, one main window with its menus, and the
// update checks.
#include "app/AppMenus.h"
#include "app/ComparePanels.h"
#include "app/UpdateAnnouncer.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"
#include "ui/QuitGuard.h"
#include "ui/Theme.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/compare/HDRCompareWindowManager.h"
#include "ui/history/HistoryView.h"
#include "ui/settings/SettingsWindow.h"
#include "update/Updater.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANTA_VERSION));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Orvanta"));
    // Lets docks and notification servers match our windows to orvanta.desktop.
    QGuiApplication::setDesktopFileName(QStringLiteral("orvanta"));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/orvanta.svg")));
    orvanta::theme::apply(app, orvanta::LocalizationService::shared().effectiveLanguageCode());

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

    orvanta::Updater updater({ QUrl(QStringLiteral(ORVANTA_UPDATE_FEED_URL)),
                               QByteArrayLiteral(ORVANTA_UPDATE_PUBLIC_KEY),
                               QStringLiteral(ORVANTA_BUILD_NUMBER),
                               QStringLiteral(ORVANTA_VERSION) });
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
