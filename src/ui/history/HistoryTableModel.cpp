// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/history/HistoryTableModel.h"

#include "core/AppViewModel.h"
#include "i18n/FormatArgs.h"
#include "media/ProPhotoMetadata.h"

#include <QAbstractItemView>
#include <QScrollBar>

namespace orvanta {

using namespace Qt::StringLiterals;

QString recordCellText(const PhotoRecord &record, ListColumn column)
{
    const QString none = missingValuePlaceholder();
    switch (column) {
    case ListColumn::PeakStops:
        return record.peakStops ? formatPrintf(u"%.2f"_s, { *record.peakStops }) : none;
    case ListColumn::Duration:
        return record.durationSec ? formatPrintf(u"%.2f"_s, { *record.durationSec }) : none;
    case ListColumn::BayerClip:
        return record.rawClipPct ? formatPrintf(u"%.2f%%"_s, { *record.rawClipPct }) : none;
    case ListColumn::Faces:
        return record.numFaces ? formatPrintf(u"%lld"_s, { *record.numFaces }) : none;
    case ListColumn::Exposure:
    case ListColumn::CameraLens:
    case ListColumn::FileSize:
    case ListColumn::Date:
        break;
    }
    return {};
}

QString peakLabel(double peakStops)
{
    return formatPrintf(u"+%.2fst (1600nits)"_s, { peakStops });
}

HistoryTableModel::HistoryTableModel(AppViewModel &model, QObject *parent)
    : QAbstractTableModel(parent)
    , m_model(model)
{
    syncColumns();
    m_records = m_model.historyRecords();
    reindex(0);
    connect(&m_model, &AppViewModel::historyRecordsChanged, this, &HistoryTableModel::syncRecords);
    connect(&m_model, &AppViewModel::visibleColumnsChanged, this, &HistoryTableModel::syncColumns);
    connect(&m_model, &AppViewModel::selectedRecordIdsChanged, this,
            &HistoryTableModel::syncSelection);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, [this] {
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
        if (rowCount() > 0)
            Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    });
}

int HistoryTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_records.size());
}

int HistoryTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

int HistoryTableModel::sectionOf(HistoryColumn::Kind kind) const
{
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].kind == kind)
            return i;
    }
    return -1;
}

std::optional<HistorySortField> HistoryTableModel::sortFieldOf(int section) const
{
    if (section < 0 || section >= m_columns.size())
        return std::nullopt;
    const HistoryColumn &column = m_columns[section];
    if (column.kind == HistoryColumn::Kind::Name)
        return HistorySortField::Stem;
    if (column.kind != HistoryColumn::Kind::Optional)
        return std::nullopt;
    switch (column.optional) {
    case ListColumn::PeakStops:
        return HistorySortField::PeakStops;
    case ListColumn::Faces:
        return HistorySortField::Faces;
    case ListColumn::Duration:
        return HistorySortField::Duration;
    case ListColumn::Date:
        return HistorySortField::Date;
    default:
        return std::nullopt;
    }
}

QString HistoryTableModel::cellText(const PhotoRecord &record, const HistoryColumn &column) const
{
    switch (column.kind) {
    case HistoryColumn::Kind::Name:
        return record.stem;
    case HistoryColumn::Kind::Status:
        return m_model.t(record.status == u"SUCCESS"_s ? "filter_success" : "filter_failed");
    case HistoryColumn::Kind::Optional:
        return recordCellText(record, column.optional);
    case HistoryColumn::Kind::Select:
    case HistoryColumn::Kind::Actions:
        break;
    }
    return {};
}

QVariant HistoryTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_records.size())
        return {};
    const PhotoRecord &record = m_records[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return cellText(record, m_columns[index.column()]);
    case RecordRole:
        return QVariant::fromValue(record);
    case SelectedRole:
        return m_model.selectedRecordIds().contains(record.id());
    default:
        return {};
    }
}

QVariant HistoryTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= m_columns.size())
        return {};
    const HistoryColumn &column = m_columns[section];
    switch (column.kind) {
    case HistoryColumn::Kind::Select:
        return QString();
    case HistoryColumn::Kind::Name:
        return m_model.t("sort_name");
    case HistoryColumn::Kind::Status:
        return m_model.t("col_status");
    case HistoryColumn::Kind::Optional:
        return m_model.t(titleKey(column.optional));
    case HistoryColumn::Kind::Actions:
        return m_model.t("col_actions");
    }
    return {};
}

bool HistoryTableModel::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && m_model.hasMoreHistory() && !m_model.isLoadingMore();
}

void HistoryTableModel::fetchMore(const QModelIndex &parent)
{
    if (canFetchMore(parent))
        m_model.loadMoreHistory();
}

