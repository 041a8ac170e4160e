// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history tab on a real state database of 500 generated rows: paging
// through fetchMore, the select-all states, the column menu and its
// persistence, reveal and its fallbacks, the dialogs, the empty states and
// the row thumbnails that follow the scroll position.
#include "core/AppViewModel.h"
#include "core/ConfigStore.h"
#include "ui/MainWindow.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/history/HistoryRowDelegate.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryToolbar.h"
#include "ui/history/HistoryView.h"
#include "ui/history/HistoryViewFixtures.h"
#include "ui/history/InspectorView.h"
#include "ui/history/QuickPreviewWindow.h"
#include "ui/history/RowMediaStore.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QToolButton>
#include <QUrl>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

// Catches the file manager's fallback (opening the folder), so no test
// starts a real desktop program.
class UrlSink : public QObject
{
    Q_OBJECT
public:
    QList<QUrl> opened;
public Q_SLOTS:
    void open(const QUrl &url) { opened << url; }
};

class HistoryViewTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void scrollingToTheEndPagesThroughAll500Rows();
    void aRefreshKeepsTheLoadedRowsThePlaceAndTheSelection();
    void selectAllCountsTheLoadedRowsWhileMorePagesRemain();
    void selectAllWithNothingLoadedStaysEmpty();
    void hidingTheLastVisibleColumnIsRefusedAndStaysChecked();
    void columnChoiceIsSavedAndComesBackInANewSession();
    void headerFollowsTheVisibleColumnsInTheirOrder();
    void nameStaysReadableAndTitlesSortAtTheWindowsDefaultWidth();
    void keyboardLeavesTheTableAndActsOnTheCurrentRow();
    void revealPrefersTheDeliveredFile();
    void revealFallsBackToTheJpegWhenTheOutputIsGone();
    void revealWithBothFilesGoneShowsTheMissingDialog();
    void emptyBusyAndNoMatchShowDifferentMessages();
    void deleteAsksFirstAndRemovesOnlyOnConfirmation();
    void failedRowsOfferErrorDetailsAndCompareNeedsAnOpener();
    void compareHandsTheRecordAndTheLoadedList();
    void compareCountsTheWholeHistoryAndPagesOn();
    void spaceOpensAndClosesTheQuickPreview();
    void rowsThatScrollAwayCancelTheirThumbnails();
    void rowCellsUseTheRecordFormats();
    void clickingTheRowBoxTogglesItsSelectionAndRepaintsTheRow();
    void hoverButtonsTriggerTheirRowAction();

private:
    UrlSink m_sink;
    QTemporaryDir m_files;
};

namespace {

void showAndWait(HistoryView &view, int rows)
{
    view.resize(1000, 640);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_COMPARE(view.tableModel()->rowCount(), rows);
}

void scrollToEnd(HistoryView &view)
{
    QScrollBar *bar = view.tableView()->verticalScrollBar();
    bar->setValue(bar->maximum());
}

} // namespace

void HistoryViewTest::initTestCase()
{
    QDesktopServices::setUrlHandler(u"file"_s, &m_sink, "open");
    QVERIFY(m_files.isValid());
}

void HistoryViewTest::cleanupTestCase()
{
    QDesktopServices::unsetUrlHandler(u"file"_s);
}

void HistoryViewTest::init()
{
    settleHistory();
    removeDatabaseAndConfig();
    m_sink.opened.clear();
}

void HistoryViewTest::cleanup()
{
    settleHistory();
}

void HistoryViewTest::scrollingToTheEndPagesThroughAll500Rows()
{
    freshDatabase()->insertNumbered(500);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 80);
    QVERIFY(view.tableModel()->canFetchMore({}));
    QCOMPARE(view.footerText(), QString());
    int expected = 80;
    while (expected < 500) {
        scrollToEnd(view);
        expected = qMin(expected + 50, 500);
        QTRY_COMPARE(view.tableModel()->rowCount(), expected);
    }
    // The last page was a full one: one more read finds nothing and ends it.
    scrollToEnd(view);
    QTRY_VERIFY(!model.hasMoreHistory());
    QVERIFY(!view.tableModel()->canFetchMore({}));
    QCOMPARE(view.tableModel()->rowCount(), 500);
    QTRY_COMPARE(view.footerText(), u"All 500 photos loaded"_s);
}

