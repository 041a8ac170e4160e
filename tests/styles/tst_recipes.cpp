// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// User recipes: the file format, add-or-overwrite by name, delete, rename,
// export and import with their merge rules, and the model operations.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "styles/RecipeService.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>
#include <unistd.h>

using namespace orvanta;

namespace {
UserRecipe recipe(const QString &name, const char *createdAt, double mid = 0.6)
{
    UserRecipe r;
    r.id = QUuid::createUuid();
    r.name = name;
    r.createdAt = QDateTime::fromString(QString::fromLatin1(createdAt), Qt::ISODate);
    r.midTarget = mid;
    return r;
}
} // namespace

class RecipesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesSortedKeysUppercaseIdsAndUtcSeconds();
    void loadsNewestFirstAndKeepsTiesInOrder();
    void sameTrimmedNameOverwritesInPlace();
    void renameTrimsAndUnknownIdsWriteNothing();
    void corruptPrimaryReadsEmptyAndIsReplacedOnSave_data();
    void corruptPrimaryReadsEmptyAndIsReplacedOnSave();
    void importSkipsKnownIdsAndNames();
    void rejectedImportChangesNothing_data();
    void rejectedImportChangesNothing();
    void exportWritesTheListAndReportsFailures();
    void savesReplaceTheFileWholeInsteadOfRewritingIt();
    void legacyFilesAreCopiedOnce_data();
    void legacyFilesAreCopiedOnce();

    void modelIgnoresBlankNamesAndSelectsCustomOnSave();
    void applyingARecipeSetsEveryValueEvenOutsideSliderRanges();
    void deletingTheActiveRecipeClearsTheMark();

private:
    QString primary() const { return m_home + QStringLiteral("/.config/orvanta/recipes.json"); }
    void write(const QString &path, const QByteArray &bytes);
    QByteArray read(const QString &path) const;
    QString m_home;
};

void RecipesTest::init()
{
    m_home = QDir::homePath();
    QDir(m_home + QStringLiteral("/.config")).removeRecursively();
}

