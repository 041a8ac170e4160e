// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The main window with its menus over a fresh model, as every window test
// starts it: English, existing source and delivery folders, shown. Also the
// folder of test photos the drops and folder choices use. Main thread.
#pragma once

#include "app/AppMenus.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QtTest>

#include <memory>

namespace orvanta::test {

// shots/A.ARW, shots/A.JPG, shots/B.JPG, x.tar.gz, notes, Lofoten/C.JPG, in/, out/
inline void writeTestPhotos(const QString &root)
{
    for (const char *name : { "shots/A.ARW", "shots/A.JPG", "shots/B.JPG", "x.tar.gz", "notes",
                              "Lofoten/C.JPG", "in/.keep", "out/.keep" }) {
        const QString path = root + u'/' + QString::fromLatin1(name);
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
}

class MainWindowHarness
{
public:
    explicit MainWindowHarness(const QString &root)
    {
        LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
        model = std::make_unique<AppViewModel>();
        model->setCurrentLanguage(AppLanguage::English);
        model->setSourceDir(root + QStringLiteral("/in"));
        model->setDestDir(root + QStringLiteral("/out"));
        model->setDryRunMode(false);
        model->setMinRating(0);
        model->clearLogs();
        window = std::make_unique<MainWindow>(*model);
        // Before show(): a menu bar added later would stay hidden, and with
        // it every shortcut.
        menus = new AppMenus(*model, *window, nullptr); // owned by the window
        window->show();
    }

    ~MainWindowHarness()
    {
        if (model->isRunning()) {
            model->stopProcessing();
            if (!QTest::qWaitFor([this] { return !model->isRunning(); }, 10000))
                qWarning("the engine was still running when the window closed");
        }
        window.reset();
    }

    std::unique_ptr<AppViewModel> model;
    std::unique_ptr<MainWindow> window;
    AppMenus *menus = nullptr;
};

} // namespace orvanta::test