// A refresh after each finished photo: the rows the user scrolled to stay
// loaded and in view, a photo added above does not push them down, and the
// table changes row by row instead of starting over.
void HistoryViewTest::aRefreshKeepsTheLoadedRowsThePlaceAndTheSelection()
{
    auto db = freshDatabase();
    db->insertNumbered(180);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 80);
    HistoryTableModel *table = view.tableModel();
    // Two more pages: every row is loaded, yet a refresh must not cut back to the first page.
    for (int page = 0; page < 2; ++page) {
        model.loadMoreHistory();
        settleHistory();
    }
    const int loaded = table->rowCount();
    QCOMPARE(loaded, 180);
    QTableView *tableView = view.tableView();
    tableView->scrollTo(table->index(150, 1), QAbstractItemView::PositionAtTop);
    const QModelIndex top = tableView->indexAt(QPoint(0, 0));
    QCOMPARE(top.row(), 150);
    const QString anchor = table->record(top.row()).fingerprint;
    const int anchorY = tableView->visualRect(top).top();
    tableView->setCurrentIndex(top);
    model.toggleRecordSelection(anchor);

    // Checks every change the table announces (it also asks for more pages,
    // so it comes after the paging above).
    QAbstractItemModelTester tester(table, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QSignalSpy inserted(table, &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(table, &QAbstractItemModel::rowsRemoved);
    QSignalSpy resets(table, &QAbstractItemModel::modelAboutToBeReset);
    // The newest photo lands at the top; a row above the view goes away (one
    // change: a page the table asks for meanwhile sees both or neither).
    QVERIFY(db->exec(u"BEGIN"_s));
    db->insert({ .fingerprint = u"new"_s, .processedAt = u"2027-01-01T00:00:00"_s });
    QVERIFY(db->exec(u"DELETE FROM processed_files WHERE fingerprint = 'fp0170'"_s));
    QVERIFY(db->exec(u"COMMIT"_s));
    model.refreshHistory();
    QTRY_COMPARE(table->rowOf(u"new"_s), 0);

    QCOMPARE(table->rowCount(), loaded);
    QCOMPARE(model.historyRecords().size(), loaded);
    QCOMPARE(resets.size(), 0);
    QCOMPARE(inserted.size(), 1);
    QCOMPARE(removed.size(), 1); // fp0170
    const int row = table->rowOf(anchor);
    QCOMPARE(row, 150);
    QCOMPARE(tableView->indexAt(QPoint(0, 0)).row(), row);
    QCOMPARE(tableView->visualRect(table->index(row, 1)).top(), anchorY);
    QCOMPARE(tableView->currentIndex().row(), row);
    QVERIFY(table->index(row, 1).data(HistoryTableModel::SelectedRole).toBool());

    // Two new photos above shift the anchor's row, not the view.
    db->insert({ .fingerprint = u"newer"_s, .processedAt = u"2027-01-02T00:00:00"_s });
    db->insert({ .fingerprint = u"newest"_s, .processedAt = u"2027-01-03T00:00:00"_s });
    model.refreshHistory();
    QTRY_COMPARE(table->rowOf(u"newest"_s), 0);
    QCOMPARE(tableView->indexAt(QPoint(0, 0)).row(), table->rowOf(anchor));
    QCOMPARE(tableView->visualRect(table->index(table->rowOf(anchor), 1)).top(), anchorY);
    QCOMPARE(resets.size(), 0);
}

void HistoryViewTest::selectAllCountsTheLoadedRowsWhileMorePagesRemain()
{
    freshDatabase()->insertNumbered(500);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 80);
    HistoryToolbar *toolbar = view.toolbar();
    QCOMPARE(toolbar->selectAllState(), HistoryToolbar::SelectAllState::None);

    model.toggleRecordSelection(view.tableModel()->record(3).id());
    QCOMPARE(toolbar->selectAllState(), HistoryToolbar::SelectAllState::Some);
    auto *count = view.findChild<QLabel *>(u"historySelectionCount"_s);
    QCOMPARE(count->text(), u"1 selected"_s);

    QTest::mouseClick(toolbar->selectAllButton(), Qt::LeftButton);
    QCOMPARE(model.selectedRecordIds().size(), 80);
    QVERIFY(model.hasMoreHistory());
    QCOMPARE(model.totalFilteredCount(), 500);
    QCOMPARE(toolbar->selectAllState(), HistoryToolbar::SelectAllState::All);

    // A further page makes the same selection partial again.
    scrollToEnd(view);
    QTRY_COMPARE(view.tableModel()->rowCount(), 130);
    QCOMPARE(toolbar->selectAllState(), HistoryToolbar::SelectAllState::Some);

    QTest::mouseClick(toolbar->selectAllButton(), Qt::LeftButton);
    QCOMPARE(model.selectedRecordIds().size(), 130);
    QTest::mouseClick(toolbar->selectAllButton(), Qt::LeftButton);
    QVERIFY(model.selectedRecordIds().isEmpty());
    QCOMPARE(toolbar->selectAllState(), HistoryToolbar::SelectAllState::None);
}

