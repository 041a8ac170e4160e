// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// One progress record of the engine ("ORVANTA_EVENT: {...}" lines) and the
// rules that recognise and decode it. Pure functions; safe on any thread.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <optional>

namespace orvanta {

struct BatchEvent
{
    QString type;
    std::optional<qint64> pairs;
    std::optional<qint64> orphans;
    std::optional<qint64> skipped;
    std::optional<qint64> pending;
    std::optional<QString> stem;
    std::optional<qint64> index;
    std::optional<qint64> total;
    std::optional<qint64> faces;
    std::optional<double> peakStops;
    std::optional<double> bayerClip;
    std::optional<double> duration;
    std::optional<QString> status;
    std::optional<QString> error;
    std::optional<qint64> success;
    std::optional<qint64> failed;
    std::optional<QString> folder;
    std::optional<QString> reason;

    friend bool operator==(const BatchEvent &, const BatchEvent &) = default;
};

// The payload after a record prefix, or nothing when `line` (already
// trimmed) is an ordinary log line. Current and two older prefixes count.
std::optional<QByteArrayView> batchEventPayload(QByteArrayView line);

// Decodes one JSON object. Only "type" is required; null reads as absent;
// an integer member holding a fraction, a member of the wrong JSON type or
// anything that is not an object rejects the whole record.
std::optional<BatchEvent> decodeBatchEvent(QByteArrayView payload);

} // namespace orvanta
