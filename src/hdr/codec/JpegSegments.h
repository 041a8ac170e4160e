// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Walks the marker segments of one JPEG stream inside an untrusted byte buffer,
// without decoding it: where the stream starts and ends and which APPn blocks
// it carries. Pure functions; any thread.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

#include <cstdint>

namespace orvanta {

struct JpegSegment
{
    quint8 marker = 0; // second byte of the marker (0xE1 for APP1, ...)
    qsizetype offset = 0; // of the 0xFF that starts the marker
    qsizetype payloadOffset = 0; // first byte after the two length bytes
    qsizetype payloadSize = 0; // length field minus 2
};

struct JpegStream
{
    qsizetype start = 0; // offset of SOI
    qsizetype end = 0; // one past EOI, or the buffer's end when incomplete
    bool complete = false; // an EOI was found
    QList<JpegSegment> segments; // every segment with a length field, in file order
    int width = 0; // from the frame header, 0 when none was seen
    int height = 0;
    int components = 0;

    QByteArrayView payload(QByteArrayView data, const JpegSegment &segment) const
    {
        return data.sliced(segment.payloadOffset, segment.payloadSize);
    }
};

// Reads the stream that begins with SOI at `start`. Entropy-coded data is
// skipped the way a decoder would (stuffed 0xFF00 and RSTn do not end it), and
// a stream cut short ends at the buffer's end with `complete` false. Returns a
// stream with end == start when there is no SOI at `start`.
JpegStream walkJpeg(QByteArrayView data, qsizetype start = 0);

// The payload of the first APPn segment of `marker` whose payload begins with
// `signature`, with the signature cut off; empty view when there is none.
QByteArrayView findAppPayload(QByteArrayView data, const JpegStream &stream, quint8 marker,
                              QByteArrayView signature);
QList<QByteArrayView> findAppPayloads(QByteArrayView data, const JpegStream &stream, quint8 marker,
                                      QByteArrayView signature);

// The EXIF orientation (1...8) of the stream's Exif APP1, 1 when absent or unreadable.
int exifOrientation(QByteArrayView data, const JpegStream &stream);

// Big- and little-endian readers; the caller has checked the bounds.
inline quint16 readU16(const char *p, bool bigEndian)
{
    const auto *u = reinterpret_cast<const unsigned char *>(p);
    return bigEndian ? quint16((u[0] << 8) | u[1]) : quint16((u[1] << 8) | u[0]);
}
inline quint32 readU32(const char *p, bool bigEndian)
{
    const auto *u = reinterpret_cast<const unsigned char *>(p);
    return bigEndian ? (quint32(u[0]) << 24) | (quint32(u[1]) << 16) | (quint32(u[2]) << 8) | u[3]
                     : (quint32(u[3]) << 24) | (quint32(u[2]) << 16) | (quint32(u[1]) << 8) | u[0];
}
void appendU16(QByteArray &out, quint16 value); // big-endian
void appendU32(QByteArray &out, quint32 value); // big-endian

// A complete APPn segment (marker, length, signature, payload); empty when
// the payload does not fit in one segment.
QByteArray makeAppSegment(quint8 marker, QByteArrayView signature, QByteArrayView payload);

namespace jpeg {
inline constexpr quint8 SOI = 0xD8;
inline constexpr quint8 EOI = 0xD9;
inline constexpr quint8 SOS = 0xDA;
inline constexpr quint8 APP0 = 0xE0;
inline constexpr quint8 APP1 = 0xE1;
inline constexpr quint8 APP2 = 0xE2;
// Payload signatures, with the terminating NUL(s) the file stores.
QByteArrayView xmp(); // "http://ns.adobe.com/xap/1.0/\0"
QByteArrayView exif(); // "Exif\0\0"
QByteArrayView mpf(); // "MPF\0"
QByteArrayView iso(); // "urn:iso:std:iso:ts:21496:-1\0"
} // namespace jpeg

} // namespace orvanta
