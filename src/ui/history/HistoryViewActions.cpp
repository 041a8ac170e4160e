// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The row actions of the history tab: compare, inspector, quick preview,
// reveal with its fallbacks, sharing, the error and file-missing dialogs, the
// delete confirmation and the context menu.
#include "core/AppViewModel.h"
#include "media/ProPhotoMetadata.h"
#include "platform/FileManager.h"
#include "ui/Icons.h"
#include "ui/Theme.h"
#include "ui/history/HistoryRowDelegate.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryView.h"
#include "ui/history/InspectorView.h"
#include "ui/history/QuickPreviewWindow.h"
#include "ui/history/ShareMenu.h"

#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QTableView>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

bool fileExists(const std::optional<QString> &path)
{
    return path && !path->isEmpty() && QFileInfo(*path).isFile();
}

} // namespace

void HistoryView::triggerAction(RowAction action, const PhotoRecord &record)
{
    switch (action) {
    case RowAction::Compare:
        if (m_compareOpener)
            m_compareOpener(record, m_model.filteredHistoryRecords());
        break;
    case RowAction::Inspector:
        openInspector(record);
        break;
    case RowAction::QuickLook:
        toggleQuickPreview(record);
        break;
    case RowAction::Reveal:
        revealRecord(record);
        break;
    case RowAction::Share: {
        auto *menu = new ShareMenu(m_model, record, this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->popup(QCursor::pos());
        break;
    }
    case RowAction::ViewError:
        showErrorDetails(record);
        break;
    }
}

QString HistoryView::revealRecord(const PhotoRecord &record)
{
    QString path;
    if (fileExists(record.outputPath))
        path = *record.outputPath;
    else if (fileExists(record.jpgPath))
        path = *record.jpgPath;
    if (path.isEmpty()) {
        const QString name = record.outputPath && !record.outputPath->isEmpty()
            ? QFileInfo(*record.outputPath).fileName()
            : record.stem;
        showDialog(DialogKind::FileMissing, m_model.t("dialog_file_missing_title"),
                   m_model.t("dialog_file_missing_desc", { name }));
        return {};
    }
    m_fileManager->showItem(path);
    Q_EMIT fileRevealed(path);
    return path;
}

void HistoryView::openInspector(const PhotoRecord &record)
{
    m_inspector->setRecord(record);
    if (m_inspectorPanel->isHidden()) {
        m_inspectorPanel->show();
        const int panel = qMax(m_inspectorPanel->minimumWidth(), 380);
        m_splitter->setSizes({ qMax(0, m_splitter->width() - panel), panel });
    }
}

void HistoryView::closeInspector()
{
    m_inspectorPanel->hide();
}

void HistoryView::toggleQuickPreview(const PhotoRecord &record)
{
    if (m_preview && m_preview->isVisible()) {
        m_preview->close();
        return;
    }
    QString path;
    if (fileExists(record.outputPath))
        path = *record.outputPath;
    else if (fileExists(record.jpgPath))
        path = *record.jpgPath;
    if (path.isEmpty()) {
        revealRecord(record); // shows the file-missing dialog
        return;
    }
    if (!m_preview)
        m_preview = new QuickPreviewWindow(m_model, window());
    m_preview->showFile(path, record.stem);
}

void HistoryView::showErrorDetails(const PhotoRecord &record)
{
    showDialog(DialogKind::QuarantineError, m_model.t("dialog_error_title"),
               record.errorMessage.value_or(missingValuePlaceholder()));
}

void HistoryView::confirmDelete()
{
    const qint64 count = m_model.selectedRecordIds().size();
    if (count == 0)
        return;
    showDialog(DialogKind::ConfirmDelete, m_model.t("history_delete_confirm_title", { count }),
               m_model.t("history_delete_confirm_desc"));
}

void HistoryView::showDialog(DialogKind kind, const QString &title, const QString &text)
{
    if (m_dialog)
        m_dialog->close();
    auto *box = new QMessageBox(this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setObjectName(u"historyDialog"_s);
    box->setWindowTitle(title);
    box->setText(title);
    box->setInformativeText(text);
    if (kind == DialogKind::ConfirmDelete) {
        box->setIcon(QMessageBox::Warning);
        QPushButton *remove = box->addButton(theme::literal(m_model.t("btn_batch_delete")),
                                             QMessageBox::AcceptRole);
        box->addButton(theme::literal(m_model.t("recipes_btn_cancel")), QMessageBox::RejectRole);
        box->setDefaultButton(remove);
        connect(remove, &QPushButton::clicked, &m_model, &AppViewModel::deleteSelectedRecords);
    } else {
        box->setIcon(kind == DialogKind::QuarantineError ? QMessageBox::Critical
                                                         : QMessageBox::Information);
        box->addButton(theme::literal(m_model.t("dialog_ok")), QMessageBox::AcceptRole);
    }
    m_dialog = box;
    m_dialogKind = kind;
    box->open();
}

QMenu *HistoryView::buildContextMenu(const PhotoRecord &record, QWidget *parent)
{
    auto *menu = new QMenu(parent);
    menu->setObjectName(u"historyRowMenu"_s);
    for (RowAction action : rowActions(record, bool(m_compareOpener))) {
        const QString text = theme::literal(m_model.t(rowActionKey(action)));
        const QIcon icon = icons::icon(rowActionSymbol(action),
                                       action == RowAction::Compare         ? theme::kYellow
                                           : action == RowAction::ViewError ? theme::kRed
                                                                            : theme::kTextPrimary);
        if (action == RowAction::Share) {
            QMenu *share = new ShareMenu(m_model, record, menu);
            share->setTitle(text);
            share->setIcon(icon);
            menu->addMenu(share);
            continue;
        }
        QAction *item = menu->addAction(icon, text);
        item->setData(int(action));
        connect(item, &QAction::triggered, this,
                [this, action, record] { triggerAction(action, record); });
    }
    return menu;
}

void HistoryView::showContextMenu(const QPoint &pos)
{
    const QModelIndex index = m_table->indexAt(pos);
    if (!index.isValid())
        return;
    QMenu *menu = buildContextMenu(m_tableModel->record(index.row()), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_table->viewport()->mapToGlobal(pos));
}

} // namespace orvanta
