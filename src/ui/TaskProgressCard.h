// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The live-run card: a status dot and title, the photo in work, the progress
// line and bar, the last photo's four measurements, the time left, and the
// history totals; after a batch with failures, how many and a button that
// lists them; while watching a folder, what is watched, the count and the
// last photo. Reads the model; opens only the failure list. Main thread.
#pragma once

#include <QColor>
#include <QFrame>

class QGridLayout;
class QLabel;
class QProgressBar;
class QPushButton;

namespace orvanta {

class AppViewModel;

// A rounded chip with a tinted symbol and a text, used for the metrics.
class MetricBadge : public QWidget
{
    Q_OBJECT
public:
    MetricBadge(const QString &symbol, const QColor &tint, QWidget *parent = nullptr);
    void setText(const QString &text);
    QString text() const;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor m_tint;
    QLabel *m_text = nullptr;
};

class TaskProgressCard : public QFrame
{
    Q_OBJECT
public:
    explicit TaskProgressCard(AppViewModel &model, QWidget *parent = nullptr);

    // Re-reads every bound field; cheap, so any change just calls it.
    void refresh();
    // 4 when the metric badges stand in one row, 2 when they form a grid.
    int badgeColumns() const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    static constexpr int kBadgeSpacing = 10;
    QWidget *buildTotalsRow();
    QWidget *buildFailureRow();
    void arrangeBadges(int columns);
    void fitBadges();
    void refreshWatching();

    AppViewModel &m_model;
    QWidget *m_dot = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_stem = nullptr;
    QLabel *m_progressLine = nullptr;
    QProgressBar *m_bar = nullptr;
    QLabel *m_estimate = nullptr;
    QWidget *m_failureRow = nullptr;
    QLabel *m_failureCount = nullptr;
    QPushButton *m_showFailures = nullptr;
    MetricBadge *m_faces = nullptr;
    MetricBadge *m_peak = nullptr;
    MetricBadge *m_clip = nullptr;
    MetricBadge *m_time = nullptr;
    QGridLayout *m_badges = nullptr;
    int m_badgeColumns = 4;
    QLabel *m_kpiValues[4] = {};
    QLabel *m_kpiLabels[4] = {};
};

} // namespace orvanta
