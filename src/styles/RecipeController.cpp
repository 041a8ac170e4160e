// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "styles/RecipeController.h"

namespace orvanta {

RecipeController::RecipeController(RecipeService &service, QObject *parent)
    : QObject(parent)
    , m_service(service)
{
}

void RecipeController::loadRecipes()
{
    setUserRecipes(m_service.loadRecipes());
}

std::optional<QUuid> RecipeController::saveAs(const QString &name, const UserRecipe &values)
{
    const QString trimmed = name.trimmed(); // white space and line breaks
    if (trimmed.isEmpty())
        return std::nullopt;
    UserRecipe recipe = values;
    recipe.id = QUuid::createUuid();
    recipe.name = trimmed;
    // Whole seconds: what the file keeps, so a reload compares equal.
    const QDateTime now = QDateTime::currentDateTimeUtc();
    recipe.createdAt = now.addMSecs(-now.time().msec());
    setUserRecipes(m_service.addRecipe(recipe));
    setActiveRecipeId(recipe.id);
    return recipe.id;
}

void RecipeController::markApplied(const QUuid &id)
{
    setActiveRecipeId(id);
}

void RecipeController::deleteRecipe(const QUuid &id)
{
    setUserRecipes(m_service.deleteRecipe(id));
    if (m_activeRecipeId == id)
        setActiveRecipeId(QUuid());
}

void RecipeController::renameRecipe(const QUuid &id, const QString &newName)
{
    setUserRecipes(m_service.renameRecipe(id, newName));
}

QString RecipeController::exportRecipes(const QString &path) const
{
    return m_service.exportRecipes(m_userRecipes, path);
}

RecipeImport RecipeController::importRecipes(const QString &path)
{
    RecipeImport result = m_service.importRecipes(path);
    if (result.ok())
        setUserRecipes(result.recipes);
    return result;
}

void RecipeController::setUserRecipes(const QList<UserRecipe> &recipes)
{
    if (m_userRecipes == recipes)
        return;
    m_userRecipes = recipes;
    Q_EMIT userRecipesChanged();
}

void RecipeController::setActiveRecipeId(const QUuid &id)
{
    if (m_activeRecipeId == id)
        return;
    m_activeRecipeId = id;
    Q_EMIT activeRecipeIdChanged();
}

} // namespace orvanta
