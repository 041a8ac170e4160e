// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The "History & Quarantine" tab: toolbar, the paged table of processed
// photos with their thumbnails and row actions, the footer, the empty
// states, the dialogs, the quick preview and the inspector side panel.
// Main thread.
#pragma once

#include "history/HistoryTypes.h"
#include "ui/history/HistoryColumnLayout.h"

#include <QMessageBox>
#include <QPointer>
#include <QWidget>

#include <functional>

class QLabel;
class QMenu;

class QProgressBar;
class QSplitter;
class QStackedWidget;
class QTableView;

namespace orvanta {

class AppViewModel;
class FileManager;
class HistoryRowDelegate;
class HistoryTableModel;
class HistoryToolbar;
class InspectorView;
class QuickPreviewWindow;
class RowMediaStore;
enum class RowAction;

class HistoryView : public QWidget
{
    Q_OBJECT

public:
    using CompareOpener
        = std::function<void(const PhotoRecord &record, const QList<PhotoRecord> &list)>;
    enum class DialogKind { None, QuarantineError, FileMissing, ConfirmDelete };

    explicit HistoryView(AppViewModel &model, QWidget *parent = nullptr);
    ~HistoryView() override;

    // Opens the HDR compare window for a row; without one the action is hidden.
    void setCompareOpener(CompareOpener opener);

    // Row actions, also reachable from the hover buttons and the context menu.
    void triggerAction(RowAction action, const PhotoRecord &record);
    // Shows the delivered file in the file manager, else the camera JPEG,
    // else the file-missing dialog. Returns the path shown (null: the dialog).
    QString revealRecord(const PhotoRecord &record);
    void openInspector(const PhotoRecord &record);
    void closeInspector();
    void toggleQuickPreview(const PhotoRecord &record);
    void showErrorDetails(const PhotoRecord &record);
    // Asks before deleting the selected rows from the history.
    void confirmDelete();
    QMenu *buildContextMenu(const PhotoRecord &record, QWidget *parent);

    HistoryToolbar *toolbar() const { return m_toolbar; }
    QTableView *tableView() const { return m_table; }
    HistoryTableModel *tableModel() const { return m_tableModel; }
    RowMediaStore *mediaStore() const { return m_media; }
    InspectorView *inspector() const { return m_inspector; }
    QuickPreviewWindow *quickPreview() const;
    QMessageBox *activeDialog() const { return m_dialog; }
    DialogKind activeDialogKind() const { return m_dialog ? m_dialogKind : DialogKind::None; }
    bool isShowingEmptyState() const;
    QString emptyStateText() const;
    QString footerText() const;

Q_SIGNALS:
    // A file was handed to the file manager (after the fallbacks).
    void fileRevealed(const QString &path);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *buildTablePage();
    QWidget *buildEmptyPage();
    QWidget *buildFooter();
    void applyColumnWidths();
    void fitColumns();
    void columnResizedByUser(int section, int newSize);
    void sortBySection(int section);
    void updateSortIndicator();
    void updateEmptyState();
    void updateFooter();
    void scheduleVisibleRowsCheck();
    void retainVisibleRows();
    void setHoveredRow(int row);
    void showDialog(DialogKind kind, const QString &title, const QString &text);
    void showContextMenu(const QPoint &pos);

    AppViewModel &m_model;
    CompareOpener m_compareOpener;
    HistoryToolbar *m_toolbar = nullptr;
    QSplitter *m_splitter = nullptr;
    QStackedWidget *m_stack = nullptr;
    QTableView *m_table = nullptr;
    HistoryTableModel *m_tableModel = nullptr;
    HistoryRowDelegate *m_delegate = nullptr;
    RowMediaStore *m_media = nullptr;
    FileManager *m_fileManager = nullptr;
    QLabel *m_emptyIcon = nullptr;
    QLabel *m_emptyLabel = nullptr;
    QLabel *m_footerLabel = nullptr;
    QProgressBar *m_footerBusy = nullptr;
    InspectorView *m_inspector = nullptr;
    QWidget *m_inspectorPanel = nullptr;
    QPointer<QuickPreviewWindow> m_preview;
    QPointer<QMessageBox> m_dialog;
    DialogKind m_dialogKind = DialogKind::None;
    bool m_visibleCheckQueued = false;
    QList<ColumnSpec> m_columnSpecs; // per section, in header order
    bool m_fittingColumns = false;
};

} // namespace orvanta