void HistoryViewTest::selectAllWithNothingLoadedStaysEmpty()
{
    AppViewModel model;
    HistoryView view(model);
    settleHistory();
    QCOMPARE(view.toolbar()->selectAllState(), HistoryToolbar::SelectAllState::None);
    view.toolbar()->toggleSelectAll();
    QVERIFY(model.selectedRecordIds().isEmpty());
    QCOMPARE(view.toolbar()->selectAllState(), HistoryToolbar::SelectAllState::None);
}

void HistoryViewTest::hidingTheLastVisibleColumnIsRefusedAndStaysChecked()
{
    AppViewModel model;
    model.setVisibleColumns({ ListColumn::Faces });
    HistoryView view(model);
    QMenu *menu = view.toolbar()->columnMenu();
    Q_EMIT menu->aboutToShow();
    QAction *faces = nullptr;
    for (QAction *action : menu->actions()) {
        if (action->data().toString() == u"faces"_s)
            faces = action;
    }
    QVERIFY(faces);
    QVERIFY(faces->isChecked());
    faces->trigger();
    QCOMPARE(model.visibleColumns(), ListColumnSet { ListColumn::Faces });
    QVERIFY(faces->isChecked());
    Q_EMIT menu->aboutToShow();
    QCOMPARE(menu->actions().size(), allListColumns().size());
    for (QAction *action : menu->actions())
        QCOMPARE(action->isChecked(), action->data().toString() == u"faces"_s);
}

void HistoryViewTest::columnChoiceIsSavedAndComesBackInANewSession()
{
    {
        AppViewModel model;
        HistoryView view(model);
        QMenu *menu = view.toolbar()->columnMenu();
        Q_EMIT menu->aboutToShow();
        for (QAction *action : menu->actions()) {
            if (action->data().toString() == u"date"_s
                || action->data().toString() == u"exposure"_s)
                action->trigger();
        }
    }
    QFile file(QDir::homePath() + u"/.config/orvanta/config.json"_s);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray saved = file.readAll();
    QVERIFY(saved.contains("\"date\""));
    QVERIFY(!saved.contains("\"exposure\""));

    AppViewModel model;
    QCOMPARE(model.visibleColumns(),
             (ListColumnSet { ListColumn::PeakStops, ListColumn::CameraLens, ListColumn::Faces,
                              ListColumn::Duration, ListColumn::Date }));
    HistoryView view(model);
    const HistoryTableModel *table = view.tableModel();
    QCOMPARE(
        table->headerData(table->columnCount() - 2, Qt::Horizontal, Qt::DisplayRole).toString(),
        u"Date"_s);
}

void HistoryViewTest::headerFollowsTheVisibleColumnsInTheirOrder()
{
    AppViewModel model;
    model.setVisibleColumns({ ListColumn::Date, ListColumn::PeakStops, ListColumn::BayerClip });
    HistoryView view(model);
    const HistoryTableModel *table = view.tableModel();
    QStringList titles;
    for (int i = 0; i < table->columnCount(); ++i)
        titles << table->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
    QCOMPARE(titles,
             (QStringList { QString(), u"Name"_s, u"Status"_s, u"Peak Gain"_s, u"Sensor Clip"_s,
                            u"Date"_s, u"Actions"_s }));
    model.toggleColumnVisibility(ListColumn::PeakStops);
    QCOMPARE(table->columnCount(), 6);
    QCOMPARE(table->headerData(3, Qt::Horizontal, Qt::DisplayRole).toString(), u"Sensor Clip"_s);
}

