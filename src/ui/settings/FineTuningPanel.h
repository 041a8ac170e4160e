// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The custom style's five sliders with their values and the reset button.
// A slider moves its property only when the user moves it: values from the
// configuration file or a recipe are shown as they are, even outside the
// slider's range, and are never clamped back into the model. Main thread.
#pragma once

#include "styles/StyleProfile.h"

#include <QWidget>

#include <array>

class QLabel;
class QPushButton;
class QSlider;

namespace orvanta {

class AppViewModel;

class FineTuningPanel : public QWidget
{
    Q_OBJECT
public:
    explicit FineTuningPanel(AppViewModel &model, QWidget *parent = nullptr);

    QSlider *slider(FineTuning which) const { return m_rows[size_t(which)].slider; }
    QLabel *valueLabel(FineTuning which) const { return m_rows[size_t(which)].value; }
    QPushButton *resetButton() const { return m_reset; }

    // Slider positions are hundredths of the value.
    static int toTicks(double value);
    static double fromTicks(int ticks);

private:
    struct Row
    {
        QLabel *name = nullptr;
        QLabel *value = nullptr;
        QSlider *slider = nullptr;
    };

    void retranslate();
    void showValue(FineTuning which);
    double modelValue(FineTuning which) const;
    void setModelValue(FineTuning which, double value);

    AppViewModel &m_model;
    QLabel *m_title = nullptr;
    QPushButton *m_reset = nullptr;
    std::array<Row, 5> m_rows;
};

} // namespace orvanta
