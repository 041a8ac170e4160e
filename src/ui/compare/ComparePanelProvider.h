// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Makes the compare window's two optional panels, the metadata inspector and
// the floating HDR histogram, which live with the history views. The window
// asks for them once and feeds them the current photo. Main thread.
#pragma once

#include "history/HistoryTypes.h"

#include <QString>

class QWidget;

namespace orvanta {

class AppViewModel;

class ComparePanelProvider
{
public:
    virtual ~ComparePanelProvider() = default;

    virtual QWidget *createInspector(AppViewModel &model, QWidget *parent) = 0;
    virtual void showInspectorRecord(QWidget *inspector, const PhotoRecord &record) = 0;
    virtual QWidget *createHistogram(AppViewModel &model, QWidget *parent) = 0;
    // The record the window shows (its peak gain marks the plot); an empty
    // path: the photo has no HDR file.
    virtual void showHistogramRecord(QWidget *histogram, const PhotoRecord &record,
                                     const QString &hdrPath)
        = 0;
};

} // namespace orvanta
