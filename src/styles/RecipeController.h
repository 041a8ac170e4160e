// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The user's recipes as the views see them: the list (a copy of the recipe
// file, which RecipeService re-reads before every change) and which recipe
// was last applied or saved. Main thread.
#pragma once

#include "styles/RecipeService.h"
#include "styles/UserRecipe.h"

#include <QList>
#include <QObject>
#include <QUuid>

#include <optional>

namespace orvanta {

class RecipeController : public QObject
{
    Q_OBJECT

public:
    // `service` must outlive the controller; by default the shared one.
    explicit RecipeController(RecipeService &service = RecipeService::shared(),
                              QObject *parent = nullptr);

    QList<UserRecipe> userRecipes() const { return m_userRecipes; }
    QUuid activeRecipeId() const { return m_activeRecipeId; }

    void loadRecipes();
    // Saves the five values of `values` under `name` (trimmed of white space
    // and line breaks) as a new recipe, or over the one of the same name, and
    // marks it active. Returns the new id; none for a blank name.
    std::optional<QUuid> saveAs(const QString &name, const UserRecipe &values);
    // Marks the recipe as the one whose values are in use.
    void markApplied(const QUuid &id);
    void deleteRecipe(const QUuid &id);
    void renameRecipe(const QUuid &id, const QString &newName);
    // Export and import report failures (the user chose the file): the
    // error text, empty on success.
    QString exportRecipes(const QString &path) const;
    RecipeImport importRecipes(const QString &path);

Q_SIGNALS:
    void userRecipesChanged();
    void activeRecipeIdChanged();

private:
    void setUserRecipes(const QList<UserRecipe> &recipes);
    void setActiveRecipeId(const QUuid &id);

    RecipeService &m_service;
    QList<UserRecipe> m_userRecipes;
    QUuid m_activeRecipeId;
};

} // namespace orvanta
