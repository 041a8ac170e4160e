// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/FailureListDialog.h"

#include "core/AppViewModel.h"
#include "platform/FileManager.h"
#include "ui/Theme.h"

#include <QDBusConnection>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// What failed, in the interface's language; empty for a kind this version does not know.
QString kindText(const AppViewModel &model, const QString &kind)
{
    static const QHash<QString, const char *> keys {
        { u"jpg_unreadable"_s, "failure_jpg_unreadable" },
        { u"raw_unreadable"_s, "failure_raw_unreadable" },
        { u"colour_unmatched"_s, "failure_colour_unmatched" },
        { u"encode_failed"_s, "failure_encode_failed" },
        { u"write_failed"_s, "failure_write_failed" },
        { u"destination_gone"_s, "failure_destination_gone" },
    };
    const char *key = keys.value(kind);
    return key ? model.t(key) : QString();
}

constexpr int kPathRole = Qt::UserRole + 1;
} // namespace

FailureListDialog::FailureListDialog(AppViewModel &model, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
{
    setObjectName(u"failureList"_s);
    setWindowTitle(m_model.t("failures_title"));
    resize(620, 380);

    auto *summary = new QLabel(this);
    summary->setObjectName(u"failureSummary"_s);
    summary->setText(
        m_model.t("failures_summary", { qint64(m_model.batch()->runFailures().size()) }));

    m_list = new QTreeWidget(this);
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels(
        { m_model.t("failures_column_photo"), m_model.t("failures_column_reason") });
    m_list->header()->setStretchLastSection(true);
    m_list->setAlternatingRowColors(true);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { revealCurrent(); });

    auto *buttons = new QDialogButtonBox(this);
    QPushButton *reveal = buttons->addButton(theme::literal(m_model.t("failures_reveal")),
                                             QDialogButtonBox::ActionRole);
    reveal->setObjectName(u"failureReveal"_s);
    QPushButton *retry = buttons->addButton(theme::literal(m_model.t("failures_retry")),
                                            QDialogButtonBox::AcceptRole);
    retry->setObjectName(u"failureRetry"_s);
    retry->setProperty("role", u"primary"_s);
    QPushButton *close = buttons->addButton(theme::literal(m_model.t("failures_close")),
                                            QDialogButtonBox::RejectRole);
    close->setObjectName(u"failureClose"_s);
    connect(reveal, &QPushButton::clicked, this, &FailureListDialog::revealCurrent);
    connect(retry, &QPushButton::clicked, this, [this] {
        m_model.batch()->retryFailed();
        accept();
    });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(m_model.batch(), &BatchController::isRunningChanged, this,
            [this, retry] { retry->setEnabled(!m_model.isRunning()); });
    retry->setEnabled(!m_model.isRunning());

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(18, 16, 18, 14);
    layout->setSpacing(10);
    layout->addWidget(summary);
    layout->addWidget(m_list, 1);
    layout->addWidget(buttons);
    fill();
}

void FailureListDialog::fill()
{
    const QList<PhotoRecord> records = m_model.historyRecords();
    for (const FailedPhoto &photo : m_model.batch()->runFailures()) {
        // The newest history row of this photo from the same folder, when
        // loaded, names its files and may carry the reason the event lacked.
        QString path = photo.folder;
        QString reason = photo.reason;
        for (const PhotoRecord &record : records) {
            if (record.stem != photo.stem)
                continue;
            const QString file = record.rawPath.value_or(record.jpgPath.value_or(QString()));
            if (!file.isEmpty() && !file.startsWith(photo.folder + u'/'))
                continue;
            if (!file.isEmpty())
                path = file;
            if (reason.isEmpty())
                reason = record.errorMessage.value_or(QString());
            break;
        }
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(0, photo.stem);
        // What failed is said in the interface's language; the engine's own
        // words, which name files and library errors, stay in the tooltip.
        const QString kind = kindText(m_model, photo.kind);
        item->setText(1,
                      !kind.isEmpty()        ? kind
                          : reason.isEmpty() ? m_model.t("failures_no_reason")
                                             : reason);
        item->setToolTip(1, reason.isEmpty() ? item->text(1) : reason);
        item->setData(0, kPathRole, path);
    }
    m_list->resizeColumnToContents(0);
    if (m_list->topLevelItemCount() > 0)
        m_list->setCurrentItem(m_list->topLevelItem(0));
}

QString FailureListDialog::pathOf(int row) const
{
    const QTreeWidgetItem *item = m_list->topLevelItem(row);
    return item ? item->data(0, kPathRole).toString() : QString();
}

void FailureListDialog::setRevealer(std::function<void(const QString &)> reveal)
{
    m_reveal = std::move(reveal);
}

void FailureListDialog::revealCurrent()
{
    const QString path = pathOf(m_list->indexOfTopLevelItem(m_list->currentItem()));
    if (path.isEmpty())
        return;
    if (m_reveal) {
        m_reveal(path);
        return;
    }
    auto *files = new FileManager(QDBusConnection::sessionBus(), this);
    if (QFileInfo(path).isDir())
        files->showFolder(path);
    else
        files->showItem(path);
}

} // namespace orvanta
