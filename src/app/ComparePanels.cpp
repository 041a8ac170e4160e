#include "app/ComparePanels.h"

#include "ui/history/HdrHistogramView.h"
#include "ui/history/InspectorView.h"

namespace orvanta {

QWidget *HistoryComparePanels::createInspector(AppViewModel &model, QWidget *parent)
{
    return new InspectorView(model, parent);
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

void HistoryComparePanels::showHistogramFile(QWidget *histogram, const QString &hdrPath)
{
    if (auto *view = qobject_cast<HdrHistogramView *>(histogram))
        view->setFile(hdrPath);
}

} // namespace orvanta
