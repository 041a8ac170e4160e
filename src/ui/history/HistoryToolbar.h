// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The toolbar above the history table: the tri-state select-all box, the
// selection count with the bulk actions, the search field, and the status,
// sort and column menus, all bound to the state object. Main thread.
#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QLineEdit;
class QMenu;
class QToolButton;

namespace orvanta {

class AppViewModel;

class HistoryToolbar : public QWidget
{
    Q_OBJECT

public:
    enum class SelectAllState { None, Some, All };

    explicit HistoryToolbar(AppViewModel &model, QWidget *parent = nullptr);

    SelectAllState selectAllState() const;
    // Selects every loaded record, or deselects when all already are.
    void toggleSelectAll();

    QToolButton *selectAllButton() const { return m_selectAll; }
    QLineEdit *searchField() const { return m_search; }
    QMenu *columnMenu() const { return m_columnMenu; }
    QMenu *sortMenu() const { return m_sortMenu; }
    QMenu *filterMenu() const { return m_filterMenu; }

Q_SIGNALS:
    // The delete button was pressed; the view asks for confirmation first.
    void deleteRequested();

private:
    void buildMenus();
    void fillFilterMenu();
    void fillSortMenu();
    void fillColumnMenu();
    void updateSelection();
    void updateTexts();
    void updateFilterMark();

    AppViewModel &m_model;
    QToolButton *m_selectAll = nullptr;
    QLabel *m_count = nullptr;
    QToolButton *m_reprocess = nullptr;
    QToolButton *m_delete = nullptr;
    QLineEdit *m_search = nullptr;
    QAction *m_clearSearch = nullptr;
    QToolButton *m_filter = nullptr;
    QToolButton *m_sort = nullptr;
    QToolButton *m_columns = nullptr;
    QMenu *m_filterMenu = nullptr;
    QMenu *m_sortMenu = nullptr;
    QMenu *m_columnMenu = nullptr;
};

} // namespace orvanta