void HistoryViewTest::nameStaysReadableAndTitlesSortAtTheWindowsDefaultWidth()
{
    freshDatabase()->insertNumbered(5, u"DSC0"_s);
    AppViewModel model;
    model.setCurrentLanguage(AppLanguage::French);
    model.setVisibleColumns(allListColumns());
    HistoryView view(model);
    view.setCompareOpener([](const PhotoRecord &, const QList<PhotoRecord> &) {});
    // The history's share of the main window at its default width, inspector open.
    view.resize(MainWindow::kDefaultWidth - 32, 600);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QTRY_COMPARE(view.tableModel()->rowCount(), 5);
    view.openInspector(view.tableModel()->record(0));
    QTRY_VERIFY(view.inspector()->isVisible());
    QTableView *tableView = view.tableView();
    QHeaderView *header = tableView->horizontalHeader();
    const HistoryTableModel *table = view.tableModel();
    QTRY_VERIFY(header->length() <= tableView->viewport()->width());
    QVERIFY(!tableView->horizontalScrollBar()->isVisible());
    QFont bold = tableView->font();
    bold.setWeight(QFont::DemiBold);
    const int name = table->sectionOf(HistoryColumn::Kind::Name);
    QVERIFY(header->sectionSize(name) >= 54 + QFontMetrics(bold).horizontalAdvance(u"DSC04223"_s));
    QVERIFY(!header->isSectionHidden(table->sectionOf(HistoryColumn::Kind::Actions)));
    // The details stepped aside before the peak gain did.
    const auto section = [&](ListColumn c) {
        for (int i = 0; i < table->columnCount(); ++i)
            if (table->column(i).kind == HistoryColumn::Kind::Optional
                && table->column(i).optional == c)
                return i;
        return -1;
    };
    QVERIFY(header->isSectionHidden(section(ListColumn::FileSize)));
    QVERIFY(!header->isSectionHidden(section(ListColumn::PeakStops)));
    view.closeInspector();
    QTRY_VERIFY(!header->isSectionHidden(section(ListColumn::Date)));

    // Titles sort, in step with the sort menu; a second click turns the order round.
    QVERIFY(header->sectionsClickable());
    const bool ascending = model.historySortAscending();
    header->sectionClicked(name);
    QCOMPARE(model.historySortField(), HistorySortField::Stem);
    header->sectionClicked(name);
    QCOMPARE(model.historySortAscending(), !ascending);
    QCOMPARE(header->sortIndicatorSection(), name);
    model.setCurrentLanguage(AppLanguage::English);
}

void HistoryViewTest::keyboardLeavesTheTableAndActsOnTheCurrentRow()
{
    freshDatabase()->insertNumbered(5);
    AppViewModel model;
    HistoryView view(model);
    PhotoRecord compared;
    view.setCompareOpener(
        [&](const PhotoRecord &record, const QList<PhotoRecord> &) { compared = record; });
    showAndWait(view, 5);
    QTableView *tableView = view.tableView();
    view.setFocus();
    QTRY_VERIFY(tableView->hasFocus());
    tableView->setCurrentIndex(view.tableModel()->index(0, 1));
    QTest::keyClick(tableView, Qt::Key_Down);
    QCOMPARE(tableView->currentIndex().row(), 1);
    QTest::keyClick(tableView, Qt::Key_Return);
    QCOMPARE(compared, view.tableModel()->record(1));
    QTest::keyClick(tableView, Qt::Key_I, Qt::ControlModifier);
    QTRY_VERIFY(view.inspector()->isVisible());
    tableView->setFocus();
    QTest::keyClick(tableView, Qt::Key_Tab);
    QTRY_VERIFY(!tableView->hasFocus());

    // The filter button says when a filter hides rows.
    auto *filter = view.toolbar()->findChild<QToolButton *>(u"historyFilter"_s);
    QCOMPARE(filter->property("active").toBool(), false);
    model.setHistoryStatusFilter(HistoryStatusFilter::FailedOnly);
    QCOMPARE(filter->property("active").toBool(), true);
}

