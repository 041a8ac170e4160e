// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The recipe operations of AppViewModel: the list and the active mark belong
// to RecipeController; the model adds the style and the five values.
#include "core/AppViewModel.h"

namespace orvanta {

void AppViewModel::saveCurrentAsRecipe(const QString &name)
{
    UserRecipe values;
    values.midTarget = m_customMidTarget;
    values.powerMid = m_customPowerMid;
    values.powerHi = m_customPowerHi;
    values.chromaBoost = m_customChromaBoost;
    values.skinDamp = m_customSkinDamp;
    if (m_recipes->saveAs(name, values))
        setSelectedProfile(StyleProfile::Custom);
}

void AppViewModel::applyRecipe(const UserRecipe &recipe)
{
    setSelectedProfile(StyleProfile::Custom);
    m_recipes->markApplied(recipe.id);
    setCustomMidTarget(recipe.midTarget);
    setCustomPowerMid(recipe.powerMid);
    setCustomPowerHi(recipe.powerHi);
    setCustomChromaBoost(recipe.chromaBoost);
    setCustomSkinDamp(recipe.skinDamp);
}

void AppViewModel::deleteRecipe(const QUuid &id)
{
    m_recipes->deleteRecipe(id);
}

void AppViewModel::renameRecipe(const QUuid &id, const QString &newName)
{
    m_recipes->renameRecipe(id, newName);
}

QString AppViewModel::exportRecipes(const QString &path) const
{
    return m_recipes->exportRecipes(path);
}

RecipeImport AppViewModel::importRecipes(const QString &path)
{
    return m_recipes->importRecipes(path);
}

} // namespace orvanta
