// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/CompareToolbar.h"

#include "core/AppViewModel.h"
#include "hdr/EdrViewerTypes.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QResizeEvent>
#include <QSlider>
#include <QToolButton>
#include <QWidgetAction>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr double kBadgeHdrHeadroom = 1.2;

QSlider *thresholdSlider(int minimum, int maximum, QWidget *parent)
{
    auto *slider = new QSlider(Qt::Horizontal, parent);
    slider->setRange(minimum, maximum);
    slider->setMinimumWidth(160);
    slider->setFocusPolicy(Qt::NoFocus);
    return slider;
}

} // namespace

CompareToolbar::CompareToolbar(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setObjectName(u"compareToolbar"_s);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 6, 12, 6);
    row->setSpacing(4);
    // Compact segments: the row holds a dozen controls at the window's minimum width.
    setStyleSheet(u"QToolButton[role=\"tab\"] { padding: 4px 9px; }"_s);

    previous = iconButton(u"chevron.left"_s, u"previousButton"_s);
    position = new QLabel(this);
    position->setObjectName(u"positionLabel"_s);
    position->setProperty("role", u"secondary"_s);
    next = iconButton(u"chevron.right"_s, u"nextButton"_s);
    stem = new QLabel(this);
    stem->setObjectName(u"stemLabel"_s);
    stem->setStyleSheet(u"font-weight: 600;"_s);
    stem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_rating = new QLabel(this);
    m_rating->setObjectName(u"ratingLabel"_s);
    m_rating->setStyleSheet(u"color: %1;"_s.arg(theme::css(theme::kYellow)));
    m_peak = new QLabel(this);
    m_peak->setObjectName(u"peakLabel"_s);
    m_peak->setStyleSheet(u"color: %1;"_s.arg(theme::css(theme::kOrange)));
    m_badgeIcon = new QLabel(this);
    badgeText = new QLabel(this);
    badgeText->setObjectName(u"displayBadge"_s);
    for (QWidget *w : { static_cast<QWidget *>(previous), static_cast<QWidget *>(position),
                        static_cast<QWidget *>(next) })
        row->addWidget(w);
    row->addSpacing(8);
    row->addWidget(stem);
    row->addWidget(m_rating);
    row->addWidget(m_peak);
    row->addSpacing(8);
    row->addWidget(m_badgeIcon);
    row->addWidget(badgeText);
    row->addStretch(1);

    modes = new QButtonGroup(this);
    modes->setExclusive(true);
    for (EDRCompareMode mode : allCompareModes()) {
        auto *button = new QToolButton(this);
        button->setObjectName(u"mode_"_s + titleKey(mode));
        button->setProperty("role", u"tab"_s);
        button->setCheckable(true);
        button->setFocusPolicy(Qt::NoFocus);
        modes->addButton(button, int(mode));
        row->addWidget(button);
    }
    row->addSpacing(8);

    zebra = new QToolButton(this);
    zebra->setObjectName(u"zebraButton"_s);
    zebra->setProperty("role", u"tab"_s);
    zebra->setCheckable(true);
    zebra->setFocusPolicy(Qt::NoFocus);
    row->addWidget(zebra);
    // The thresholds drop down from a small arrow beside the toggle.
    zebraOptions = iconButton(u"chevron.down"_s, u"zebraOptions"_s);
    zebraOptions->setIconSize(QSize(12, 12));
    zebraOptions->setPopupMode(QToolButton::InstantPopup);
    zebraOptions->setStyleSheet(u"QToolButton::menu-indicator { image: none; width: 0; }"_s);
    auto *zebraMenu = new QMenu(zebraOptions);
    auto *panelAction = new QWidgetAction(zebraMenu);
    panelAction->setDefaultWidget(zebraPanel());
    zebraMenu->addAction(panelAction);
    zebraOptions->setMenu(zebraMenu);
    row->addWidget(zebraOptions);

    histogram = iconButton(u"chart.bar.xaxis"_s, u"histogramButton"_s);
    histogram->setCheckable(true);
    histogram->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    row->addWidget(histogram);
    inspector = iconButton(u"sidebar.right"_s, u"inspectorButton"_s);
    inspector->setCheckable(true);
    row->addWidget(inspector);
    share = iconButton(u"square.and.arrow.up"_s, u"shareButton"_s);
    share->setPopupMode(QToolButton::InstantPopup);
    share->setStyleSheet(u"QToolButton::menu-indicator { image: none; width: 0; }"_s);
    shareMenu = new QMenu(share);
    copyPath = shareMenu->addAction(QString());
    reveal = shareMenu->addAction(QString());
    openDefault = shareMenu->addAction(QString());
    share->setMenu(shareMenu);
    row->addWidget(share);
    // Never squeezed below their text: when the row is short it drops texts
    // for icons with tooltips instead (see updateCompactness).
    for (QToolButton *button : findChildren<QToolButton *>(Qt::FindDirectChildrenOnly))
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    retranslate();
}

void CompareToolbar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setCompact(width() < m_fullWidth);
}

