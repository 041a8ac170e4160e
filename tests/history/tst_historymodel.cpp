// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history half of the state object on a real database: first page and
// further pages, refresh on every changed query value, coalescing of
// overlapping refreshes, results for a model or list that has gone, the
// selection and the two bulk actions.
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "history/HistoryService.h"
#include "history/HistoryTestDatabase.h"

#include <QScopeGuard>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QThreadPool>

#include <memory>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

class HistoryModelTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void missingDatabaseShowsTheEmptyState();
    void firstPageIs80AndFurtherPagesAre50_data();
    void firstPageIs80AndFurtherPagesAre50();
    void aSecondLoadMoreWhileOneIsInFlightIsIgnored();
    void aPageReadAfterNewPhotosLandedRepeatsNoRow();
    void everyChangedQueryValueRefreshes_data();
    void everyChangedQueryValueRefreshes();
    void typingASearchOneCharacterAtATimeRefreshesEachTime();
    void settingAValueItAlreadyHasRunsNoQuery();
    void requestsDuringARefreshCollapseIntoOneMoreWithTheNewestValues();
    void aPageReadForAListThatWasReplacedIsDropped();
    void resultsArrivingAfterTheModelIsGoneAreDropped();
    void selectionTogglesSelectsTheLoadedRowsAndSurvivesARefresh();
    void deletingRemovesTheSelectedRowsAndClearsTheSelection();
    void deletingWithNothingSelectedTouchesNothing();
    void deletingClearsTheSelectionEvenWithoutADatabase();
    void reprocessWithNothingLoadedSelectedDoesNothing();
    void columnVisibilityTogglesButTheLastColumnStays();

private:
    std::unique_ptr<TestDatabase> makeDatabase();
    QString m_dbPath;
};

namespace {

// Lets every queued query finish and every result reach the model. Each
// round completes the work in the pool and delivers what it posted, which
// may start one more query (a coalesced refresh, the refresh after a delete).
void settle()
{
    for (int round = 0; round < 6; ++round) {
        HistoryService::pool().waitForDone();
        QCoreApplication::sendPostedEvents();
    }
}

QStringList ids(const QList<PhotoRecord> &records)
{
    QStringList result;
    for (const PhotoRecord &record : records)
        result << record.fingerprint;
    return result;
}

qsizetype refreshesRun()
{
    return StatementLog::countStartingWith(u"SELECT COUNT(*), SUM("_s);
}

} // namespace

void HistoryModelTest::initTestCase()
{
    StatementLog::install();
    m_dbPath = HistoryService::defaultDbPath();
}

void HistoryModelTest::init()
{
    settle();
    QDir(QFileInfo(m_dbPath).absolutePath()).removeRecursively();
    StatementLog::clear();
}

std::unique_ptr<TestDatabase> HistoryModelTest::makeDatabase()
{
    QDir().mkpath(QFileInfo(m_dbPath).absolutePath());
    return std::make_unique<TestDatabase>(m_dbPath);
}

void HistoryModelTest::missingDatabaseShowsTheEmptyState()
{
    AppViewModel model;
    settle();
    QVERIFY(model.historyRecords().isEmpty());
    QCOMPARE(model.totalFilteredCount(), 0);
    QCOMPARE(model.historyStats(), DashboardStats());
    QCOMPARE(model.hasMoreHistory(), false);
    QVERIFY(!QFileInfo::exists(m_dbPath));
}

void HistoryModelTest::firstPageIs80AndFurtherPagesAre50_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<QStringList>("steps"); // loaded rows and whether more, after each load

    QTest::newRow("none") << 0 << QStringList { u"0 end"_s };
    QTest::newRow("79") << 79 << QStringList { u"79 end"_s };
    QTest::newRow("exactly 80: 80 is not less than 80") << 80 << QStringList { u"80 end"_s };
    QTest::newRow("81") << 81 << QStringList { u"80 more"_s, u"81 end"_s };
    QTest::newRow("130: a full page of 50 keeps more")
        << 130 << QStringList { u"80 more"_s, u"130 more"_s, u"130 end"_s };
    QTest::newRow("200") << 200
                         << QStringList { u"80 more"_s, u"130 more"_s, u"180 more"_s,
                                          u"200 end"_s };
}