void RecipesTest::write(const QString &path, const QByteArray &bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray RecipesTest::read(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void RecipesTest::writesSortedKeysUppercaseIdsAndUtcSeconds()
{
    UserRecipe r = recipe(QStringLiteral("Golden Hour"), "2026-03-01T19:20:05+01:00");
    r.id = QUuid::fromString(QStringLiteral("{0f8fad5b-d9cb-469f-a165-70867728950e}"));
    r.powerHi = 1.25;
    const QByteArray expected = "[\n"
                                "  {\n"
                                "    \"chromaBoost\" : 0.28,\n"
                                "    \"createdAt\" : \"2026-03-01T18:20:05Z\",\n"
                                "    \"id\" : \"0F8FAD5B-D9CB-469F-A165-70867728950E\",\n"
                                "    \"midTarget\" : 0.6,\n"
                                "    \"name\" : \"Golden Hour\",\n"
                                "    \"powerHi\" : 1.25,\n"
                                "    \"powerMid\" : 0.45,\n"
                                "    \"skinDamp\" : 0.4\n"
                                "  }\n"
                                "]\n";
    QCOMPARE(RecipeService::encode({ r }), expected);
    const auto decoded = RecipeService::decode(expected);
    QVERIFY(decoded);
    QCOMPARE(decoded->size(), 1);
    QCOMPARE(decoded->first().id, r.id);
    QCOMPARE(decoded->first().createdAt, r.createdAt);
    QCOMPARE(decoded->first().powerHi, 1.25);
}

void RecipesTest::loadsNewestFirstAndKeepsTiesInOrder()
{
    RecipeService service;
    const auto a = recipe(QStringLiteral("A"), "2026-01-01T10:00:00Z");
    const auto b = recipe(QStringLiteral("B"), "2026-03-01T10:00:00Z");
    const auto c = recipe(QStringLiteral("C"), "2026-01-01T10:00:00Z");
    service.saveRecipes({ a, b, c });
    const auto loaded = service.loadRecipes();
    QCOMPARE(loaded.size(), 3);
    QCOMPARE(loaded[0].name, QStringLiteral("B"));
    QCOMPARE(loaded[1].name, QStringLiteral("A"));
    QCOMPARE(loaded[2].name, QStringLiteral("C"));
}

void RecipesTest::sameTrimmedNameOverwritesInPlace()
{
    RecipeService service;
    service.saveRecipes({ recipe(QStringLiteral("Dawn"), "2026-02-01T00:00:00Z"),
                          recipe(QStringLiteral("Sunset"), "2026-01-01T00:00:00Z") });
    const UserRecipe replacement
        = recipe(QStringLiteral("\t Sunset  "), "2025-06-01T00:00:00Z", 1.1);
    const auto list = service.addRecipe(replacement);
    QCOMPARE(list.size(), 2);
    QCOMPARE(list[1].id, replacement.id); // same position, new id
    QCOMPARE(list[1].midTarget, 1.1);

    // Names differing in case are different recipes.
    const auto more = service.addRecipe(recipe(QStringLiteral("sunset"), "2026-04-01T00:00:00Z"));
    QCOMPARE(more.size(), 3);
    QCOMPARE(more[0].name, QStringLiteral("sunset"));
}

void RecipesTest::renameTrimsAndUnknownIdsWriteNothing()
{
    RecipeService service;
    const auto r = recipe(QStringLiteral("Old"), "2026-01-01T00:00:00Z");
    service.saveRecipes({ r });
    QCOMPARE(service.renameRecipe(r.id, QStringLiteral("  New\t")).first().name,
             QStringLiteral("New"));

    const QDateTime past = QDateTime::currentDateTimeUtc().addSecs(-3600);
    {
        QFile file(primary());
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(past, QFileDevice::FileModificationTime));
    }
    const QDateTime stamp = QFileInfo(primary()).lastModified();
    service.renameRecipe(QUuid::createUuid(), QStringLiteral("Other"));
    QCOMPARE(QFileInfo(primary()).lastModified(), stamp); // untouched
}

void RecipesTest::corruptPrimaryReadsEmptyAndIsReplacedOnSave_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("garbage") << QByteArray("not json at all");
    QTest::newRow("object") << QByteArray(R"({"name": "x"})");
    QTest::newRow("missing field") << QByteArray(R"([{"id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
        "name": "x", "createdAt": "2026-01-01T00:00:00Z", "midTarget": 1, "powerMid": 1,
        "powerHi": 1, "chromaBoost": 1}])");
    QTest::newRow("wrong type") << QByteArray(R"([{"id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
        "name": "x", "createdAt": "2026-01-01T00:00:00Z", "midTarget": "1", "powerMid": 1,
        "powerHi": 1, "chromaBoost": 1, "skinDamp": 1}])");
    QTest::newRow("bad date") << QByteArray(R"([{"id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
        "name": "x", "createdAt": "yesterday", "midTarget": 1, "powerMid": 1,
        "powerHi": 1, "chromaBoost": 1, "skinDamp": 1}])");
}

void RecipesTest::corruptPrimaryReadsEmptyAndIsReplacedOnSave()
{
    QFETCH(QByteArray, bytes);
    write(primary(), bytes);
    RecipeService service;
    QVERIFY(service.loadRecipes().isEmpty());
    const auto list = service.addRecipe(recipe(QStringLiteral("Fresh"), "2026-01-01T00:00:00Z"));
    QCOMPARE(list.size(), 1);
    QCOMPARE(service.loadRecipes().size(), 1);
}

