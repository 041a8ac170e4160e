// Entry point: one state object, one main window.
#include "core/AppViewModel.h"
#include "ui/MainWindow.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationName(QStringLiteral("orvanta"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANTA_VERSION));
    // Lets docks and notification servers match our windows to orvanta.desktop.
    QGuiApplication::setDesktopFileName(QStringLiteral("orvanta"));

    orvanta::AppViewModel model;
    orvanta::MainWindow window(model);
    window.show();
    return app.exec();
}
