// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HistoryView.h"

#include "core/AppViewModel.h"
#include "media/ProPhotoMetadata.h"
#include "platform/FileManager.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/history/HistoryColumnLayout.h"
#include "ui/history/HistoryRowDelegate.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryToolbar.h"
#include "ui/history/InspectorView.h"
#include "ui/history/QuickPreviewWindow.h"
#include "ui/history/RowMediaStore.h"
#include "ui/history/ShareMenu.h"

#include <QDBusConnection>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

int optionalColumnWidth(ListColumn column)
{
    switch (column) {
    case ListColumn::PeakStops:
        return 84;
    case ListColumn::Exposure:
        return 120;
    case ListColumn::CameraLens:
        return 176;
    case ListColumn::Faces:
        return 64;
    case ListColumn::BayerClip:
        return 90;
    case ListColumn::Duration:
        return 80;
    case ListColumn::FileSize:
        return 90;
    case ListColumn::Date:
        return 150;
    }
    return 90;
}

} // namespace

HistoryView::HistoryView(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    setObjectName(u"historyView"_s);
    m_media = new RowMediaStore(ThumbnailManager::shared(), this);
    m_fileManager = new FileManager(QDBusConnection::sessionBus(), this);
    m_toolbar = new HistoryToolbar(model, this);
    connect(m_toolbar, &HistoryToolbar::deleteRequested, this, &HistoryView::confirmDelete);

    auto *main = new QWidget(this);
    auto *mainLayout = new QVBoxLayout(main);
    mainLayout->setContentsMargins(0, 0, 0, 0);
    mainLayout->setSpacing(0);
    mainLayout->addWidget(m_toolbar);
    auto *divider = new QFrame(main);
    divider->setProperty("role", u"divider"_s);
    mainLayout->addWidget(divider);
    m_stack = new QStackedWidget(main);
    m_stack->addWidget(buildTablePage());
    m_stack->addWidget(buildEmptyPage());
    mainLayout->addWidget(m_stack, 1);
    mainLayout->addWidget(buildFooter());

    m_inspectorPanel = new QScrollArea(this);
    auto *scroll = static_cast<QScrollArea *>(m_inspectorPanel);
    scroll->setObjectName(u"historyInspectorPanel"_s);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_inspector = new InspectorView(model, scroll);
    // Squeezed to the panel's width rather than clipped: its texts wrap.
    m_inspector->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    scroll->setWidget(m_inspector);
    scroll->setMinimumWidth(360);
    scroll->hide();
    connect(m_inspector, &InspectorView::closeRequested, this, &HistoryView::closeInspector);

    m_splitter = new QSplitter(Qt::Horizontal, this);
    m_splitter->addWidget(main);
    m_splitter->addWidget(scroll);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setChildrenCollapsible(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_splitter);

    connect(&m_model, &AppViewModel::historyRecordsChanged, this, &HistoryView::updateEmptyState);
    connect(&m_model, &AppViewModel::historyRecordsChanged, this, &HistoryView::updateFooter);
    connect(&m_model, &AppViewModel::isLoadingMoreChanged, this, &HistoryView::updateFooter);
    connect(&m_model, &AppViewModel::hasMoreHistoryChanged, this, &HistoryView::updateFooter);
    connect(&m_model, &AppViewModel::isHistoryBusyChanged, this, &HistoryView::updateEmptyState);
    connect(&m_model, &AppViewModel::isHistoryBusyChanged, this, &HistoryView::updateFooter);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, [this] {
        applyColumnWidths();
        updateEmptyState();
        updateFooter();
    });
    updateEmptyState();
    updateFooter();
}

HistoryView::~HistoryView()
{
    if (m_preview)
        delete m_preview.data();
}