void RecipesTest::importSkipsKnownIdsAndNames()
{
    RecipeService service;
    const auto mine = recipe(QStringLiteral("Mine"), "2026-01-01T00:00:00Z");
    service.saveRecipes({ mine });

    UserRecipe sameName = recipe(QStringLiteral("Mine"), "2026-05-01T00:00:00Z");
    const QString file = m_home + QStringLiteral("/shared.json");
    write(file, RecipeService::encode({ mine, sameName }));
    RecipeImport result = service.importRecipes(file);
    QVERIFY(result.ok());
    QCOMPARE(result.added, 0);
    QCOMPARE(result.recipes.size(), 1);

    const auto newer = recipe(QStringLiteral("Night"), "2026-06-01T00:00:00Z");
    const auto twin = recipe(QStringLiteral("Night"), "2026-07-01T00:00:00Z");
    write(file, RecipeService::encode({ newer, twin }));
    result = service.importRecipes(file);
    QCOMPARE(result.added, 1); // the second "Night" is skipped by name
    QCOMPARE(result.recipes.first().id, newer.id);
    QCOMPARE(service.loadRecipes().size(), 2);
}

void RecipesTest::rejectedImportChangesNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("object at top level") << QByteArray(R"({"recipes": []})");
    QTest::newRow("lacks skinDamp") << QByteArray(R"([{"id": "0F8FAD5B-D9CB-469F-A165-70867728950E",
        "name": "x", "createdAt": "2026-01-01T00:00:00Z", "midTarget": 1, "powerMid": 1,
        "powerHi": 1, "chromaBoost": 1}])");
    QTest::newRow("truncated") << QByteArray(R"([{"id": )");
}

void RecipesTest::rejectedImportChangesNothing()
{
    QFETCH(QByteArray, bytes);
    RecipeService service;
    service.saveRecipes({ recipe(QStringLiteral("Keep"), "2026-01-01T00:00:00Z") });
    const QByteArray before = read(primary());

    const QString file = m_home + QStringLiteral("/bad.json");
    write(file, bytes);
    const RecipeImport result = service.importRecipes(file);
    QVERIFY(!result.ok());
    QVERIFY(!result.error.isEmpty());
    QCOMPARE(read(primary()), before);

    const RecipeImport missing = service.importRecipes(m_home + QStringLiteral("/nope.json"));
    QVERIFY(!missing.ok());
}

void RecipesTest::exportWritesTheListAndReportsFailures()
{
    RecipeService service;
    const QList<UserRecipe> list { recipe(QStringLiteral("A"), "2026-01-01T00:00:00Z") };
    const QString target = m_home + QStringLiteral("/orvanta_recipes.json");
    QCOMPARE(service.exportRecipes(list, target), QString());
    QCOMPARE(read(target), RecipeService::encode(list));
    QVERIFY(!service.exportRecipes(list, m_home + QStringLiteral("/no/such/dir/x.json")).isEmpty());
}

void RecipesTest::savesReplaceTheFileWholeInsteadOfRewritingIt()
{
    // A reader (or a crash) never sees half a file: the new list is written
    // beside the old one and renamed over it, so the file is a new inode and
    // nothing is left behind in the folder.
    RecipeService service;
    service.saveRecipes({ recipe(QStringLiteral("A"), "2026-01-01T00:00:00Z") });
    struct stat before
    {
    };
    QCOMPARE(::stat(QFile::encodeName(primary()).constData(), &before), 0);
    // A hard link keeps the old inode alive, so it cannot be reused for the new file.
    const QString keep = m_home + QStringLiteral("/old-recipes-link");
    QFile::remove(keep);
    QCOMPARE(::link(QFile::encodeName(primary()).constData(), QFile::encodeName(keep).constData()),
             0);

    service.addRecipe(recipe(QStringLiteral("B"), "2026-01-02T00:00:00Z"));
    struct stat after
    {
    };
    QCOMPARE(::stat(QFile::encodeName(primary()).constData(), &after), 0);
    QVERIFY(after.st_ino != before.st_ino);
    QCOMPARE(service.loadRecipes().size(), 2);
    QCOMPARE(QDir(QFileInfo(primary()).absolutePath()).entryList(QDir::Files),
             QStringList { QStringLiteral("recipes.json") });
    // The old content is untouched where the link still points.
    QCOMPARE(RecipeService::decode(read(keep))->size(), 1);
    QFile::remove(keep);
}

