// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/FineTuningPanel.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {
constexpr FineTuning kOrder[] = { FineTuning::MidTarget, FineTuning::PowerMid, FineTuning::PowerHi,
                                  FineTuning::ChromaBoost, FineTuning::SkinDamp };
}

int FineTuningPanel::toTicks(double value)
{
    return int(std::lround(value * 100.0));
}

double FineTuningPanel::fromTicks(int ticks)
{
    // A correctly rounded division: 55 ticks give exactly the double 0.55.
    return ticks / 100.0;
}

FineTuningPanel::FineTuningPanel(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    QVBoxLayout *box = nullptr;
    QFrame *frame = settingsui::card(this, &box);
    auto *header = new QHBoxLayout;
    m_title = settingsui::label(u"cardTitle"_s, frame);
    m_reset = new QPushButton(frame);
    m_reset->setObjectName(u"resetFineTuning"_s);
    m_reset->setIcon(icons::icon(u"arrow.clockwise"_s, theme::kTextPrimary));
    header->addWidget(m_title, 1);
    header->addWidget(m_reset, 0, Qt::AlignTop);
    box->addLayout(header);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(2);
    const QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (FineTuning which : kOrder) {
        const FineTuningParameter &parameter = fineTuningParameter(which);
        Row &row = m_rows[size_t(which)];
        const int r = int(which) * 2;
        row.name = settingsui::label(QString(), frame);
        row.value = settingsui::label(QString(), frame, false);
        row.value->setFont(mono);
        row.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        row.slider = new QSlider(Qt::Horizontal, frame);
        row.slider->setObjectName(u"slider_"_s + QLatin1StringView(parameter.property));
        row.slider->setRange(toTicks(parameter.minimum), toTicks(parameter.maximum));
        row.slider->setSingleStep(toTicks(parameter.step));
        row.slider->setPageStep(10);
        grid->addWidget(row.name, r, 0);
        grid->addWidget(row.value, r, 1);
        grid->addWidget(row.slider, r + 1, 0, 1, 2);
        grid->setRowMinimumHeight(r + 1, 28);

        // valueChanged comes from the user only: the model's values reach
        // the slider with its signals blocked (see showValue).
        connect(row.slider, &QSlider::valueChanged, this,
                [this, which](int ticks) { setModelValue(which, fromTicks(ticks)); });
    }
    grid->setColumnStretch(0, 1);
    box->addLayout(grid);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame);

    connect(m_reset, &QPushButton::clicked, &m_model, &AppViewModel::resetCustomParameters);
    connect(&m_model, &AppViewModel::customMidTargetChanged, this,
            [this] { showValue(FineTuning::MidTarget); });
    connect(&m_model, &AppViewModel::customPowerMidChanged, this,
            [this] { showValue(FineTuning::PowerMid); });
    connect(&m_model, &AppViewModel::customPowerHiChanged, this,
            [this] { showValue(FineTuning::PowerHi); });
    connect(&m_model, &AppViewModel::customChromaBoostChanged, this,
            [this] { showValue(FineTuning::ChromaBoost); });
    connect(&m_model, &AppViewModel::customSkinDampChanged, this,
            [this] { showValue(FineTuning::SkinDamp); });
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &FineTuningPanel::retranslate);
    for (FineTuning which : kOrder)
        showValue(which);
    retranslate();
}

void FineTuningPanel::retranslate()
{
    m_title->setText(m_model.t("custom_sliders_title"));
    m_reset->setText(theme::literal(m_model.t("custom_reset_defaults")));
    for (FineTuning which : kOrder)
        m_rows[size_t(which)].name->setText(m_model.t(fineTuningParameter(which).labelKey));
}

void FineTuningPanel::showValue(FineTuning which)
{
    const Row &row = m_rows[size_t(which)];
    const double value = modelValue(which);
    row.value->setText(QString::asprintf("%.2f", value));
    // Out of range values sit pinned at the slider's end without being
    // written back.
    const QSignalBlocker blocker(row.slider);
    row.slider->setValue(toTicks(value));
}

double FineTuningPanel::modelValue(FineTuning which) const
{
    switch (which) {
    case FineTuning::MidTarget:
        return m_model.customMidTarget();
    case FineTuning::PowerMid:
        return m_model.customPowerMid();
    case FineTuning::PowerHi:
        return m_model.customPowerHi();
    case FineTuning::ChromaBoost:
        return m_model.customChromaBoost();
    case FineTuning::SkinDamp:
        return m_model.customSkinDamp();
    }
    return 0;
}

void FineTuningPanel::setModelValue(FineTuning which, double value)
{
    value = clampToSlider(which, value);
    switch (which) {
    case FineTuning::MidTarget:
        m_model.setCustomMidTarget(value);
        break;
    case FineTuning::PowerMid:
        m_model.setCustomPowerMid(value);
        break;
    case FineTuning::PowerHi:
        m_model.setCustomPowerHi(value);
        break;
    case FineTuning::ChromaBoost:
        m_model.setCustomChromaBoost(value);
        break;
    case FineTuning::SkinDamp:
        m_model.setCustomSkinDamp(value);
        break;
    }
}

} // namespace orvanta
