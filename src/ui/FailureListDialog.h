// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The photos the last batch could not deliver, each with the engine's reason
// (from the run's events, else from the history row), revealable in the file
// manager, and a button that runs the engine again on exactly those. Main thread.
#pragma once

#include <QDialog>

#include <functional>

class QTreeWidget;

namespace orvanta {

class AppViewModel;

class FailureListDialog : public QDialog
{
    Q_OBJECT
public:
    explicit FailureListDialog(AppViewModel &model, QWidget *parent = nullptr);

    // Replaces the file manager (tests); receives the path to show.
    void setRevealer(std::function<void(const QString &path)> reveal);
    QTreeWidget *list() const { return m_list; }
    // The file shown for row `row`: the recorded RAW, else JPG, else the folder.
    QString pathOf(int row) const;

private:
    void fill();
    void revealCurrent();

    AppViewModel &m_model;
    QTreeWidget *m_list = nullptr;
    std::function<void(const QString &)> m_reveal;
};

} // namespace orvanta
