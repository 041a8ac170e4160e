// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The recipe half of AppViewModel: the list mirrors the recipe file, which
// RecipeService re-reads before every change.
#include "core/AppViewModel.h"
#include "styles/RecipeService.h"

namespace orvanta {

void AppViewModel::loadUserRecipes()
{
    setUserRecipes(RecipeService::shared().loadRecipes());
}

void AppViewModel::saveCurrentAsRecipe(const QString &name)
{
    const QString trimmed = name.trimmed(); // white space and line breaks
    if (trimmed.isEmpty())
        return;
    UserRecipe recipe;
    recipe.id = QUuid::createUuid();
    recipe.name = trimmed;
    // Whole seconds: what the file keeps, so a reload compares equal.
    const QDateTime now = QDateTime::currentDateTimeUtc();
    recipe.createdAt = now.addMSecs(-now.time().msec());
    recipe.midTarget = m_customMidTarget;
    recipe.powerMid = m_customPowerMid;
    recipe.powerHi = m_customPowerHi;
    recipe.chromaBoost = m_customChromaBoost;
    recipe.skinDamp = m_customSkinDamp;

    setUserRecipes(RecipeService::shared().addRecipe(recipe));
    setActiveRecipeId(recipe.id);
    setSelectedProfile(StyleProfile::Custom);
}

void AppViewModel::applyRecipe(const UserRecipe &recipe)
{
    setSelectedProfile(StyleProfile::Custom);
    setActiveRecipeId(recipe.id);
    setCustomMidTarget(recipe.midTarget);
    setCustomPowerMid(recipe.powerMid);
    setCustomPowerHi(recipe.powerHi);
    setCustomChromaBoost(recipe.chromaBoost);
    setCustomSkinDamp(recipe.skinDamp);
}

void AppViewModel::deleteRecipe(const QUuid &id)
{
    setUserRecipes(RecipeService::shared().deleteRecipe(id));
    if (m_activeRecipeId == id)
        setActiveRecipeId(QUuid());
}

void AppViewModel::renameRecipe(const QUuid &id, const QString &newName)
{
    setUserRecipes(RecipeService::shared().renameRecipe(id, newName));
}

QString AppViewModel::exportRecipes(const QString &path) const
{
    return RecipeService::shared().exportRecipes(m_userRecipes, path);
}

RecipeImport AppViewModel::importRecipes(const QString &path)
{
    RecipeImport result = RecipeService::shared().importRecipes(path);
    if (result.ok())
        setUserRecipes(result.recipes);
    return result;
}

} // namespace orvanta
