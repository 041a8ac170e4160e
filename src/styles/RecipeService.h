// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The user's recipes in ~/.config/orvanta/recipes.json: load, save (atomic),
// add-or-overwrite by name, delete, rename, export and import. The file is the
// source of truth: every change re-reads it first. Main thread.
#pragma once

#include "styles/UserRecipe.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace orvanta {

// The outcome of an import: the merged list and how many recipes were new,
// or the reason the file was refused.
struct RecipeImport
{
    QList<UserRecipe> recipes;
    int added = 0;
    QString error; // empty on success

    bool ok() const { return error.isEmpty(); }
};

class RecipeService
{
public:
    static RecipeService &shared();

    // Uses `homeDir` instead of the user's home; copies a legacy recipe file
    // to the primary location when there is none yet.
    explicit RecipeService(QString homeDir = {});

    QString primaryPath() const;
    QStringList legacyPaths() const;

    // Newest first; empty when the file is missing, unreadable or malformed.
    QList<UserRecipe> loadRecipes() const;
    void saveRecipes(const QList<UserRecipe> &recipes) const;

    QList<UserRecipe> addRecipe(const UserRecipe &recipe) const;
    QList<UserRecipe> deleteRecipe(const QUuid &id) const;
    QList<UserRecipe> renameRecipe(const QUuid &id, const QString &newName) const;

    // These two report their failures: the user chose the file.
    QString exportRecipes(const QList<UserRecipe> &recipes, const QString &path) const;
    RecipeImport importRecipes(const QString &path) const;

    // The file format: a JSON array of objects with sorted keys.
    static QByteArray encode(const QList<UserRecipe> &recipes);
    // None when any recipe lacks a field or has one of the wrong type.
    static std::optional<QList<UserRecipe>> decode(const QByteArray &bytes,
                                                   QString *error = nullptr);
    static void sortNewestFirst(QList<UserRecipe> &recipes);
    // Trims spaces and tabs only, as names are compared.
    static QString trimmedName(const QString &name);

private:
    QString m_homeDir;
};

} // namespace orvanta
