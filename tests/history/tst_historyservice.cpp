// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The database reader on real SQLite files: search, status filter, sort
// order with missing values, figures, deletes, damaged and locked files, and
// the move from the folders of earlier product names.
#include "common/TestEnvironment.h"
#include "history/HistoryService.h"
#include "history/HistoryTestDatabase.h"

#include <QFile>
#include <QSignalSpy>

#include <memory>
#include <vector>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

using OptString = std::optional<QString>;
Q_DECLARE_METATYPE(OptString)

class HistoryServiceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void missingDatabaseReadsAsEmptyAndIsNeverCreated();
    void unreadableFilesReadAsEmptyAndAreLeftUntouched_data();
    void unreadableFilesReadAsEmptyAndAreLeftUntouched();
    void rowsMissingRequiredValuesAreSkipped();
    void everyColumnIsReadWithAbsentValuesKeptAbsent();
    void hostileTextInTheDatabaseIsReadSafely();
    void searchMatchesStemSubstringsWithLikeWildcards_data();
    void searchMatchesStemSubstringsWithLikeWildcards();
    void statusFilterAppliesOnlyToExactStatusTexts_data();
    void statusFilterAppliesOnlyToExactStatusTexts();
    void searchAndStatusCombine();
    void pagesFollowLimitAndOffset();
    void everySortFieldPutsMissingValuesLastBothWays_data();
    void everySortFieldPutsMissingValuesLastBothWays();
    void statsDescribeTheWholeTable();
    void statsOfATableWithoutSuccessesHaveNoAverage();
    void deleteRemovesExactlyTheGivenRows_data();
    void deleteRemovesExactlyTheGivenRows();
    void deleteUsesOnePlaceholderPerFingerprint();
    void deleteOfAVeryLongSelectionRemovesEveryRow();
    void readOnlyDatabaseIsReadButNeverChanged();
    void aLockedDatabaseReadsAsBusyNotAsEmpty();
    void defaultPathIsInTheUserDataFolder();
    void legacyDatabaseIsCopiedOnceFromTheFirstLegacyFolder_data();
    void legacyDatabaseIsCopiedOnceFromTheFirstLegacyFolder();

private:
    QString m_dataHome;
    QString m_dbPath;
};

namespace {

QStringList fingerprints(const QList<PhotoRecord> &records)
{
    QStringList result;
    for (const PhotoRecord &record : records)
        result << record.fingerprint;
    return result;
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes);
}

} // namespace

void HistoryServiceTest::initTestCase()
{
    StatementLog::install();
    m_dataHome = QDir::homePath() + u"/.local/share"_s;
}

void HistoryServiceTest::init()
{
    for (const auto folder : { "Orvanta"_L1, "Pemvira"_L1, "Dravik"_L1, "Tarne"_L1, "db"_L1 })
        QDir(m_dataHome + u'/' + folder).removeRecursively();
    QDir().mkpath(m_dataHome + u"/db"_s);
    m_dbPath = m_dataHome + u"/db/pipeline_state.db"_s;
    StatementLog::clear();
}

void HistoryServiceTest::missingDatabaseReadsAsEmptyAndIsNeverCreated()
{
    const HistoryService service(m_dbPath);
    QVERIFY(service.fetchRecords().isEmpty());
    QCOMPARE(service.fetchCount(u"IMG"_s, u"SUCCESS"_s), 0);
    QCOMPARE(service.fetchStats(), DashboardStats());
    service.deleteRecords({ u"fp0000"_s });
    QVERIFY(!QFileInfo::exists(m_dbPath));
    QVERIFY(StatementLog::statements().isEmpty());
}

void HistoryServiceTest::unreadableFilesReadAsEmptyAndAreLeftUntouched_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<int>("schema"); // -1: write the bytes; else a TestDatabase::Schema

    QTest::newRow("empty file") << QByteArray() << -1;
    QTest::newRow("text file") << QByteArray("this is not a database\n") << -1;
    QByteArray header("SQLite format 3\0", 16);
    QTest::newRow("truncated header") << header + QByteArray(84, '\xff') << -1;
    QTest::newRow("foreign database without the table")
        << QByteArray() << int(TestDatabase::Schema::NoTable);
}

