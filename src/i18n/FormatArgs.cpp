// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "i18n/FormatArgs.h"

#include <QLocale>
#include <QStringBuilder>

#include <charconv>
#include <cmath>
#include <limits>

namespace orvanta {

namespace {

// Generous for any real text, small enough that a hostile "%999999999d" cannot
// allocate its way out of memory.
constexpr int kMaxFieldWidth = 1024;
constexpr int kMaxPrecision = 64;

struct Directive
{
    qsizetype begin = 0; // index of '%'
    qsizetype end = 0; // one past the conversion character
    int position = 0; // 1-based for %n$, 0 for sequential
    bool leftAlign = false;
    bool plusSign = false;
    bool spaceSign = false;
    bool zeroPad = false;
    bool alternate = false;
    bool widthFromArg = false;
    bool precisionFromArg = false;
    int width = -1;
    int precision = -1;
    QChar conversion;
};

bool isConversion(QChar c)
{
    return QStringView(u"diufFeEgGxXocs@").contains(c);
}

int readNumber(const QString &s, qsizetype &i, int cap)
{
    qint64 value = 0;
    while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) {
        value = qMin<qint64>(value * 10 + (s[i].unicode() - '0'), cap);
        ++i;
    }
    return int(value);
}

// Parses the directive that starts at `start` (a '%' that is not part of
// "%%"). Returns false when no complete directive stands there.
bool parseDirective(const QString &s, qsizetype start, Directive &d)
{
    d = Directive {};
    d.begin = start;
    qsizetype i = start + 1;

    // %n$ : positional argument
    qsizetype probe = i;
    const int pos = readNumber(s, probe, 1 << 20);
    if (probe > i && probe < s.size() && s[probe] == u'$' && pos > 0) {
        d.position = pos;
        i = probe + 1;
    }

    for (; i < s.size(); ++i) {
        const QChar c = s[i];
        if (c == u'-')
            d.leftAlign = true;
        else if (c == u'+')
            d.plusSign = true;
        else if (c == u' ')
            d.spaceSign = true;
        else if (c == u'0')
            d.zeroPad = true;
        else if (c == u'#')
            d.alternate = true;
        else if (c == u'\'')
            continue; // grouping: the C locale has none
        else
            break;
    }

    if (i < s.size() && s[i] == u'*') {
        d.widthFromArg = true;
        ++i;
    } else if (i < s.size() && s[i].isDigit()) {
        d.width = readNumber(s, i, kMaxFieldWidth);
    }

    if (i < s.size() && s[i] == u'.') {
        ++i;
        if (i < s.size() && s[i] == u'*') {
            d.precisionFromArg = true;
            ++i;
        } else {
            d.precision = readNumber(s, i, kMaxPrecision);
        }
    }

    // Length modifiers carry no meaning for typed arguments; accept and skip.
    while (i < s.size() && QStringView(u"hlqLzjt").contains(s[i]))
        ++i;

    if (i >= s.size() || !isConversion(s[i]))
        return false;
    d.conversion = s[i];
    d.end = i + 1;
    return true;
}

QString pad(const QString &body, const Directive &d, bool numeric)
{
    const int width = qMin(d.width, kMaxFieldWidth);
    if (width <= body.size())
        return body;
    const qsizetype fill = width - body.size();
    if (d.leftAlign)
        return body + QString(fill, u' ');
    if (numeric && d.zeroPad) {
        // Zeros go after the sign and any 0x prefix.
        qsizetype prefix = 0;
        if (!body.isEmpty() && (body[0] == u'-' || body[0] == u'+' || body[0] == u' '))
            prefix = 1;
        if (body.size() >= prefix + 2 && body[prefix] == u'0'
            && (body[prefix + 1] == u'x' || body[prefix + 1] == u'X'))
            prefix += 2;
        return body.left(prefix) + QString(fill, u'0') + body.mid(prefix);
    }
    return QString(fill, u' ') + body;
}

QString signed_(const QString &digits, bool negative, const Directive &d)
{
    if (negative)
        return u'-' + digits;
    if (d.plusSign)
        return u'+' + digits;
    if (d.spaceSign)
        return u' ' + digits;
    return digits;
}

QString formatInteger(const FormatArg &arg, Directive d)
{
    const QChar conv = d.conversion;
    if (arg.isString())
        return pad(arg.toString(), d, false);

    const qint64 value = arg.toInteger();
    QString digits;
    bool negative = false;
    if (conv == u'd' || conv == u'i') {
        negative = value < 0;
        // Magnitude as unsigned so that the most negative value has one.
        const quint64 magnitude = negative ? quint64(0) - quint64(value) : quint64(value);
        digits = QString::number(magnitude);
    } else {
        const int base = (conv == u'x' || conv == u'X') ? 16 : (conv == u'o' ? 8 : 10);
        digits = QString::number(quint64(value), base);
        if (conv == u'X')
            digits = digits.toUpper();
    }
    if (d.precision >= 0) {
        if (d.precision == 0 && value == 0)
            digits.clear();
        else if (digits.size() < d.precision)
            digits.prepend(QString(d.precision - digits.size(), u'0'));
        d.zeroPad = false; // a precision overrides the 0 flag for integers
    }
    if (d.alternate && value != 0) {
        if (conv == u'x')
            digits.prepend(u"0x");
        else if (conv == u'X')
            digits.prepend(u"0X");
        else if (conv == u'o' && !digits.startsWith(u'0'))
            digits.prepend(u'0');
    }
    const bool isSigned = conv == u'd' || conv == u'i';
    return pad(isSigned ? signed_(digits, negative, d) : digits, d, true);
}

// Like printf in the C locale (exact value, ties to even), whatever locale the
// process runs in: the decimal separator is always a point.
QString cLocaleReal(double value, char format, int precision)
{
    const std::chars_format style = format == 'f' ? std::chars_format::fixed
        : format == 'e'                           ? std::chars_format::scientific
                                                  : std::chars_format::general;
    char buffer[512];
    const auto [end, error]
        = std::to_chars(buffer, buffer + sizeof buffer, value, style, precision);
    if (error != std::errc())
        return QString::number(value, format, precision);
    return QString::fromLatin1(buffer, end - buffer);
}

QString formatReal(const FormatArg &arg, Directive d)
{
    if (arg.isString())
        return pad(arg.toString(), d, false);

    const double value = arg.toReal();
    const QChar conv = d.conversion;
    const bool upper = conv.isUpper();
    QString digits;
    if (std::isnan(value)) {
        digits = upper ? QStringLiteral("NAN") : QStringLiteral("nan");
        d.zeroPad = false;
    } else if (std::isinf(value)) {
        digits = upper ? QStringLiteral("INF") : QStringLiteral("inf");
        d.zeroPad = false;
    } else {
        const int precision = d.precision < 0 ? 6 : d.precision;
        const char format = char(conv.toLower().unicode());
        digits = cLocaleReal(std::fabs(value), format, precision);
        if (upper)
            digits = digits.toUpper();
        if (d.alternate && !digits.contains(u'.') && format == 'f')
            digits.append(u'.');
    }
    return pad(signed_(digits, std::signbit(value) && !std::isnan(value), d), d, true);
}

QString formatString(const FormatArg &arg, const Directive &d)
{
    QString text = arg.toString();
    if (d.conversion == u'c') {
        if (arg.isString()) {
            text = text.left(1);
        } else {
            const qint64 code = arg.toInteger();
            const bool valid = code >= 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
            const char32_t ucs4 = valid ? char32_t(code) : char32_t(0xFFFD);
            text = QString::fromUcs4(&ucs4, 1);
        }
    }
    if (d.precision >= 0 && d.conversion != u'c')
        text.truncate(d.precision);
    return pad(text, d, false);
}

QString render(const FormatArg &arg, const Directive &d)
{
    switch (d.conversion.unicode()) {
    case 'd':
    case 'i':
    case 'u':
    case 'x':
    case 'X':
    case 'o':
        return formatInteger(arg, d);
    case 'f':
    case 'F':
    case 'e':
    case 'E':
    case 'g':
    case 'G':
        return formatReal(arg, d);
    default:
        return formatString(arg, d);
    }
}

} // namespace