QWidget *HistoryView::buildTablePage()
{
    m_tableModel = new HistoryTableModel(m_model, this);
    m_delegate = new HistoryRowDelegate(m_model, *m_tableModel, *m_media, this);
    m_table = new QTableView(this);
    m_table->setObjectName(u"historyTable"_s);
    m_table->setModel(m_tableModel);
    new HistoryScrollAnchor(m_table, m_tableModel);
    m_table->setItemDelegate(m_delegate);
    m_table->setShowGrid(false);
    m_table->setSelectionMode(QAbstractItemView::NoSelection);
    m_table->setFocusPolicy(Qt::StrongFocus);
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setMouseTracking(true);
    m_table->setContextMenuPolicy(Qt::CustomContextMenu);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(HistoryRowDelegate::RowHeight);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(false);
    m_table->horizontalHeader()->setSectionsClickable(true);
    m_table->horizontalHeader()->setSortIndicatorShown(true);
    // Tab leaves the table for the next control; the arrows move inside it.
    m_table->setTabKeyNavigation(false);
    setFocusProxy(m_table);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->setStyleSheet(
        u"QTableView { background: %1; border: 1px solid transparent; }"
        "QTableView:focus { border-color: %5; }"
        "QHeaderView::section { background: %2; color: %3; border: none;"
        " border-bottom: 1px solid %4; padding: 4px 6px; font-size: 8pt; font-weight: 600; }"_s.arg(
            theme::css(theme::kWindow), theme::css(theme::kSurface),
            theme::css(theme::kTextSecondary), theme::css(theme::kBorder),
            theme::css(theme::kFocusRing)));
    m_table->viewport()->installEventFilter(this);
    m_table->installEventFilter(this);

    connect(m_delegate, &HistoryRowDelegate::selectionToggled, &m_model,
            &AppViewModel::toggleRecordSelection);
    connect(m_delegate, &HistoryRowDelegate::actionTriggered, this, &HistoryView::triggerAction);
    connect(m_media, &RowMediaStore::rowChanged, m_tableModel, &HistoryTableModel::refreshRow);
    connect(m_tableModel, &QAbstractItemModel::modelReset, this, &HistoryView::applyColumnWidths);
    connect(m_tableModel, &QAbstractItemModel::modelReset, this, &HistoryView::updateSortIndicator);
    connect(m_table->horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int section, int, int size) { columnResizedByUser(section, size); });
    connect(m_table->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &HistoryView::sortBySection);
    connect(&m_model, &AppViewModel::historySortFieldChanged, this,
            &HistoryView::updateSortIndicator);
    connect(&m_model, &AppViewModel::historySortAscendingChanged, this,
            &HistoryView::updateSortIndicator);
    // A new list (a refresh, often after a photo finished) may point at files
    // that did not exist before: ask again. The thumbnail cache makes it cheap.
    connect(m_tableModel, &QAbstractItemModel::modelReset, m_media, &RowMediaStore::clear);
    connect(m_tableModel, &QAbstractItemModel::modelReset, this,
            &HistoryView::scheduleVisibleRowsCheck);
    connect(m_tableModel, &HistoryTableModel::recordsSynced, this,
            &HistoryView::scheduleVisibleRowsCheck);
    connect(m_table->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &HistoryView::scheduleVisibleRowsCheck);
    connect(m_table, &QWidget::customContextMenuRequested, this, &HistoryView::showContextMenu);
    connect(m_table, &QAbstractItemView::doubleClicked, this, [this](const QModelIndex &index) {
        const PhotoRecord record = m_tableModel->record(index.row());
        const bool compare = m_compareOpener && record.status == u"SUCCESS"_s;
        triggerAction(compare ? RowAction::Compare : RowAction::Inspector, record);
    });
    applyColumnWidths();
    updateSortIndicator();
    return m_table;
}

QWidget *HistoryView::buildEmptyPage()
{
    auto *page = new QWidget(this);
    page->setObjectName(u"historyEmptyState"_s);
    auto *layout = new QVBoxLayout(page);
    layout->addStretch();
    m_emptyIcon = new QLabel(page);
    m_emptyIcon->setAlignment(Qt::AlignCenter);
    m_emptyIcon->setPixmap(icons::pixmap(u"tray"_s, theme::kTextTertiary, 44, devicePixelRatioF()));
    layout->addWidget(m_emptyIcon);
    m_emptyLabel = new QLabel(page);
    m_emptyLabel->setObjectName(u"historyEmptyLabel"_s);
    m_emptyLabel->setProperty("role", u"secondary"_s);
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    m_emptyLabel->setWordWrap(true);
    layout->addWidget(m_emptyLabel);
    layout->addStretch();
    return page;
}

QWidget *HistoryView::buildFooter()
{
    auto *footer = new QFrame(this);
    footer->setObjectName(u"historyFooter"_s);
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(12, 4, 12, 4);
    layout->addStretch();
    m_footerBusy = new QProgressBar(footer);
    m_footerBusy->setRange(0, 0);
    m_footerBusy->setFixedSize(48, 6);
    m_footerBusy->setTextVisible(false);
    layout->addWidget(m_footerBusy);
    m_footerLabel = new QLabel(footer);
    m_footerLabel->setObjectName(u"historyFooterLabel"_s);
    m_footerLabel->setProperty("role", u"tertiary"_s);
    QFont small = m_footerLabel->font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    m_footerLabel->setFont(small);
    layout->addWidget(m_footerLabel);
    layout->addStretch();
    footer->setFixedHeight(26);
    return footer;
}

