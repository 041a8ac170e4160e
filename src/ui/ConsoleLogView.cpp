// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ConsoleLogView.h"

#include "core/AppViewModel.h"
#include "ui/ConsoleLineDelegate.h"
#include "ui/ConsoleLogModel.h"
#include "ui/Icons.h"
#include "ui/Theme.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

ConsoleLogView::ConsoleLogView(AppViewModel &model, QWidget *parent)
    : QFrame(parent)
    , m_model(model)
    , m_logModel(new ConsoleLogModel(model, this))
{
    setObjectName(u"console"_s);
    setProperty("role", u"card"_s);

    auto *icon = new QLabel(this);
    icon->setPixmap(icons::pixmap(u"terminal"_s, theme::kTextSecondary, 16, devicePixelRatioF()));
    m_title = new QLabel(this);
    m_title->setProperty("role", u"section"_s);
    m_autoScrollBox = new QCheckBox(this);
    m_autoScrollBox->setObjectName(u"consoleAutoScroll"_s);
    m_autoScrollBox->setChecked(m_autoScroll);
    m_copyButton = new QPushButton(this);
    m_copyButton->setObjectName(u"consoleCopy"_s);
    m_copyButton->setIcon(icons::icon(u"doc.on.doc"_s, theme::kTextSecondary));
    m_clearButton = new QPushButton(this);
    m_clearButton->setObjectName(u"consoleClear"_s);
    m_clearButton->setIcon(icons::icon(u"trash"_s, theme::kTextSecondary));

    auto *header = new QHBoxLayout;
    header->setSpacing(8);
    header->addWidget(icon);
    header->addWidget(m_title);
    header->addStretch(1);
    header->addWidget(m_autoScrollBox);
    header->addWidget(m_copyButton);
    header->addWidget(m_clearButton);

    m_list = new QListView(this);
    m_list->setObjectName(u"consoleList"_s);
    m_list->setModel(m_logModel);
    m_list->setItemDelegate(new ConsoleLineDelegate(m_list));
    // Every row is one line of the same height: lets the view skip measuring
    // each row, which keeps a full 1000-line log cheap to scroll and update.
    m_list->setUniformItemSizes(true);
    m_list->setWordWrap(false);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    mono.setPointSizeF(8.5);
    m_list->setFont(mono);

    m_placeholder = new QLabel(this);
    m_placeholder->setAlignment(Qt::AlignCenter);
    m_placeholder->setProperty("role", u"placeholder"_s);

    auto *inset = new QFrame(this);
    inset->setProperty("role", u"inset"_s);
    m_stack = new QStackedWidget(inset);
    m_stack->addWidget(m_list);
    m_stack->addWidget(m_placeholder);
    auto *insetLayout = new QVBoxLayout(inset);
    insetLayout->setContentsMargins(6, 4, 2, 4);
    insetLayout->addWidget(m_stack);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 10, 14, 12);
    layout->setSpacing(8);
    layout->addLayout(header);
    layout->addWidget(inset, 1);

    m_copiedTimer = new QTimer(this);
    m_copiedTimer->setSingleShot(true);
    m_copiedTimer->setInterval(kCopiedConfirmationMs);
    connect(m_copiedTimer, &QTimer::timeout, this, [this] { setCopied(false); });

    connect(m_autoScrollBox, &QCheckBox::toggled, this, &ConsoleLogView::setAutoScroll);
    connect(m_copyButton, &QPushButton::clicked, this, &ConsoleLogView::copyAllLogs);
    connect(m_clearButton, &QPushButton::clicked, this, [this] { m_model.clearLogs(); });
    connect(m_logModel, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_autoScroll)
            m_list->scrollToBottom();
    });
    connect(m_logModel, &QAbstractItemModel::modelReset, this, [this] {
        if (m_autoScroll)
            m_list->scrollToBottom();
    });
    for (auto signal : { &QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved })
        connect(m_logModel, signal, this, &ConsoleLogView::updateEmptyState);
    connect(m_logModel, &QAbstractItemModel::modelReset, this, &ConsoleLogView::updateEmptyState);
    connect(&m_model, &AppViewModel::wholeObjectChanged, this, &ConsoleLogView::retranslate);

    retranslate();
    updateEmptyState();
}

void ConsoleLogView::setAutoScroll(bool on)
{
    if (m_autoScroll == on)
        return;
    m_autoScroll = on;
    m_autoScrollBox->setChecked(on);
    if (on)
        m_list->scrollToBottom();
}

void ConsoleLogView::copyAllLogs()
{
    QClipboard *clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    clipboard->setText(m_model.consoleLogs().join(u'\n'));
    setCopied(true);
    m_copiedTimer->start(); // a second copy restarts the 1.5 s
}

void ConsoleLogView::setCopied(bool copied)
{
    m_isCopied = copied;
    m_copyButton->setIcon(icons::icon(copied ? u"checkmark"_s : u"doc.on.doc"_s,
                                      copied ? theme::kGreen : theme::kTextSecondary));
    m_copyButton->setText(
        theme::literal(m_model.t(copied ? "console_copied" : "console_copy_all")));
}

void ConsoleLogView::retranslate()
{
    m_title->setText(m_model.t("console_title").toUpper());
    m_autoScrollBox->setText(theme::literal(m_model.t("console_auto_scroll")));
    m_clearButton->setText(theme::literal(m_model.t("console_clear")));
    m_placeholder->setText(m_model.t("console_waiting"));
    setCopied(m_isCopied);
}

void ConsoleLogView::updateEmptyState()
{
    m_stack->setCurrentWidget(m_logModel->rowCount() == 0 ? static_cast<QWidget *>(m_placeholder)
                                                          : m_list);
}

} // namespace orvanta