void HistoryServiceTest::unreadableFilesReadAsEmptyAndAreLeftUntouched()
{
    QFETCH(QByteArray, contents);
    QFETCH(int, schema);
    if (schema < 0)
        writeBytes(m_dbPath, contents);
    else
        TestDatabase(m_dbPath, TestDatabase::Schema(schema)).exec(u"CREATE TABLE other (x)"_s);
    const QByteArray before = fileBytes(m_dbPath);

    const HistoryService service(m_dbPath);
    QVERIFY(service.fetchRecords().isEmpty());
    QCOMPARE(service.fetchCount(), 0);
    QCOMPARE(service.fetchStats(), DashboardStats());
    service.deleteRecords({ u"fp0000"_s });

    QCOMPARE(fileBytes(m_dbPath), before);
}

void HistoryServiceTest::rowsMissingRequiredValuesAreSkipped()
{
    TestDatabase db(m_dbPath, TestDatabase::Schema::Unconstrained);
    db.insert({ .fingerprint = u"good1"_s });
    db.exec(u"INSERT INTO processed_files (fingerprint, stem, status, processed_at) VALUES "
            "(NULL, 's', 'SUCCESS', 't'), ('nostem', NULL, 'SUCCESS', 't'), "
            "('nostatus', 's', NULL, 't'), ('notime', 's', 'FAILED', NULL)"_s);
    db.insert({ .fingerprint = u"good2"_s, .processedAt = u"2027"_s });

    const HistoryService service(m_dbPath);
    QCOMPARE(fingerprints(service.fetchRecords()), QStringList({ u"good2"_s, u"good1"_s }));
    QCOMPARE(service.fetchCount(), 6); // the count is the table's, damaged rows included
}

void HistoryServiceTest::everyColumnIsReadWithAbsentValuesKeptAbsent()
{
    TestDatabase db(m_dbPath);
    db.insert({ .fingerprint = u"full"_s,
                .stem = u"DSC04223"_s,
                .status = u"FAILED"_s,
                .processedAt = u"2026-03-04T05:06:07"_s,
                .rawPath = u"/photos/DSC04223.ARW"_s,
                .jpgPath = u"/photos/DSC04223.JPG"_s,
                .outputPath = u"/out/DSC04223_hdr.jpg"_s,
                .peakStops = 2.75,
                .numFaces = 3,
                .rawClipPct = 0.125,
                .durationSec = 4.5,
                .errorMessage = u"gain map: out of range"_s,
                .rating = 4 });
    db.insert({ .fingerprint = u"bare"_s, .stem = u"IMG_1"_s, .processedAt = u"2026-01-01"_s });

    const QList<PhotoRecord> records = HistoryService(m_dbPath).fetchRecords();
    QCOMPARE(records.size(), 2);
    PhotoRecord full;
    full.fingerprint = u"full"_s;
    full.stem = u"DSC04223"_s;
    full.rawPath = u"/photos/DSC04223.ARW"_s;
    full.jpgPath = u"/photos/DSC04223.JPG"_s;
    full.outputPath = u"/out/DSC04223_hdr.jpg"_s;
    full.status = u"FAILED"_s;
    full.peakStops = 2.75;
    full.numFaces = 3;
    full.rawClipPct = 0.125;
    full.processedAt = u"2026-03-04T05:06:07"_s;
    full.durationSec = 4.5;
    full.errorMessage = u"gain map: out of range"_s;
    full.rating = 4;
    QCOMPARE(records[0], full);

    PhotoRecord bare;
    bare.fingerprint = u"bare"_s;
    bare.stem = u"IMG_1"_s;
    bare.status = u"SUCCESS"_s;
    bare.processedAt = u"2026-01-01"_s;
    QCOMPARE(records[1], bare); // every optional absent, rating 0
    QCOMPARE(records[1].id(), u"bare"_s);
}

void HistoryServiceTest::hostileTextInTheDatabaseIsReadSafely()
{
    TestDatabase db(m_dbPath, TestDatabase::Schema::Unconstrained);
    // Invalid UTF-8, an embedded NUL, a blob and a number where text belongs.
    db.exec(u"INSERT INTO processed_files VALUES (x'66ff00fe', x'c3', 42, x'00', NULL, "
            "'SUCCESS', 'high', 'many', NULL, '2026', 'long', x'ff', 'five')"_s);
    const QList<PhotoRecord> records = HistoryService(m_dbPath).fetchRecords();
    QCOMPARE(records.size(), 1);
    QCOMPARE(records[0].fingerprint.size(), 4);
    QCOMPARE(records[0].rawPath, OptString(u"42"_s));
    QCOMPARE(records[0].peakStops, std::optional<double>(0.0)); // SQLite's text-to-number reading
}

