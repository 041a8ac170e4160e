// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/BatchEvent.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>

#include <array>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// Newest first; the older two are still written by earlier engine builds.
constexpr std::array<QByteArrayView, 3> kPrefixes
    = { QByteArrayView("ORVANTA_EVENT: "), QByteArrayView("DRAVIK_EVENT: "),
        QByteArrayView("TARNE_EVENT: ") };

// Member readers. Each returns false when the value is of the wrong kind,
// which rejects the whole record; null leaves the member absent.
bool readInteger(const QJsonValue &v, std::optional<qint64> &out)
{
    if (v.isNull())
        return true;
    if (!v.isDouble())
        return false;
    // toInteger() falls back to its argument when the number is not a whole
    // value that fits: two different fallbacks tell the cases apart.
    const qint64 a = v.toInteger(0);
    const qint64 b = v.toInteger(1);
    if (a != b)
        return false;
    out = a;
    return true;
}

bool readReal(const QJsonValue &v, std::optional<double> &out)
{
    if (v.isNull())
        return true;
    if (!v.isDouble())
        return false;
    out = v.toDouble();
    return true;
}

bool readText(const QJsonValue &v, std::optional<QString> &out)
{
    if (v.isNull())
        return true;
    if (!v.isString())
        return false;
    out = v.toString();
    return true;
}

// One pass over the members (records are small; looking each known name up
// separately costs more than walking them once).
bool readMember(BatchEvent &e, std::optional<QString> &type, QStringView key, const QJsonValue &v)
{
    if (key == u"type")
        return readText(v, type);
    if (key == u"stem")
        return readText(v, e.stem);
    if (key == u"index")
        return readInteger(v, e.index);
    if (key == u"total")
        return readInteger(v, e.total);
    if (key == u"peak_stops")
        return readReal(v, e.peakStops);
    if (key == u"duration")
        return readReal(v, e.duration);
    if (key == u"faces")
        return readInteger(v, e.faces);
    if (key == u"bayer_clip")
        return readReal(v, e.bayerClip);
    if (key == u"pairs")
        return readInteger(v, e.pairs);
    if (key == u"orphans")
        return readInteger(v, e.orphans);
    if (key == u"skipped")
        return readInteger(v, e.skipped);
    if (key == u"pending")
        return readInteger(v, e.pending);
    if (key == u"status")
        return readText(v, e.status);
    if (key == u"error")
        return readText(v, e.error);
    if (key == u"success")
        return readInteger(v, e.success);
    if (key == u"failed")
        return readInteger(v, e.failed);
    if (key == u"folder")
        return readText(v, e.folder);
    if (key == u"reason")
        return readText(v, e.reason);
    return true; // members we do not know are ignored
}

} // namespace

std::optional<QByteArrayView> batchEventPayload(QByteArrayView line)
{
    for (QByteArrayView prefix : kPrefixes) {
        if (line.startsWith(prefix))
            return line.sliced(prefix.size());
    }
    return std::nullopt;
}

std::optional<BatchEvent> decodeBatchEvent(QByteArrayView payload)
{
    QJsonParseError error;
    const QJsonDocument document
        = QJsonDocument::fromJson(QByteArray::fromRawData(payload.data(), payload.size()), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    const QJsonObject o = document.object();

    BatchEvent e;
    std::optional<QString> type;
    for (auto it = o.constBegin(); it != o.constEnd(); ++it) {
        if (!readMember(e, type, it.key(), it.value()))
            return std::nullopt;
    }
    if (!type)
        return std::nullopt;
    e.type = *type;
    return e;
}

} // namespace orvanta
