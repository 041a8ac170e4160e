// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The compare window's inspector and histogram panels, made from the history
// tab's own views so both places show a photo the same way. Main thread.
#pragma once

#include "ui/compare/ComparePanelProvider.h"

namespace orvanta {

class HistoryComparePanels final : public ComparePanelProvider
{
public:
    QWidget *createInspector(AppViewModel &model, QWidget *parent) override;
    void showInspectorRecord(QWidget *inspector, const PhotoRecord &record) override;
    QWidget *createHistogram(AppViewModel &model, QWidget *parent) override;
    void showHistogramRecord(QWidget *histogram, const PhotoRecord &record,
                             const QString &hdrPath) override;
};

} // namespace orvanta
