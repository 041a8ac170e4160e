// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history operations of AppViewModel: the page belongs to HistoryBrowser;
// the model keeps the user's search, filter, sort, selection and columns.
#include "core/AppViewModel.h"

namespace orvanta {

void AppViewModel::setUpHistory()
{
    // No debounce: every keystroke in the search field asks for a refresh;
    // the browser collapses requests made while one runs.
    connect(this, &AppViewModel::historySearchTextChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historyStatusFilterChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historySortFieldChanged, this, &AppViewModel::refreshHistory);
    connect(this, &AppViewModel::historySortAscendingChanged, this, &AppViewModel::refreshHistory);
    // Cleared even when the delete failed: the rows come back with the
    // refresh that follows, unselected.
    connect(m_history.get(), &HistoryBrowser::recordsDeleted, this,
            [this] { setSelectedRecordIds({}); });
}

HistoryQuery AppViewModel::currentHistoryQuery() const
{
    return makeHistoryQuery(m_historySearchText, m_historyStatusFilter, m_historySortField,
                            m_historySortAscending);
}

void AppViewModel::refreshHistory()
{
    m_history->refresh(currentHistoryQuery());
}

void AppViewModel::loadMoreHistory()
{
    m_history->loadMore();
}

void AppViewModel::toggleRecordSelection(const QString &fingerprint)
{
    QSet<QString> selection = m_selectedRecordIds;
    if (!selection.remove(fingerprint))
        selection.insert(fingerprint);
    setSelectedRecordIds(selection);
}

// The list shown is the loaded list: all filtering is done by the query.
void AppViewModel::selectAllRecords()
{
    QSet<QString> selection;
    const QList<PhotoRecord> records = m_history->historyRecords();
    selection.reserve(records.size());
    for (const PhotoRecord &record : records)
        selection.insert(record.id());
    setSelectedRecordIds(selection);
}

void AppViewModel::deselectAllRecords()
{
    setSelectedRecordIds({});
}

// At least one column always stays visible.
void AppViewModel::toggleColumnVisibility(ListColumn column)
{
    ListColumnSet columns = m_visibleColumns;
    if (columns.contains(column)) {
        if (columns.size() < 2)
            return;
        columns.removeAll(column);
    } else {
        columns << column;
    }
    setVisibleColumns(columns);
}

// Removes history rows only: no source, JPG or output file is touched.
void AppViewModel::deleteSelectedRecords()
{
    m_history->deleteRecords(m_selectedRecordIds.values());
}

} // namespace orvanta
