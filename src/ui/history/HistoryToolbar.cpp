// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HistoryToolbar.h"

#include "core/AppViewModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>
#include <QToolButton>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QToolButton *makeButton(QWidget *parent, const QString &objectName, const QString &symbol,
                        const QColor &tint = theme::kTextPrimary)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(objectName);
    button->setIcon(icons::icon(symbol, tint));
    button->setIconSize(QSize(16, 16));
    return button;
}

const char *filterKey(HistoryStatusFilter filter)
{
    switch (filter) {
    case HistoryStatusFilter::All:
        return "filter_all";
    case HistoryStatusFilter::SuccessOnly:
        return "filter_success";
    case HistoryStatusFilter::FailedOnly:
        return "filter_failed";
    }
    return "filter_all";
}

const char *sortKey(HistorySortField field)
{
    switch (field) {
    case HistorySortField::Date:
        return "sort_date";
    case HistorySortField::PeakStops:
        return "sort_peak_stops";
    case HistorySortField::Faces:
        return "sort_faces";
    case HistorySortField::Duration:
        return "sort_duration";
    case HistorySortField::Stem:
        return "sort_name";
    }
    return "sort_date";
}

} // namespace

HistoryToolbar::HistoryToolbar(AppViewModel &model, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 8);
    layout->setSpacing(8);

    m_selectAll = makeButton(this, u"historySelectAll"_s, u"square"_s);
    m_selectAll->setProperty("flat", true);
    connect(m_selectAll, &QToolButton::clicked, this, &HistoryToolbar::toggleSelectAll);
    m_count = new QLabel(this);
    m_count->setObjectName(u"historySelectionCount"_s);
    m_count->setProperty("role", u"secondary"_s);
    m_reprocess = makeButton(this, u"historyReprocess"_s, u"arrow.clockwise"_s);
    m_reprocess->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(m_reprocess, &QToolButton::clicked, &m_model, &AppViewModel::reprocessSelectedRecords);
    m_delete = makeButton(this, u"historyDelete"_s, u"trash"_s, theme::kRed);
    m_delete->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(m_delete, &QToolButton::clicked, this, &HistoryToolbar::deleteRequested);

    m_search = new QLineEdit(this);
    m_search->setObjectName(u"historySearch"_s);
    m_search->setMinimumWidth(180);
    m_search->addAction(icons::icon(u"magnifyingglass"_s, theme::kTextSecondary),
                        QLineEdit::LeadingPosition);
    m_clearSearch = m_search->addAction(icons::icon(u"xmark.circle.fill"_s, theme::kTextSecondary),
                                        QLineEdit::TrailingPosition);
    m_clearSearch->setObjectName(u"historySearchClear"_s);
    connect(m_clearSearch, &QAction::triggered, m_search, &QLineEdit::clear);
    m_search->setText(m_model.historySearchText());
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &text) {
        m_clearSearch->setVisible(!text.isEmpty());
        m_model.setHistorySearchText(text);
    });
    m_clearSearch->setVisible(!m_search->text().isEmpty());

    m_filter = makeButton(this, u"historyFilter"_s, u"line.3.horizontal.decrease.circle"_s);
    m_sort = makeButton(this, u"historySort"_s, u"arrow.up.arrow.down"_s);
    m_columns = makeButton(this, u"historyColumns"_s, u"tablecells.badge.ellipsis"_s);
    m_columns->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    buildMenus();

    layout->addWidget(m_selectAll);
    layout->addWidget(m_count);
    layout->addWidget(m_reprocess);
    layout->addWidget(m_delete);
    layout->addSpacing(4);
    layout->addWidget(m_search, 1);
    layout->addWidget(m_filter);
    layout->addWidget(m_sort);
    layout->addWidget(m_columns);

    connect(&m_model, &AppViewModel::selectedRecordIdsChanged, this,
            &HistoryToolbar::updateSelection);
    connect(&m_model, &AppViewModel::historyRecordsChanged, this, &HistoryToolbar::updateSelection);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &HistoryToolbar::updateTexts);
    connect(&m_model, &AppViewModel::historyStatusFilterChanged, this,
            &HistoryToolbar::updateFilterMark);
    connect(&m_model, &AppViewModel::historySearchTextChanged, this, [this] {
        if (m_search->text() != m_model.historySearchText())
            m_search->setText(m_model.historySearchText());
    });
    updateTexts();
    updateFilterMark();
}

// A filter that hides rows must be visible at a glance: the button looks
// pressed and its symbol fills while one is on.
void HistoryToolbar::updateFilterMark()
{
    const bool active = m_model.historyStatusFilter() != HistoryStatusFilter::All;
    m_filter->setProperty("active", active);
    m_filter->style()->unpolish(m_filter);
    m_filter->style()->polish(m_filter);
    m_filter->setIcon(icons::icon(u"line.3.horizontal.decrease.circle"_s,
                                  active ? theme::kAccent : theme::kTextPrimary));
}

HistoryToolbar::SelectAllState HistoryToolbar::selectAllState() const
{
    const qsizetype selected = m_model.selectedRecordIds().size();
    const qsizetype loaded = m_model.historyRecords().size();
    // Compared with the loaded list, not with every matching row: the bulk
    // actions only ever see what is loaded.
    if (loaded > 0 && selected == loaded)
        return SelectAllState::All;
    return selected > 0 ? SelectAllState::Some : SelectAllState::None;
}

