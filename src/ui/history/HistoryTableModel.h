// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The history table's item model: one row per loaded PhotoRecord of the
// state object, the fixed and the visible optional columns, and paging
// through canFetchMore/fetchMore into loadMoreHistory. A new list is applied
// row by row (removed, inserted, changed, matched by fingerprint), so views
// keep their place and current row. Main thread.
#pragma once

#include "history/HistoryTypes.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QObject>
#include <QPointer>

#include <optional>

class QAbstractItemView;

namespace orvanta {

class AppViewModel;

// One column of the table: the fixed ones and the optional ListColumns.
struct HistoryColumn
{
    enum class Kind { Select, Name, Status, Optional, Actions };
    Kind kind = Kind::Name;
    ListColumn optional = ListColumn::PeakStops; // only for Kind::Optional

    friend bool operator==(const HistoryColumn &, const HistoryColumn &) = default;
};

class HistoryTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr int RecordRole = Qt::UserRole + 1;
    static constexpr int SelectedRole = Qt::UserRole + 2;

    explicit HistoryTableModel(AppViewModel &model, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    const HistoryColumn &column(int section) const { return m_columns.at(section); }
    int sectionOf(HistoryColumn::Kind kind) const;
    // The sort field a click on the section's title chooses, if any.
    std::optional<HistorySortField> sortFieldOf(int section) const;
    const PhotoRecord &record(int row) const { return m_records.at(row); }
    // -1 when the record is not loaded.
    int rowOf(const QString &fingerprint) const { return m_rowById.value(fingerprint, -1); }
    // Repaints every cell of the record's row (its thumbnail or metadata arrived).
    void refreshRow(const QString &fingerprint);

Q_SIGNALS:
    // Around applying a new list of records (not a page appended).
    void recordsAboutToSync();
    void recordsSynced();

private:
    void syncRecords();
    // Applies `next` as removals, insertions and changes. False when the rows
    // both lists hold are in another order (a new sort): not applied.
    bool applyInPlace(const QList<PhotoRecord> &next);
    void removeMissing(const QHash<QString, int> &nextRow);
    void insertAndUpdate(const QList<PhotoRecord> &next);
    void syncColumns();
    void syncSelection();
    void reindex(int from);
    QString cellText(const PhotoRecord &record, const HistoryColumn &column) const;

    AppViewModel &m_model;
    QList<PhotoRecord> m_records;
    QHash<QString, int> m_rowById;
    QList<HistoryColumn> m_columns;
};

// Keeps a history table's top visible row where it is when the list is
// refreshed: rows inserted or removed above it do not move what the user is
// looking at. Parented to the view.
class HistoryScrollAnchor : public QObject
{
    Q_OBJECT

public:
    HistoryScrollAnchor(QAbstractItemView *view, HistoryTableModel *model);

private:
    void remember();
    void restore();

    QPointer<QAbstractItemView> m_view;
    HistoryTableModel *m_model;
    QString m_fingerprint; // of the top visible row; empty when none
    int m_offset = 0; // its top edge in the viewport (0 or above)
};

// Text of an optional column that comes from the record itself ("%.2f" peak
// and duration, "%.2f%%" clip, "%lld" faces); a null string for the columns
// that come from the photo's metadata.
QString recordCellText(const PhotoRecord &record, ListColumn column);
// "+2.50st (1600nits)": the peak headroom label of a successful row.
QString peakLabel(double peakStops);

} // namespace orvanta
