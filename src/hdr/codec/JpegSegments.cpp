// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/JpegSegments.h"

#include <cstring>

namespace orvanta {

namespace {

quint8 byteAt(QByteArrayView data, qsizetype i)
{
    return static_cast<quint8>(data[i]);
}

bool isStandalone(quint8 marker)
{
    return (marker >= 0xD0 && marker <= 0xD7) || marker == 0x01; // RSTn, TEM
}

bool isFrameHeader(quint8 marker)
{
    return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

// First marker after entropy-coded data from `pos`: an 0xFF that is neither
// stuffing (0xFF00) nor a restart marker. Returns the buffer size when none.
qsizetype skipEntropyData(QByteArrayView data, qsizetype pos)
{
    const qsizetype size = data.size();
    while (pos < size) {
        const void *hit = std::memchr(data.data() + pos, 0xFF, size_t(size - pos));
        if (!hit)
            return size;
        pos = static_cast<const char *>(hit) - data.data();
        if (pos + 1 >= size)
            return size;
        const quint8 next = byteAt(data, pos + 1);
        if (next == 0x00 || (next >= 0xD0 && next <= 0xD7) || next == 0xFF) {
            pos += 1;
            continue;
        }
        return pos;
    }
    return size;
}

void readFrameHeader(QByteArrayView data, const JpegSegment &segment, JpegStream &stream)
{
    if (stream.width > 0 || segment.payloadSize < 6)
        return;
    const char *p = data.data() + segment.payloadOffset;
    stream.height = readU16(p + 1, true);
    stream.width = readU16(p + 3, true);
    stream.components = static_cast<quint8>(p[5]);
}

} // namespace

JpegStream walkJpeg(QByteArrayView data, qsizetype start)
{
    JpegStream stream;
    stream.start = start;
    stream.end = start;
    const qsizetype size = data.size();
    if (start < 0 || start + 2 > size || byteAt(data, start) != 0xFF
        || byteAt(data, start + 1) != jpeg::SOI)
        return stream;
    qsizetype pos = start + 2;
    while (true) {
        if (pos + 2 > size)
            break;
        if (byteAt(data, pos) != 0xFF) { // stray bytes between segments: skip as decoders do
            ++pos;
            continue;
        }
        const quint8 marker = byteAt(data, pos + 1);
        if (marker == 0xFF) { // fill byte
            ++pos;
            continue;
        }
        if (marker == jpeg::EOI) {
            stream.end = pos + 2;
            stream.complete = true;
            return stream;
        }
        if (marker == jpeg::SOI) // a new image before this one ended: broken stream
            break;
        if (isStandalone(marker) || marker == 0x00) {
            pos += 2;
            continue;
        }
        if (pos + 4 > size)
            break;
        const qsizetype length = readU16(data.data() + pos + 2, true);
        if (length < 2 || pos + 2 + length > size)
            break;
        JpegSegment segment { marker, pos, pos + 4, length - 2 };
        stream.segments.append(segment);
        if (isFrameHeader(marker))
            readFrameHeader(data, segment, stream);
        pos += 2 + length;
        if (marker == jpeg::SOS)
            pos = skipEntropyData(data, pos);
    }
    stream.end = size;
    return stream;
}

QList<QByteArrayView> findAppPayloads(QByteArrayView data, const JpegStream &stream, quint8 marker,
                                      QByteArrayView signature)
{
    QList<QByteArrayView> found;
    for (const JpegSegment &segment : stream.segments) {
        if (segment.marker != marker || segment.payloadSize < signature.size())
            continue;
        const QByteArrayView payload = stream.payload(data, segment);
        if (payload.first(signature.size()) == signature)
            found.append(payload.sliced(signature.size()));
    }
    return found;
}

QByteArrayView findAppPayload(QByteArrayView data, const JpegStream &stream, quint8 marker,
                              QByteArrayView signature)
{
    const QList<QByteArrayView> all = findAppPayloads(data, stream, marker, signature);
    return all.isEmpty() ? QByteArrayView() : all.first();
}

int exifOrientation(QByteArrayView data, const JpegStream &stream)
{
    const QByteArrayView tiff = findAppPayload(data, stream, jpeg::APP1, jpeg::exif());
    if (tiff.size() < 8)
        return 1;
    const bool bigEndian = tiff[0] == 'M' && tiff[1] == 'M';
    if (!bigEndian && !(tiff[0] == 'I' && tiff[1] == 'I'))
        return 1;
    const quint32 ifd = readU32(tiff.data() + 4, bigEndian);
    if (ifd > quint32(tiff.size() - 2))
        return 1;
    const quint32 count = readU16(tiff.data() + ifd, bigEndian);
    for (quint32 i = 0; i < count; ++i) {
        const quint64 entry = quint64(ifd) + 2 + quint64(i) * 12;
        if (entry + 12 > quint64(tiff.size()))
            return 1;
        const char *p = tiff.data() + entry;
        if (readU16(p, bigEndian) != 0x0112)
            continue;
        if (readU16(p + 2, bigEndian) != 3) // SHORT
            return 1;
        const int value = readU16(p + 8, bigEndian);
        return value >= 1 && value <= 8 ? value : 1;
    }
    return 1;
}

void appendU16(QByteArray &out, quint16 value)
{
    out.append(char(value >> 8)).append(char(value & 0xFF));
}

void appendU32(QByteArray &out, quint32 value)
{
    appendU16(out, quint16(value >> 16));
    appendU16(out, quint16(value & 0xFFFF));
}

QByteArray makeAppSegment(quint8 marker, QByteArrayView signature, QByteArrayView payload)
{
    const qsizetype length = 2 + signature.size() + payload.size();
    if (length > 0xFFFF)
        return {};
    QByteArray out;
    out.reserve(length + 2);
    out.append(char(0xFF)).append(char(marker));
    appendU16(out, quint16(length));
    out.append(signature.data(), signature.size()).append(payload.data(), payload.size());
    return out;
}

namespace jpeg {
QByteArrayView xmp()
{
    return QByteArrayView("http://ns.adobe.com/xap/1.0/\0", 29);
}
QByteArrayView exif()
{
    return QByteArrayView("Exif\0\0", 6);
}
QByteArrayView mpf()
{
    return QByteArrayView("MPF\0", 4);
}
QByteArrayView iso()
{
    return QByteArrayView("urn:iso:std:iso:ts:21496:-1\0", 28);
}
} // namespace jpeg

} // namespace orvanta
