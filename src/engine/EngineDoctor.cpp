// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "EngineDoctor.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTimer>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr int kDoctorTimeoutMs = 5000;

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

EngineDoctorQuery::EngineDoctorQuery(QObject *parent)
    : QObject(parent)
    , m_process(new QProcess(this))
{
}

EngineDoctorQuery::~EngineDoctorQuery()
{
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
    connect(process, &QProcess::finished, query, &EngineDoctorQuery::finish);
    connect(process, &QProcess::errorOccurred, query, [query](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            query->deleteLater();
    });
    QTimer::singleShot(kDoctorTimeoutMs, query, [query] {
        query->m_process->kill();
        query->deleteLater();
    });
    process->start(enginePath, { u"doctor"_s, u"--json"_s });
    return query;
}

void EngineDoctorQuery::finish()
{
    // The report lists what is missing; the exit status only repeats it.
    if (const auto missing = parseDoctorReport(m_process->readAllStandardOutput()))
        emit answered(*missing);
    deleteLater();
}

} // namespace orvanta