void HistoryView::setCompareOpener(CompareOpener opener)
{
    m_compareOpener = std::move(opener);
    m_delegate->setCanCompare(bool(m_compareOpener));
    m_table->viewport()->update();
}

// Widths suit the content but never cut a title or a status word: German
// and French run much longer than English. The name takes what is left, but
// never less than a camera stem; columns that do not fit step aside.
void HistoryView::applyColumnWidths()
{
    QFont titleFont = m_table->font();
    titleFont.setPointSizeF(8);
    titleFont.setWeight(QFont::DemiBold);
    const QFontMetrics titles(titleFont);
    const QFontMetrics cells(m_table->font());
    QFont bold = m_table->font();
    bold.setWeight(QFont::DemiBold);
    const auto fitted = [&](int section, int width) {
        const QString title
            = m_tableModel->headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
        return qMax(width, titles.horizontalAdvance(title) + 18);
    };
    m_columnSpecs.clear();
    for (int section = 0; section < m_tableModel->columnCount(); ++section) {
        const HistoryColumn &column = m_tableModel->column(section);
        ColumnSpec sizing;
        switch (column.kind) {
        case HistoryColumn::Kind::Select:
            sizing.natural = 34;
            break;
        case HistoryColumn::Kind::Name:
            // Thumbnail, gap, and a typical stem in the row's bold face: camera
            // stems run to eight characters ("DSC04223"), phones and renamed
            // files to a dozen ("IMG_20240506", "SAMPLE_0012").
            sizing.natural = fitted(
                section, 54 + QFontMetrics(bold).horizontalAdvance(u"IMG_20240506"_s) + 16);
            sizing.fills = true;
            break;
        case HistoryColumn::Kind::Status:
            sizing.natural = fitted(section,
                                    qMax(cells.horizontalAdvance(m_model.t("history_row_success")),
                                         cells.horizontalAdvance(m_model.t("history_row_failed")))
                                        + 26 + 12);
            break;
        case HistoryColumn::Kind::Optional:
            sizing.natural = fitted(section, optionalColumnWidth(column.optional));
            sizing.dropRank = dropRank(column.optional);
            break;
        case HistoryColumn::Kind::Actions:
            sizing.natural = fitted(section, m_delegate->actionsWidth());
            break;
        }
        m_columnSpecs.append(sizing);
    }
    fitColumns();
}

void HistoryView::fitColumns()
{
    if (m_columnSpecs.size() != m_tableModel->columnCount())
        return;
    QHeaderView *header = m_table->horizontalHeader();
    header->setMinimumSectionSize(24);
    const ColumnPlan plan = planColumns(m_columnSpecs, m_table->viewport()->width());
    const QScopedValueRollback<bool> fitting(m_fittingColumns, true);
    for (int section = 0; section < plan.widths.size(); ++section) {
        const HistoryColumn::Kind kind = m_tableModel->column(section).kind;
        const bool fixed
            = kind == HistoryColumn::Kind::Select || kind == HistoryColumn::Kind::Actions;
        header->setSectionResizeMode(section,
                                     fixed ? QHeaderView::Fixed : QHeaderView::Interactive);
        header->setSectionHidden(section, plan.hidden[section]);
        header->resizeSection(section, plan.widths[section]);
    }
}

// A column the user drags keeps its new width; the name gives or takes the difference.
void HistoryView::columnResizedByUser(int section, int newSize)
{
    if (m_fittingColumns || section >= m_columnSpecs.size() || m_columnSpecs[section].fills)
        return;
    m_columnSpecs[section].natural = newSize;
    QTimer::singleShot(0, this, &HistoryView::fitColumns);
}

// Clicking a title sorts by it, in step with the sort menu; clicking the
// column already sorted by turns the direction round.
void HistoryView::sortBySection(int section)
{
    const std::optional<HistorySortField> field = m_tableModel->sortFieldOf(section);
    if (!field)
        return updateSortIndicator();
    if (*field == m_model.historySortField())
        m_model.setHistorySortAscending(!m_model.historySortAscending());
    else
        m_model.setHistorySortField(*field);
}