void RecipesTest::legacyFilesAreCopiedOnce_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("expected"); // empty: nothing migrated
    QTest::newRow("dravik") << QStringList { QStringLiteral("dravik") } << QStringLiteral("dravik");
    QTest::newRow("dravik before tarne")
        << QStringList { QStringLiteral("tarne"), QStringLiteral("dravik") }
        << QStringLiteral("dravik");
    QTest::newRow("tarne") << QStringList { QStringLiteral("tarne") } << QStringLiteral("tarne");
    QTest::newRow("pemvira is not a recipe location")
        << QStringList { QStringLiteral("pemvira") } << QString();
}

void RecipesTest::legacyFilesAreCopiedOnce()
{
    QFETCH(QStringList, present);
    QFETCH(QString, expected);
    for (const QString &name : present) {
        write(m_home + QStringLiteral("/.config/%1/recipes.json").arg(name),
              RecipeService::encode({ recipe(name, "2026-01-01T00:00:00Z") }));
    }
    RecipeService service;
    const auto loaded = service.loadRecipes();
    if (expected.isEmpty()) {
        QVERIFY(!QFileInfo::exists(primary()));
        QVERIFY(loaded.isEmpty());
        return;
    }
    QCOMPARE(loaded.size(), 1);
    QCOMPARE(loaded.first().name, expected);
    for (const QString &name : present)
        QVERIFY(QFileInfo::exists(m_home + QStringLiteral("/.config/%1/recipes.json").arg(name)));

    // Once the primary exists, a changed legacy file is not copied again.
    service.saveRecipes({});
    RecipeService again;
    QVERIFY(again.loadRecipes().isEmpty());
}

void RecipesTest::modelIgnoresBlankNamesAndSelectsCustomOnSave()
{
    AppViewModel model;
    model.saveCurrentAsRecipe(QStringLiteral("  \n\t "));
    QVERIFY(model.userRecipes().isEmpty());
    QVERIFY(!QFileInfo::exists(primary()));

    model.setCustomPowerMid(0.77);
    model.saveCurrentAsRecipe(QStringLiteral(" Harsh Noon\n"));
    QCOMPARE(model.userRecipes().size(), 1);
    const UserRecipe saved = model.userRecipes().first();
    QCOMPARE(saved.name, QStringLiteral("Harsh Noon"));
    QCOMPARE(saved.powerMid, 0.77);
    QCOMPARE(model.activeRecipeId(), saved.id);
    QCOMPARE(model.selectedProfile(), StyleProfile::Custom);
    QCOMPARE(RecipeService::shared().loadRecipes(), model.userRecipes());
}

void RecipesTest::applyingARecipeSetsEveryValueEvenOutsideSliderRanges()
{
    AppViewModel model;
    UserRecipe r = recipe(QStringLiteral("Wild"), "2026-01-01T00:00:00Z", 2.0);
    r.powerMid = 0.3;
    r.powerHi = 0.5;
    r.chromaBoost = 0.35;
    r.skinDamp = 0.0;
    model.applyRecipe(r);
    QCOMPARE(model.selectedProfile(), StyleProfile::Custom);
    QCOMPARE(model.activeRecipeId(), r.id);
    QCOMPARE(model.customMidTarget(), 2.0);
    QCOMPARE(model.customPowerMid(), 0.3);
    QCOMPARE(model.customPowerHi(), 0.5);
    QCOMPARE(model.customChromaBoost(), 0.35);
    QCOMPARE(model.customSkinDamp(), 0.0);
}

void RecipesTest::deletingTheActiveRecipeClearsTheMark()
{
    AppViewModel model;
    model.saveCurrentAsRecipe(QStringLiteral("One"));
    const QUuid first = model.activeRecipeId();
    model.saveCurrentAsRecipe(QStringLiteral("Two"));
    const QUuid second = model.activeRecipeId();

    model.deleteRecipe(first);
    QCOMPARE(model.activeRecipeId(), second); // another recipe: the mark stays
    QCOMPARE(model.userRecipes().size(), 1);

    model.deleteRecipe(second);
    QVERIFY(model.activeRecipeId().isNull());
    QVERIFY(model.userRecipes().isEmpty());
}

ORVANTA_TEST_GUILESS_MAIN(RecipesTest)
#include "tst_recipes.moc"
