// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The live console panel: the engine's and the controller's lines coloured
// by kind, following the newest line, copy-all with a short confirmation,
// clear, and a placeholder while empty. Main thread.
#pragma once

#include <QFrame>

class QCheckBox;
class QLabel;
class QListView;
class QPushButton;
class QStackedWidget;
class QTimer;

namespace orvanta {

class AppViewModel;
class ConsoleLogModel;

class ConsoleLogView : public QFrame
{
    Q_OBJECT
public:
    // How long the "Copied!" confirmation stays.
    static constexpr int kCopiedConfirmationMs = 1500;

    explicit ConsoleLogView(AppViewModel &model, QWidget *parent = nullptr);

    bool autoScroll() const { return m_autoScroll; }
    void setAutoScroll(bool on);
    bool isCopied() const { return m_isCopied; }
    ConsoleLogModel *logModel() const { return m_logModel; }
    QListView *listView() const { return m_list; }

    // Puts every line, joined with "\n", on the clipboard as plain text.
    void copyAllLogs();

private:
    void retranslate();
    void updateEmptyState();
    void setCopied(bool copied);

    AppViewModel &m_model;
    ConsoleLogModel *m_logModel = nullptr;
    QLabel *m_title = nullptr;
    QCheckBox *m_autoScrollBox = nullptr;
    QPushButton *m_copyButton = nullptr;
    QPushButton *m_clearButton = nullptr;
    QStackedWidget *m_stack = nullptr;
    QListView *m_list = nullptr;
    QLabel *m_placeholder = nullptr;
    QTimer *m_copiedTimer = nullptr;
    bool m_autoScroll = true;
    bool m_isCopied = false;
};

} // namespace orvanta
