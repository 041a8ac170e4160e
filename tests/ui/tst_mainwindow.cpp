// The main window frame the application opens on.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"

#include <QApplication>

using namespace orvanta;

class MainWindowTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void opensAsTheNamedMainWindow();
};

void MainWindowTest::opensAsTheNamedMainWindow()
{
    LocalizationService::shared().setCurrentLanguage(AppLanguage::German);
    AppViewModel model;
    MainWindow window(model);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.objectName(), QStringLiteral("main"));
    QCOMPARE(window.size(), QSize(880, 720));
    QCOMPARE(window.windowTitle(), QStringLiteral("Orvanta"));
}

ORVANTA_TEST_WIDGETS_MAIN(MainWindowTest)
#include "tst_mainwindow.moc"
