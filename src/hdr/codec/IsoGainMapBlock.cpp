// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/IsoGainMapBlock.h"

#include "hdr/codec/JpegSegments.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace orvanta {

namespace {

constexpr quint8 kFlagMultiChannel = 0x80;
constexpr quint8 kFlagUseBaseColourSpace = 0x40;
constexpr quint8 kFlagCommonDenominator = 0x08; // libultrahdr's compact layout
constexpr quint8 kFlagBackwardDirection = 0x04; // libultrahdr: base rendition is HDR

// Cursor over the block that refuses to read past its end.
class Reader
{
public:
    explicit Reader(QByteArrayView data)
        : m_data(data)
    {
    }
    bool has(qsizetype bytes) const { return m_pos + bytes <= m_data.size(); }
    quint8 u8() { return static_cast<quint8>(m_data[m_pos++]); }
    quint16 u16()
    {
        const quint16 v = readU16(m_data.data() + m_pos, true);
        m_pos += 2;
        return v;
    }
    quint32 u32()
    {
        const quint32 v = readU32(m_data.data() + m_pos, true);
        m_pos += 4;
        return v;
    }
    qint32 s32() { return static_cast<qint32>(u32()); }
    qsizetype remaining() const { return m_data.size() - m_pos; }

private:
    QByteArrayView m_data;
    qsizetype m_pos = 0;
};

// Fractions in the order the block stores them, with a signedness flag each.
struct Fraction
{
    double numerator = 0;
    quint32 denominator = 1;
};

bool divide(Fraction f, double &out)
{
    if (f.denominator == 0)
        return false;
    out = f.numerator / double(f.denominator);
    return std::isfinite(out);
}

// Per-channel layout: min (s), max (s), gamma (u), base offset (s), alternate offset (s).
constexpr bool kChannelSigned[5] = { true, true, false, true, true };

bool readFractions(Reader &in, bool compact, int channelCount, Fraction (&head)[2],
                   Fraction (&channels)[3][5])
{
    const qsizetype needed = compact ? 4 + 8 + 20 * channelCount : 16 + 40 * channelCount;
    if (!in.has(needed))
        return false;
    quint32 common = compact ? in.u32() : 0;
    auto next = [&](bool isSigned) {
        Fraction f;
        f.numerator = isSigned ? double(in.s32()) : double(in.u32());
        f.denominator = compact ? common : in.u32();
        return f;
    };
    head[0] = next(false);
    head[1] = next(false);
    for (int c = 0; c < channelCount; ++c)
        for (int k = 0; k < 5; ++k)
            channels[c][k] = next(kChannelSigned[k]);
    return true;
}

IsoBlock rejected(const char *why)
{
    IsoBlock block;
    block.error = QString::fromLatin1(why);
    return block;
}

enum class Rounding { Nearest, Down, Up };

std::pair<qint64, quint32> toFraction(double value, bool isSigned,
                                      Rounding rounding = Rounding::Nearest)
{
    // The largest power-of-two denominator (up to 2^24) that keeps the
    // numerator in range, so typical values round-trip exactly.
    const double limit = isSigned ? 2147483647.0 : 4294967295.0;
    quint32 denominator = 1u << 24;
    while (denominator > 1 && std::abs(value) * denominator > limit)
        denominator >>= 1;
    const double scaled = value * denominator;
    double numerator = rounding == Rounding::Down ? std::floor(scaled)
        : rounding == Rounding::Up                ? std::ceil(scaled)
                                                  : std::round(scaled);
    numerator = std::clamp(numerator, isSigned ? -2147483648.0 : 0.0, limit);
    return { qint64(numerator), denominator };
}

// Lower bounds are rounded down and upper bounds up, so values that were in
// order (min <= max, capacity min < max) stay in order once written.
void appendFraction(QByteArray &out, double value, bool isSigned, Rounding rounding)
{
    const auto [numerator, denominator] = toFraction(value, isSigned, rounding);
    appendU32(out, quint32(numerator)); // two's complement for negative values
    appendU32(out, denominator);
}

} // namespace

IsoBlock parseIsoBlock(QByteArrayView payload)
{
    Reader in(payload);
    if (!in.has(4))
        return rejected("ISO 21496-1 block truncated");
    const quint16 minimumVersion = in.u16();
    const quint16 writerVersion = in.u16();
    if (minimumVersion != 0)
        return rejected("ISO 21496-1 block needs a newer reader");
    if (!in.has(1)) {
        IsoBlock block;
        block.versionOnly = true;
        return block;
    }
    const quint8 flags = in.u8();
    const int channelCount = (flags & kFlagMultiChannel) ? 3 : 1;
    const bool compact = flags & kFlagCommonDenominator;
    Fraction head[2];
    Fraction channels[3][5];
    if (!readFractions(in, compact, channelCount, head, channels))
        return rejected("ISO 21496-1 block truncated");
    if (in.remaining() > 0 && writerVersion == 0)
        return rejected("ISO 21496-1 block has trailing bytes");

    GainMapMetadata m;
    m.source = GainMapMetadataSource::Iso21496;
    m.version = QStringLiteral("%1.%2").arg(minimumVersion).arg(writerVersion);
    m.channelCount = channelCount;
    m.useBaseColourSpace = flags & kFlagUseBaseColourSpace;
    bool ok = divide(head[0], m.hdrCapacityMinLog2) && divide(head[1], m.hdrCapacityMaxLog2);
    for (int c = 0; c < channelCount && ok; ++c) {
        GainMapChannel &ch = m.channels[c];
        ok = divide(channels[c][0], ch.minLog2) && divide(channels[c][1], ch.maxLog2)
            && divide(channels[c][2], ch.gamma) && divide(channels[c][3], ch.offsetSdr)
            && divide(channels[c][4], ch.offsetHdr);
    }
    if (!ok)
        return rejected("ISO 21496-1 block has a zero denominator");
    m.baseIsHdr = (flags & kFlagBackwardDirection) || m.hdrCapacityMinLog2 > m.hdrCapacityMaxLog2;
    if (const QString why = m.validationError(); !why.isEmpty()) {
        IsoBlock block;
        block.error = QStringLiteral("ISO 21496-1 block invalid: ") + why;
        return block;
    }
    IsoBlock block;
    block.metadata = m;
    return block;
}

QByteArray isoVersionBlock()
{
    return QByteArray(4, '\0');
}

QByteArray serializeIsoBlock(const GainMapMetadata &m)
{
    QByteArray out;
    appendU16(out, 0);
    appendU16(out, 0);
    quint8 flags = 0;
    if (m.channelCount == 3)
        flags |= kFlagMultiChannel;
    if (m.useBaseColourSpace)
        flags |= kFlagUseBaseColourSpace;
    out.append(char(flags));
    appendFraction(out, m.hdrCapacityMinLog2, false, Rounding::Down);
    appendFraction(out, m.hdrCapacityMaxLog2, false, Rounding::Up);
    for (int c = 0; c < (m.channelCount == 3 ? 3 : 1); ++c) {
        const GainMapChannel &ch = m.channels[c];
        appendFraction(out, ch.minLog2, true, Rounding::Down);
        appendFraction(out, ch.maxLog2, true, Rounding::Up);
        appendFraction(out, ch.gamma, false, Rounding::Nearest);
        appendFraction(out, ch.offsetSdr, true, Rounding::Nearest);
        appendFraction(out, ch.offsetHdr, true, Rounding::Nearest);
    }
    return out;
}

double quantizeForIso(double value)
{
    const auto [numerator, denominator] = toFraction(value, value < 0);
    return double(numerator) / double(denominator);
}

} // namespace orvanta
