// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The HDR histogram panel: a header with the channel selector, the two-zone
// plot of the luma or RGB curves with the peak marker, the axis and legend
// rows. The counting runs in the background; the panel shows the result
// when it is ready. Main thread.
#pragma once

#include "hdr/HdrHistogram.h"

#include <QWidget>

#include <memory>
#include <optional>

class QLabel;
class QToolButton;

namespace orvanta {

class AppViewModel;
class PhotoDocument;

class HdrHistogramView : public QWidget
{
    Q_OBJECT

public:
    explicit HdrHistogramView(AppViewModel &model, QWidget *parent = nullptr);

    // `peakStops` comes from the record the caller shows.
    void setFile(const QString &path, std::optional<double> peakStops);

    HistogramChannelMode channelMode() const { return m_mode; }
    void setChannelMode(HistogramChannelMode mode);
    const HDRHistogramData &histogramData() const { return m_data; }
    bool isCalculating() const { return m_calculating; }
    std::optional<double> peakStops() const { return m_peakStops; }

Q_SIGNALS:
    void histogramReady();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void paintPlot(QWidget &plot);
    void updateTexts();

    AppViewModel &m_model;
    QString m_path;
    std::optional<double> m_peakStops;
    HDRHistogramData m_data;
    HistogramChannelMode m_mode = HistogramChannelMode::Luma;
    bool m_calculating = false;
    std::shared_ptr<PhotoDocument> m_document;
    QWidget *m_plot = nullptr;
    QLabel *m_title = nullptr;
    QLabel *m_sdr = nullptr;
    QLabel *m_edr = nullptr;
    QLabel *m_peak = nullptr;
    QToolButton *m_luma = nullptr;
    QToolButton *m_rgb = nullptr;
};

} // namespace orvanta
