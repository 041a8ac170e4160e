// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The notice shown above the picture on a standard display: why highlights
// cannot glow here, the choice between the natural and the filmic view of
// the HDR side with the hint of the chosen one, and the simulated headroom
// of the filmic view. Main thread.
#pragma once

#include "hdr/EdrViewerTypes.h"

#include <QFrame>

class QButtonGroup;
class QLabel;
class QSlider;

namespace orvanta {

class AppViewModel;

class SdrBanner : public QFrame
{
    Q_OBJECT
public:
    explicit SdrBanner(AppViewModel &model, QWidget *parent = nullptr);

    void retranslate();
    void setToneMapMode(SDRToneMapMode mode);
    void setSimulatedHeadroom(double headroom);

    QButtonGroup *toneMapModes = nullptr; // ids are the modes' raw values
    QSlider *headroom = nullptr; // tenths: 10...40

private:
    AppViewModel &m_model;
    QLabel *m_title = nullptr;
    QLabel *m_description = nullptr;
    QLabel *m_modeLabel = nullptr;
    QLabel *m_hint = nullptr;
    QLabel *m_headroomLabel = nullptr;
    QLabel *m_headroomValue = nullptr;
    SDRToneMapMode m_mode = SDRToneMapMode::Natural;
};

} // namespace orvanta
