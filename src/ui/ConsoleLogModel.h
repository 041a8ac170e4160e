// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The console's lines as a list model that follows AppViewModel::consoleLogs
// with row-level inserts and removals, so a chatty engine never resets the
// view. Also the line colour rule. Main thread.
#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <QStringList>

namespace orvanta {

class AppViewModel;

// The colour of one console line: first matching rule wins (successes,
// failures, warnings, banners, bracketed engine tags, everything else).
QColor consoleLineColor(const QString &line);

class ConsoleLogModel : public QAbstractListModel
{
    Q_OBJECT
public:
    explicit ConsoleLogModel(AppViewModel &model, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    // How many resets the model has done (a cleared or rewritten log); a
    // test uses it to prove appends and trims do not reset.
    int resetCount() const { return m_resetCount; }

private:
    void sync();
    // Length of the prefix of the old list that the new list dropped, when
    // the new list is "old minus some front lines plus some new lines".
    qsizetype droppedFrontCount(const QStringList &next) const;

    AppViewModel &m_model;
    QStringList m_lines;
    int m_resetCount = 0;
};

} // namespace orvanta
