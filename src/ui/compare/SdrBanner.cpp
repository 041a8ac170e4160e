// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/SdrBanner.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QString screenName()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    if (!screen)
        return u"—"_s;
    const QString model = screen->model().trimmed();
    return model.isEmpty() ? screen->name() : model;
}

} // namespace

SdrBanner::SdrBanner(AppViewModel &model, QWidget *parent)
    : QFrame(parent)
    , m_model(model)
{
    setObjectName(u"sdrBanner"_s);
    setStyleSheet(
        u"QFrame#sdrBanner { background: rgba(255, 159, 10, 0.10); border: 1px solid rgba(255, 159, 10, 0.35); border-radius: 10px; }"_s);
    auto *icon = new QLabel(this);
    icon->setPixmap(
        icons::pixmap(u"exclamationmark.triangle.fill"_s, theme::kOrange, 18, devicePixelRatioF()));
    icon->setAlignment(Qt::AlignTop);
    m_title = new QLabel(this);
    m_title->setObjectName(u"bannerTitle"_s);
    m_title->setStyleSheet(u"font-weight: 600;"_s);
    m_description = new QLabel(this);
    m_description->setObjectName(u"bannerDescription"_s);
    m_description->setProperty("role", u"secondary"_s);
    m_description->setWordWrap(true);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(m_title);
    texts->addWidget(m_description);

    m_modeLabel = new QLabel(this);
    toneMapModes = new QButtonGroup(this);
    auto *selector = new QHBoxLayout;
    selector->setSpacing(2);
    selector->addWidget(m_modeLabel);
    for (SDRToneMapMode mode : allToneMapModes()) {
        auto *button = new QToolButton(this);
        button->setObjectName(u"toneMap_"_s + titleKey(mode));
        button->setProperty("role", u"tab"_s);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        toneMapModes->addButton(button, int(mode));
        selector->addWidget(button);
    }
    m_hint = new QLabel(this);
    m_hint->setObjectName(u"toneMapHint"_s);
    m_hint->setProperty("role", u"tertiary"_s);
    m_hint->setWordWrap(true);
    m_hint->setMinimumHeight(2 * m_hint->fontMetrics().lineSpacing());
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_headroomLabel = new QLabel(this);
    m_headroomLabel->setProperty("role", u"secondary"_s);
    headroom = new QSlider(Qt::Horizontal, this);
    headroom->setObjectName(u"simulatedHeadroom"_s);
    headroom->setRange(10, 40);
    headroom->setFocusPolicy(Qt::NoFocus);
    m_headroomValue = new QLabel(this);
    m_headroomValue->setMinimumWidth(m_headroomValue->fontMetrics().horizontalAdvance(u"0.0×"_s)
                                     + 4);
    auto *simulate = new QHBoxLayout;
    simulate->addWidget(m_headroomLabel);
    simulate->addWidget(headroom, 1);
    simulate->addWidget(m_headroomValue);
    auto *controls = new QVBoxLayout;
    controls->setSpacing(4);
    controls->addLayout(selector);
    controls->addWidget(m_hint);
    controls->addLayout(simulate);

    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 8, 12, 8);
    row->setSpacing(10);
    row->addWidget(icon);
    row->addLayout(texts, 1);
    row->addLayout(controls, 1);
    retranslate();
}

void SdrBanner::retranslate()
{
    // The triangle beside the title already warns; a warning sign the text
    // itself may start with would say it twice.
    QString title = m_model.t("edr_sdr_banner_title", { screenName() });
    if (title.startsWith(QChar(0x26A0)))
        title = title.section(QLatin1Char(' '), 1);
    m_title->setText(title);
    m_description->setText(m_model.t("edr_sdr_banner_desc"));
    m_modeLabel->setText(m_model.t("sdr_mode_label"));
    for (SDRToneMapMode mode : allToneMapModes())
        toneMapModes->button(int(mode))->setText(theme::literal(m_model.t(titleKey(mode))));
    m_hint->setText(m_model.t(hintKey(m_mode)));
    m_headroomLabel->setText(m_model.t("edr_simulate_headroom"));
}

void SdrBanner::setToneMapMode(SDRToneMapMode mode)
{
    m_mode = mode;
    toneMapModes->button(int(mode))->setChecked(true);
    m_hint->setText(m_model.t(hintKey(mode)));
    // The simulated headroom only changes the filmic view.
    const bool filmic = mode == SDRToneMapMode::FilmicRollOff;
    for (QWidget *w : { static_cast<QWidget *>(m_headroomLabel), static_cast<QWidget *>(headroom),
                        static_cast<QWidget *>(m_headroomValue) })
        w->setEnabled(filmic);
}

void SdrBanner::setSimulatedHeadroom(double value)
{
    headroom->setValue(int(std::lround(value * 10)));
    m_headroomValue->setText(QString::number(value, 'f', 1) + u"×"_s);
}

} // namespace orvanta
