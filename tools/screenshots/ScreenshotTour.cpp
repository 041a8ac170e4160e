// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the README's screenshots: builds the real main window in a chosen
// state and language inside a private home, and saves QWidget::grab().
//
//   orvanta_screenshot --state idle|running|console|overlay|donate|icons
//                      --lang en|de|fr|es|ja|zh-Hans|zh-Hant --out FILE.png
//
// The running and console states drive a real batch through the scriptable
// test engine; the console state shows it with the console drawer open.
#include "ScreenshotSupport.h"
#include "app/AppMenus.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/DonateSheet.h"
#include "ui/Icons.h"
#include "ui/MainWindow.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QPainter>
#include <QThread>

using namespace orvanta;
using namespace Qt::StringLiterals;

using test::waitFor;

namespace {

void settle()
{
    test::pumpEvents(200);
}

QString eventLine(const QString &json)
{
    return u"print ORVANTA_EVENT: "_s + json;
}

// A batch of eight photos: five are done when the picture is taken, the
// sixth is in work and the engine waits to be stopped.
void writeRunningScenario(const QString &path)
{
    QStringList lines {
        u"on-sigint exit130"_s, u"print [09:41:02] Orvanta engine 1.4.0 • 8 workers"_s,
        u"print [09:41:02] Scanning /photos for RAW+JPG pairs"_s,
        eventLine(uR"({"type":"scan","pairs":8,"orphans":1,"skipped":0,"pending":8})"_s),
        u"print === Rendering 8 pairs ==="_s
    };
    const char *stems[]
        = { "DSC04211", "DSC04212", "DSC04215", "DSC04218", "DSC04223", "DSC04224" };
    const double peaks[] = { 2.41, 1.87, 3.02, 2.66, 2.94 };
    const int faces[] = { 0, 2, 1, 0, 3 };
    for (int i = 0; i < 5; ++i) {
        const QString stem = QString::fromLatin1(stems[i]);
        lines
            << eventLine(
                   uR"({"type":"item_start","stem":"%1","index":%2,"total":8})"_s.arg(stem).arg(
                       i + 1))
            << u"print [09:41:%1] %2 gain map +%3st"_s.arg(10 + i * 7)
                   .arg(stem)
                   .arg(peaks[i], 0, 'f', 2)
            << u"db %1 SUCCESS"_s.arg(stem)
            << eventLine(
                   uR"({"type":"item_done","stem":"%1","index":%2,"total":8,"faces":%3,"peak_stops":%4,"bayer_clip":0.012,"duration":6.8})"_s
                       .arg(stem)
                       .arg(i + 1)
                       .arg(faces[i])
                       .arg(peaks[i]))
            << u"print ✅ SUCCESS %1 → %1_hdr.jpg"_s.arg(stem);
        if (i == 2)
            lines << u"print ⚠️ WARN DSC04216 has no JPG partner, skipped"_s;
    }
    lines << eventLine(uR"({"type":"item_start","stem":"DSC04224","index":6,"total":8})"_s)
          << u"touch %1.ready"_s.arg(path) << u"pause 60000"_s << u"exit 130"_s;
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(lines.join(u'\n').toUtf8() + '\n');
}

// Every drawing of the icon set, tinted, with its symbol name: a sheet for
// checking that the set is consistent.
QPixmap iconSheet()
{
    const QStringList names = QDir(u":/icons"_s).entryList({ u"*.svg"_s }, QDir::Files, QDir::Name);
    const int columns = 4, cellW = 260, cellH = 56;
    QPixmap sheet(columns * cellW, int((names.size() + columns - 1) / columns) * cellH + 16);
    sheet.fill(theme::kSurface);
    QPainter p(&sheet);
    p.setPen(theme::kTextSecondary);
    for (int i = 0; i < names.size(); ++i) {
        const QString symbol = names.at(i).chopped(4);
        const QPoint cell(8 + (i % columns) * cellW, 8 + (i / columns) * cellH);
        p.drawPixmap(cell + QPoint(4, 8), icons::pixmap(symbol, theme::kTextPrimary, 32));
        p.drawText(QRect(cell + QPoint(44, 0), QSize(cellW - 48, cellH)),
                   Qt::AlignVCenter | Qt::TextWordWrap, symbol);
    }
    return sheet;
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANTA_VERSION));

    QCommandLineParser parser;
    parser.addOption({ u"state"_s, u"Window state"_s, u"state"_s, u"idle"_s });
    parser.addOption({ u"lang"_s, u"Language code"_s, u"code"_s, u"en"_s });
    parser.addOption({ u"out"_s, u"PNG file"_s, u"file"_s, u"screenshot.png"_s });
    parser.process(app);
    const QString state = parser.value(u"state"_s);
    const AppLanguage language
        = appLanguageFromRawValue(parser.value(u"lang"_s)).value_or(AppLanguage::English);

    // Folders as a photographer would have them; they need not exist (the
    // volume probe measures the nearest existing folder), and nothing is
    // written outside the private home.
    const QString home = environment.home();
    const QString source = u"/home/anna/Pictures/2026-10 Lofoten"_s;
    const QString dest = u"/home/anna/Pictures/Ultra HDR"_s;
    const QString scenario = home + u"/scenario.txt"_s;
    const bool runsBatch = state == u"running" || state == u"console";
    if (runsBatch) {
        writeRunningScenario(scenario);
        qputenv("ORVANTA_TEST_SCENARIO", scenario.toUtf8());
        qputenv("ORVANTA_BIN", ORVANTA_SCRIPTED_ENGINE);
    }

    LocalizationService::shared().setCurrentLanguage(language);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setCurrentLanguage(language);
    model.setSourceDir(source);
    model.setDestDir(dest);
    model.setSelectedProfile(StyleProfile::Landscape);
    model.setMinRating(3);
    model.updateVolumeInfo();
    model.clearLogs();

    if (state == u"icons")
        return iconSheet().save(parser.value(u"out"_s)) ? 0 : 1;

    MainWindow window(model);
    window.setDonationPage(QUrl(u"https://orvanta.example/donate"_s));
    AppMenus menus(model, window, nullptr);
    window.show();
    settle();

    if (runsBatch) {
        model.setIsConsoleDrawerExpanded(state == u"console");
        model.startProcessing();
        if (!waitFor(
                [&] { return QFile::exists(scenario + u".ready"_s) && model.currentIndex() == 6; },
                20000)) {
            qWarning("the test engine did not reach item 6");
            return 1;
        }
        model.batch()->setStateForTest([&](BatchRunState &s) { s.batchElapsedSeconds = 41; });
    } else if (state == u"overlay") {
        QMimeData mime;
        mime.setUrls({ QUrl::fromLocalFile(source) });
        QDragEnterEvent enter(QPoint(window.width() / 2, window.height() - 120), Qt::CopyAction,
                              &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
    } else if (state == u"donate") {
        model.setIsShowingDonateSheet(true);
    }
    settle();

    QPixmap shot = window.grab();
    if (state == u"donate" && window.donateSheet()->isVisible()) {
        // A sheet is its own window: compose it over the dimmed main window.
        QPainter p(&shot);
        p.fillRect(shot.rect(), QColor(0, 0, 0, 120));
        const QPixmap sheet = window.donateSheet()->grab();
        const QRect where(QPoint((shot.width() - sheet.width()) / 2, 90), sheet.size());
        p.drawPixmap(where.topLeft(), sheet);
        p.setPen(theme::kBorder);
        p.drawRect(where.adjusted(0, 0, -1, -1));
    }
    const bool saved = shot.save(parser.value(u"out"_s));
    if (model.isRunning()) {
        model.stopProcessing();
        waitFor([&] { return !model.isRunning(); }, 10000);
    }
    return saved ? 0 : 1;
}