void HistoryView::updateSortIndicator()
{
    QHeaderView *header = m_table->horizontalHeader();
    for (int section = 0; section < m_tableModel->columnCount(); ++section) {
        if (m_tableModel->sortFieldOf(section) == m_model.historySortField()) {
            header->setSortIndicator(
                section, m_model.historySortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
            return;
        }
    }
    header->setSortIndicator(-1, Qt::AscendingOrder);
}

QuickPreviewWindow *HistoryView::quickPreview() const
{
    return m_preview.data();
}

bool HistoryView::isShowingEmptyState() const
{
    return m_stack->currentIndex() == 1;
}

QString HistoryView::emptyStateText() const
{
    return isShowingEmptyState() ? m_emptyLabel->text() : QString();
}

QString HistoryView::footerText() const
{
    return m_footerLabel->text();
}

// "No match" when a search or filter is what hides every row; "busy" while
// another program keeps the database locked (nothing is known yet);
// otherwise the history is simply empty.
void HistoryView::updateEmptyState()
{
    const bool empty = m_model.historyRecords().isEmpty();
    const bool filtered = !m_model.historySearchText().isEmpty()
        || m_model.historyStatusFilter() != HistoryStatusFilter::All;
    m_emptyLabel->setText(m_model.t(m_model.isHistoryBusy() ? "history_busy"
                                        : filtered          ? "filter_no_match"
                                                            : "history_empty"));
    m_stack->setCurrentIndex(empty ? 1 : 0);
}

void HistoryView::updateFooter()
{
    const bool loading = m_model.isLoadingMore();
    // With no rows the empty page already says it is busy.
    const bool busy = m_model.isHistoryBusy() && !m_model.historyRecords().isEmpty();
    m_footerBusy->setVisible(loading || busy);
    QString text;
    if (busy)
        text = m_model.t("history_busy");
    else if (loading)
        text = m_model.t("history_loading_more");
    else if (!m_model.hasMoreHistory() && !m_model.historyRecords().isEmpty())
        text = m_model.t("history_all_loaded", { qint64(m_model.historyRecords().size()) });
    m_footerLabel->setText(text);
}

void HistoryView::scheduleVisibleRowsCheck()
{
    if (m_visibleCheckQueued)
        return;
    m_visibleCheckQueued = true;
    QTimer::singleShot(0, this, &HistoryView::retainVisibleRows);
}

// Rows that scrolled away give up their pending thumbnail and metadata
// requests, so a fast scroll only decodes what the user stops on.
void HistoryView::retainVisibleRows()
{
    m_visibleCheckQueued = false;
    const int rows = m_tableModel->rowCount();
    QSet<QString> visible;
    if (rows > 0) {
        int first = m_table->rowAt(0);
        int last = m_table->rowAt(m_table->viewport()->height() - 1);
        first = first < 0 ? 0 : first;
        last = last < 0 ? rows - 1 : last;
        for (int row = first; row <= last; ++row)
            visible.insert(m_tableModel->record(row).id());
    }
    m_media->retainOnly(visible);
}

void HistoryView::setHoveredRow(int row)
{
    const int old = m_delegate->hoveredRow();
    if (old == row)
        return;
    m_delegate->setHoveredRow(row);
    const int last = m_tableModel->columnCount() - 1;
    for (int r : { old, row }) {
        if (r >= 0 && r < m_tableModel->rowCount()) {
            const QRect rect = m_table->visualRect(m_tableModel->index(r, 0))
                                   .united(m_table->visualRect(m_tableModel->index(r, last)));
            m_table->viewport()->update(
                QRect(0, rect.top(), m_table->viewport()->width(), rect.height()));
        }
    }
}

bool HistoryView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_table->viewport()) {
        if (event->type() == QEvent::MouseMove)
            setHoveredRow(
                m_table->rowAt(static_cast<QMouseEvent *>(event)->position().toPoint().y()));
        else if (event->type() == QEvent::Leave)
            setHoveredRow(-1);
        else if (event->type() == QEvent::Resize) {
            scheduleVisibleRowsCheck();
            fitColumns();
        }
    } else if (watched == m_table && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const QModelIndex current = m_table->currentIndex();
        if (!current.isValid())
            return QWidget::eventFilter(watched, event);
        const PhotoRecord &record = m_tableModel->record(current.row());
        if (key->key() == Qt::Key_Space) {
            toggleQuickPreview(record);
            return true;
        }
        // Enter does what a double click does; Ctrl+I shows the row's details.
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            const bool compare = m_compareOpener && record.status == u"SUCCESS"_s;
            triggerAction(compare ? RowAction::Compare : RowAction::Inspector, record);
            return true;
        }
        if (key->key() == Qt::Key_I && key->modifiers() == Qt::ControlModifier) {
            triggerAction(RowAction::Inspector, record);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace orvanta
