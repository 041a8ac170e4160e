// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "styles/RecipeService.h"

#include "base/JsonWriter.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QString writeAtomically(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return file.errorString();
    if (file.write(bytes) != bytes.size() || !file.commit())
        return file.errorString();
    return {};
}

QJsonObject toJson(const UserRecipe &r)
{
    return QJsonObject {
        { u"id"_s, r.id.toString(QUuid::WithoutBraces).toUpper() },
        { u"name"_s, r.name },
        { u"createdAt"_s, r.createdAt.toUTC().toString(Qt::ISODate) },
        { u"midTarget"_s, r.midTarget },
        { u"powerMid"_s, r.powerMid },
        { u"powerHi"_s, r.powerHi },
        { u"chromaBoost"_s, r.chromaBoost },
        { u"skinDamp"_s, r.skinDamp },
    };
}

std::optional<UserRecipe> fromJson(const QJsonValue &value, QString *error)
{
    auto fail = [error](const QString &why) -> std::optional<UserRecipe> {
        if (error)
            *error = why;
        return std::nullopt;
    };
    if (!value.isObject())
        return fail(u"a recipe is not a JSON object"_s);
    const QJsonObject o = value.toObject();

    UserRecipe r;
    const QJsonValue id = o.value(u"id"_s);
    r.id = QUuid::fromString(id.toString());
    if (!id.isString() || r.id.isNull())
        return fail(u"a recipe has no valid \"id\""_s);
    const QJsonValue name = o.value(u"name"_s);
    if (!name.isString())
        return fail(u"a recipe has no \"name\""_s);
    r.name = name.toString();
    const QJsonValue created = o.value(u"createdAt"_s);
    r.createdAt = QDateTime::fromString(created.toString(), Qt::ISODateWithMs);
    if (!created.isString() || !r.createdAt.isValid())
        return fail(u"a recipe has no valid \"createdAt\" date"_s);
    r.createdAt = r.createdAt.toUTC();

    const std::pair<const char16_t *, double *> numbers[] = {
        { u"midTarget", &r.midTarget }, { u"powerMid", &r.powerMid },
        { u"powerHi", &r.powerHi },     { u"chromaBoost", &r.chromaBoost },
        { u"skinDamp", &r.skinDamp },
    };
    for (const auto &[key, target] : numbers) {
        const QJsonValue v = o.value(QStringView(key));
        if (!v.isDouble())
            return fail(u"a recipe has no number \""_s + QStringView(key) + u"\""_s);
        *target = v.toDouble();
    }
    return r;
}

} // namespace

RecipeService &RecipeService::shared()
{
    static RecipeService instance;
    return instance;
}

RecipeService::RecipeService(QString homeDir)
    : m_homeDir(homeDir.isEmpty() ? QDir::homePath() : std::move(homeDir))
{
    const QString primary = primaryPath();
    if (QFileInfo::exists(primary))
        return;
    for (const QString &legacy : legacyPaths()) {
        if (!QFileInfo::exists(legacy))
            continue;
        QDir().mkpath(QFileInfo(primary).absolutePath());
        QFile::copy(legacy, primary);
        return;
    }
}

QString RecipeService::primaryPath() const
{
    return m_homeDir + u"/.config/orvanta/recipes.json"_s;
}

QStringList RecipeService::legacyPaths() const
{
    // Recipes existed under two earlier names only.
    return { m_homeDir + u"/.config/dravik/recipes.json"_s,
             m_homeDir + u"/.config/tarne/recipes.json"_s };
}

QByteArray RecipeService::encode(const QList<UserRecipe> &recipes)
{
    QJsonArray array;
    for (const UserRecipe &r : recipes)
        array.append(toJson(r)); // QJsonObject keeps its keys sorted
    return prettyJson(array);
}