void HistoryServiceTest::searchMatchesStemSubstringsWithLikeWildcards_data()
{
    QTest::addColumn<OptString>("query");
    QTest::addColumn<QStringList>("expected");

    const QStringList all { u"axb"_s, u"a_b"_s, u"DSC04223"_s, u"dsc_9"_s, u"IMG%1"_s };
    QTest::newRow("no query") << OptString() << all;
    QTest::newRow("empty query") << OptString(u""_s) << all;
    QTest::newRow("blanks and new lines only") << OptString(u"  \t\n "_s) << all;
    QTest::newRow("substring") << OptString(u"0422"_s) << QStringList { u"DSC04223"_s };
    QTest::newRow("surrounding blanks are trimmed")
        << OptString(u"  04223\n"_s) << QStringList { u"DSC04223"_s };
    QTest::newRow("ASCII case is ignored")
        << OptString(u"dsc"_s) << QStringList { u"DSC04223"_s, u"dsc_9"_s };
    QTest::newRow("underscore matches any one character")
        << OptString(u"a_b"_s) << QStringList { u"axb"_s, u"a_b"_s };
    QTest::newRow("percent matches anything")
        << OptString(u"a%b"_s) << QStringList { u"axb"_s, u"a_b"_s };
    QTest::newRow("no match") << OptString(u"zzz"_s) << QStringList();
}

void HistoryServiceTest::searchMatchesStemSubstringsWithLikeWildcards()
{
    QFETCH(OptString, query);
    QFETCH(QStringList, expected);
    TestDatabase db(m_dbPath);
    const QStringList stems { u"axb"_s, u"a_b"_s, u"DSC04223"_s, u"dsc_9"_s, u"IMG%1"_s };
    for (const QString &stem : stems)
        db.insert({ .fingerprint = u"fp-"_s + stem, .stem = stem });

    const HistoryService service(m_dbPath);
    QStringList found;
    for (const PhotoRecord &record : service.fetchRecords(80, 0, query, {}, u"stem"_s, true))
        found << record.stem;
    QStringList sortedExpected = expected;
    std::sort(sortedExpected.begin(), sortedExpected.end()); // stem ASC is binary order
    QCOMPARE(found, sortedExpected);
    QCOMPARE(service.fetchCount(query, {}), expected.size());
}

void HistoryServiceTest::statusFilterAppliesOnlyToExactStatusTexts_data()
{
    QTest::addColumn<OptString>("status");
    QTest::addColumn<int>("expected");

    QTest::newRow("none") << OptString() << 5;
    QTest::newRow("SUCCESS") << OptString(u"SUCCESS"_s) << 3;
    QTest::newRow("FAILED") << OptString(u"FAILED"_s) << 2;
    QTest::newRow("lower-case success filters nothing") << OptString(u"success"_s) << 5;
    QTest::newRow("all filters nothing") << OptString(u"all"_s) << 5;
    QTest::newRow("another status text filters nothing") << OptString(u"SKIPPED"_s) << 5;
}

void HistoryServiceTest::statusFilterAppliesOnlyToExactStatusTexts()
{
    QFETCH(OptString, status);
    QFETCH(int, expected);
    TestDatabase db(m_dbPath);
    for (int i = 0; i < 5; ++i)
        db.insert(
            { .fingerprint = QString::number(i), .status = i < 3 ? u"SUCCESS"_s : u"FAILED"_s });

    const HistoryService service(m_dbPath);
    const QList<PhotoRecord> records = service.fetchRecords(80, 0, {}, status);
    QCOMPARE(records.size(), expected);
    QCOMPARE(service.fetchCount({}, status), expected);
    if (status == u"SUCCESS"_s || status == u"FAILED"_s) {
        for (const PhotoRecord &record : records)
            QCOMPARE(record.status, *status);
    }
}

void HistoryServiceTest::searchAndStatusCombine()
{
    TestDatabase db(m_dbPath);
    db.insert({ .fingerprint = u"1"_s, .stem = u"DSC1"_s, .status = u"FAILED"_s });
    db.insert({ .fingerprint = u"2"_s, .stem = u"DSC2"_s, .status = u"SUCCESS"_s });
    db.insert({ .fingerprint = u"3"_s, .stem = u"IMG3"_s, .status = u"FAILED"_s });
    const HistoryService service(m_dbPath);
    QCOMPARE(fingerprints(service.fetchRecords(80, 0, u"DSC"_s, u"FAILED"_s)),
             QStringList { u"1"_s });
    QCOMPARE(service.fetchCount(u"DSC"_s, u"FAILED"_s), 1);
}