qint64 FormatArg::toInteger() const
{
    if (const auto *i = std::get_if<qint64>(&m_value))
        return *i;
    if (const auto *r = std::get_if<double>(&m_value)) {
        // Truncate like a C cast, but without its undefined behaviour.
        constexpr double limit = 9223372036854775807.0;
        if (!std::isfinite(*r) || *r >= limit || *r < -limit)
            return 0;
        return qint64(*r);
    }
    return std::get<QString>(m_value).trimmed().toLongLong();
}

double FormatArg::toReal() const
{
    if (const auto *i = std::get_if<qint64>(&m_value))
        return double(*i);
    if (const auto *r = std::get_if<double>(&m_value))
        return *r;
    return std::get<QString>(m_value).trimmed().toDouble();
}

QString FormatArg::toString() const
{
    if (const auto *i = std::get_if<qint64>(&m_value))
        return QString::number(*i);
    if (const auto *r = std::get_if<double>(&m_value))
        return QString::number(*r, 'g', QLocale::FloatingPointShortest);
    return std::get<QString>(m_value);
}

QString formatPrintf(const QString &format, const FormatArgs &args)
{
    QString out;
    out.reserve(format.size() + 16 * args.size());
    qsizetype next = 0; // next sequential argument
    qsizetype i = 0;
    const qsizetype n = format.size();

    while (i < n) {
        const qsizetype percent = format.indexOf(u'%', i);
        if (percent < 0) {
            out += QStringView(format).mid(i);
            break;
        }
        out += QStringView(format).mid(i, percent - i);
        if (percent + 1 < n && format[percent + 1] == u'%') {
            out += u'%';
            i = percent + 2;
            continue;
        }

        Directive d;
        if (!parseDirective(format, percent, d)) {
            out += u'%';
            i = percent + 1;
            continue;
        }
        const QStringView original = QStringView(format).mid(d.begin, d.end - d.begin);
        i = d.end;

        // Arguments for '*' come first, then the value itself.
        qsizetype cursor = next;
        auto take = [&](qsizetype positional) -> const FormatArg * {
            const qsizetype index = positional > 0 ? positional - 1 : cursor++;
            return (index >= 0 && index < args.size()) ? &args[index] : nullptr;
        };
        const FormatArg *widthArg = d.widthFromArg ? take(0) : nullptr;
        const FormatArg *precisionArg = d.precisionFromArg ? take(0) : nullptr;
        const FormatArg *value = take(d.position);
        if ((d.widthFromArg && !widthArg) || (d.precisionFromArg && !precisionArg) || !value) {
            out += original; // nothing left to put here: leave the text as written
            continue;
        }
        if (d.position == 0)
            next = cursor;
        if (widthArg) {
            const qint64 w = widthArg->toInteger();
            d.leftAlign = d.leftAlign || w < 0;
            // Through unsigned, so that the most negative width has a magnitude too.
            const quint64 magnitude = w < 0 ? quint64(0) - quint64(w) : quint64(w);
            d.width = int(qMin<quint64>(magnitude, kMaxFieldWidth));
        }
        if (precisionArg) {
            const qint64 p = precisionArg->toInteger();
            d.precision = p < 0 ? -1 : int(qMin<qint64>(p, kMaxPrecision));
        }
        out += render(*value, d);
    }
    return out;
}

QStringList printfDirectives(const QString &format)
{
    QStringList result;
    qsizetype i = 0;
    while ((i = format.indexOf(u'%', i)) >= 0) {
        if (i + 1 < format.size() && format[i + 1] == u'%') {
            i += 2;
            continue;
        }
        Directive d;
        if (parseDirective(format, i, d)) {
            result << format.mid(d.begin, d.end - d.begin);
            i = d.end;
        } else {
            ++i;
        }
    }
    return result;
}

} // namespace orvanta
