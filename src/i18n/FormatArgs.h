// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Typed arguments for the printf-style texts of the string tables, and the
// formatter that substitutes them. Pure functions; safe on any thread.
#pragma once

#include <QList>
#include <QString>

#include <variant>

namespace orvanta {

// One argument: an integer, a real or a string. Texts come from tables the
// program ships, but translations and status keys change over time, so any
// mismatch between a directive and its argument is rendered, never trusted.
class FormatArg
{
public:
    FormatArg(int v)
        : m_value(qint64(v))
    {
    }
    FormatArg(unsigned v)
        : m_value(qint64(v))
    {
    }
    FormatArg(long v)
        : m_value(qint64(v))
    {
    }
    FormatArg(long long v)
        : m_value(qint64(v))
    {
    }
    FormatArg(unsigned long v)
        : m_value(qint64(v))
    {
    }
    FormatArg(unsigned long long v)
        : m_value(qint64(v))
    {
    }
    FormatArg(double v)
        : m_value(v)
    {
    }
    FormatArg(float v)
        : m_value(double(v))
    {
    }
    FormatArg(const QString &v)
        : m_value(v)
    {
    }
    FormatArg(const char *utf8)
        : m_value(QString::fromUtf8(utf8))
    {
    }
    FormatArg(bool) = delete; // ambiguous in a text: say what it means first

    bool isInteger() const { return std::holds_alternative<qint64>(m_value); }
    bool isReal() const { return std::holds_alternative<double>(m_value); }
    bool isString() const { return std::holds_alternative<QString>(m_value); }

    qint64 toInteger() const;
    double toReal() const;
    QString toString() const;

    friend bool operator==(const FormatArg &, const FormatArg &) = default;

private:
    std::variant<qint64, double, QString> m_value;
};

using FormatArgs = QList<FormatArg>;

// printf-style substitution of `args` into `format`.
// Directives: %d %i %u %f %F %e %E %g %G %x %X %o %c %@ %s and %%, with flags
// (- + space 0 # '), width, precision (both may be *), length modifiers
// (hh h l ll q L z j t) and positional %n$ forms. The decimal separator is
// always a point. A directive whose argument is missing is copied unchanged,
// as is a lone or incomplete "%"; no input makes it fail.
QString formatPrintf(const QString &format, const FormatArgs &args);

// The directives of `format` in order (e.g. {"%d", "%.1f", "%@"}); "%%" is
// not listed. Used to check that a translation takes the arguments of the
// English text in the same order.
QStringList printfDirectives(const QString &format);

} // namespace orvanta
