// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The configuration file's location and migration, its written layout, and
// the lossless value conversions used when loading it.
#include "base/JsonWriter.h"
#include "common/TestEnvironment.h"
#include "core/ConfigStore.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <csignal>
#include <sys/resource.h>

using namespace orvanta;

class ConfigStoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_home = QDir::homePath();
        QDir(m_home + QStringLiteral("/.config")).removeRecursively();
    }

    void primaryFileWinsOverLegacyFiles();
    void firstLegacyFileIsCopiedAndKept_data()
    {
        QTest::addColumn<QStringList>("present");
        QTest::addColumn<QString>("expectedSource");
        QTest::newRow("dravik only")
            << QStringList { QStringLiteral("dravik") } << QStringLiteral("dravik");
        QTest::newRow("pemvira before tarne")
            << QStringList { QStringLiteral("tarne"), QStringLiteral("pemvira") }
            << QStringLiteral("pemvira");
        QTest::newRow("dravik before tarne")
            << QStringList { QStringLiteral("tarne"), QStringLiteral("dravik") }
            << QStringLiteral("dravik");
    }
    void firstLegacyFileIsCopiedAndKept();
    void noFileAnywhereGivesThePrimaryPathWithoutCreatingIt()
    {
        ConfigStore store;
        QCOMPARE(store.configPath(), m_home + QStringLiteral("/.config/orvanta/config.json"));
        QVERIFY(!QFileInfo::exists(store.configPath()));
        QCOMPARE(store.read(), std::nullopt);
    }
    void unreadableOrNonObjectFilesReadAsAbsent_data();
    void unreadableOrNonObjectFilesReadAsAbsent()
    {
        QFETCH(QByteArray, bytes);
        put(QStringLiteral("/.config/orvanta/config.json"), bytes);
        QCOMPARE(ConfigStore().read(), std::nullopt);
    }
    void writesInTheSharedLayout()
    {
        QJsonObject object;
        object.insert(QStringLiteral("source_dir"), QStringLiteral("/media/me/Card/DCIM"));
        object.insert(QStringLiteral("workers"), 0);
        object.insert(QStringLiteral("custom_mid_target"), 0.55);
        object.insert(QStringLiteral("memory_throttle"), true);
        object.insert(QStringLiteral("visible_columns"),
                      QJsonArray { QStringLiteral("faces"), QStringLiteral("peak_stops") });

        const QByteArray expected = "{\n"
                                    "  \"custom_mid_target\" : 0.55,\n"
                                    "  \"memory_throttle\" : true,\n"
                                    "  \"source_dir\" : \"/media/me/Card/DCIM\",\n"
                                    "  \"visible_columns\" : [\n"
                                    "    \"faces\",\n"
                                    "    \"peak_stops\"\n"
                                    "  ],\n"
                                    "  \"workers\" : 0\n"
                                    "}\n";
        QCOMPARE(prettyJson(object), expected);
    }
    void writeRoundTripsEveryKindOfValue();
    void aFullDiskNeverCutsTheFile();
    void anUnreadableFileIsKeptBeforeItIsReplaced();
    void largeFileWritesLoseNothing()
    {
        // Over the synchronous size: the caller gets on at once, a read sees the
        // newest object, and the file ends up with every key.
        const QString blob(ConfigStore::kSynchronousWriteBytes, u'b');
        put(QStringLiteral("/.config/orvanta/config.json"),
            QJsonDocument(QJsonObject { { QStringLiteral("blob"), blob } }).toJson());
        ConfigStore store;
        QJsonObject object = *store.read();
        for (int i = 1; i <= 3; ++i) {
            object.insert(QStringLiteral("workers"), i);
            QVERIFY(store.write(object));
            QCOMPARE(store.read()->value(QStringLiteral("workers")).toInt(), i);
        }
        store.flush();
        const std::optional<QJsonObject> onDisk = ConfigStore().read();
        QVERIFY(onDisk);
        QCOMPARE(onDisk->value(QStringLiteral("workers")).toInt(), 3);
        QCOMPARE(onDisk->value(QStringLiteral("blob")).toString(), blob);
    }
    void conversionsTakeOnlyLosslessValues_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QVariant>("expected"); // invalid QVariant: rejected

        auto row = [](const char *name, const char *json, const char *kind, QVariant expected) {
            QTest::newRow(name) << QByteArray(json) << QString::fromLatin1(kind) << expected;
        };
        row("integer", "4", "whole", QVariant(qint64(4)));
        row("whole real", "4.0", "whole", QVariant(qint64(4)));
        row("fraction for integer", "4.5", "whole", QVariant());
        row("string for integer", "\"4\"", "whole", QVariant());
        row("bool for integer", "true", "whole", QVariant());
        row("too large for integer", "1e30", "whole", QVariant());
        row("true", "true", "bool", QVariant(true));
        row("one is true", "1", "bool", QVariant(true));
        row("zero is false", "0", "bool", QVariant(false));
        row("two is not a bool", "2", "bool", QVariant());
        row("string for bool", "\"true\"", "bool", QVariant());
        row("real", "0.35", "real", QVariant(0.35));
        row("integer for real", "2", "real", QVariant(2.0));
        row("string for real", "\"0.5\"", "real", QVariant());
        row("null for real", "null", "real", QVariant());
        row("string", "\"none\"", "string", QVariant(QStringLiteral("none")));
        row("number for string", "12", "string", QVariant());
    }
    void conversionsTakeOnlyLosslessValues()
    {
        QFETCH(QByteArray, json);
        QFETCH(QString, kind);
        QFETCH(QVariant, expected);
        const QJsonValue value
            = QJsonDocument::fromJson("{\"v\":" + json + "}").object().value(u"v");

        QVariant actual;
        if (kind == u"whole") {
            if (auto v = ConfigStore::toWholeNumber(value))
                actual = *v;
        } else if (kind == u"bool") {
            if (auto v = ConfigStore::toBoolean(value))
                actual = *v;
        } else if (kind == u"real") {
            if (auto v = ConfigStore::toReal(value))
                actual = *v;
        } else if (auto v = ConfigStore::toString(value)) {
            actual = *v;
        }
        QCOMPARE(actual, expected);
    }

