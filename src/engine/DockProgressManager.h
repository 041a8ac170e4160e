// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Batch progress outside the main window: the launcher entry's progress bar
// and count badge, an attention request at the end, and the progress bar
// drawn into the window icon so any task bar shows it. One shared instance.
// Main thread; every operation takes effect asynchronously on the main
// thread, in call order, and a flood of progress updates collapses into one.
#pragma once

#include "platform/LauncherEntry.h"

#include <QIcon>
#include <QObject>

#include <memory>
#include <optional>

namespace orvanta {

class DockProgressManager : public QObject
{
    Q_OBJECT
public:
    static DockProgressManager &shared();
    explicit DockProgressManager(const QDBusConnection &bus, QObject *parent = nullptr);
    ~DockProgressManager() override;

    // Shows `fraction` only when 0 < fraction < 1; other values change nothing.
    void updateProgress(double fraction);
    // A badge for count >= 1; in every case one request for attention.
    void finishWithBadge(qint64 count);
    void clearProgress();
    void clearBadge();
    // A paused batch keeps its bar, drawn grey in the window icon. (The
    // launcher entry protocol has no paused state; docks keep the bar.)
    void setPaused(bool paused);
    bool isPaused() const { return m_paused; }

    // What is shown now: the overlay's progress (nothing when no overlay is
    // installed) and the badge (nothing when none).
    std::optional<double> overlayProgress() const { return m_overlayProgress; }
    std::optional<qint64> badge() const { return m_badge; }
    // The icon currently given to the windows, with the bar drawn in.
    QImage overlayImage() const { return m_overlayImage; }

Q_SIGNALS:
    void attentionRequested();
    void overlayChanged();

private:
    void post(std::function<void()> work);
    void applyProgress(double fraction);
    void applyFinish(qint64 count);
    void applyClearProgress();
    void applyClearBadge();
    void setWindowIcon(const QImage &image);

    LauncherEntry m_launcher;
    std::optional<double> m_overlayProgress;
    std::optional<qint64> m_badge;
    QImage m_overlayImage;
    int m_drawnFillWidth = -1;
    bool m_paused = false;
    std::optional<QIcon> m_savedIcon; // the icon before the overlay went in
    // The value a queued progress update will show; newer values replace it
    // until the update runs.
    std::shared_ptr<double> m_pendingProgress;
};

} // namespace orvanta
