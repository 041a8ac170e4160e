// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/ColourPrimaries.h"

#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>

namespace orvanta {

namespace {

struct Chromaticities
{
    double rx, ry, gx, gy, bx, by; // white is D65 for all three
};

constexpr double kD65[3] = { 0.95047, 1.0, 1.08883 };
constexpr double kD50[3] = { 0.9642, 1.0, 0.8249 };

Chromaticities chromaticitiesOf(Gamut gamut)
{
    switch (gamut) {
    case Gamut::DisplayP3:
        return { 0.680, 0.320, 0.265, 0.690, 0.150, 0.060 };
    case Gamut::Bt2100:
        return { 0.708, 0.292, 0.170, 0.797, 0.131, 0.046 };
    case Gamut::Srgb:
        break;
    }
    return { 0.64, 0.33, 0.30, 0.60, 0.15, 0.06 };
}

// Bradford adaptation from D65 to D50, as ICC profiles store their colourants.
Matrix3 bradfordD65ToD50()
{
    const Matrix3 cone {
        0.8951, 0.2664, -0.1614, -0.7502, 1.7135, 0.0367, 0.0389, -0.0685, 1.0296
    };
    double src[3], dst[3];
    for (int i = 0; i < 3; ++i) {
        src[i] = cone[i * 3] * kD65[0] + cone[i * 3 + 1] * kD65[1] + cone[i * 3 + 2] * kD65[2];
        dst[i] = cone[i * 3] * kD50[0] + cone[i * 3 + 1] * kD50[1] + cone[i * 3 + 2] * kD50[2];
    }
    const Matrix3 scale { dst[0] / src[0], 0, 0, 0, dst[1] / src[1], 0, 0, 0, dst[2] / src[2] };
    return multiply(*inverse(cone), multiply(scale, cone));
}

double s15(QByteArrayView b, qsizetype at)
{
    return qFromBigEndian<qint32>(b.data() + at) / 65536.0;
}

QByteArray be32(quint32 v)
{
    QByteArray b(4, '\0');
    qToBigEndian(v, b.data());
    return b;
}

QByteArray xyzTag(double x, double y, double z)
{
    QByteArray t = QByteArray("XYZ \0\0\0\0", 8);
    for (double v : { x, y, z })
        t += be32(quint32(qint32(std::lround(v * 65536.0))));
    return t;
}

QByteArray descTag(const QByteArray &text)
{
    QByteArray t = QByteArray("desc\0\0\0\0", 8) + be32(quint32(text.size() + 1)) + text + '\0';
    t += QByteArray(8, '\0') + QByteArray(3, '\0') + QByteArray(67, '\0');
    return t;
}

} // namespace

Matrix3 multiply(const Matrix3 &a, const Matrix3 &b)
{
    Matrix3 m {};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k)
                m[i * 3 + j] += a[i * 3 + k] * b[k * 3 + j];
    return m;
}

std::optional<Matrix3> inverse(const Matrix3 &m)
{
    const double d = m[0] * (m[4] * m[8] - m[5] * m[7]) - m[1] * (m[3] * m[8] - m[5] * m[6])
        + m[2] * (m[3] * m[7] - m[4] * m[6]);
    if (!std::isfinite(d) || std::abs(d) < 1e-12)
        return std::nullopt;
    return Matrix3 { (m[4] * m[8] - m[5] * m[7]) / d, (m[2] * m[7] - m[1] * m[8]) / d,
                     (m[1] * m[5] - m[2] * m[4]) / d, (m[5] * m[6] - m[3] * m[8]) / d,
                     (m[0] * m[8] - m[2] * m[6]) / d, (m[2] * m[3] - m[0] * m[5]) / d,
                     (m[3] * m[7] - m[4] * m[6]) / d, (m[1] * m[6] - m[0] * m[7]) / d,
                     (m[0] * m[4] - m[1] * m[3]) / d };
}

Matrix3 gamutToXyz(Gamut gamut)
{
    const Chromaticities c = chromaticitiesOf(gamut);
    // Columns: each primary's XYZ at unit luminance, then scaled so RGB white is D65.
    const Matrix3 p { c.rx / c.ry,
                      c.gx / c.gy,
                      c.bx / c.by,
                      1,
                      1,
                      1,
                      (1 - c.rx - c.ry) / c.ry,
                      (1 - c.gx - c.gy) / c.gy,
                      (1 - c.bx - c.by) / c.by };
    const Matrix3 inv = *inverse(p);
    double s[3];
    for (int i = 0; i < 3; ++i)
        s[i] = inv[i * 3] * kD65[0] + inv[i * 3 + 1] * kD65[1] + inv[i * 3 + 2] * kD65[2];
    Matrix3 m = p;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            m[i * 3 + j] *= s[j];
    return multiply(bradfordD65ToD50(), m);
}

std::optional<Gamut> gamutOf(const Matrix3 &toXyz)
{
    for (Gamut g : { Gamut::Srgb, Gamut::DisplayP3, Gamut::Bt2100 }) {
        const Matrix3 m = gamutToXyz(g);
        bool same = true;
        for (int i = 0; i < 9; ++i)
            same = same && std::abs(m[i] - toXyz[i]) < 2e-3;
        if (same)
            return g;
    }
    return std::nullopt;
}

