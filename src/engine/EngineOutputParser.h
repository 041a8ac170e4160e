// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Turns the engine's merged output bytes into log lines and decoded events,
// in arrival order. Works on bytes, so a character split across two reads is
// joined before it is decoded. One instance per run; used on one thread.
#pragma once

#include "engine/BatchEvent.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <functional>

namespace orvanta {

class EngineOutputParser
{
public:
    // At most this much of a line is held while waiting for its newline; a
    // longer line is shown by its beginning and then only counted, so a
    // runaway engine cannot exhaust memory.
    static constexpr qsizetype kMaxLineBytes = qsizetype(1) << 20;
    // A console line longer than this is shown shortened, its length noted.
    static constexpr qsizetype kShownLineBytes = 4096;

    using EventSink = std::function<void(const BatchEvent &)>;
    using LineSink = std::function<void(const QString &)>;

    EngineOutputParser(EventSink onEvent, LineSink onLogLine);

    // Feeds the next bytes read from the pipe; complete lines are delivered
    // before this returns.
    void feed(QByteArrayView bytes);
    // The engine has ended: whatever follows the last newline is one more line.
    void finish();

    // Bytes held back waiting for a newline.
    qsizetype pendingBytes() const { return m_pending.size(); }

    // Classifies one line (without its newline): trimmed, empty lines
    // dropped, record lines decoded (or dropped when undecodable), every
    // other line decoded as UTF-8 with replacement characters.
    void deliverLine(QByteArrayView line);

private:
    void beginOverlong(qsizetype droppedBytes);
    void endOverlong();

    EventSink m_onEvent;
    LineSink m_onLogLine;
    QByteArray m_pending;
    // Bytes of the current over-long line so far; 0 when not in one.
    qint64 m_overlongBytes = 0;
};

// The text shown for a console line of `line` bytes: itself, or when longer
// than `limit`, its beginning and a note of its full length.
QString shownConsoleLine(QByteArrayView line, qsizetype limit);

// How many of the oldest console lines to drop so that at most `maxLines`
// lines holding at most `maxChars` characters remain (the newest line is
// always kept).
qsizetype consoleLinesOverBudget(const QStringList &lines, qsizetype maxLines, qsizetype maxChars);

// Where to cut a too long line: at most `limit` bytes, moved back to the
// start of a UTF-8 sequence so that no character is split.
qsizetype utf8CutPosition(QByteArrayView bytes, qsizetype limit);

} // namespace orvanta
