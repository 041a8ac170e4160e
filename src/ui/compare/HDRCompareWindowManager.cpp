// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/HDRCompareWindowManager.h"

#include "ui/WindowPlacement.h"
#include "ui/compare/HDRCompareView.h"

#include <QGuiApplication>
#include <QScreen>

namespace orvanta {

using namespace Qt::StringLiterals;

HDRCompareWindowManager &HDRCompareWindowManager::shared()
{
    static HDRCompareWindowManager manager;
    return manager;
}

QString HDRCompareWindowManager::windowTitle(const PhotoRecord &record)
{
    return u"Orvanta • "_s + record.stem + u" (HDR)"_s;
}

void HDRCompareWindowManager::setPanelProvider(std::unique_ptr<ComparePanelProvider> provider)
{
    m_provider = std::move(provider);
}

void HDRCompareWindowManager::open(AppViewModel &model, const PhotoRecord &record,
                                   const QList<PhotoRecord> &list)
{
    auto *window = new HDRCompareView(model, record, list, m_provider.get());
    // A closed window gives its picture textures back; the previous one
    // stays open next to the new one until the user closes it.
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(windowTitle(record));
    placement::restore(window, u"compare"_s, HDRCompareView::kDefaultSize);
    m_window = window;
    window->show();
    window->raise();
    window->activateWindow();
}

} // namespace orvanta
