// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/EngineOutputParser.h"

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

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

QString shownConsoleLine(QByteArrayView line, qsizetype limit)
{
    if (line.size() <= limit)
        return QString::fromUtf8(line);
    return QString::fromUtf8(line.first(utf8CutPosition(line, limit)))
        + u" … [line shortened: %1 bytes in all]"_s.arg(line.size());
}

qsizetype consoleLinesOverBudget(const QStringList &lines, qsizetype maxLines, qsizetype maxChars)
{
    qsizetype keep = 0;
    qsizetype chars = 0;
    for (qsizetype i = lines.size() - 1; i >= 0 && keep < maxLines; --i) {
        chars += lines.at(i).size();
        if (keep > 0 && chars > maxChars)
            break;
        ++keep;
    }
    return lines.size() - keep;
}

void EngineOutputParser::feed(QByteArrayView bytes)
{
    qsizetype start = 0;
    for (;;) {
        const qsizetype newline = bytes.indexOf('\n', start);
        if (newline < 0)
            break;
        const QByteArrayView piece = bytes.sliced(start, newline - start);
        if (m_overlongBytes > 0) {
            m_overlongBytes += piece.size();
            endOverlong();
        } else if (m_pending.isEmpty()) {
            deliverLine(piece);
        } else {
            m_pending.append(piece);
            const QByteArray line = std::exchange(m_pending, {});
            deliverLine(line);
        }
        start = newline + 1;
    }
    const QByteArrayView rest = bytes.sliced(start);
    if (m_overlongBytes > 0) {
        m_overlongBytes += rest.size();
        return;
    }
    // Held only up to the bound; what goes beyond is counted, not kept.
    const qsizetype room = kMaxLineBytes + 1 - m_pending.size();
    const qsizetype taken = std::min(room, rest.size());
    m_pending.append(rest.first(taken));
    if (m_pending.size() > kMaxLineBytes)
        beginOverlong(rest.size() - taken);
}

void EngineOutputParser::beginOverlong(qsizetype droppedBytes)
{
    // No record is this long: the line is shown by its beginning now, since
    // its end may never come, and its length once it does.
    const QByteArrayView line = trimmedAscii(m_pending);
    m_onLogLine(QString::fromUtf8(line.first(utf8CutPosition(line, kShownLineBytes)))
                + u" … [line shortened: it goes on]"_s);
    m_overlongBytes = m_pending.size() + droppedBytes;
    m_pending = QByteArray();
}

void EngineOutputParser::endOverlong()
{
    const qint64 total = std::exchange(m_overlongBytes, 0);
    m_onLogLine(u"   … [the shortened line above ended after %1 bytes]"_s.arg(total));
}

void EngineOutputParser::finish()
{
    if (m_overlongBytes > 0) {
        endOverlong();
        return;
    }
    const QByteArray rest = std::exchange(m_pending, {});
    deliverLine(rest);
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
    QString text = shownConsoleLine(line, kShownLineBytes);
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