void HistoryServiceTest::pagesFollowLimitAndOffset()
{
    TestDatabase db(m_dbPath);
    db.insertNumbered(130);
    const HistoryService service(m_dbPath);
    const QStringList all = fingerprints(service.fetchRecords(1000, 0));
    QCOMPARE(all.size(), 130);
    QCOMPARE(all.first(), u"fp0129"_s); // newest first by default
    QCOMPARE(fingerprints(service.fetchRecords(50, 80)), all.mid(80, 50));
    QCOMPARE(fingerprints(service.fetchRecords(50, 130)), QStringList());
    QCOMPARE(fingerprints(service.fetchRecords()), all.mid(0, 80));
}

void HistoryServiceTest::everySortFieldPutsMissingValuesLastBothWays_data()
{
    QTest::addColumn<QString>("sortField");
    QTest::addColumn<QStringList>("ascending"); // rows with a value, smallest first
    QTest::addColumn<QStringList>("missing"); // rows without one, in any order

    // Rows a..d: see the test body for their values.
    QTest::newRow("date") << u"date"_s << QStringList { u"c"_s, u"a"_s, u"d"_s, u"b"_s }
                          << QStringList();
    QTest::newRow("unknown field sorts by date")
        << u"size"_s << QStringList { u"c"_s, u"a"_s, u"d"_s, u"b"_s } << QStringList();
    QTest::newRow("peakStops") << u"peakStops"_s << QStringList { u"b"_s, u"d"_s }
                               << QStringList { u"a"_s, u"c"_s };
    QTest::newRow("faces") << u"faces"_s << QStringList { u"a"_s, u"c"_s }
                           << QStringList { u"b"_s, u"d"_s };
    QTest::newRow("duration") << u"duration"_s << QStringList { u"d"_s, u"a"_s, u"c"_s }
                              << QStringList { u"b"_s };
    QTest::newRow("stem") << u"stem"_s << QStringList { u"b"_s, u"c"_s, u"d"_s, u"a"_s }
                          << QStringList();
    QTest::newRow("rating uses the stored value")
        << u"rating"_s << QStringList { u"b"_s, u"c"_s } << QStringList { u"a"_s, u"d"_s };
}

void HistoryServiceTest::everySortFieldPutsMissingValuesLastBothWays()
{
    QFETCH(QString, sortField);
    QFETCH(QStringList, ascending);
    QFETCH(QStringList, missing);
    TestDatabase db(m_dbPath);
    db.insert({ .fingerprint = u"a"_s,
                .stem = u"Z9"_s,
                .processedAt = u"2026-02"_s,
                .numFaces = 0,
                .durationSec = 2.0 });
    db.insert({ .fingerprint = u"b"_s,
                .stem = u"A1"_s,
                .processedAt = u"2026-04"_s,
                .peakStops = -1.5,
                .rating = 0 });
    db.insert({ .fingerprint = u"c"_s,
                .stem = u"B2"_s,
                .processedAt = u"2026-01"_s,
                .numFaces = 5,
                .durationSec = 9.5,
                .rating = 5 });
    db.insert({ .fingerprint = u"d"_s,
                .stem = u"M5"_s,
                .processedAt = u"2026-03"_s,
                .peakStops = 3.25,
                .durationSec = 0.5 });

    const HistoryService service(m_dbPath);
    for (bool up : { true, false }) {
        const QStringList found = fingerprints(service.fetchRecords(80, 0, {}, {}, sortField, up));
        QStringList withValue = ascending;
        if (!up)
            std::reverse(withValue.begin(), withValue.end());
        QCOMPARE(found.mid(0, withValue.size()), withValue);
        QStringList tail = found.mid(withValue.size());
        std::sort(tail.begin(), tail.end());
        QCOMPARE(tail, missing);
    }
}