void HistoryModelTest::firstPageIs80AndFurtherPagesAre50()
{
    QFETCH(int, rows);
    QFETCH(QStringList, steps);
    makeDatabase()->insertNumbered(rows);

    AppViewModel model;
    QStringList seen;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        if (i > 0)
            model.loadMoreHistory();
        settle();
        QVERIFY(!model.isLoadingMore());
        seen << u"%1 %2"_s.arg(model.historyRecords().size())
                    .arg(model.hasMoreHistory() ? "more"_L1 : "end"_L1);
    }
    QCOMPARE(seen, steps);
    QCOMPARE(model.totalFilteredCount(), rows);
    // The pages join up: no row twice, none missing, in query order.
    QCOMPARE(ids(model.historyRecords()), ids(HistoryService(m_dbPath).fetchRecords(1000, 0)));
    QCOMPARE(model.filteredHistoryRecords(), model.historyRecords());
}

void HistoryModelTest::aSecondLoadMoreWhileOneIsInFlightIsIgnored()
{
    makeDatabase()->insertNumbered(300);
    AppViewModel model;
    settle();
    model.loadMoreHistory();
    QVERIFY(model.isLoadingMore());
    model.loadMoreHistory();
    settle();
    QCOMPARE(model.historyRecords().size(), 130);
    QVERIFY(!model.isLoadingMore());
}

void HistoryModelTest::aPageReadAfterNewPhotosLandedRepeatsNoRow()
{
    auto db = makeDatabase();
    db->insertNumbered(200);
    AppViewModel model;
    settle();
    // Two photos land at the top: the next page, read by offset, starts two
    // rows early. No row may show twice, and the new photos come in too.
    db->insert({ .fingerprint = u"late1"_s, .processedAt = u"2027-01-01T00:00:00"_s });
    db->insert({ .fingerprint = u"late2"_s, .processedAt = u"2027-01-02T00:00:00"_s });
    model.loadMoreHistory();
    settle();
    const QList<PhotoRecord> shown = model.historyRecords();
    QCOMPARE(ids(shown), ids(HistoryService(m_dbPath).fetchRecords(int(shown.size()), 0)));
    QCOMPARE(shown.first().fingerprint, u"late2"_s);
}

void HistoryModelTest::everyChangedQueryValueRefreshes_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<int>("filter");
    QTest::addColumn<int>("sortField");
    QTest::addColumn<bool>("ascending");
    QTest::addColumn<int>("expectedCount");

    const int all = int(HistoryStatusFilter::All);
    const int date = int(HistorySortField::Date);
    QTest::newRow("search") << u"DSC"_s << all << date << false << 5;
    QTest::newRow("failed only") << QString() << int(HistoryStatusFilter::FailedOnly) << date
                                 << false << 5;
    QTest::newRow("success only") << QString() << int(HistoryStatusFilter::SuccessOnly) << date
                                  << false << 100;
    QTest::newRow("sort by stem") << QString() << all << int(HistorySortField::Stem) << false
                                  << 105;
    QTest::newRow("sort by duration")
        << QString() << all << int(HistorySortField::Duration) << false << 105;
    QTest::newRow("ascending") << QString() << all << date << true << 105;
}

void HistoryModelTest::everyChangedQueryValueRefreshes()
{
    QFETCH(QString, search);
    QFETCH(int, filter);
    QFETCH(int, sortField);
    QFETCH(bool, ascending);
    QFETCH(int, expectedCount);
    {
        auto db = makeDatabase();
        db->insertNumbered(100);
        for (int i = 0; i < 5; ++i)
            db->insert({ .fingerprint = u"dsc%1"_s.arg(i),
                         .stem = u"DSC_%1"_s.arg(i),
                         .status = u"FAILED"_s,
                         .processedAt = u"2025-12-0%1"_s.arg(i + 1) });
    }
    AppViewModel model;
    settle();

    model.setHistorySearchText(search);
    model.setHistoryStatusFilter(HistoryStatusFilter(filter));
    model.setHistorySortField(HistorySortField(sortField));
    model.setHistorySortAscending(ascending);
    settle();

    QCOMPARE(model.totalFilteredCount(), expectedCount);
    const auto status = statusText(HistoryStatusFilter(filter));
    QCOMPARE(model.historyRecords(),
             HistoryService(m_dbPath).fetchRecords(
                 80, 0, search, status, rawValue(HistorySortField(sortField)), ascending));
    QCOMPARE(model.historyStats().total, 105); // figures ignore the search and filter
}