void HistoryViewTest::revealPrefersTheDeliveredFile()
{
    const QString out = m_files.filePath(u"out/A_hdr.jpg"_s);
    const QString jpg = m_files.filePath(u"cam/A.JPG"_s);
    QVERIFY(writeCameraJpeg(out, Qt::red, Qt::blue));
    QVERIFY(writeCameraJpeg(jpg, Qt::red, Qt::blue));
    AppViewModel model;
    HistoryView view(model);
    QSignalSpy revealed(&view, &HistoryView::fileRevealed);
    PhotoRecord record { .fingerprint = u"a"_s,
                         .stem = u"A"_s,
                         .jpgPath = jpg,
                         .outputPath = out,
                         .status = u"SUCCESS"_s };
    QCOMPARE(view.revealRecord(record), out);
    QCOMPARE(revealed.size(), 1);
    QCOMPARE(view.activeDialogKind(), HistoryView::DialogKind::None);
}

void HistoryViewTest::revealFallsBackToTheJpegWhenTheOutputIsGone()
{
    const QString jpg = m_files.filePath(u"cam/B.JPG"_s);
    QVERIFY(writeCameraJpeg(jpg, Qt::green, Qt::blue));
    AppViewModel model;
    HistoryView view(model);
    QSignalSpy revealed(&view, &HistoryView::fileRevealed);
    PhotoRecord record { .fingerprint = u"b"_s,
                         .stem = u"B"_s,
                         .jpgPath = jpg,
                         .outputPath = m_files.filePath(u"out/B_gone.jpg"_s),
                         .status = u"SUCCESS"_s };
    QCOMPARE(view.revealRecord(record), jpg);
    QCOMPARE(revealed.value(0).value(0).toString(), jpg);
    QCOMPARE(view.activeDialogKind(), HistoryView::DialogKind::None);
}

void HistoryViewTest::revealWithBothFilesGoneShowsTheMissingDialog()
{
    AppViewModel model;
    HistoryView view(model);
    QSignalSpy revealed(&view, &HistoryView::fileRevealed);
    PhotoRecord record { .fingerprint = u"c"_s,
                         .stem = u"DSC09999"_s,
                         .jpgPath = u""_s,
                         .outputPath = m_files.filePath(u"out/DSC09999_hdr.jpg"_s),
                         .status = u"SUCCESS"_s };
    QVERIFY(view.revealRecord(record).isNull());
    QCOMPARE(revealed.size(), 0);
    QCOMPARE(view.activeDialogKind(), HistoryView::DialogKind::FileMissing);
    QVERIFY(view.activeDialog()->informativeText().contains(u"[DSC09999_hdr.jpg]"_s));
    QCOMPARE(view.activeDialog()->text(), model.t("dialog_file_missing_title"));
    // Its one button closes it.
    view.activeDialog()->buttons().first()->click();
    QTRY_COMPARE(view.activeDialogKind(), HistoryView::DialogKind::None);
}

void HistoryViewTest::emptyBusyAndNoMatchShowDifferentMessages()
{
    {
        AppViewModel model;
        HistoryView view(model);
        settleHistory();
        QVERIFY(view.isShowingEmptyState());
        QCOMPARE(view.emptyStateText(), u"No processing history found"_s);
    }
    auto db = freshDatabase(); // SQLite's default rollback journal
    db->insertNumbered(12);
    {
        // Another program's write lock: the history says it is busy, not
        // empty, and tries again on its own until the lock is gone.
        QVERIFY(db->exec(u"BEGIN EXCLUSIVE"_s));
        AppViewModel model;
        HistoryView view(model);
        QTRY_COMPARE_WITH_TIMEOUT(view.emptyStateText(), u"History is busy, retrying…"_s, 20000);
        QVERIFY(db->exec(u"COMMIT"_s));
        QTRY_COMPARE_WITH_TIMEOUT(view.tableModel()->rowCount(), 12, 20000);
        QVERIFY(!view.isShowingEmptyState());
        // Rows already shown stay while a refresh meets the lock.
        QVERIFY(db->exec(u"BEGIN EXCLUSIVE"_s));
        model.refreshHistory();
        QTRY_VERIFY_WITH_TIMEOUT(model.isHistoryBusy(), 20000);
        QCOMPARE(view.tableModel()->rowCount(), 12);
        QCOMPARE(view.footerText(), u"History is busy, retrying…"_s);
        QVERIFY(db->exec(u"COMMIT"_s));
        QTRY_VERIFY_WITH_TIMEOUT(!model.isHistoryBusy(), 20000);
        QVERIFY(view.footerText() != u"History is busy, retrying…"_s);
    }
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 12);
    QVERIFY(!view.isShowingEmptyState());
    QTest::keyClicks(view.toolbar()->searchField(), u"ZZZ"_s);
    QTRY_VERIFY(view.isShowingEmptyState());
    QCOMPARE(view.emptyStateText(), u"No photos match the current filter"_s);
    view.toolbar()->searchField()->clear();
    QTRY_COMPARE(view.tableModel()->rowCount(), 12);
    model.setHistoryStatusFilter(HistoryStatusFilter::FailedOnly);
    QTRY_VERIFY(view.isShowingEmptyState());
    QCOMPARE(view.emptyStateText(), u"No photos match the current filter"_s);
}

