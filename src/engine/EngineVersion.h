// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What an engine binary says it is ("orvanta_engine --version"), asked once
// per binary and remembered. Lives on the main thread; the engine is run on
// a private one-thread pool so a slow or hung binary never stalls the UI.
#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QString>

#include <memory>

class QThreadPool;

namespace orvanta {

// The first non-empty line of a `--version` answer, trimmed and bounded;
// empty when there is none.
QString parseEngineVersionAnswer(QByteArrayView output);

class EngineVersion : public QObject
{
    Q_OBJECT

public:
    enum class State { Asking, Known, Unavailable };
    struct Answer
    {
        State state = State::Asking;
        QString text; // the version line when Known
    };

    explicit EngineVersion(QObject *parent = nullptr);
    ~EngineVersion() override;

    // The remembered answer for the binary at `enginePath`. The binary is
    // identified by path, size and modification time, so replacing the
    // engine (an update, another build) or pointing at another one asks
    // again. While asking, the state is Asking and `answered` follows.
    Answer versionOf(const QString &enginePath);

    // An engine that has not answered by then is taken as unavailable.
    static constexpr int kTimeoutMs = 10'000;

signals:
    void answered(const QString &enginePath);

private:
    struct Identity
    {
        qint64 size = -1;
        QDateTime modified;
        bool operator==(const Identity &) const = default;
    };
    struct Entry
    {
        Identity identity;
        Answer answer;
    };
    void ask(const QString &enginePath);

    std::unique_ptr<QThreadPool> m_pool;
    QHash<QString, Entry> m_cache;
};

} // namespace orvanta