void HistoryTableModel::refreshRow(const QString &fingerprint)
{
    const int row = rowOf(fingerprint);
    if (row >= 0)
        Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

// A further page keeps the loaded rows in front: insert only the tail so the
// view keeps its scroll position. A refresh is applied row by row; only a
// list in another order (a new sort) starts over.
void HistoryTableModel::syncRecords()
{
    const QList<PhotoRecord> next = m_model.historyRecords();
    const qsizetype old = m_records.size();
    bool appended = next.size() > old && old > 0;
    for (qsizetype i = 0; appended && i < old; ++i)
        appended = next[i].fingerprint == m_records[i].fingerprint;
    if (appended) {
        beginInsertRows({}, int(old), int(next.size() - 1));
        m_records = next;
        reindex(int(old));
        endInsertRows();
        return;
    }
    Q_EMIT recordsAboutToSync();
    if (!applyInPlace(next)) {
        beginResetModel();
        m_records = next;
        m_rowById.clear();
        reindex(0);
        endResetModel();
    }
    Q_EMIT recordsSynced();
}

bool HistoryTableModel::applyInPlace(const QList<PhotoRecord> &next)
{
    QHash<QString, int> nextRow;
    nextRow.reserve(next.size());
    for (int i = 0; i < next.size(); ++i)
        nextRow.insert(next[i].fingerprint, i);
    int last = -1;
    for (const PhotoRecord &record : std::as_const(m_records)) {
        const int row = nextRow.value(record.fingerprint, -1);
        if (row < 0)
            continue;
        if (row < last)
            return false;
        last = row;
    }
    removeMissing(nextRow);
    insertAndUpdate(next);
    return true;
}

// From the bottom up, one signal per run of adjacent rows.
void HistoryTableModel::removeMissing(const QHash<QString, int> &nextRow)
{
    for (int end = int(m_records.size()) - 1; end >= 0;) {
        if (nextRow.contains(m_records[end].fingerprint)) {
            --end;
            continue;
        }
        int first = end;
        while (first > 0 && !nextRow.contains(m_records[first - 1].fingerprint))
            --first;
        beginRemoveRows({}, first, end);
        for (int i = first; i <= end; ++i)
            m_rowById.remove(m_records[i].fingerprint);
        m_records.remove(first, end - first + 1);
        reindex(first);
        endRemoveRows();
        end = first - 1;
    }
}

// The rows left are in `next`'s order: walk both, inserting each run of new
// rows where it belongs and repainting kept rows whose record changed.
void HistoryTableModel::insertAndUpdate(const QList<PhotoRecord> &next)
{
    int row = 0;
    while (row < next.size()) {
        if (row < m_records.size() && m_records[row].fingerprint == next[row].fingerprint) {
            if (!(m_records[row] == next[row])) {
                m_records[row] = next[row];
                Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
            }
            ++row;
            continue;
        }
        int end = row;
        while (
            end + 1 < next.size()
            && (row >= m_records.size() || next[end + 1].fingerprint != m_records[row].fingerprint))
            ++end;
        beginInsertRows({}, row, end);
        m_records.insert(row, end - row + 1, PhotoRecord());
        for (int i = row; i <= end; ++i)
            m_records[i] = next[i];
        reindex(row);
        endInsertRows();
        row = end + 1;
    }
}

void HistoryTableModel::syncColumns()
{
    QList<HistoryColumn> columns { { HistoryColumn::Kind::Select },
                                   { HistoryColumn::Kind::Name },
                                   { HistoryColumn::Kind::Status } };
    for (ListColumn column : normalizedColumnSet(m_model.visibleColumns()))
        columns.append({ HistoryColumn::Kind::Optional, column });
    columns.append({ HistoryColumn::Kind::Actions });
    if (columns == m_columns)
        return;
    beginResetModel();
    m_columns = columns;
    endResetModel();
}

// The whole row shows its selection (box and background), so every cell repaints.
void HistoryTableModel::syncSelection()
{
    if (!m_records.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1), { SelectedRole });
}

void HistoryTableModel::reindex(int from)
{
    for (int i = from; i < m_records.size(); ++i)
        m_rowById.insert(m_records[i].fingerprint, i);
}

HistoryScrollAnchor::HistoryScrollAnchor(QAbstractItemView *view, HistoryTableModel *model)
    : QObject(view)
    , m_view(view)
    , m_model(model)
{
    connect(model, &HistoryTableModel::recordsAboutToSync, this, &HistoryScrollAnchor::remember);
    connect(model, &HistoryTableModel::recordsSynced, this, &HistoryScrollAnchor::restore);
}

void HistoryScrollAnchor::remember()
{
    m_fingerprint.clear();
    const QModelIndex top = m_view ? m_view->indexAt(QPoint(0, 0)) : QModelIndex();
    if (!top.isValid())
        return;
    m_fingerprint = m_model->record(top.row()).fingerprint;
    m_offset = m_view->visualRect(top).top();
}

void HistoryScrollAnchor::restore()
{
    const int row = m_fingerprint.isEmpty() || !m_view ? -1 : m_model->rowOf(m_fingerprint);
    if (row < 0)
        return;
    // Lay the rows out now (the view would do it later), so that the scroll
    // range already covers rows inserted above.
    m_view->doItemsLayout();
    QScrollBar *bar = m_view->verticalScrollBar();
    const int shift = m_view->visualRect(m_model->index(row, 0)).top() - m_offset;
    bar->setValue(bar->value() + shift);
}

} // namespace orvanta