void HistoryViewTest::deleteAsksFirstAndRemovesOnlyOnConfirmation()
{
    freshDatabase()->insertNumbered(20);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 20);
    model.toggleRecordSelection(view.tableModel()->record(0).id());
    model.toggleRecordSelection(view.tableModel()->record(1).id());
    auto *remove = view.findChild<QToolButton *>(u"historyDelete"_s);
    QVERIFY(remove->isVisible());
    QTest::mouseClick(remove, Qt::LeftButton);
    QCOMPARE(view.activeDialogKind(), HistoryView::DialogKind::ConfirmDelete);
    QCOMPARE(view.activeDialog()->text(), u"Delete 2 records from the history?"_s);
    view.activeDialog()->reject();
    settleHistory();
    QCOMPARE(model.totalFilteredCount(), 20);
    QCOMPARE(model.selectedRecordIds().size(), 2);

    view.confirmDelete();
    QMessageBox *box = view.activeDialog();
    QPushButton *accept = nullptr;
    for (QAbstractButton *button : box->buttons()) {
        if (box->buttonRole(button) == QMessageBox::AcceptRole)
            accept = qobject_cast<QPushButton *>(button);
    }
    QVERIFY(accept);
    accept->click();
    QTRY_COMPARE(model.totalFilteredCount(), 18);
    QTRY_COMPARE(view.tableModel()->rowCount(), 18);
    QVERIFY(model.selectedRecordIds().isEmpty());
}

void HistoryViewTest::failedRowsOfferErrorDetailsAndCompareNeedsAnOpener()
{
    AppViewModel model;
    HistoryView view(model);
    const PhotoRecord failed { .fingerprint = u"f"_s,
                               .stem = u"F"_s,
                               .status = u"FAILED"_s,
                               .errorMessage = u"libraw: corrupt data near offset 0x3f2"_s };
    const PhotoRecord good { .fingerprint = u"g"_s, .stem = u"G"_s, .status = u"SUCCESS"_s };
    QCOMPARE(rowActions(failed, true),
             (QList<RowAction> { RowAction::Inspector, RowAction::QuickLook, RowAction::Reveal,
                                 RowAction::Share, RowAction::ViewError }));
    QCOMPARE(rowActions(good, false),
             (QList<RowAction> { RowAction::Inspector, RowAction::QuickLook, RowAction::Reveal,
                                 RowAction::Share }));
    QCOMPARE(rowActions(good, true).first(), RowAction::Compare);

    std::unique_ptr<QMenu> menu(view.buildContextMenu(failed, &view));
    QStringList texts;
    for (QAction *action : menu->actions())
        texts << action->text();
    QCOMPARE(texts.size(), 5);
    QVERIFY(texts.contains(u"View Error Details"_s));
    QVERIFY(!texts.contains(u"HDR Split Compare"_s));
    menu->actions().last()->trigger();
    QCOMPARE(view.activeDialogKind(), HistoryView::DialogKind::QuarantineError);
    QCOMPARE(view.activeDialog()->text(), u"Quarantine Error Details"_s);
    QCOMPARE(view.activeDialog()->informativeText(), *failed.errorMessage);
}

void HistoryViewTest::compareHandsTheRecordAndTheLoadedList()
{
    freshDatabase()->insertNumbered(5);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 5);
    PhotoRecord opened;
    QList<PhotoRecord> list;
    view.setCompareOpener([&](const PhotoRecord &record, const QList<PhotoRecord> &all) {
        opened = record;
        list = all;
    });
    const PhotoRecord second = view.tableModel()->record(1);
    std::unique_ptr<QMenu> menu(view.buildContextMenu(second, &view));
    QCOMPARE(menu->actions().first()->text(), u"HDR Split Compare"_s);
    menu->actions().first()->trigger();
    QCOMPARE(opened, second);
    QCOMPARE(list, model.historyRecords());
}

