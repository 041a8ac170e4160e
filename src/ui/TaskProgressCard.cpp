// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/TaskProgressCard.h"

#include "core/AppViewModel.h"
#include "ui/FailureListDialog.h"
#include "ui/Icons.h"
#include "ui/ProgressText.h"
#include "ui/Theme.h"

#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

MetricBadge::MetricBadge(const QString &symbol, const QColor &tint, QWidget *parent)
    : QWidget(parent)
    , m_tint(tint)
{
    auto *icon = new QLabel(this);
    icon->setPixmap(icons::pixmap(symbol, tint, 16, devicePixelRatioF()));
    m_text = new QLabel(this);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(10, 7, 12, 7);
    layout->setSpacing(7);
    layout->addWidget(icon);
    layout->addWidget(m_text, 1);
}

QSize MetricBadge::minimumSizeHint() const
{
    // The card picks a row or a grid from the preferred widths; the badge
    // itself never forces the card wider than the page.
    return { 48, QWidget::minimumSizeHint().height() };
}

void MetricBadge::setText(const QString &text)
{
    m_text->setText(text);
}

QString MetricBadge::text() const
{
    return m_text->text();
}

void MetricBadge::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    QColor fill = m_tint;
    fill.setAlphaF(0.12f);
    QColor edge = m_tint;
    edge.setAlphaF(0.28f);
    p.setPen(QPen(edge, 1));
    p.setBrush(fill);
    p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 8, 8);
}

namespace {

// The 8-point status dot of the header.
class StatusDot : public QWidget
{
public:
    explicit StatusDot(QWidget *parent)
        : QWidget(parent)
    {
        setFixedSize(8, 8);
    }
    void setColor(const QColor &color)
    {
        m_color = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter p(this);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(m_color);
        p.drawEllipse(rect());
    }

private:
    QColor m_color;
};

QLabel *label(QWidget *parent, const QString &role)
{
    auto *l = new QLabel(parent);
    if (!role.isEmpty())
        l->setProperty("role", role);
    return l;
}

} // namespace

TaskProgressCard::TaskProgressCard(AppViewModel &model, QWidget *parent)
    : QFrame(parent)
    , m_model(model)
{
    setObjectName(u"progressCard"_s);
    setProperty("role", u"card"_s);

    m_dot = new StatusDot(this);
    m_title = label(this, u"cardTitle"_s);
    m_title->setObjectName(u"cardTitle"_s);
    m_stem = label(this, u"secondary"_s);
    m_stem->setObjectName(u"cardStem"_s);
    m_stem->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *header = new QHBoxLayout;
    header->setSpacing(10);
    header->addWidget(m_dot, 0, Qt::AlignVCenter);
    header->addWidget(m_title);
    header->addStretch(1);
    header->addWidget(m_stem);

    m_progressLine = label(this, QString());
    m_progressLine->setObjectName(u"cardProgress"_s);
    m_estimate = label(this, u"secondary"_s);
    m_estimate->setObjectName(u"cardEstimate"_s);
    auto *progressRow = new QHBoxLayout;
    progressRow->addWidget(m_progressLine);
    progressRow->addStretch(1);
    progressRow->addWidget(m_estimate);

    m_bar = new QProgressBar(this);
    m_bar->setRange(0, 1000);
    m_bar->setTextVisible(false);

    m_faces = new MetricBadge(u"face.smiling.fill"_s, theme::kOrange, this);
    m_faces->setObjectName(u"metricFaces"_s);
    m_peak = new MetricBadge(u"sun.max.fill"_s, theme::kYellow, this);
    m_peak->setObjectName(u"metricPeak"_s);
    m_clip = new MetricBadge(u"shield.checkerboard"_s, theme::kBlue, this);
    m_clip->setObjectName(u"metricClip"_s);
    m_time = new MetricBadge(u"stopwatch.fill"_s, theme::kPurple, this);
    m_time->setObjectName(u"metricTime"_s);
    m_badges = new QGridLayout;
    m_badges->setHorizontalSpacing(kBadgeSpacing);
    m_badges->setVerticalSpacing(kBadgeSpacing);
    arrangeBadges(4);

    auto *divider = new QFrame(this);
    divider->setProperty("role", u"divider"_s);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 16, 18, 16);
    layout->setSpacing(10);
    layout->addLayout(header);
    layout->addLayout(progressRow);
    layout->addWidget(m_bar);
    layout->addWidget(buildFailureRow());
    layout->addSpacing(2);
    layout->addLayout(m_badges);
    layout->addSpacing(4);
    layout->addWidget(divider);
    layout->addWidget(buildTotalsRow());
    layout->addStretch(1);

    const auto update = [this] { refresh(); };
    for (auto signal :
         { &AppViewModel::isRunningChanged, &AppViewModel::currentStemChanged,
           &AppViewModel::currentIndexChanged, &AppViewModel::totalPendingChanged,
           &AppViewModel::progressFractionChanged, &AppViewModel::scanPairsChanged,
           &AppViewModel::currentFacesChanged, &AppViewModel::currentPeakStopsChanged,
           &AppViewModel::currentBayerClipChanged, &AppViewModel::currentDurationChanged,
           &AppViewModel::batchElapsedSecondsChanged, &AppViewModel::historyStatsChanged,
           &AppViewModel::isPausedChanged, &AppViewModel::isWatchingChanged,
           &AppViewModel::watchedFolderChanged, &AppViewModel::watchCountChanged,
           &AppViewModel::watchLastStemChanged, &AppViewModel::watchLostChanged,
           &AppViewModel::wholeObjectChanged })
        connect(&m_model, signal, this, update);
    connect(m_model.batch(), &BatchController::runFailedCountChanged, this, update);
    refresh();
}