void HistoryServiceTest::statsDescribeTheWholeTable()
{
    TestDatabase db(m_dbPath);
    db.insert({ .fingerprint = u"1"_s, .processedAt = u"2026-05-01 10:00"_s, .durationSec = 2.0 });
    db.insert({ .fingerprint = u"2"_s, .processedAt = u"2026-05-03 09:00"_s, .durationSec = 5.0 });
    db.insert({ .fingerprint = u"3"_s, .processedAt = u"2026-05-02 08:00"_s }); // no duration
    db.insert({ .fingerprint = u"4"_s,
                .status = u"FAILED"_s,
                .processedAt = u"2026-05-04"_s,
                .durationSec = 100.0 });
    db.insert({ .fingerprint = u"5"_s, .status = u"SKIPPED"_s, .processedAt = u"2026-01-01"_s });

    const DashboardStats stats = HistoryService(m_dbPath).fetchStats();
    QCOMPARE(stats.total, 5);
    QCOMPARE(stats.success, 3);
    QCOMPARE(stats.failed, 1);
    QCOMPARE(stats.avgDurationSec, 3.5); // successful rows with a duration only
    QCOMPARE(stats.lastProcessedAt, OptString(u"2026-05-04"_s));
}

void HistoryServiceTest::statsOfATableWithoutSuccessesHaveNoAverage()
{
    TestDatabase db(m_dbPath);
    const HistoryService service(m_dbPath);
    QCOMPARE(service.fetchStats(), DashboardStats()); // empty table

    db.insert({ .fingerprint = u"1"_s, .status = u"FAILED"_s, .durationSec = 3.0 });
    const DashboardStats stats = service.fetchStats();
    QCOMPARE(stats.total, 1);
    QCOMPARE(stats.failed, 1);
    QCOMPARE(stats.success, 0);
    QCOMPARE(stats.avgDurationSec, 0.0);
    QVERIFY(stats.lastProcessedAt.has_value());
}

void HistoryServiceTest::deleteRemovesExactlyTheGivenRows_data()
{
    QTest::addColumn<QStringList>("doomed");
    QTest::addColumn<int>("left");

    QTest::newRow("none") << QStringList() << 5;
    QTest::newRow("one") << QStringList { u"fp0002"_s } << 4;
    QTest::newRow("three") << QStringList { u"fp0000"_s, u"fp0004"_s, u"fp0001"_s } << 2;
    QTest::newRow("unknown fingerprints are ignored")
        << QStringList { u"fp0003"_s, u"nope"_s } << 4;
}

void HistoryServiceTest::deleteRemovesExactlyTheGivenRows()
{
    QFETCH(QStringList, doomed);
    QFETCH(int, left);
    TestDatabase db(m_dbPath);
    db.insertNumbered(5);
    // The photo files named by a row stay where they are.
    const QString output = m_dataHome + u"/db/fp0002_hdr.jpg"_s;
    writeBytes(output, "jpeg");
    db.exec(u"UPDATE processed_files SET output_path = '%1' WHERE fingerprint = 'fp0002'"_s.arg(
        output));
    StatementLog::clear();

    HistoryService(m_dbPath).deleteRecords(doomed);
    if (doomed.isEmpty())
        QVERIFY(StatementLog::statements().isEmpty()); // not even opened

    QCOMPARE(db.count(), left);
    for (const QString &fingerprint : doomed)
        QCOMPARE(db.count(u"WHERE fingerprint = '%1'"_s.arg(fingerprint)), 0);
    QVERIFY(QFileInfo::exists(output));
}

void HistoryServiceTest::deleteUsesOnePlaceholderPerFingerprint()
{
    TestDatabase db(m_dbPath);
    db.insertNumbered(5);
    StatementLog::clear();
    HistoryService(m_dbPath).deleteRecords({ u"fp0000"_s, u"fp0001"_s, u"fp0002"_s });
    QCOMPARE(StatementLog::statements(),
             QStringList { u"DELETE FROM processed_files WHERE fingerprint IN (?,?,?)"_s });
}

void HistoryServiceTest::deleteOfAVeryLongSelectionRemovesEveryRow()
{
    TestDatabase db(m_dbPath);
    db.insertNumbered(2600);
    QStringList doomed;
    for (int i = 0; i < 2500; ++i)
        doomed << u"fp%1"_s.arg(i, 4, 10, QLatin1Char('0'));
    HistoryService(m_dbPath).deleteRecords(doomed);
    QCOMPARE(db.count(), 100);
}

