// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/PerformanceTab.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/settings/SettingsWidgets.h"

#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QSysInfo>

namespace orvanta {

using namespace Qt::StringLiterals;
using namespace settingsui;

const QList<int> &PerformanceTab::workerChoices()
{
    static const QList<int> choices = { 0, 1, 2, 3, 4, 6, 8 };
    return choices;
}

PerformanceTab::PerformanceTab(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    QVBoxLayout *workersBox = nullptr;
    QFrame *workersCard = card(this, &workersBox);
    m_workersTitle = label(u"cardTitle"_s, workersCard);
    m_workers = new QComboBox(workersCard);
    m_workers->setObjectName(u"workersPicker"_s);
    m_workersNote = label(u"secondary"_s, workersCard);
    m_throttle = new SwitchRow(workersCard);
    m_throttle->box()->setObjectName(u"throttleSwitch"_s);
    workersBox->addWidget(m_workersTitle);
    workersBox->addWidget(m_workers);
    workersBox->addWidget(m_workersNote);
    workersBox->addSpacing(6);
    workersBox->addWidget(m_throttle);

    QVBoxLayout *probeBox = nullptr;
    QFrame *probeCard = card(this, &probeBox);
    auto *probeHeader = new QHBoxLayout;
    m_probeTitle = label(u"cardTitle"_s, probeCard);
    m_refresh = new QPushButton(probeCard);
    m_refresh->setObjectName(u"probeRefresh"_s);
    m_refresh->setIcon(icons::icon(u"arrow.clockwise"_s, theme::kTextPrimary));
    probeHeader->addWidget(m_probeTitle, 1);
    probeHeader->addWidget(m_refresh, 0, Qt::AlignTop);
    probeBox->addLayout(probeHeader);

    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(18);
    grid->setVerticalSpacing(8);
    QLabel **names[] = { &m_ramLabel, &m_archLabel, &m_pressureLabel };
    QLabel **values[] = { &m_ramValue, &m_archValue, &m_pressureValue };
    for (int row = 0; row < 3; ++row) {
        *names[row] = label(u"secondary"_s, probeCard);
        *values[row] = label(QString(), probeCard);
        (*values[row])->setTextInteractionFlags(Qt::TextSelectableByMouse);
        grid->addWidget(*names[row], row, 0);
        grid->addWidget(*values[row], row, 1);
    }
    grid->setColumnStretch(1, 1);
    probeBox->addLayout(grid);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(workersCard);
    layout->addWidget(probeCard);
    layout->addStretch(1);

    connect(m_workers, &QComboBox::activated, this, [this](int index) {
        m_model.setSelectedWorkers(m_workers->itemData(index).toLongLong());
    });
    connect(m_throttle->box(), &QCheckBox::toggled, &m_model,
            &AppViewModel::setMemoryThrottleEnabled);
    connect(m_refresh, &QPushButton::clicked, &m_model, &AppViewModel::updateMemoryProbe);
    connect(&m_model, &AppViewModel::selectedWorkersChanged, this, &PerformanceTab::showWorkers);
    connect(&m_model, &AppViewModel::memoryThrottleEnabledChanged, this,
            [this] { m_throttle->box()->setChecked(m_model.memoryThrottleEnabled()); });
    connect(&m_model, &AppViewModel::ramTotalGBChanged, this, &PerformanceTab::showProbe);
    connect(&m_model, &AppViewModel::memoryPressureDescChanged, this, &PerformanceTab::showProbe);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &PerformanceTab::retranslate);

    m_archValue->setText(QSysInfo::currentCpuArchitecture() + u" · "_s + QSysInfo::kernelType()
                         + u' ' + QSysInfo::kernelVersion());
    m_throttle->box()->setChecked(m_model.memoryThrottleEnabled());
    retranslate();
}

void PerformanceTab::retranslate()
{
    m_workersTitle->setText(m_model.t("settings_workers_label"));
    m_workersNote->setText(m_model.t("settings_workers_desc"));
    m_throttle->setTexts(m_model.t("settings_throttle_label"), m_model.t("settings_throttle_desc"));
    m_probeTitle->setText(m_model.t("settings_probe_title"));
    m_refresh->setText(theme::literal(m_model.t("btn_refresh")));
    m_refresh->setToolTip(m_model.t("settings_probe_refresh_help"));
    m_ramLabel->setText(m_model.t("settings_probe_ram"));
    m_archLabel->setText(m_model.t("settings_probe_arch"));
    m_pressureLabel->setText(m_model.t("settings_probe_pressure"));

    m_workers->clear();
    for (int workers : workerChoices()) {
        const QByteArray key = workers == 0 ? QByteArray("settings_workers_auto")
                                            : "settings_workers_" + QByteArray::number(workers);
        m_workers->addItem(m_model.t(QAnyStringView(key)), qlonglong(workers));
    }
    showWorkers();
    showProbe();
}

void PerformanceTab::showWorkers()
{
    const qint64 workers = m_model.selectedWorkers();
    int index = m_workers->findData(qlonglong(workers));
    if (index < 0) {
        // A count set in the file by hand: shown as it is, not replaced.
        m_workers->addItem(QString::number(workers), qlonglong(workers));
        index = m_workers->count() - 1;
    }
    m_workers->setCurrentIndex(index);
}

void PerformanceTab::showProbe()
{
    m_ramValue->setText(m_model.ramTotalGB() > 0
                            ? QString::number(m_model.ramTotalGB(), 'f', 1) + u" GB"_s
                            : u"—"_s);
    const QString pressure = m_model.memoryPressureDesc();
    m_pressureValue->setText(pressure.isEmpty() ? u"—"_s : pressure);
}

} // namespace orvanta
