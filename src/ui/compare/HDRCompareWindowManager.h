// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Opens the compare window for a photo of the history list. Each opening
// makes a fresh window with fresh state; the manager remembers the latest
// one and the provider of the inspector and histogram panels. Main thread.
#pragma once

#include "history/HistoryTypes.h"
#include "ui/compare/ComparePanelProvider.h"

#include <QList>
#include <QPointer>

#include <memory>

namespace orvanta {

class AppViewModel;
class HDRCompareView;

class HDRCompareWindowManager
{
public:
    static HDRCompareWindowManager &shared();

    void open(AppViewModel &model, const PhotoRecord &record, const QList<PhotoRecord> &list);
    void setPanelProvider(std::unique_ptr<ComparePanelProvider> provider);

    // The window opened last, while it exists.
    HDRCompareView *currentWindow() const { return m_window; }

    static QString windowTitle(const PhotoRecord &record);

private:
    HDRCompareWindowManager() = default;

    std::unique_ptr<ComparePanelProvider> m_provider;
    QPointer<HDRCompareView> m_window;
};

} // namespace orvanta
