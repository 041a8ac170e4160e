// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineOutputParser.h"

#include <utility>

namespace orvanta {

namespace {

bool isAsciiSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f';
}

QByteArrayView trimmedAscii(QByteArrayView v)
{
    qsizetype begin = 0;
    qsizetype end = v.size();
    while (begin < end && isAsciiSpace(v[begin]))
        ++begin;
    while (end > begin && isAsciiSpace(v[end - 1]))
        --end;
    return v.sliced(begin, end - begin);
}

} // namespace

qsizetype utf8CutPosition(QByteArrayView bytes, qsizetype limit)
{
    if (bytes.size() <= limit)
        return bytes.size();
    qsizetype cut = limit;
    // Continuation bytes look like 10xxxxxx; a sequence is at most 4 bytes.
    for (int back = 0; back < 3 && cut > 0 && (uchar(bytes[cut]) & 0xC0) == 0x80; ++back)
        --cut;
    return cut > 0 ? cut : limit;
}

EngineOutputParser::EngineOutputParser(EventSink onEvent, LineSink onLogLine)
    : m_onEvent(std::move(onEvent))
    , m_onLogLine(std::move(onLogLine))
{
}

void EngineOutputParser::feed(QByteArrayView bytes)
{
    qsizetype start = 0;
    for (;;) {
        const qsizetype newline = bytes.indexOf('\n', start);
        if (newline < 0)
            break;
        const QByteArrayView piece = bytes.sliced(start, newline - start);
        if (m_pending.isEmpty()) {
            deliverCapped(piece);
        } else {
            m_pending.append(piece);
            const QByteArray line = std::exchange(m_pending, {});
            deliverCapped(line);
        }
        start = newline + 1;
    }
    m_pending.append(bytes.sliced(start));
    while (m_pending.size() > kMaxLineBytes) {
        const qsizetype cut = utf8CutPosition(m_pending, kMaxLineBytes);
        deliverLine(QByteArrayView(m_pending).first(cut));
        m_pending.remove(0, cut);
    }
}

void EngineOutputParser::finish()
{
    const QByteArray rest = std::exchange(m_pending, {});
    deliverCapped(rest);
}

void EngineOutputParser::deliverCapped(QByteArrayView line)
{
    while (line.size() > kMaxLineBytes) {
        const qsizetype cut = utf8CutPosition(line, kMaxLineBytes);
        deliverLine(line.first(cut));
        line = line.sliced(cut);
    }
    deliverLine(line);
}

void EngineOutputParser::deliverLine(QByteArrayView raw)
{
    const QByteArrayView line = trimmedAscii(raw);
    if (line.isEmpty())
        return;
    if (const auto payload = batchEventPayload(line)) {
        if (const auto event = decodeBatchEvent(*payload))
            m_onEvent(*event);
        return; // an undecodable record is dropped, never shown
    }
    QString text = QString::fromUtf8(line);
    // Unicode spaces (no-break space, ideographic space) are trimmed as
    // well; only then can such a line turn out to be a record after all.
    if (uchar(line.front()) >= 0x80 || uchar(line.back()) >= 0x80) {
        const QString trimmed = text.trimmed();
        if (trimmed.size() != text.size()) {
            if (trimmed.isEmpty())
                return;
            const QByteArray utf8 = trimmed.toUtf8();
            if (const auto payload = batchEventPayload(utf8)) {
                if (const auto event = decodeBatchEvent(*payload))
                    m_onEvent(*event);
                return;
            }
            text = trimmed;
        }
    }
    m_onLogLine(text);
}

} // namespace orvanta
