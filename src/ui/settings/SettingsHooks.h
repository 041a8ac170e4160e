// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The dialogs and desktop calls the settings window needs: choosing folders
// and recipe files, asking for a recipe name, showing a path in the file
// manager. The window fills in the real ones; tests pass their own. Main thread.
#pragma once

#include "ui/settings/DiagnosticsFolders.h"

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace orvanta {

struct SettingsHooks
{
    // A folder, or empty when the user cancels.
    std::function<QString(const QString &prompt, const QString &startDir)> chooseFolder;
    // A file to write the exported recipes to (`proposedName` preselected),
    // or empty when cancelled.
    std::function<QString(const QString &title, const QString &proposedName)> chooseExportFile;
    // A recipe file to import, or empty when cancelled.
    std::function<QString(const QString &title)> chooseImportFile;
    // A recipe name, or nothing when cancelled. `initial` prefills the field.
    std::function<std::optional<QString>(const QString &title, const QString &initial)>
        askRecipeName;
    // Opens a folder or selects a file in the file manager.
    std::function<void(const diagnostics::RevealTarget &target)> reveal;

    // Every hook left empty is given the interactive one, parented to `parent`.
    void completeWithDefaults(QWidget *parent, const std::function<QString(const char *)> &text);
};

} // namespace orvanta
