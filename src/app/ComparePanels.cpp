// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ComparePanels.h"

#include "ui/compare/DisplayHeadroom.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/InspectorView.h"

namespace orvanta {

QWidget *HistoryComparePanels::createInspector(AppViewModel &model, QWidget *parent)
{
    auto *inspector = new InspectorView(model, parent);
    // The display row describes the screen the compare window is on.
    inspector->setDisplayHeadroomProvider(
        [inspector] { return displayheadroom::current(inspector); });
    return inspector;
}

void HistoryComparePanels::showInspectorRecord(QWidget *inspector, const PhotoRecord &record)
{
    // Only widgets this provider made are handed back; anything else is ignored.
    if (auto *view = qobject_cast<InspectorView *>(inspector))
        view->setRecord(record);
}

QWidget *HistoryComparePanels::createHistogram(AppViewModel &model, QWidget *parent)
{
    return new HdrHistogramView(model, parent);
}

void HistoryComparePanels::showHistogramRecord(QWidget *histogram, const PhotoRecord &record,
                                               const QString &hdrPath)
{
    if (auto *view = qobject_cast<HdrHistogramView *>(histogram))
        view->setFile(hdrPath, record.peakStops);
}

} // namespace orvanta
