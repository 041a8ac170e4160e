// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/ConsoleLogModel.h"

#include "core/AppViewModel.h"
#include "ui/Theme.h"

namespace orvanta {

using namespace Qt::StringLiterals;

QColor consoleLineColor(const QString &line)
{
    if (line.contains(u"SUCCESS"_s) || line.contains(u"✅"_s))
        return theme::kGreen;
    if (line.contains(u"FAILED"_s) || line.contains(u"❌"_s) || line.contains(u"ERROR"_s))
        return theme::kRed;
    if (line.contains(u"WARN"_s) || line.contains(u"⚠️"_s))
        return theme::kYellow;
    if (line.contains(u"🌟"_s) || line.contains(u"==="_s))
        return theme::kCyan;
    const QString trimmed = line.trimmed();
    QColor white(Qt::white);
    if (trimmed.startsWith(u'[') && trimmed.contains(u']')) {
        white.setAlphaF(0.70f);
        return white;
    }
    white.setAlphaF(0.88f);
    return white;
}

ConsoleLogModel::ConsoleLogModel(AppViewModel &model, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(model)
    , m_lines(model.consoleLogs())
{
    connect(&m_model, &AppViewModel::consoleLogsChanged, this, &ConsoleLogModel::sync);
}

int ConsoleLogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_lines.size());
}

QVariant ConsoleLogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_lines.size())
        return {};
    const QString &line = m_lines.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return line;
    case Qt::ForegroundRole:
        return consoleLineColor(line);
    default:
        return {};
    }
}

qsizetype ConsoleLogModel::droppedFrontCount(const QStringList &next) const
{
    const qsizetype n = m_lines.size();
    // Trimming keeps the newest lines, so the old tail is a prefix of the
    // new list; try the smallest drop first (usually 0 or the few lines just
    // appended), checking the two ends before comparing the whole overlap.
    for (qsizetype k = 0; k < n; ++k) {
        const qsizetype overlap = n - k;
        if (overlap > next.size())
            continue;
        if (next.at(0) != m_lines.at(k) || next.at(overlap - 1) != m_lines.at(n - 1))
            continue;
        bool same = true;
        for (qsizetype i = 1; i + 1 < overlap && same; ++i)
            same = next.at(i) == m_lines.at(k + i);
        if (same)
            return k;
    }
    return -1;
}

void ConsoleLogModel::sync()
{
    const QStringList next = m_model.consoleLogs();
    const qsizetype dropped = m_lines.isEmpty() ? 0 : droppedFrontCount(next);
    if (dropped < 0 || next.isEmpty()) {
        beginResetModel();
        m_lines = next;
        ++m_resetCount;
        endResetModel();
        return;
    }
    // Remove before inserting, so a view never lays out rows about to vanish.
    if (dropped > 0) {
        beginRemoveRows({}, 0, int(dropped) - 1);
        m_lines.remove(0, dropped);
        endRemoveRows();
    }
    const qsizetype kept = m_lines.size();
    if (next.size() > kept) {
        beginInsertRows({}, int(kept), int(next.size()) - 1);
        m_lines = next;
        endInsertRows();
    } else {
        m_lines = next;
    }
}

} // namespace orvanta
