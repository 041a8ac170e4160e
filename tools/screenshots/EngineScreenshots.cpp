// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Screenshots of the application driving the real engine over generated
// pairs (run under xvfb-run): the main window during and after a batch, the
// history tab on the engine's rows, and the compare window on one of its
// photos. Not a test: it only draws.
//
//   orvanta_engine_screenshot --state running|done|history|compare --out FILE.png
#include "SamplePairs.h"
#include "ScreenshotSupport.h"
#include "app/AppMenus.h"
#include "app/ComparePanels.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"
#include "ui/Theme.h"
#include "ui/compare/EdrViewer.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/compare/HDRCompareWindowManager.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/HistoryRowDelegate.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryView.h"
#include "ui/history/InspectorView.h"
#include "ui/history/RowMediaStore.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

using namespace orvanta;
using namespace Qt::StringLiterals;

using test::waitFor;

namespace {

void settle()
{
    test::pumpEvents(300);
}

constexpr int kPairs = 10;

// A morning's shoot: landscapes with a bright sun, portraits with a face,
// two backlit scenes, one photo taken upright, different ratings and times.
bool writeShoot(const QString &source, int width, int height)
{
    const int ratings[kPairs] = { 5, 3, 4, 2, 5, 1, 4, 3, 5, 2 };
    for (int i = 0; i < kPairs; ++i) {
        samples::SampleScene scene;
        scene.bayer = true;
        scene.width = width;
        scene.height = height;
        scene.face = i % 2 == 1;
        scene.backlit = i == 3 || i == 8;
        scene.orientation = i == 4 ? 6 : 1;
        scene.exifRating = ratings[i];
        scene.dateTimeOriginal = u"2026:10:14 07:%1:12"_s.arg(8 + i * 5);
        if (!samples::writePair(source, u"DSC0%1"_s.arg(4211 + i), scene))
            return false;
    }
    return true;
}

// The history tab and the compare window, wired as the application does.
HistoryView *addHistoryTab(AppViewModel &model, MainWindow &window)
{
    auto *history = new HistoryView(model);
    auto &compare = HDRCompareWindowManager::shared();
    compare.setPanelProvider(std::make_unique<HistoryComparePanels>());
    history->setCompareOpener(
        [&model, &compare](const PhotoRecord &record, const QList<PhotoRecord> &list) {
            compare.open(model, record, list);
        });
    window.setHistoryView(history);
    return history;
}

// The first delivered photo with a face, else the first delivered one.
int pickDeliveredRow(const HistoryTableModel &table)
{
    int fallback = -1;
    for (int row = 0; row < table.rowCount(); ++row) {
        const PhotoRecord &record = table.record(row);
        if (record.status != u"SUCCESS"_s || !record.outputPath || record.outputPath->isEmpty())
            continue;
        if (record.numFaces.value_or(0) > 0)
            return row;
        if (fallback < 0)
            fallback = row;
    }
    return fallback;
}

// The history tab after the batch, with the inspector open on one photo.
bool shootHistory(AppViewModel &model, MainWindow &window, HistoryView &history, const QString &out)
{
    window.resize(1440, 1040);
    model.setSelectedTab(1);
    HistoryTableModel *table = history.tableModel();
    if (!waitFor([&] { return table->rowCount() == kPairs; }, 20000)) {
        qWarning("the history did not show a row for every pair");
        return false;
    }
    const int row = pickDeliveredRow(*table);
    if (row < 0) {
        qWarning("the engine delivered no photo");
        return false;
    }
    history.openInspector(table->record(row));
    waitFor([&] { return !history.inspector()->histogram()->isCalculating(); }, 20000);
    settle();
    waitFor(
        [&] {
            return history.mediaStore()->pendingThumbnails() == 0
                && history.mediaStore()->pendingMetadata() == 0;
        },
        20000);
    settle();
    return window.grab().save(out);
}

// The compare window, opened from the history row like a click on its
// compare button, once the pair is on the viewer.
bool shootCompare(AppViewModel &model, HistoryView &history, const QString &out)
{
    HistoryTableModel *table = history.tableModel();
    if (!waitFor([&] { return table->rowCount() == kPairs; }, 20000))
        return false;
    const int row = pickDeliveredRow(*table);
    if (row < 0)
        return false;
    model.setSelectedTab(1);
    history.triggerAction(RowAction::Compare, table->record(row));
    HDRCompareView *view = HDRCompareWindowManager::shared().currentWindow();
    if (!view || !QTest::qWaitForWindowExposed(view))
        return false;
    QSignalSpy loaded(view->viewer(), &EdrViewer::picturesLoaded);
    if (!loaded.wait(30000)) {
        qWarning("the compare window did not load the pair");
        return false;
    }
    // The window opens at its own size and makes room for the inspector itself.
    CompareState state = view->state();
    state.isInspectorPresented = true;
    view->setState(state);
    settle(); // let the upload frame and the panel reach the screen
    if (auto *inspector = qobject_cast<InspectorView *>(view->inspector()))
        waitFor([&] { return !inspector->histogram()->isCalculating(); }, 20000);
    settle();
    return view->grab().save(out);
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);
    QCommandLineParser parser;
    parser.addOption({ u"state"_s, u"running, done, history or compare"_s, u"state"_s, u"done"_s });
    parser.addOption({ u"out"_s, u"PNG file"_s, u"file"_s, u"engine.png"_s });
    parser.process(app);
    const QString state = parser.value(u"state"_s);
    const bool running = state == u"running"_s;

    const QString source = environment.home() + u"/Pictures/Demo pairs"_s;
    const bool large = running || state == u"compare"_s;
    if (!writeShoot(source, large ? 3000 : 1536, large ? 2000 : 1024))
        return 1;
    qputenv("ORVANTA_BIN", ORVANTA_ENGINE_PATH);
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setSourceDir(source);
    model.setDestDir(environment.home() + u"/Pictures/Ultra HDR"_s);
    model.setSelectedWorkers(running ? 1 : 2);
    model.clearLogs();
    MainWindow window(model);
    HistoryView *history = addHistoryTab(model, window);
    AppMenus menus(model, window, nullptr);
    window.resize(1180, 1000); // the whole progress card above the console
    window.show();
    model.setIsConsoleDrawerExpanded(state == u"running"_s || state == u"done"_s);
    model.startProcessing();
    const bool reached = running ? waitFor([&] { return model.currentIndex() >= 3; }, 120000)
                                 : waitFor([&] { return !model.isRunning(); }, 180000);
    if (!reached) {
        qWarning("the engine did not get there in time");
        return 1;
    }
    settle(); // let the last repaint land
    const QString out = parser.value(u"out"_s);
    bool saved = false;
    if (state == u"history"_s)
        saved = shootHistory(model, window, *history, out);
    else if (state == u"compare"_s)
        saved = shootCompare(model, *history, out);
    else
        saved = window.grab().save(out);
    if (model.isRunning()) {
        model.stopProcessing();
        waitFor([&] { return !model.isRunning(); }, 20000);
    }
    return saved ? 0 : 1;
}