void HistoryToolbar::toggleSelectAll()
{
    if (selectAllState() == SelectAllState::All)
        m_model.deselectAllRecords();
    else
        m_model.selectAllRecords();
}

void HistoryToolbar::buildMenus()
{
    m_filterMenu = new QMenu(this);
    m_filterMenu->setObjectName(u"historyFilterMenu"_s);
    connect(m_filterMenu, &QMenu::aboutToShow, this, &HistoryToolbar::fillFilterMenu);
    m_filter->setMenu(m_filterMenu);
    m_filter->setPopupMode(QToolButton::InstantPopup);
    m_sortMenu = new QMenu(this);
    m_sortMenu->setObjectName(u"historySortMenu"_s);
    connect(m_sortMenu, &QMenu::aboutToShow, this, &HistoryToolbar::fillSortMenu);
    m_sort->setMenu(m_sortMenu);
    m_sort->setPopupMode(QToolButton::InstantPopup);
    m_columnMenu = new QMenu(this);
    m_columnMenu->setObjectName(u"historyColumnMenu"_s);
    connect(m_columnMenu, &QMenu::aboutToShow, this, &HistoryToolbar::fillColumnMenu);
    m_columns->setMenu(m_columnMenu);
    m_columns->setPopupMode(QToolButton::InstantPopup);
    // Filled now too, so the entries exist before the first opening.
    fillFilterMenu();
    fillSortMenu();
    fillColumnMenu();
}

// The menus are rebuilt from the model each time they open, so a check mark
// always shows the model's value (a refused toggle stays checked).
void HistoryToolbar::fillFilterMenu()
{
    m_filterMenu->clear();
    auto *group = new QActionGroup(m_filterMenu);
    for (HistoryStatusFilter filter : allHistoryStatusFilters()) {
        QAction *action = m_filterMenu->addAction(theme::literal(m_model.t(filterKey(filter))));
        action->setCheckable(true);
        action->setChecked(filter == m_model.historyStatusFilter());
        action->setData(rawValue(filter));
        group->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, filter] { m_model.setHistoryStatusFilter(filter); });
    }
}

void HistoryToolbar::fillSortMenu()
{
    m_sortMenu->clear();
    auto *fields = new QActionGroup(m_sortMenu);
    for (HistorySortField field : allHistorySortFields()) {
        QAction *action = m_sortMenu->addAction(theme::literal(m_model.t(sortKey(field))));
        action->setCheckable(true);
        action->setChecked(field == m_model.historySortField());
        action->setData(rawValue(field));
        fields->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, field] { m_model.setHistorySortField(field); });
    }
    m_sortMenu->addSeparator();
    auto *direction = new QActionGroup(m_sortMenu);
    for (bool ascending : { true, false }) {
        QAction *action = m_sortMenu->addAction(
            theme::literal(m_model.t(ascending ? "sort_asc" : "sort_desc")));
        action->setCheckable(true);
        action->setChecked(ascending == m_model.historySortAscending());
        action->setData(ascending ? u"asc"_s : u"desc"_s);
        direction->addAction(action);
        connect(action, &QAction::triggered, this,
                [this, ascending] { m_model.setHistorySortAscending(ascending); });
    }
}

void HistoryToolbar::fillColumnMenu()
{
    m_columnMenu->clear();
    const ListColumnSet visible = m_model.visibleColumns();
    for (ListColumn column : allListColumns()) {
        QAction *action = m_columnMenu->addAction(theme::literal(m_model.t(titleKey(column))));
        action->setCheckable(true);
        action->setChecked(visible.contains(column));
        action->setData(rawValue(column));
        connect(action, &QAction::triggered, this, [this, column, action] {
            m_model.toggleColumnVisibility(column);
            action->setChecked(m_model.visibleColumns().contains(column));
        });
    }
}

void HistoryToolbar::updateSelection()
{
    const SelectAllState state = selectAllState();
    const bool any = state != SelectAllState::None;
    m_selectAll->setIcon(icons::icon(state == SelectAllState::All ? u"checkmark.square.fill"_s
                                         : any                    ? u"minus.square.fill"_s
                                                                  : u"square"_s,
                                     any ? theme::kAccent : theme::kTextSecondary));
    m_count->setText(
        m_model.t("batch_selected_count", { qint64(m_model.selectedRecordIds().size()) }));
    m_count->setVisible(any);
    m_reprocess->setVisible(any);
    m_delete->setVisible(any);
}

void HistoryToolbar::updateTexts()
{
    m_search->setPlaceholderText(m_model.t("history_search_placeholder"));
    m_filter->setToolTip(m_model.t("filter_tooltip"));
    m_sort->setToolTip(m_model.t("sort_tooltip"));
    m_columns->setText(theme::literal(m_model.t("btn_custom_columns")));
    m_reprocess->setText(theme::literal(m_model.t("btn_batch_reprocess")));
    m_delete->setText(theme::literal(m_model.t("btn_batch_delete")));
    fillFilterMenu();
    fillSortMenu();
    fillColumnMenu();
    updateSelection();
}

} // namespace orvanta
