// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineVersion.h"

#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QThreadPool>

namespace orvanta {

using namespace Qt::StringLiterals;

QString parseEngineVersionAnswer(QByteArrayView output)
{
    // A sane answer is one short line; anything longer is not a version.
    constexpr qsizetype kMaxLength = 120;
    const QString text = QString::fromUtf8(output.first(std::min<qsizetype>(output.size(), 4096)));
    for (const QStringView line : QStringView(text).split(u'\n')) {
        const QString trimmed = line.trimmed().toString();
        if (!trimmed.isEmpty())
            return trimmed.size() > kMaxLength ? trimmed.first(kMaxLength) + u'…' : trimmed;
    }
    return {};
}

EngineVersion::EngineVersion(QObject *parent)
    : QObject(parent)
    , m_pool(std::make_unique<QThreadPool>())
{
    m_pool->setMaxThreadCount(1);
    m_pool->setObjectName(u"engine-version"_s);
}

EngineVersion::~EngineVersion()
{
    // A running question ends within its time-out; its answer is dropped
    // because the receiver below is gone.
    m_pool->waitForDone();
}

EngineVersion::Answer EngineVersion::versionOf(const QString &enginePath)
{
    const QFileInfo info(enginePath);
    if (enginePath.isEmpty() || !info.isFile() || !info.isExecutable())
        return { State::Unavailable, {} };
    const Identity identity { info.size(), info.lastModified() };
    const auto cached = m_cache.constFind(enginePath);
    if (cached != m_cache.cend() && cached->identity == identity)
        return cached->answer;
    m_cache.insert(enginePath, { identity, { State::Asking, {} } });
    ask(enginePath);
    return { State::Asking, {} };
}

void EngineVersion::ask(const QString &enginePath)
{
    QPointer<EngineVersion> self(this);
    m_pool->start([self, enginePath] {
        QProcess process;
        process.setProcessChannelMode(QProcess::SeparateChannels);
        process.start(enginePath, { u"--version"_s });
        QString version;
        if (process.waitForFinished(kTimeoutMs) && process.exitStatus() == QProcess::NormalExit
            && process.exitCode() == 0)
            version = parseEngineVersionAnswer(process.readAllStandardOutput());
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished();
        }
        QMetaObject::invokeMethod(
            self,
            [self, enginePath, version] {
                if (!self)
                    return;
                auto entry = self->m_cache.find(enginePath);
                if (entry == self->m_cache.end() || entry->answer.state != State::Asking)
                    return;
                entry->answer = version.isEmpty() ? Answer { State::Unavailable, {} }
                                                  : Answer { State::Known, version };
                emit self->answered(enginePath);
            },
            Qt::QueuedConnection);
    });
}

} // namespace orvanta
