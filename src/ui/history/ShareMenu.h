// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Sharing a history photo on a desktop without a share sheet: copy the
// image, copy its path, open it in the default application, or attach it to
// a new e-mail. Main thread.
#pragma once

#include "history/HistoryTypes.h"

#include <QMenu>

namespace orvanta {

class AppViewModel;

class ShareMenu : public QMenu
{
    Q_OBJECT

public:
    ShareMenu(AppViewModel &model, const PhotoRecord &record, QWidget *parent = nullptr);

    // The file shared: the delivered photo, else the camera JPEG; null when neither exists.
    static QString sharedFile(const PhotoRecord &record);
};

} // namespace orvanta