void HistoryServiceTest::readOnlyDatabaseIsReadButNeverChanged()
{
    {
        TestDatabase db(m_dbPath);
        db.insertNumbered(3);
    }
    QFile::setPermissions(m_dbPath, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
    if (QFileInfo(m_dbPath).isWritable())
        QSKIP("running with privileges that ignore file permissions");

    const HistoryService service(m_dbPath);
    QCOMPARE(service.fetchRecords().size(), 3);
    QCOMPARE(service.fetchStats().total, 3);
    service.deleteRecords({ u"fp0000"_s });
    QCOMPARE(service.fetchCount(), 3);
    QFile::setPermissions(m_dbPath, QFile::ReadOwner | QFile::WriteOwner);
}

void HistoryServiceTest::aLockedDatabaseReadsAsBusyNotAsEmpty()
{
    // A rollback-journal database (other engines keep it so): a writer's
    // exclusive lock shuts readers out until it commits.
    TestDatabase engine(m_dbPath);
    engine.insertNumbered(10);
    const HistoryService service(m_dbPath);
    HistoryReadStatus status;
    QCOMPARE(service.fetchCount({}, {}, &status), 10);
    QVERIFY(!status.busy);

    QVERIFY(engine.exec(u"BEGIN EXCLUSIVE"_s));
    engine.insert({ .fingerprint = u"late"_s });
    status = {};
    QCOMPARE(service.fetchStats(&status), DashboardStats());
    QVERIFY(status.busy);
    status = {};
    QCOMPARE(service.fetchCount({}, {}, &status), 0);
    QVERIFY(status.busy);
    status = {};
    QVERIFY(service.fetchRecords(80, 0, {}, {}, u"date"_s, false, &status).isEmpty());
    QVERIFY(status.busy);

    QVERIFY(engine.exec(u"COMMIT"_s));
    status = {};
    QCOMPARE(service.fetchRecords(80, 0, {}, {}, u"date"_s, false, &status).size(), 11);
    QVERIFY(!status.busy);
}

void HistoryServiceTest::defaultPathIsInTheUserDataFolder()
{
    const QString expected = m_dataHome + u"/Orvanta/pipeline_state.db"_s;
    QCOMPARE(HistoryService::defaultDbPath(), expected);
    QCOMPARE(HistoryService().dbPath(), expected);
    QVERIFY(!QFileInfo::exists(expected)); // never created by us
}

void HistoryServiceTest::legacyDatabaseIsCopiedOnceFromTheFirstLegacyFolder_data()
{
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QString>("copiedFrom");

    QTest::newRow("Tarne only") << QStringList { u"Tarne"_s } << u"Tarne"_s;
    QTest::newRow("Dravik before Tarne") << QStringList { u"Tarne"_s, u"Dravik"_s } << u"Dravik"_s;
    QTest::newRow("Pemvira first")
        << QStringList { u"Tarne"_s, u"Dravik"_s, u"Pemvira"_s } << u"Pemvira"_s;
    QTest::newRow("current folder wins")
        << QStringList { u"Orvanta"_s, u"Pemvira"_s } << u"Orvanta"_s;
}

void HistoryServiceTest::legacyDatabaseIsCopiedOnceFromTheFirstLegacyFolder()
{
    QFETCH(QStringList, present);
    QFETCH(QString, copiedFrom);
    // Each old database is held open in write-ahead mode, as a running old
    // version holds it: its row is still in the -wal file beside it.
    std::vector<std::unique_ptr<TestDatabase>> held;
    for (const QString &folder : present) {
        QDir().mkpath(m_dataHome + u'/' + folder);
        held.push_back(
            std::make_unique<TestDatabase>(m_dataHome + u'/' + folder + u"/pipeline_state.db"_s));
        QVERIFY(held.back()->exec(u"PRAGMA journal_mode=WAL"_s));
        held.back()->insert({ .fingerprint = folder });
    }
    const QString primary = m_dataHome + u"/Orvanta/pipeline_state.db"_s;

    QCOMPARE(HistoryService::defaultDbPath(), primary);
    QCOMPARE(fingerprints(HistoryService(primary).fetchRecords()), QStringList { copiedFrom });
    for (const QString &folder : present) // legacy files stay
        QVERIFY(QFileInfo::exists(m_dataHome + u'/' + folder + u"/pipeline_state.db"_s));

    // Later look-ups find the copy and leave it alone.
    {
        TestDatabase current(primary, TestDatabase::Schema::NoTable);
        current.insert({ .fingerprint = u"new"_s });
    }
    QCOMPARE(HistoryService::defaultDbPath(), primary);
    QCOMPARE(HistoryService(primary).fetchCount(), 2);
}

ORVANTA_TEST_GUILESS_MAIN(HistoryServiceTest)
#include "tst_historyservice.moc"
