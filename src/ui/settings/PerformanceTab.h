// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Settings page for how hard the engine works: the worker count, the memory
// throttle, and a live reading of installed memory and memory pressure.
// Main thread.
#pragma once

#include <QWidget>

class QComboBox;
class QLabel;
class QPushButton;

namespace orvanta {

class AppViewModel;
namespace settingsui {
class SwitchRow;
}

class PerformanceTab : public QWidget
{
    Q_OBJECT
public:
    // The worker counts offered, in order (0 lets the engine decide).
    static const QList<int> &workerChoices();

    explicit PerformanceTab(AppViewModel &model, QWidget *parent = nullptr);

    QComboBox *workersPicker() const { return m_workers; }
    settingsui::SwitchRow *throttleSwitch() const { return m_throttle; }
    QPushButton *refreshButton() const { return m_refresh; }
    QLabel *ramValue() const { return m_ramValue; }
    QLabel *pressureValue() const { return m_pressureValue; }

private:
    void retranslate();
    void showWorkers();
    void showProbe();

    AppViewModel &m_model;
    QLabel *m_workersTitle = nullptr;
    QLabel *m_workersNote = nullptr;
    QComboBox *m_workers = nullptr;
    settingsui::SwitchRow *m_throttle = nullptr;
    QLabel *m_probeTitle = nullptr;
    QLabel *m_ramLabel = nullptr;
    QLabel *m_archLabel = nullptr;
    QLabel *m_pressureLabel = nullptr;
    QLabel *m_ramValue = nullptr;
    QLabel *m_archValue = nullptr;
    QLabel *m_pressureValue = nullptr;
    QPushButton *m_refresh = nullptr;
};

} // namespace orvanta