int TaskProgressCard::badgeColumns() const
{
    return m_badgeColumns;
}

void TaskProgressCard::arrangeBadges(int columns)
{
    // One row of four keeps the card short beside an open console drawer;
    // two rows of two when the texts (long in some languages) need the room.
    m_badgeColumns = columns;
    MetricBadge *all[] = { m_faces, m_peak, m_clip, m_time };
    for (MetricBadge *badge : all)
        m_badges->removeWidget(badge);
    for (int i = 0; i < 4; ++i) {
        m_badges->addWidget(all[i], i / columns, i % columns);
        m_badges->setColumnStretch(i, i < columns ? 1 : 0);
    }
}

void TaskProgressCard::fitBadges()
{
    // The columns share the width equally, so the widest text decides.
    int widest = 0;
    for (const MetricBadge *badge : { m_faces, m_peak, m_clip, m_time })
        widest = std::max(widest, badge->sizeHint().width());
    const QMargins margins = layout()->contentsMargins();
    const int available = width() - margins.left() - margins.right();
    const int columns = 4 * widest + 3 * kBadgeSpacing <= available ? 4 : 2;
    if (columns != m_badgeColumns)
        arrangeBadges(columns);
}

void TaskProgressCard::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    fitBadges();
}

QWidget *TaskProgressCard::buildFailureRow()
{
    m_failureRow = new QWidget(this);
    m_failureRow->setObjectName(u"cardFailures"_s);
    m_failureCount = label(m_failureRow, QString());
    m_failureCount->setObjectName(u"cardFailureCount"_s);
    QPalette pal = m_failureCount->palette();
    pal.setColor(QPalette::WindowText, theme::kRed);
    m_failureCount->setPalette(pal);
    m_showFailures = new QPushButton(m_failureRow);
    m_showFailures->setObjectName(u"cardShowFailures"_s);
    m_showFailures->setCursor(Qt::PointingHandCursor);
    connect(m_showFailures, &QPushButton::clicked, this, [this] {
        auto *dialog = new FailureListDialog(m_model, window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
    auto *row = new QHBoxLayout(m_failureRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_failureCount);
    row->addStretch(1);
    row->addWidget(m_showFailures);
    return m_failureRow;
}

QWidget *TaskProgressCard::buildTotalsRow()
{
    auto *row = new QWidget(this);
    auto *grid = new QGridLayout(row);
    grid->setContentsMargins(0, 4, 0, 0);
    grid->setHorizontalSpacing(12);
    grid->setVerticalSpacing(2);
    const QColor colours[4]
        = { theme::kTextPrimary, theme::kGreen, theme::kRed, theme::kTextPrimary };
    for (int i = 0; i < 4; ++i) {
        m_kpiValues[i] = label(row, u"kpiValue"_s);
        m_kpiValues[i]->setObjectName(u"kpiValue%1"_s.arg(i));
        QPalette pal = m_kpiValues[i]->palette();
        pal.setColor(QPalette::WindowText, colours[i]);
        m_kpiValues[i]->setPalette(pal);
        m_kpiLabels[i] = label(row, u"kpiLabel"_s);
        m_kpiLabels[i]->setWordWrap(true);
        grid->addWidget(m_kpiValues[i], 0, i);
        grid->addWidget(m_kpiLabels[i], 1, i, Qt::AlignTop);
        grid->setColumnStretch(i, 1);
    }
    return row;
}

void TaskProgressCard::refreshWatching()
{
    const AppViewModel &m = m_model;
    const bool lost = m.watchLost();
    if (lost) {
        m_title->setText(m.t("card_watch_lost_title"));
    } else {
        // Long paths keep both ends: the disk and the folder's own name.
        const int room = std::max(120, width() / 2);
        const QString folder = QDir::toNativeSeparators(m.watchedFolder());
        m_title->setText(m.t("card_watching",
                             { m_title->fontMetrics().elidedText(folder, Qt::ElideMiddle, room) }));
        m_title->setToolTip(folder);
    }
    m_stem->setText(m.watchLastStem().isEmpty() ? QString()
                                                : m.t("card_watch_last", { m.watchLastStem() }));
    m_progressLine->setText(lost ? m.t(m.watchLostReason() == u"unmounted"_s
                                           ? "card_watch_lost_unmounted"
                                           : "card_watch_lost")
                                 : m.t("card_watch_count", { m.watchCount() }));
    m_progressLine->setVisible(true);
    m_estimate->setVisible(false);
}

void TaskProgressCard::refresh()
{
    const AppViewModel &m = m_model;
    QColor idle = theme::kTextSecondary;
    idle.setAlphaF(0.5f);
    const bool paused = m.isRunning() && m.isPaused();
    const bool watching = m.isRunning() && m.isWatching();
    static_cast<StatusDot *>(m_dot)->setColor(paused || (watching && m.watchLost()) ? theme::kOrange
                                                  : m.isRunning()                   ? theme::kGreen
                                                                                    : idle);
    m_title->setText(m.t(paused ? "card_paused" : m.isRunning() ? "card_processing" : "card_idle"));
    m_title->setToolTip(QString());

    // Failures are offered once the batch is over.
    const qint64 failed = m.batch()->runFailedCount();
    const bool showFailures = !m.isRunning() && failed > 0 && !m.batch()->runFailures().isEmpty();
    m_failureRow->setVisible(showFailures);
    m_failureCount->setText(m.t("card_failed_count", { failed }));
    m_showFailures->setText(theme::literal(m.t("btn_show_failures")));
    m_stem->setText(m.currentStem());

    const QString line = progressLineText(m);
    m_progressLine->setText(line);
    m_progressLine->setVisible(!line.isEmpty());
    m_bar->setValue(int(std::clamp(m.progressFraction(), 0.0, 1.0) * 1000.0));
    m_bar->setVisible(m.isRunning() || m.progressFraction() > 0.0);

    const QString estimate = timeLeftText(m);
    m_estimate->setText(estimate);
    m_estimate->setVisible(!estimate.isEmpty());
    // A pause keeps its title; the rest of the card still says what is watched.
    if (watching) {
        refreshWatching();
        if (paused)
            m_title->setText(m.t("card_paused"));
    }

    m_faces->setText(m.t("metric_faces", { m.currentFaces() }));
    m_peak->setText(m.t("metric_peak_gain", { m.currentPeakStops() }));
    m_clip->setText(m.t("metric_bayer_clip", { m.currentBayerClip() }));
    m_time->setText(timeBadgeText(m));
    fitBadges();

    const DashboardStats &stats = m.historyStats();
    const QString values[4]
        = { QString::number(stats.total), QString::number(stats.success),
            QString::number(stats.failed), QString::asprintf("%.1fs", stats.avgDurationSec) };
    const char *keys[4] = { "kpi_total_processed", "kpi_success_delivered", "kpi_quarantine_failed",
                            "kpi_avg_duration" };
    for (int i = 0; i < 4; ++i) {
        m_kpiValues[i]->setText(values[i]);
        m_kpiLabels[i]->setText(m.t(keys[i]));
    }
}

} // namespace orvanta
