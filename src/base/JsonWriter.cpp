// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/JsonWriter.h"

#include <QJsonArray>
#include <QLocale>
#include <QVariant>

#include <cmath>

namespace orvanta {

namespace {

void writeString(QByteArray &out, const QString &text)
{
    out += '"';
    const QByteArray utf8 = text.toUtf8();
    for (const char c : utf8) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        case '\b':
            out += "\\b";
            break;
        case '\f':
            out += "\\f";
            break;
        default:
            if (u < 0x20)
                out += "\\u00" + QByteArray::number(u, 16).rightJustified(2, '0');
            else
                out += c; // UTF-8 is written as is; '/' is not escaped
        }
    }
    out += '"';
}

void writeNumber(QByteArray &out, const QJsonValue &value)
{
    // Integers parsed from the file keep their exact value.
    const QVariant variant = value.toVariant();
    if (variant.typeId() == QMetaType::LongLong) {
        out += QByteArray::number(variant.toLongLong());
        return;
    }
    const double d = value.toDouble();
    if (!std::isfinite(d)) {
        out += "null"; // JSON has no NaN or infinity
        return;
    }
    if (d == std::trunc(d) && std::fabs(d) < 1e15) {
        out += QByteArray::number(qint64(d));
        return;
    }
    out += QByteArray::number(d, 'g', QLocale::FloatingPointShortest);
}

void writeValue(QByteArray &out, const QJsonValue &value, int depth);

void indent(QByteArray &out, int depth)
{
    out += QByteArray(2 * depth, ' ');
}

void writeObject(QByteArray &out, const QJsonObject &object, int depth)
{
    if (object.isEmpty()) {
        out += "{}";
        return;
    }
    out += "{\n";
    for (auto it = object.begin(); it != object.end(); ++it) {
        indent(out, depth + 1);
        writeString(out, it.key());
        out += " : ";
        writeValue(out, it.value(), depth + 1);
        if (std::next(it) != object.end())
            out += ',';
        out += '\n';
    }
    indent(out, depth);
    out += '}';
}

void writeArray(QByteArray &out, const QJsonArray &array, int depth)
{
    if (array.isEmpty()) {
        out += "[]";
        return;
    }
    out += "[\n";
    for (qsizetype i = 0; i < array.size(); ++i) {
        indent(out, depth + 1);
        writeValue(out, array.at(i), depth + 1);
        if (i + 1 < array.size())
            out += ',';
        out += '\n';
    }
    indent(out, depth);
    out += ']';
}

void writeValue(QByteArray &out, const QJsonValue &value, int depth)
{
    switch (value.type()) {
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        out += "null";
        break;
    case QJsonValue::Bool:
        out += value.toBool() ? "true" : "false";
        break;
    case QJsonValue::Double:
        writeNumber(out, value);
        break;
    case QJsonValue::String:
        writeString(out, value.toString());
        break;
    case QJsonValue::Array:
        writeArray(out, value.toArray(), depth);
        break;
    case QJsonValue::Object:
        writeObject(out, value.toObject(), depth);
        break;
    }
}

} // namespace

QByteArray prettyJson(const QJsonObject &object)
{
    QByteArray out;
    writeObject(out, object, 0);
    out += '\n';
    return out;
}

QByteArray prettyJson(const QJsonArray &array)
{
    QByteArray out;
    writeArray(out, array, 0);
    out += '\n';
    return out;
}

} // namespace orvanta
