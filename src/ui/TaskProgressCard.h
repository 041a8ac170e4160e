// The live-run card: a status dot and title, the photo in work, the progress
// line and bar, the last photo's four measurements, the time left, and the
// history totals. Reads the model only; triggers nothing. Main thread.
#pragma once

#include <QColor>
#include <QFrame>

class QLabel;
class QProgressBar;

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

private:
    QWidget *buildTotalsRow();

    AppViewModel &m_model;
    QWidget *m_dot = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_stem = nullptr;
    QLabel *m_progressLine = nullptr;
    QProgressBar *m_bar = nullptr;
    QLabel *m_estimate = nullptr;
    MetricBadge *m_faces = nullptr;
    MetricBadge *m_peak = nullptr;
    MetricBadge *m_clip = nullptr;
    MetricBadge *m_time = nullptr;
    QLabel *m_kpiValues[4] = {};
    QLabel *m_kpiLabels[4] = {};
};

} // namespace orvanta