void HistoryModelTest::typingASearchOneCharacterAtATimeRefreshesEachTime()
{
    {
        auto db = makeDatabase();
        db->insertNumbered(20);
        db->insert({ .fingerprint = u"x"_s, .stem = u"DSC04223"_s });
    }
    AppViewModel model;
    settle();
    StatementLog::clear();
    for (const QString &text : { u"D"_s, u"DS"_s, u"DSC"_s }) {
        model.setHistorySearchText(text);
        settle();
    }
    QCOMPARE(refreshesRun(), 3);
    QCOMPARE(ids(model.historyRecords()), QStringList { u"x"_s });
}

void HistoryModelTest::settingAValueItAlreadyHasRunsNoQuery()
{
    makeDatabase()->insertNumbered(3);
    AppViewModel model;
    model.setHistorySearchText(u"IMG"_s);
    model.setHistorySortAscending(true);
    settle();
    StatementLog::clear();

    model.setHistorySearchText(u"IMG"_s);
    model.setHistoryStatusFilter(model.historyStatusFilter());
    model.setHistorySortField(model.historySortField());
    model.setHistorySortAscending(true);
    settle();
    QCOMPARE(StatementLog::statements(), QStringList());
}

void HistoryModelTest::requestsDuringARefreshCollapseIntoOneMoreWithTheNewestValues()
{
    {
        auto db = makeDatabase();
        db->insertNumbered(100);
        db->insert({ .fingerprint = u"z1"_s, .stem = u"DSC_B"_s });
        db->insert({ .fingerprint = u"z2"_s, .stem = u"DSC_A"_s });
    }
    AppViewModel model; // its start-up refresh is now under way
    QSignalSpy counts(&model, &AppViewModel::totalFilteredCountChanged);
    for (const QString &text : { u"D"_s, u"DS"_s, u"DSC"_s })
        model.setHistorySearchText(text);
    model.setHistorySortField(HistorySortField::Stem);
    model.setHistorySortAscending(true);
    for (int i = 0; i < 10; ++i) // a refresh per finished photo of a fast batch
        model.refreshHistory();
    settle();

    QCOMPARE(refreshesRun(), 2);
    QCOMPARE(counts.size(), 2); // 102 from start-up, then 2
    QCOMPARE(model.totalFilteredCount(), 2);
    QCOMPARE(ids(model.historyRecords()), (QStringList { u"z2"_s, u"z1"_s }));
}

void HistoryModelTest::aPageReadForAListThatWasReplacedIsDropped()
{
    makeDatabase()->insertNumbered(300);
    AppViewModel model;
    settle();
    model.loadMoreHistory();
    settle();
    QCOMPARE(model.historyRecords().size(), 130);

    // The refresh finishes first but is not yet applied; the next page is
    // read for the 130-row list it is about to replace.
    model.setHistorySortAscending(true);
    HistoryService::pool().waitForDone();
    model.loadMoreHistory();
    settle();

    QCOMPARE(ids(model.historyRecords()),
             ids(HistoryService(m_dbPath).fetchRecords(80, 0, QString(), {}, u"date"_s, true)));
    QVERIFY(!model.isLoadingMore());
    QVERIFY(model.hasMoreHistory());
}

void HistoryModelTest::resultsArrivingAfterTheModelIsGoneAreDropped()
{
    auto db = makeDatabase();
    db->insertNumbered(200);
    {
        AppViewModel model;
        settle();
        model.loadMoreHistory();
        model.setHistorySearchText(u"IMG_01"_s);
        model.toggleRecordSelection(u"fp0199"_s);
        model.deleteSelectedRecords();
    } // gone with four reads and a delete under way
    settle();
    QCOMPARE(db->count(), 199); // the delete itself still happened
}