const char *gamutName(Gamut gamut)
{
    switch (gamut) {
    case Gamut::DisplayP3:
        return "Display P3";
    case Gamut::Bt2100:
        return "BT.2100";
    case Gamut::Srgb:
        break;
    }
    return "sRGB";
}

std::optional<Matrix3> iccToXyz(QByteArrayView profile)
{
    if (profile.size() < 132 || profile.sliced(16, 4) != "RGB " || profile.sliced(36, 4) != "acsp")
        return std::nullopt;
    const quint32 count = qFromBigEndian<quint32>(profile.data() + 128);
    if (count > 1000 || 132 + qsizetype(count) * 12 > profile.size())
        return std::nullopt;
    std::map<QByteArray, qsizetype> xyz;
    for (quint32 i = 0; i < count; ++i) {
        const qsizetype entry = 132 + qsizetype(i) * 12;
        const quint32 at = qFromBigEndian<quint32>(profile.data() + entry + 4);
        if (qsizetype(at) + 20 <= profile.size() && profile.sliced(at, 4) == "XYZ ")
            xyz[profile.sliced(entry, 4).toByteArray()] = at;
    }
    Matrix3 m {};
    const char *tags[3] = { "rXYZ", "gXYZ", "bXYZ" };
    for (int c = 0; c < 3; ++c) {
        const auto it = xyz.find(QByteArray(tags[c]));
        if (it == xyz.end())
            return std::nullopt;
        for (int k = 0; k < 3; ++k)
            m[k * 3 + c] = s15(profile, it->second + 8 + 4 * k);
    }
    if (!inverse(m))
        return std::nullopt;
    return m;
}

QByteArray makeIccProfile(Gamut gamut)
{
    const Matrix3 m = gamutToXyz(gamut);
    QByteArray curve = QByteArray("curv\0\0\0\0", 8) + be32(1) + QByteArray("\x02\x33\0\0", 4);
    const QList<std::pair<QByteArray, QByteArray>> tags {
        { "desc", descTag(QByteArray("Orvanta ") + gamutName(gamut)) },
        { "wtpt", xyzTag(kD50[0], kD50[1], kD50[2]) },
        { "rXYZ", xyzTag(m[0], m[3], m[6]) },
        { "gXYZ", xyzTag(m[1], m[4], m[7]) },
        { "bXYZ", xyzTag(m[2], m[5], m[8]) },
        { "rTRC", curve },
    };
    QByteArray table = be32(quint32(tags.size() + 2)), data;
    const quint32 dataStart = 128 + 4 + 12 * quint32(tags.size() + 2);
    quint32 curveAt = 0;
    for (const auto &[sig, body] : tags) {
        const quint32 at = dataStart + quint32(data.size());
        curveAt = sig == "rTRC" ? at : curveAt;
        table += sig + be32(at) + be32(quint32(body.size()));
        data += body + QByteArray((4 - body.size() % 4) % 4, '\0');
    }
    for (const char *sig : { "gTRC", "bTRC" }) // the three curves share one body
        table += QByteArray(sig) + be32(curveAt) + be32(quint32(curve.size()));
    QByteArray header(128, '\0');
    const quint32 size = 128 + quint32(table.size() + data.size());
    std::memcpy(header.data(), be32(size).constData(), 4);
    header.replace(8, 4, QByteArray("\x02\x10\0\0", 4));
    header.replace(12, 12, QByteArray("mntrRGB XYZ "));
    header.replace(36, 4, QByteArray("acsp"));
    header.replace(68, 12, xyzTag(kD50[0], kD50[1], kD50[2]).sliced(8));
    return header + table + data;
}

QByteArray iccProfileOf(QByteArrayView data, const JpegStream &image)
{
    static const QByteArray signature("ICC_PROFILE\0", 12);
    std::map<int, QByteArrayView> chunks;
    int total = 0;
    for (const JpegSegment &s : image.segments) {
        if (s.marker != jpeg::APP2 || s.payloadSize < 14)
            continue;
        const QByteArrayView payload = data.sliced(s.payloadOffset, s.payloadSize);
        if (!payload.startsWith(signature))
            continue;
        total = quint8(payload[13]);
        chunks[quint8(payload[12])] = payload.sliced(14);
    }
    QByteArray profile;
    for (int i = 1; i <= total; ++i) {
        const auto it = chunks.find(i);
        if (it == chunks.end())
            return {};
        profile += it->second.toByteArray();
    }
    return profile;
}

QByteArray iccSegments(const QByteArray &profile)
{
    constexpr qsizetype kChunk = 65519; // 65535 - 2 length bytes - 14 bytes of header
    const int count = int((profile.size() + kChunk - 1) / kChunk);
    QByteArray out;
    for (int i = 0; i < count && count < 256; ++i) {
        QByteArray head("ICC_PROFILE\0", 12);
        head += char(i + 1);
        head += char(count);
        out += makeAppSegment(jpeg::APP2, head, profile.mid(i * kChunk, kChunk));
    }
    return out;
}

} // namespace orvanta