void HistoryViewTest::compareCountsTheWholeHistoryAndPagesOn()
{
    freshDatabase()->insertNumbered(100);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 80);
    const QList<PhotoRecord> loaded = model.historyRecords();
    HDRCompareView compare(model, loaded.last(), loaded, nullptr);
    auto *position = compare.findChild<QLabel *>(u"positionLabel"_s);
    QTRY_COMPARE(position->text(), u"80 / 100"_s);
    compare.showNextPhoto(); // past the loaded page: the next one is fetched
    QTRY_COMPARE(position->text(), u"81 / 100"_s);
    QCOMPARE(compare.currentIndex(), 80);
}

void HistoryViewTest::spaceOpensAndClosesTheQuickPreview()
{
    const QString out = m_files.filePath(u"out/Q_hdr.jpg"_s);
    QVERIFY(writeCameraJpeg(out, Qt::yellow, Qt::darkBlue, 1200, 800));
    auto db = freshDatabase();
    db->insert({ .fingerprint = u"q"_s, .stem = u"Q"_s, .outputPath = out });
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 1);
    QTableView *table = view.tableView();
    table->setFocus();
    table->setCurrentIndex(view.tableModel()->index(0, 1));
    QTest::keyClick(table, Qt::Key_Space);
    QuickPreviewWindow *preview = view.quickPreview();
    QVERIFY(preview);
    QVERIFY(preview->isVisible());
    QCOMPARE(preview->path(), out);
    QTRY_VERIFY(preview->hasImage());
    QVERIFY(qAbs(preview->imageSize().width() * 2 - preview->imageSize().height() * 3)
            <= 3); // 3:2 kept
    QTest::keyClick(preview, Qt::Key_Space);
    QTRY_VERIFY(!preview->isVisible());
}

void HistoryViewTest::rowsThatScrollAwayCancelTheirThumbnails()
{
    QSemaphore gate;
    ThumbnailManager manager([&gate](const QString &, int size) {
        gate.acquire();
        return ThumbnailResult::success(QImage(size, size / 2, QImage::Format_RGB32));
    });
    RowMediaStore store(manager);
    QSignalSpy changed(&store, &RowMediaStore::rowChanged);
    const QString file = m_files.filePath(u"cam/T.JPG"_s);
    QVERIFY(writeCameraJpeg(file, Qt::red, Qt::green));
    QList<PhotoRecord> records;
    for (int i = 0; i < 10; ++i) {
        // Distinct files: one cache entry each.
        const QString path = m_files.filePath(u"cam/T%1.JPG"_s.arg(i));
        QFile::copy(file, path);
        records.append(
            { .fingerprint = u"t%1"_s.arg(i), .stem = u"T%1"_s.arg(i), .jpgPath = path });
        QCOMPARE(store.thumbnail(records.last()).state, RowMediaStore::ThumbState::Loading);
    }
    QCOMPARE(store.pendingThumbnails(), 10);
    store.retainOnly({ u"t8"_s, u"t9"_s });
    QCOMPARE(store.pendingThumbnails(), 2);
    QCOMPARE(store.cancelledCount(), 8);
    gate.release(10);
    QTRY_COMPARE(changed.size(), 2);
    QTRY_COMPARE(store.pendingThumbnails(), 0);
    QCOMPARE(store.thumbnail(records[9]).state, RowMediaStore::ThumbState::Image);
    QCOMPARE(store.thumbnail(records[9]).image.width(), RowMediaStore::RowThumbnailPixels);
    // The loader skipped at least some of the cancelled files (one may have
    // been under way already).
    QVERIFY(manager.decodeCount() <= 3);
    QCOMPARE(ThumbnailManager::pixelSizeForView(QSizeF(38, 22)), RowMediaStore::RowThumbnailPixels);

    // Reprocessed in place: a new record and a rewritten file load a new picture.
    QFile output(*records[9].jpgPath);
    QVERIFY(output.open(QIODevice::Append) && output.write("more") == 4);
    output.close();
    PhotoRecord again = records[9];
    again.processedAt = u"2026-11-25 08:00:00"_s;
    QCOMPARE(store.thumbnail(again).state, RowMediaStore::ThumbState::Loading);
    gate.release(1);
    QTRY_COMPARE(store.thumbnail(again).state, RowMediaStore::ThumbState::Image);
}