void HistoryModelTest::selectionTogglesSelectsTheLoadedRowsAndSurvivesARefresh()
{
    makeDatabase()->insertNumbered(130);
    AppViewModel model;
    settle();
    QSignalSpy changed(&model, &AppViewModel::selectedRecordIdsChanged);

    model.toggleRecordSelection(u"fp0001"_s);
    QCOMPARE(model.selectedRecordIds(), QSet<QString> { u"fp0001"_s });
    model.toggleRecordSelection(u"fp0001"_s);
    QVERIFY(model.selectedRecordIds().isEmpty());
    QCOMPARE(changed.size(), 2);

    model.selectAllRecords();
    const QStringList loaded = ids(model.historyRecords());
    QCOMPARE(model.selectedRecordIds(), QSet<QString>(loaded.cbegin(), loaded.cend()));
    QCOMPARE(model.selectedRecordIds().size(), 80);

    model.setHistorySearchText(u"no such stem"_s);
    settle();
    QVERIFY(model.historyRecords().isEmpty());
    QCOMPARE(model.selectedRecordIds().size(), 80);

    model.deselectAllRecords();
    QVERIFY(model.selectedRecordIds().isEmpty());
}

void HistoryModelTest::deletingRemovesTheSelectedRowsAndClearsTheSelection()
{
    auto db = makeDatabase();
    db->insertNumbered(10);
    AppViewModel model;
    settle();
    for (const QString &id : { u"fp0001"_s, u"fp0005"_s, u"fp0009"_s })
        model.toggleRecordSelection(id);

    model.deleteSelectedRecords();
    settle();

    QCOMPARE(db->count(), 7);
    QVERIFY(model.selectedRecordIds().isEmpty());
    QCOMPARE(model.historyRecords().size(), 7);
    QCOMPARE(model.totalFilteredCount(), 7);
    QCOMPARE(model.historyStats().total, 7);
    QVERIFY(!ids(model.historyRecords()).contains(u"fp0005"_s));
}

void HistoryModelTest::deletingWithNothingSelectedTouchesNothing()
{
    makeDatabase()->insertNumbered(3);
    AppViewModel model;
    settle();
    StatementLog::clear();
    model.deleteSelectedRecords();
    settle();
    QCOMPARE(StatementLog::statements(), QStringList());
}

void HistoryModelTest::deletingClearsTheSelectionEvenWithoutADatabase()
{
    AppViewModel model;
    settle();
    model.toggleRecordSelection(u"fp0001"_s);
    model.deleteSelectedRecords();
    settle();
    QVERIFY(model.selectedRecordIds().isEmpty());
    QVERIFY(!QFileInfo::exists(m_dbPath));
}

void HistoryModelTest::reprocessWithNothingLoadedSelectedDoesNothing()
{
    makeDatabase()->insertNumbered(3);
    AppViewModel model;
    settle();
    model.setTargetStem(u"kept"_s);
    model.reprocessSelectedRecords(); // nothing selected
    model.toggleRecordSelection(u"elsewhere"_s);
    model.reprocessSelectedRecords(); // selected, but not in the list
    QCOMPARE(model.targetStem(), u"kept"_s);
    QVERIFY(!model.forceReprocess());
    QVERIFY(!model.isRunning());
}

void HistoryModelTest::columnVisibilityTogglesButTheLastColumnStays()
{
    AppViewModel model;
    QSignalSpy changed(&model, &AppViewModel::visibleColumnsChanged);

    model.toggleColumnVisibility(ListColumn::Date);
    QVERIFY(model.visibleColumns().contains(ListColumn::Date));
    QCOMPARE(model.visibleColumns().last(), ListColumn::Date); // header order
    model.toggleColumnVisibility(ListColumn::PeakStops);
    QVERIFY(!model.visibleColumns().contains(ListColumn::PeakStops));
    QCOMPARE(changed.size(), 2);

    model.setVisibleColumns({ ListColumn::Faces });
    model.toggleColumnVisibility(ListColumn::Faces);
    QCOMPARE(model.visibleColumns(), ListColumnSet { ListColumn::Faces });
}

ORVANTA_TEST_GUILESS_MAIN(HistoryModelTest)
#include "tst_historymodel.moc"