std::optional<QList<UserRecipe>> RecipeService::decode(const QByteArray &bytes, QString *error)
{
    QJsonParseError parse {};
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parse);
    if (parse.error != QJsonParseError::NoError) {
        if (error)
            *error = parse.errorString();
        return std::nullopt;
    }
    if (!document.isArray()) {
        if (error)
            *error = u"the file does not hold a list of recipes"_s;
        return std::nullopt;
    }
    QList<UserRecipe> recipes;
    for (const QJsonValue &value : document.array()) {
        std::optional<UserRecipe> recipe = fromJson(value, error);
        if (!recipe)
            return std::nullopt;
        recipes.append(*recipe);
    }
    return recipes;
}

void RecipeService::sortNewestFirst(QList<UserRecipe> &recipes)
{
    std::stable_sort(recipes.begin(), recipes.end(), [](const UserRecipe &a, const UserRecipe &b) {
        return a.createdAt > b.createdAt;
    });
}

QString RecipeService::trimmedName(const QString &name)
{
    qsizetype begin = 0;
    qsizetype end = name.size();
    auto blank = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (begin < end && blank(name[begin]))
        ++begin;
    while (end > begin && blank(name[end - 1]))
        --end;
    return name.mid(begin, end - begin);
}

QList<UserRecipe> RecipeService::loadRecipes() const
{
    QFile file(primaryPath());
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<UserRecipe> recipes = decode(file.readAll()).value_or(QList<UserRecipe>());
    sortNewestFirst(recipes);
    return recipes;
}

void RecipeService::saveRecipes(const QList<UserRecipe> &recipes) const
{
    QDir().mkpath(QFileInfo(primaryPath()).absolutePath());
    writeAtomically(primaryPath(), encode(recipes)); // errors are not reported
}

QList<UserRecipe> RecipeService::addRecipe(const UserRecipe &recipe) const
{
    QList<UserRecipe> recipes = loadRecipes();
    const QString name = trimmedName(recipe.name);
    const auto same = std::find_if(recipes.begin(), recipes.end(), [&](const UserRecipe &r) {
        return trimmedName(r.name) == name;
    });
    if (same != recipes.end())
        *same = recipe; // overwritten in place: new id, time and values
    else
        recipes.prepend(recipe);
    saveRecipes(recipes);
    return recipes;
}

QList<UserRecipe> RecipeService::deleteRecipe(const QUuid &id) const
{
    QList<UserRecipe> recipes = loadRecipes();
    recipes.removeIf([&](const UserRecipe &r) { return r.id == id; });
    saveRecipes(recipes);
    return recipes;
}

QList<UserRecipe> RecipeService::renameRecipe(const QUuid &id, const QString &newName) const
{
    QList<UserRecipe> recipes = loadRecipes();
    const auto it = std::find_if(recipes.begin(), recipes.end(),
                                 [&](const UserRecipe &r) { return r.id == id; });
    if (it == recipes.end())
        return recipes;
    it->name = trimmedName(newName);
    saveRecipes(recipes);
    return recipes;
}

QString RecipeService::exportRecipes(const QList<UserRecipe> &recipes, const QString &path) const
{
    return writeAtomically(path, encode(recipes));
}

RecipeImport RecipeService::importRecipes(const QString &path) const
{
    RecipeImport result;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.error = file.errorString();
        return result;
    }
    const std::optional<QList<UserRecipe>> imported = decode(file.readAll(), &result.error);
    if (!imported)
        return result;
    result.error.clear();

    result.recipes = loadRecipes();
    for (const UserRecipe &recipe : *imported) {
        const bool known
            = std::any_of(result.recipes.cbegin(), result.recipes.cend(), [&](const UserRecipe &r) {
                  return r.id == recipe.id || r.name == recipe.name;
              });
        if (known)
            continue;
        result.recipes.append(recipe);
        ++result.added;
    }
    sortNewestFirst(result.recipes);
    saveRecipes(result.recipes);
    return result;
}

} // namespace orvanta
