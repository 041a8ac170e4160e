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
constexpr std::array<QByteArrayView, 3> kPrefixes = {
    QByteArrayView("ORVANTA_EVENT: "), QByteArrayView("DRAVIK_EVENT: "),
    QByteArrayView("TARNE_EVENT: ")};

// Reads one optional member. Returns false when the member is present but
// of the wrong kind, which rejects the record.
bool readInteger(const QJsonObject &o, QLatin1StringView key, std::optional<qint64> &out)
{
    const QJsonValue v = o.value(key);
    if (v.isUndefined() || v.isNull())
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

bool readReal(const QJsonObject &o, QLatin1StringView key, std::optional<double> &out)
{
    const QJsonValue v = o.value(key);
    if (v.isUndefined() || v.isNull())
        return true;
    if (!v.isDouble())
        return false;
    out = v.toDouble();
    return true;
}

bool readText(const QJsonObject &o, QLatin1StringView key, std::optional<QString> &out)
{
    const QJsonValue v = o.value(key);
    if (v.isUndefined() || v.isNull())
        return true;
    if (!v.isString())
        return false;
    out = v.toString();
    return true;
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
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromRawData(payload.data(), payload.size()), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
        return std::nullopt;
    const QJsonObject o = document.object();

    BatchEvent e;
    std::optional<QString> type;
    if (!readText(o, "type"_L1, type) || !type)
        return std::nullopt;
    e.type = *type;

    const bool ok = readInteger(o, "pairs"_L1, e.pairs) && readInteger(o, "orphans"_L1, e.orphans)
        && readInteger(o, "skipped"_L1, e.skipped) && readInteger(o, "pending"_L1, e.pending)
        && readText(o, "stem"_L1, e.stem) && readInteger(o, "index"_L1, e.index)
        && readInteger(o, "total"_L1, e.total) && readInteger(o, "faces"_L1, e.faces)
        && readReal(o, "peak_stops"_L1, e.peakStops) && readReal(o, "bayer_clip"_L1, e.bayerClip)
        && readReal(o, "duration"_L1, e.duration) && readText(o, "status"_L1, e.status)
        && readText(o, "error"_L1, e.error) && readInteger(o, "success"_L1, e.success)
        && readInteger(o, "failed"_L1, e.failed);
    if (!ok)
        return std::nullopt;
    return e;
}

} // namespace orvanta
