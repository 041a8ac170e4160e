// The application's main window ("main"). Main thread.
#pragma once

#include <QMainWindow>

namespace orvanta {

class AppViewModel;

class MainWindow : public QMainWindow
{
    Q_OBJECT
public:
    static constexpr int kDefaultWidth = 880;
    static constexpr int kDefaultHeight = 720;

    explicit MainWindow(AppViewModel &model, QWidget *parent = nullptr);

private:
    void retranslate();

    AppViewModel &m_model;
};

} // namespace orvanta
