// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Asks our own engine which of the libraries and data it needs are missing
// ("orvanta_engine doctor --json"), so the environment check can trust the
// engine's answer instead of a fixed tool list. The check runs like a run:
// in its own process group, its output read up to a bound, and the whole
// group ended at its time-out and when it has answered. Main thread; the
// query is a child of whoever asks and answers at most once.
#pragma once

#include <QByteArrayView>
#include <QObject>
#include <QStringList>

#include <optional>

class QProcess;

namespace orvanta {

// The "missing" list of a doctor report; none when the text is not a report.
std::optional<QStringList> parseDoctorReport(QByteArrayView json);
// The library the dynamic loader could not find when it refused to start the
// engine ("error while loading shared libraries: libraw.so.20: ..."); none
// when the text says no such thing.
std::optional<QString> missingSharedLibrary(QByteArrayView stderrText);

class EngineDoctorQuery : public QObject
{
    Q_OBJECT

public:
    // Starts a query when `enginePath` is an executable named "orvanta_engine"
    // (engines of other names are not known to answer); null otherwise.
    static EngineDoctorQuery *start(const QString &enginePath, QObject *parent);
    // A query still running when its owner goes (the application quitting)
    // ends its engine and the engine's group rather than leaving them behind.
    ~EngineDoctorQuery() override;

    // A report is a few KiB; more is a misbehaving engine, which is ended.
    static constexpr qsizetype kMaxOutputBytes = 256 * 1024;

signals:
    // Only for a well-formed report; a failed or silent engine sends nothing.
    void answered(const QStringList &missing);

private:
    explicit EngineDoctorQuery(QObject *parent);
    void readOutput();
    void finish();
    void abandon();

    QProcess *m_process = nullptr;
    qint64 m_group = 0;
    QByteArray m_stdout;
    QByteArray m_stderr;
    bool m_done = false;
};

} // namespace orvanta
