// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media/ExifOrientation.h"

#include <cstring>

namespace orvanta {

namespace {

// Bounds-checked reads from a TIFF structure of either byte order.
class TiffReader
{
public:
    TiffReader(const uchar *data, qsizetype size, bool bigEndian)
        : m_data(data)
        , m_size(size)
        , m_bigEndian(bigEndian)
    {
    }

    bool has(qint64 offset, qint64 length) const
    {
        return offset >= 0 && length >= 0 && offset + length <= m_size;
    }
    quint16 u16(qint64 at) const
    {
        return m_bigEndian ? quint16(m_data[at] << 8 | m_data[at + 1])
                           : quint16(m_data[at + 1] << 8 | m_data[at]);
    }
    quint32 u32(qint64 at) const
    {
        return m_bigEndian ? quint32(u16(at)) << 16 | u16(at + 2)
                           : quint32(u16(at + 2)) << 16 | u16(at);
    }

private:
    const uchar *m_data;
    qsizetype m_size;
    bool m_bigEndian;
};

constexpr quint16 OrientationTag = 0x0112;
constexpr quint16 ShortType = 3;

} // namespace

int orientationFromExifBlock(const uchar *data, qsizetype size)
{
    static const char header[] = { 'E', 'x', 'i', 'f', 0, 0 };
    if (!data || size < 6 + 8 || memcmp(data, header, 6) != 0)
        return 1;
    const uchar *tiff = data + 6;
    const qsizetype length = size - 6;
    bool bigEndian;
    if (tiff[0] == 'M' && tiff[1] == 'M')
        bigEndian = true;
    else if (tiff[0] == 'I' && tiff[1] == 'I')
        bigEndian = false;
    else
        return 1;
    const TiffReader reader(tiff, length, bigEndian);
    if (reader.u16(2) != 42)
        return 1;
    const qint64 ifd = reader.u32(4);
    if (!reader.has(ifd, 2))
        return 1;
    const int entries = reader.u16(ifd);
    for (int i = 0; i < entries; ++i) {
        const qint64 entry = ifd + 2 + qint64(i) * 12;
        if (!reader.has(entry, 12))
            return 1;
        if (reader.u16(entry) != OrientationTag)
            continue;
        if (reader.u16(entry + 2) != ShortType || reader.u32(entry + 4) < 1)
            return 1;
        const int value = reader.u16(entry + 8);
        return value >= 1 && value <= 8 ? value : 1;
    }
    return 1;
}

} // namespace orvanta
