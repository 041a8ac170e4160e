// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HdrHistogramView.h"

#include "core/AppViewModel.h"
#include "document/PhotoDocumentCache.h"
#include "i18n/FormatArgs.h"
#include "media/ProPhotoMetadata.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/history/HistoryTableModel.h"

#include <QButtonGroup>
#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QLabel *smallLabel(QWidget *parent, const QColor &color, Qt::Alignment align = Qt::AlignLeft)
{
    auto *label = new QLabel(parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 0.82);
    label->setFont(font);
    label->setStyleSheet(u"color: %1;"_s.arg(theme::css(color)));
    label->setAlignment(align | Qt::AlignVCenter);
    return label;
}

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(float(alpha));
    return color;
}

} // namespace

HdrHistogramView::HdrHistogramView(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setObjectName(u"hdrHistogramView"_s);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);

    auto *header = new QHBoxLayout;
    auto *icon = new QLabel(this);
    icon->setPixmap(
        icons::pixmap(u"chart.bar.xaxis"_s, theme::kTextSecondary, 14, devicePixelRatioF()));
    header->addWidget(icon);
    m_title = new QLabel(this);
    m_title->setObjectName(u"histogramTitle"_s);
    QFont bold = m_title->font();
    bold.setWeight(QFont::DemiBold);
    m_title->setFont(bold);
    m_title->setWordWrap(true);
    header->addWidget(m_title, 1);
    auto *group = new QButtonGroup(this);
    for (HistogramChannelMode mode : allHistogramChannelModes()) {
        auto *button = new QToolButton(this);
        button->setObjectName(u"histogramMode"_s + rawValue(mode));
        button->setText(rawValue(mode)); // the mode's own name is its title
        button->setCheckable(true);
        button->setChecked(mode == m_mode);
        button->setStyleSheet(u"QToolButton { padding: 2px 8px; font-size: 8pt; }"_s);
        group->addButton(button);
        header->addWidget(button);
        connect(button, &QToolButton::clicked, this, [this, mode] { setChannelMode(mode); });
        (mode == HistogramChannelMode::Luma ? m_luma : m_rgb) = button;
    }
    header->setSpacing(4);
    layout->addLayout(header);

    m_plot = new QWidget(this);
    m_plot->setObjectName(u"histogramPlot"_s);
    m_plot->setFixedHeight(100);
    m_plot->installEventFilter(this);
    layout->addWidget(m_plot);

    auto *axis = new QHBoxLayout;
    QLabel *zero = smallLabel(this, theme::kTextSecondary);
    zero->setText(u"0 nits"_s);
    QLabel *sdr = smallLabel(this, theme::kYellow, Qt::AlignRight);
    sdr->setText(u"100 nits (SDR)"_s);
    QLabel *xdr = smallLabel(this, theme::kOrange, Qt::AlignRight);
    xdr->setText(u"1600 nits (XDR)"_s);
    // The middle label ends near the boundary at 0.625 of the width.
    axis->addWidget(zero, 3);
    axis->addWidget(sdr, 4);
    axis->addWidget(xdr, 5);
    layout->addLayout(axis);

    // Zone names on one line, the peak on the next: the panel also lives in
    // the narrow inspector, where one line would not fit long translations.
    auto *legend = new QHBoxLayout;
    m_sdr = smallLabel(this, theme::kTextPrimary);
    m_edr = smallLabel(this, theme::kOrange);
    m_peak = smallLabel(this, theme::kYellow);
    m_sdr->setObjectName(u"histogramLegendSdr"_s);
    m_peak->setObjectName(u"histogramLegendPeak"_s);
    legend->addWidget(m_sdr);
    legend->addSpacing(10);
    legend->addWidget(m_edr);
    legend->addStretch();
    layout->addLayout(legend);
    layout->addWidget(m_peak);

    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &HdrHistogramView::updateTexts);
    updateTexts();
}

