// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/SettingsHooks.h"

#include "platform/FileManager.h"
#include "ui/settings/RecipeNameDialog.h"

#include <QDBusConnection>
#include <QDir>
#include <QFileDialog>
#include <QPointer>

namespace orvanta {

using namespace Qt::StringLiterals;

void SettingsHooks::completeWithDefaults(QWidget *parent,
                                         const std::function<QString(const char *)> &text)
{
    QPointer<QWidget> owner(parent);
    if (!chooseFolder) {
        chooseFolder = [owner](const QString &prompt, const QString &startDir) {
            return QFileDialog::getExistingDirectory(owner, prompt, startDir);
        };
    }
    if (!chooseExportFile) {
        chooseExportFile = [owner](const QString &title, const QString &proposedName) {
            return QFileDialog::getSaveFileName(
                owner, title, QDir::homePath() + u'/' + proposedName, u"JSON (*.json)"_s);
        };
    }
    if (!chooseImportFile) {
        chooseImportFile = [owner](const QString &title) {
            return QFileDialog::getOpenFileName(owner, title, QDir::homePath(), u"JSON (*.json)"_s);
        };
    }
    if (!askRecipeName) {
        askRecipeName = [owner, text](const QString &title,
                                      const QString &initial) -> std::optional<QString> {
            RecipeNameDialog dialog(title, text("recipes_name_placeholder"),
                                    text("recipes_btn_save"), text("recipes_btn_cancel"), owner);
            dialog.setName(initial);
            if (dialog.exec() != QDialog::Accepted)
                return std::nullopt;
            return dialog.name();
        };
    }
    if (!reveal) {
        auto *fileManager = new FileManager(QDBusConnection::sessionBus(), parent);
        reveal = [fileManager
                  = QPointer<FileManager>(fileManager)](const diagnostics::RevealTarget &target) {
            if (!fileManager)
                return;
            if (target.selectItem)
                fileManager->showItem(target.path);
            else
                fileManager->showFolder(target.path);
        };
    }
}

} // namespace orvanta
