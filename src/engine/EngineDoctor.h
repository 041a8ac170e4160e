// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Asks our own engine which of the libraries and data it needs are missing
// ("orvanta_engine doctor --json"), so the environment check can trust the
// engine's answer instead of a fixed tool list. Main thread; the query is a
// child of whoever asks and answers at most once.
#pragma once

#include <QByteArrayView>
#include <QObject>
#include <QStringList>

#include <optional>

class QProcess;

namespace orvanta {

// The "missing" list of a doctor report; none when the text is not a report.
std::optional<QStringList> parseDoctorReport(QByteArrayView json);

class EngineDoctorQuery : public QObject
{
    Q_OBJECT

public:
    // Starts a query when `enginePath` is an executable named "orvanta_engine"
    // (engines of other names are not known to answer); null otherwise.
    static EngineDoctorQuery *start(const QString &enginePath, QObject *parent);
    // A query still running when its owner goes (the application quitting)
    // ends its engine rather than leaving it behind.
    ~EngineDoctorQuery() override;

signals:
    // Only for a well-formed report; a failed or silent engine sends nothing.
    void answered(const QStringList &missing);

private:
    explicit EngineDoctorQuery(QObject *parent);
    void finish();

    QProcess *m_process = nullptr;
};

} // namespace orvanta
