// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Tells the user what an update check found: a new version with a button to
// its download page, "up to date", a failure, or that the package system
// brings updates (all but the first only when the user asked). The texts
// follow the interface language. Main thread.
#pragma once

#include "update/Updater.h"

#include <QObject>
#include <QPointer>

class QWidget;

namespace orvanta {

class UpdateAnnouncer : public QObject
{
    Q_OBJECT
public:
    UpdateAnnouncer(Updater &updater, QWidget *window);

private:
    void announce(const UpdateCheckResult &result);

    QPointer<QWidget> m_window;
};

} // namespace orvanta
