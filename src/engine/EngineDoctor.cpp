// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EngineDoctor.h"

#include "engine/EngineLaunch.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimer>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTimeoutMs = 5000;
constexpr qsizetype kMaxStderrBytes = 16 * 1024;

} // namespace

std::optional<QStringList> parseDoctorReport(QByteArrayView json)
{
    const QJsonDocument doc = QJsonDocument::fromJson(QByteArray(json.data(), json.size()));
    const QJsonValue missing = doc.object().value(u"missing"_s);
    if (!doc.isObject() || !missing.isArray())
        return std::nullopt;
    QStringList names;
    for (const QJsonValue &name : missing.toArray()) {
        if (!name.isString())
            return std::nullopt;
        names << name.toString();
    }
    return names;
}

std::optional<QString> missingSharedLibrary(QByteArrayView stderrText)
{
    static constexpr QByteArrayView kMarker = "error while loading shared libraries: ";
    const qsizetype at = stderrText.indexOf(kMarker);
    if (at < 0)
        return std::nullopt;
    const QByteArrayView rest = stderrText.sliced(at + kMarker.size());
    const qsizetype end = rest.indexOf(':');
    const QByteArrayView name = end < 0 ? QByteArrayView() : rest.first(end).trimmed();
    if (name.isEmpty())
        return std::nullopt;
    return QString::fromLocal8Bit(name);
}

EngineDoctorQuery::EngineDoctorQuery(QObject *parent)
    : QObject(parent)
    , m_process(new QProcess(this))
{
}

EngineDoctorQuery::~EngineDoctorQuery()
{
    m_process->disconnect(this);
    endProcessGroup(m_group);
    if (m_process->state() != QProcess::NotRunning) {
        m_process->kill();
        m_process->waitForFinished(1000);
    }
}

EngineDoctorQuery *EngineDoctorQuery::start(const QString &enginePath, QObject *parent)
{
    const QFileInfo info(enginePath);
    if (info.fileName() != u"orvanta_engine"_s || !info.isAbsolute() || !info.isExecutable())
        return nullptr;
    auto *query = new EngineDoctorQuery(parent);
    QProcess *process = query->m_process;
    process->setProcessChannelMode(QProcess::SeparateChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setChildProcessModifier(prepareEngineChild);
    connect(process, &QProcess::started, query,
            [query] { query->m_group = query->m_process->processId(); });
    connect(process, &QProcess::readyReadStandardOutput, query, &EngineDoctorQuery::readOutput);
    connect(process, &QProcess::readyReadStandardError, query, &EngineDoctorQuery::readOutput);
    connect(process, &QProcess::finished, query, &EngineDoctorQuery::finish);
    connect(process, &QProcess::errorOccurred, query, [query](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            query->abandon();
    });
    QTimer::singleShot(kTimeoutMs, query, &EngineDoctorQuery::abandon);
    process->start(enginePath, { u"doctor"_s, u"--json"_s });
    // Known as soon as start() returns (before started() is delivered), so a
    // query ended at once still ends the whole group.
    query->m_group = process->processId();
    return query;
}

void EngineDoctorQuery::readOutput()
{
    // Kept up to the bounds; an engine printing without end is not waited
    // for (and not read into memory) but ended.
    m_stdout += m_process->read(kMaxOutputBytes + 1 - m_stdout.size());
    m_process->setReadChannel(QProcess::StandardError);
    m_stderr += m_process->read(std::max<qint64>(0, kMaxStderrBytes - m_stderr.size()));
    m_process->readAllStandardError(); // the rest of a long complaint is dropped
    m_process->setReadChannel(QProcess::StandardOutput);
    if (m_stdout.size() > kMaxOutputBytes)
        abandon();
}

void EngineDoctorQuery::finish()
{
    if (m_done)
        return;
    readOutput();
    if (m_done)
        return;
    m_done = true;
    endProcessGroup(m_group);
    // The report lists what is missing; the exit status only repeats it. An
    // engine the loader refused to start names its missing library instead.
    if (const auto missing = parseDoctorReport(m_stdout))
        emit answered(*missing);
    else if (const auto library = missingSharedLibrary(m_stderr))
        emit answered({ *library });
    deleteLater();
}

void EngineDoctorQuery::abandon()
{
    if (m_done)
        return;
    m_done = true;
    endProcessGroup(m_group);
    m_process->kill();
    deleteLater();
}

} // namespace orvanta
