// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Tells the user what an update check found: a new version with a button to
// its download page, "up to date" or a failure (the last two only when the
// user asked). The texts follow the interface language. Main thread.
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

    // The texts of the dialogs ("available_title", "available_body", ...) in
    // the language of `languageCode`, English when it has none.
    static QString text(const QString &languageCode, QStringView key);

private:
    void announce(const UpdateCheckResult &result);

    QPointer<QWidget> m_window;
};

} // namespace orvanta