void HistoryViewTest::rowCellsUseTheRecordFormats()
{
    const PhotoRecord record { .fingerprint = u"x"_s,
                               .stem = u"X"_s,
                               .status = u"SUCCESS"_s,
                               .peakStops = 2.5,
                               .numFaces = 3,
                               .rawClipPct = 0.126,
                               .durationSec = 6.8 };
    QCOMPARE(recordCellText(record, ListColumn::PeakStops), u"2.50"_s);
    QCOMPARE(recordCellText(record, ListColumn::Duration), u"6.80"_s);
    QCOMPARE(recordCellText(record, ListColumn::BayerClip), u"0.13%"_s);
    QCOMPARE(recordCellText(record, ListColumn::Faces), u"3"_s);
    QCOMPARE(recordCellText(PhotoRecord {}, ListColumn::Faces), u"—"_s);
    QVERIFY(recordCellText(record, ListColumn::Exposure).isNull()); // from the metadata
    QCOMPARE(peakLabel(2.5), u"+2.50st (1600nits)"_s);
}

void HistoryViewTest::clickingTheRowBoxTogglesItsSelectionAndRepaintsTheRow()
{
    freshDatabase()->insertNumbered(5);
    AppViewModel model;
    HistoryView view(model);
    showAndWait(view, 5);
    HistoryTableModel *table = view.tableModel();
    QSignalSpy changed(table, &QAbstractItemModel::dataChanged);
    const QRect box = view.tableView()->visualRect(table->index(2, 0));
    QTest::mouseClick(view.tableView()->viewport(), Qt::LeftButton, {}, box.center());
    QCOMPARE(model.selectedRecordIds(), QSet<QString> { table->record(2).id() });
    QVERIFY(!changed.isEmpty());
    // The whole row shows the selection, not only the box.
    QCOMPARE(changed.last().at(1).toModelIndex().column(), table->columnCount() - 1);
    QVERIFY(table->index(2, 3).data(HistoryTableModel::SelectedRole).toBool());
    QTest::mouseClick(view.tableView()->viewport(), Qt::LeftButton, {}, box.center());
    QVERIFY(model.selectedRecordIds().isEmpty());
}

void HistoryViewTest::hoverButtonsTriggerTheirRowAction()
{
    freshDatabase()->insertNumbered(5);
    AppViewModel model;
    HistoryView view(model);
    PhotoRecord compared;
    view.setCompareOpener(
        [&](const PhotoRecord &record, const QList<PhotoRecord> &) { compared = record; });
    showAndWait(view, 5);
    QTableView *tableView = view.tableView();
    HistoryTableModel *table = view.tableModel();
    auto *delegate = qobject_cast<HistoryRowDelegate *>(tableView->itemDelegate());
    QVERIFY(delegate);
    QCOMPARE(table->record(1).status, u"SUCCESS"_s);
    const QRect actions = tableView->visualRect(table->index(1, table->columnCount() - 1));
    const auto resting = delegate->targets(actions, table->record(1), false);
    QCOMPARE(resting.size(), 1);
    QVERIFY(resting[0].pill && actions.contains(resting[0].rect));

    // Hovering leaves the pill where the user aimed, with every button beside it.
    QTest::mouseMove(tableView->viewport(), resting[0].rect.center());
    QTRY_COMPARE(delegate->hoveredRow(), 1);
    const auto hovered = delegate->targets(actions, table->record(1), true);
    QCOMPARE(hovered.size(), rowActions(table->record(1), true).size());
    for (const auto &target : hovered) {
        QVERIFY(actions.contains(target.rect));
        for (const auto &other : hovered)
            QVERIFY(&target == &other || !target.rect.intersects(other.rect));
    }
    QTest::mouseClick(tableView->viewport(), Qt::LeftButton, {}, resting[0].rect.center());
    QCOMPARE(compared, table->record(1));

    const auto inspector = std::find_if(hovered.begin(), hovered.end(), [](const auto &t) {
        return t.action == RowAction::Inspector;
    });
    QTest::mouseClick(tableView->viewport(), Qt::LeftButton, {}, inspector->rect.center());
    QTRY_VERIFY(view.inspector()->isVisible());
    QCOMPARE(view.inspector()->record(), table->record(1));
}

ORVANTA_TEST_WIDGETS_MAIN(HistoryViewTest)
#include "tst_historyview.moc"