// The width the row needs with every text shown, measured once per change
// of its texts; the row turns compact below it.
void CompareToolbar::updateCompactness()
{
    setCompact(true);
    setMinimumWidth(0);
    setMinimumWidth(sizeHint().width());
    setCompact(false);
    m_fullWidth = sizeHint().width();
    setCompact(width() < m_fullWidth);
    Q_EMIT compactWidthChanged();
}

void CompareToolbar::setCompact(bool compact)
{
    m_compact = compact;
    badgeText->setVisible(!compact);
    m_badgeIcon->setToolTip(compact ? badgeText->text() : QString());
    histogram->setToolButtonStyle(compact ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextBesideIcon);
    histogram->setToolTip(compact ? histogram->text() : QString());
}

QToolButton *CompareToolbar::iconButton(const QString &symbol, const QString &name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setProperty("flat", true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIcon(icons::icon(symbol, theme::kTextSecondary));
    button->setIconSize(QSize(18, 18));
    return button;
}

QWidget *CompareToolbar::zebraPanel()
{
    auto *panel = new QWidget(this);
    panel->setObjectName(u"zebraPanel"_s);
    auto *grid = new QGridLayout(panel);
    grid->setContentsMargins(12, 10, 12, 10);
    m_zebraLabel = new QLabel(panel);
    zebraThreshold = thresholdSlider(5, 40, panel);
    zebraThreshold->setObjectName(u"zebraThreshold"_s);
    m_zebraValue = new QLabel(panel);
    shadowZebra = new QCheckBox(panel);
    shadowZebra->setObjectName(u"shadowZebra"_s);
    shadowZebra->setFocusPolicy(Qt::NoFocus);
    shadowThreshold = thresholdSlider(1, 50, panel);
    shadowThreshold->setObjectName(u"shadowThreshold"_s);
    m_shadowValue = new QLabel(panel);
    for (QLabel *value : { m_zebraValue, m_shadowValue }) {
        value->setMinimumWidth(value->fontMetrics().horizontalAdvance(u"0.00×"_s) + 4);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
    grid->addWidget(m_zebraLabel, 0, 0);
    grid->addWidget(zebraThreshold, 0, 1);
    grid->addWidget(m_zebraValue, 0, 2);
    grid->addWidget(shadowZebra, 1, 0);
    grid->addWidget(shadowThreshold, 1, 1);
    grid->addWidget(m_shadowValue, 1, 2);
    return panel;
}

void CompareToolbar::showThresholds(double zebraValue, double shadowValue)
{
    m_zebraValue->setText(QString::number(zebraValue, 'f', 1) + u"×"_s);
    m_shadowValue->setText(QString::number(shadowValue, 'f', 2) + u"×"_s);
}

void CompareToolbar::retranslate()
{
    previous->setToolTip(m_model.t("edr_nav_prev"));
    next->setToolTip(m_model.t("edr_nav_next"));
    for (EDRCompareMode mode : allCompareModes())
        modes->button(int(mode))->setText(theme::literal(m_model.t(titleKey(mode))));
    zebra->setText(theme::literal(m_model.t("btn_zebra")));
    histogram->setText(theme::literal(m_model.t("btn_histogram")));
    inspector->setToolTip(m_model.t("inspector_title"));
    share->setToolTip(m_model.t("action_share_sheet"));
    copyPath->setText(theme::literal(m_model.t("edr_share_copy_path")));
    reveal->setText(theme::literal(m_model.t("action_reveal_finder")));
    openDefault->setText(theme::literal(m_model.t("edr_share_open")));
    m_zebraLabel->setText(m_model.t("edr_zebra_highlights"));
    shadowZebra->setText(theme::literal(m_model.t("edr_zebra_shadows")));
    setDisplayHeadroom(m_headroom);
}

void CompareToolbar::setPosition(int index, int count)
{
    position->setText(u"%1 / %2"_s.arg(index + 1).arg(count));
    previous->setEnabled(index > 0);
    next->setEnabled(index + 1 < count);
}

void CompareToolbar::setPhoto(const QString &stemText, qint64 rating, const QString &peak)
{
    stem->setText(stemText);
    m_rating->setText(QString(int(std::clamp<qint64>(rating, 0, 5)), QChar(0x2605)));
    m_rating->setVisible(rating > 0);
    m_peak->setText(peak);
    updateCompactness();
}

void CompareToolbar::setDisplayHeadroom(double headroom)
{
    m_headroom = headroom;
    const bool hdr = headroom > kBadgeHdrHeadroom;
    const QColor color = hdr ? theme::kOrange : theme::kTextSecondary;
    m_badgeIcon->setPixmap(
        icons::pixmap(hdr ? u"sun.max.fill"_s : u"display"_s, color, 16, devicePixelRatioF()));
    badgeText->setText(m_model.t(hdr ? "edr_badge_xdr" : "edr_badge_sdr"));
    // The body size (macOS's 13-point system text is this interface's base font).
    badgeText->setStyleSheet(u"color: %1;"_s.arg(theme::css(color)));
    updateCompactness();
}

} // namespace orvanta