void HdrHistogramView::setFile(const QString &path, std::optional<double> peakStops)
{
    m_path = path;
    m_peakStops = peakStops;
    m_data = HDRHistogramData();
    m_calculating = true;
    updateTexts();
    m_plot->update();
    // The document is shared with the inspector and the compare window, so a
    // histogram already counted for this photo shows at once.
    m_document = PhotoDocumentCache::shared().document(path);
    m_document->load(StageKey::histogram(peakStops), this, [this, document = m_document.get()] {
        if (document != m_document.get())
            return; // a newer file was chosen meanwhile
        m_data = document->histogram(m_peakStops); // empty when the file cannot be read
        m_calculating = false;
        m_plot->update();
        Q_EMIT histogramReady();
    });
}

void HdrHistogramView::setChannelMode(HistogramChannelMode mode)
{
    m_mode = mode;
    m_luma->setChecked(mode == HistogramChannelMode::Luma);
    m_rgb->setChecked(mode == HistogramChannelMode::Rgb);
    m_plot->update();
}

void HdrHistogramView::updateTexts()
{
    m_title->setText(m_model.t("hist_title"));
    m_sdr->setText(u"■ "_s + m_model.t("hist_sdr"));
    m_edr->setText(u"■ "_s + m_model.t("hist_edr"));
    m_peak->setText(m_model.t("hist_peak_value",
                              { m_peakStops ? formatPrintf(u"+%.2f st"_s, { *m_peakStops })
                                            : missingValuePlaceholder() }));
}

bool HdrHistogramView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_plot && event->type() == QEvent::Paint) {
        paintPlot(*m_plot);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void HdrHistogramView::paintPlot(QWidget &plot)
{
    QPainter p(&plot);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF area = plot.rect();
    QPainterPath clip;
    clip.addRoundedRect(area, 6, 6);
    p.setClipPath(clip);
    p.fillRect(area, QColor(0, 0, 0, int(0.45 * 255)));
    const double boundary = area.width() * kHistogramBoundaryFraction;
    QLinearGradient tint(boundary, 0, area.width(), 0);
    tint.setColorAt(0, withAlpha(theme::kOrange, 0.12));
    tint.setColorAt(1, withAlpha(theme::kYellow, 0.22));
    p.fillRect(QRectF(boundary, 0, area.width() - boundary, area.height()), tint);

    const auto drawCurve = [&](const QList<float> &bins, const QColor &color) {
        if (bins.size() < 2)
            return;
        const HistogramCurve curve = histogramCurve(bins, area.size());
        p.fillPath(curve.fill, withAlpha(color, 0.25 * color.alphaF()));
        p.strokePath(curve.stroke, QPen(color, 1.5));
    };
    if (m_mode == HistogramChannelMode::Luma) {
        drawCurve(m_data.lumaBins, Qt::white);
    } else {
        drawCurve(m_data.redBins, withAlpha(QColor(255, 69, 58), 0.85));
        drawCurve(m_data.greenBins, withAlpha(QColor(48, 209, 88), 0.85));
        drawCurve(m_data.blueBins, withAlpha(QColor(10, 132, 255), 0.85));
    }

    QPen dashed(withAlpha(theme::kYellow, 0.8), 1.2, Qt::DashLine);
    dashed.setDashPattern({ 4, 3 });
    p.setPen(dashed);
    p.drawLine(QPointF(boundary, 0), QPointF(boundary, area.height()));

    if (m_peakStops) {
        QFont font = p.font();
        font.setPointSizeF(9);
        p.setFont(font);
        const QString text = peakLabel(*m_peakStops);
        const QFontMetricsF metrics(font);
        const QRectF plate(area.width() - metrics.horizontalAdvance(text) - 14, 6,
                           metrics.horizontalAdvance(text) + 8, metrics.height() + 2);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, int(0.65 * 255)));
        p.drawRoundedRect(plate, 3, 3);
        p.setPen(theme::kYellow);
        p.drawText(plate, Qt::AlignCenter, text);
    }
}

} // namespace orvanta
