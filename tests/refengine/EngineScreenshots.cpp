// Screenshots of the main window driving the real engine over generated
// pairs (run under xvfb-run). Not a test: it only draws.
//
//   orvanta_engine_screenshot --state running|done --out FILE.png
#include "SamplePairs.h"

#include "app/AppMenus.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QThread>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

bool waitFor(const std::function<bool()> &condition, int ms)
{
    QDeadlineTimer deadline(ms);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(10);
    }
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);
    QCommandLineParser parser;
    parser.addOption({ u"state"_s, u"running or done"_s, u"state"_s, u"done"_s });
    parser.addOption({ u"out"_s, u"PNG file"_s, u"file"_s, u"engine.png"_s });
    parser.process(app);
    const bool running = parser.value(u"state"_s) == u"running"_s;

    const QString source = environment.home() + u"/Pictures/Demo pairs"_s;
    samples::SampleScene scene;
    scene.bayer = true;
    scene.width = running ? 3000 : 1536;
    scene.height = running ? 2000 : 1024;
    for (int i = 0; i < 6; ++i) {
        scene.face = i % 2 == 1;
        if (!samples::writePair(source, u"DSC0%1"_s.arg(4211 + i), scene))
            return 1;
    }
    qputenv("ORVANTA_BIN", ORVANTA_ENGINE_PATH);
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setSourceDir(source);
    model.setDestDir(environment.home() + u"/Pictures/Ultra HDR"_s);
    model.setSelectedWorkers(running ? 1 : 2);
    model.clearLogs();
    MainWindow window(model);
    AppMenus menus(model, window, nullptr);
    window.show();
    model.setIsConsoleDrawerExpanded(true);
    model.startProcessing();
    const bool reached = running ? waitFor([&] { return model.currentIndex() >= 3; }, 120000)
                                 : waitFor([&] { return !model.isRunning(); }, 120000);
    if (!reached) {
        qWarning("the engine did not get there in time");
        return 1;
    }
    waitFor([] { return false; }, 300); // let the last repaint land
    const bool saved = window.grab().save(parser.value(u"out"_s));
    if (model.isRunning()) {
        model.stopProcessing();
        waitFor([&] { return !model.isRunning(); }, 20000);
    }
    return saved ? 0 : 1;
}
