#include "ui/MainWindow.h"

#include "core/AppViewModel.h"

namespace orvanta {

MainWindow::MainWindow(AppViewModel &model, QWidget *parent)
    : QMainWindow(parent)
    , m_model(model)
{
    setObjectName(QStringLiteral("main"));
    resize(kDefaultWidth, kDefaultHeight);
    retranslate();
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &MainWindow::retranslate);
}

void MainWindow::retranslate()
{
    setWindowTitle(m_model.t("app_title"));
}

} // namespace orvanta
