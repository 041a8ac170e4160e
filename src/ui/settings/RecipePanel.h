// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The user's recipes on the style page: save the sliders as a recipe, and
// apply, rename, delete, export and import recipes, with the message that
// follows an export or import. The active recipe's row is marked. Main thread.
#pragma once

#include "styles/UserRecipe.h"
#include "ui/settings/SettingsHooks.h"

#include <QList>
#include <QUuid>
#include <QWidget>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace orvanta {

class AppViewModel;

class RecipePanel : public QWidget
{
    Q_OBJECT
public:
    RecipePanel(AppViewModel &model, const SettingsHooks &hooks, QWidget *parent = nullptr);

    QPushButton *saveButton() const { return m_save; }
    QPushButton *exportButton() const { return m_export; }
    QPushButton *importButton() const { return m_import; }
    QLabel *emptyHint() const { return m_emptyHint; }
    QLabel *message() const { return m_message; }
    bool messageIsSuccess() const { return m_messageOk; }
    // The rows in list order; each holds its recipe id in the "recipeId" property.
    QList<QWidget *> rows() const { return m_rows; }

    void saveAsRecipe();
    void renameRecipe(const QUuid &id);
    void exportRecipes();
    void importRecipes();

private:
    QWidget *buildRow(const UserRecipe &recipe);
    void connectRow(const QUuid &id, QPushButton *apply, QPushButton *rename, QPushButton *remove);
    void rebuildRows();
    void retranslate();
    void showMessage(const QString &text, bool ok);

    AppViewModel &m_model;
    const SettingsHooks &m_hooks;
    QLabel *m_title = nullptr;
    QPushButton *m_save = nullptr;
    QLabel *m_emptyHint = nullptr;
    QVBoxLayout *m_rowsLayout = nullptr;
    QList<QWidget *> m_rows;
    QPushButton *m_export = nullptr;
    QPushButton *m_import = nullptr;
    QLabel *m_message = nullptr;
    bool m_messageOk = true;
};

} // namespace orvanta
