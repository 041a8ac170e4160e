// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the screenshots of the preferences window: builds the real window in
// a private home, fills it with a few recipes and a custom style, and saves
// a grab of every page.
//
//   orvanta_settings_screenshots --lang en|de|fr|es|ja|zh-Hans|zh-Hant
//                                --out DIR [--tabs perf,paths,safety,styles,updates,about]
//
// Files are named settings-<tab>-<lang>.png; the style page is also saved
// whole (settings-styles-full-<lang>.png), since the window shows only its top.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "styles/RecipeService.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWindow.h"
#include "ui/settings/StyleTab.h"
#include "update/Updater.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QScrollArea>
#include <QStackedWidget>
#include <QThread>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

void settle()
{
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
        QThread::msleep(20);
    }
}

void addSampleRecipes(AppViewModel &model)
{
    model.setCustomMidTarget(0.62);
    model.setCustomPowerHi(1.8);
    model.setCustomChromaBoost(0.22);
    model.saveCurrentAsRecipe(u"Sunset Backlight"_s);
    model.setCustomMidTarget(0.48);
    model.setCustomPowerMid(0.52);
    model.setCustomSkinDamp(0.7);
    model.saveCurrentAsRecipe(u"Harsh Noon Portraits"_s);
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);

    QCommandLineParser parser;
    parser.addOption({ u"lang"_s, u"Language code"_s, u"code"_s, u"en"_s });
    parser.addOption({ u"out"_s, u"Output folder"_s, u"dir"_s, u"."_s });
    parser.addOption(
        { u"tabs"_s, u"Pages to take"_s, u"list"_s, u"perf,paths,safety,styles,updates,about"_s });
    parser.process(app);
    const QString code = parser.value(u"lang"_s);
    const AppLanguage language = appLanguageFromRawValue(code).value_or(AppLanguage::English);

    LocalizationService::shared().setCurrentLanguage(language);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setCurrentLanguage(language);
    // Sample folders as a photographer's machine would have them.
    model.setSourceDir(u"/media/alex/PhotoSSD/2026-09 Dolomites"_s);
    model.setDestDir(u"/home/alex/Pictures/UltraHDR"_s);
    model.setExportNamingTemplate(u"{date}_{original}_{profile}"_s);
    model.setExportSubfolderRule(u"by_date"_s);
    addSampleRecipes(model);

    // A configured updater, as a release build has one; nothing is fetched.
    Updater updater({ QUrl(u"https://updates.invalid/appcast.xml"_s), QByteArrayLiteral("AAAA"),
                      u"57"_s, QStringLiteral(ORVANTA_VERSION) });
    SettingsHooks hooks;
    hooks.reveal = [](const diagnostics::RevealTarget &) {};
    SettingsWindow window(model, &updater, hooks);
    window.show();
    settle();

    const QStringList names
        = { u"perf"_s, u"paths"_s, u"safety"_s, u"styles"_s, u"updates"_s, u"about"_s };
    const QString out = parser.value(u"out"_s);
    QDir().mkpath(out);
    bool ok = true;
    for (const QString &tab : parser.value(u"tabs"_s).split(u',')) {
        const int index = int(names.indexOf(tab));
        if (index < 0)
            continue;
        window.showTab(SettingsWindow::Tab(index));
        settle();
        ok &= window.grab().save(out + u"/settings-%1-%2.png"_s.arg(tab, code));
        if (tab == u"paths") {
            // The warning under the preview, for a template with a colon and
            // a placeholder in the wrong case.
            const QString kept = model.exportNamingTemplate();
            model.setExportNamingTemplate(u"{Date}:{original}_{profile}"_s);
            settle();
            ok &= window.grab().save(out + u"/settings-paths-warning-%1.png"_s.arg(code));
            model.setExportNamingTemplate(kept);
        }
        if (tab == u"updates") {
            // A build without a feed or key, as a local build is.
            Updater unconfigured({});
            SettingsWindow plain(model, &unconfigured, hooks);
            plain.resize(window.size());
            plain.show();
            plain.showTab(SettingsWindow::Updates);
            settle();
            ok &= plain.grab().save(out + u"/settings-updates-unconfigured-%1.png"_s.arg(code));
        }
        if (tab == u"styles") {
            // The whole page at the window's width, as if it did not scroll.
            QWidget *page = window.styleTab()->parentWidget();
            page->resize(page->width(), page->sizeHint().height());
            settle();
            ok &= page->grab().save(out + u"/settings-styles-full-%1.png"_s.arg(code));
        }
    }
    return ok ? 0 : 1;
}