private:
    void put(const QString &relative, const QByteArray &bytes)
    {
        const QString path = m_home + relative;
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QString m_home;
};

void ConfigStoreTest::primaryFileWinsOverLegacyFiles()
{
    put(QStringLiteral("/.config/orvanta/config.json"), R"({"who":"primary"})");
    put(QStringLiteral("/.config/pemvira/config.json"), R"({"who":"pemvira"})");
    ConfigStore store;
    QCOMPARE(store.configPath(), m_home + QStringLiteral("/.config/orvanta/config.json"));
    QCOMPARE(store.read()->value(QStringLiteral("who")).toString(), QStringLiteral("primary"));
}

void ConfigStoreTest::firstLegacyFileIsCopiedAndKept()
{
    QFETCH(QStringList, present);
    QFETCH(QString, expectedSource);
    for (const QString &name : present)
        put(QStringLiteral("/.config/%1/config.json").arg(name),
            QStringLiteral(R"({"who":"%1"})").arg(name).toUtf8());

    ConfigStore store;
    const QString path = store.configPath();
    QCOMPARE(path, m_home + QStringLiteral("/.config/orvanta/config.json"));
    QVERIFY(QFileInfo::exists(path));
    QCOMPARE(store.read()->value(QStringLiteral("who")).toString(), expectedSource);
    for (const QString &name : present)
        QVERIFY(QFileInfo::exists(m_home + QStringLiteral("/.config/%1/config.json").arg(name)));
}

void ConfigStoreTest::unreadableOrNonObjectFilesReadAsAbsent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("array") << QByteArray("[1, 2, 3]");
    QTest::newRow("truncated") << QByteArray(R"({"workers": )");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray("\xff\xd8\xff\xe0\x00\x10JFIF", 10);
    QTest::newRow("string") << QByteArray(R"("just text")");
}

void ConfigStoreTest::writeRoundTripsEveryKindOfValue()
{
    const QByteArray original = R"({
        "big": 9007199254740993,
        "neg": -12,
        "real": 1.5,
        "tiny": 1e-9,
        "text": "quote \" backslash \\ tab \t newline \n nul-ish \u0001 emoji 📷 中文",
        "nested": {"a": [true, false, null, {}, []], "b": {"c": 0.1}},
        "empty": ""
    })";
    const QJsonObject object = QJsonDocument::fromJson(original).object();
    const QByteArray written = prettyJson(object);
    QJsonParseError error {};
    const QJsonDocument reread = QJsonDocument::fromJson(written, &error);
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(reread.object(), object);
    QVERIFY(written.contains("9007199254740993")); // integers stay exact
}

void ConfigStoreTest::aFullDiskNeverCutsTheFile()
{
    const QString path = m_home + QStringLiteral("/.config/orvanta/config.json");
    const QByteArray original = R"({"workers": 3, "own_key": "kept"})";
    put(QStringLiteral("/.config/orvanta/config.json"), original);
    ConfigStore store;
    QJsonObject big { { QStringLiteral("workers"), 4 },
                      { QStringLiteral("notes"), QString(16384, u'n') } };
    {
        // The disk fills up after 4 KiB: the write fails as a whole.
        struct rlimit old
        {
        };
        ::getrlimit(RLIMIT_FSIZE, &old);
        struct rlimit tight = old;
        tight.rlim_cur = 4096;
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &tight);
        const bool written = store.write(big);
        ::setrlimit(RLIMIT_FSIZE, &old);
        QVERIFY(!written);
    }
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), original);
    QCOMPARE(QDir(QFileInfo(path).path()).entryList(QDir::Files | QDir::Hidden),
             QStringList { QStringLiteral("config.json") }); // no temporary left over
    QVERIFY(store.write(big));
    store.flush();
    QCOMPARE(ConfigStore().read(), std::optional<QJsonObject>(big));
}

void ConfigStoreTest::anUnreadableFileIsKeptBeforeItIsReplaced()
{
    const QByteArray cut = R"({"workers": 3, "source_dir": "/media/me/Ca)";
    put(QStringLiteral("/.config/orvanta/config.json"), cut);
    ConfigStore store;
    QStringList kept;
    store.setBrokenFileHandler([&kept](const QString &copy) { kept << copy; });
    QCOMPARE(store.read(), std::nullopt);
    QCOMPARE(store.read(), std::nullopt); // the same broken file is kept once
    QCOMPARE(kept.size(), 1);
    QVERIFY(QFileInfo(kept.first()).fileName().startsWith(QStringLiteral("config.json.broken-")));
    QFile copy(kept.first());
    QVERIFY(copy.open(QIODevice::ReadOnly));
    QCOMPARE(copy.readAll(), cut);
    QVERIFY(store.write({ { QStringLiteral("workers"), 1 } }));
    QVERIFY(QFile::exists(kept.first())); // replacing the file leaves the copy alone
}

ORVANTA_TEST_GUILESS_MAIN(ConfigStoreTest)
#include "tst_configstore.moc"
