// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/MpfIndex.h"

#include "hdr/codec/JpegSegments.h"

namespace orvanta {

namespace {

constexpr quint16 kTagVersion = 0xB000;
constexpr quint16 kTagImageCount = 0xB001;
constexpr quint16 kTagEntries = 0xB002;
constexpr quint16 kTypeLong = 4;
constexpr quint16 kTypeUndefined = 7;
constexpr quint32 kMaxImages = 64;

MpfIndex rejected(const char *why)
{
    MpfIndex index;
    index.error = QString::fromLatin1(why);
    return index;
}

} // namespace

MpfIndex parseMpf(QByteArrayView payload)
{
    if (payload.size() < 8)
        return rejected("MPF header truncated");
    const char *p = payload.data();
    bool bigEndian = false;
    if (p[0] == 'M' && p[1] == 'M')
        bigEndian = true;
    else if (!(p[0] == 'I' && p[1] == 'I'))
        return rejected("MPF byte-order mark missing");
    if (readU16(p + 2, bigEndian) != 42)
        return rejected("MPF byte-order mark missing");
    const quint64 ifd = readU32(p + 4, bigEndian);
    if (ifd + 2 > quint64(payload.size()))
        return rejected("MPF index IFD outside the segment");
    const quint32 tagCount = readU16(p + ifd, bigEndian);
    if (ifd + 2 + quint64(tagCount) * 12 > quint64(payload.size()))
        return rejected("MPF index IFD truncated");

    quint32 imageCount = 0;
    quint64 entriesOffset = 0, entriesBytes = 0;
    bool haveCount = false, haveEntries = false;
    for (quint32 i = 0; i < tagCount; ++i) {
        const char *e = p + ifd + 2 + quint64(i) * 12;
        const quint16 tag = readU16(e, bigEndian);
        const quint16 type = readU16(e + 2, bigEndian);
        const quint32 count = readU32(e + 4, bigEndian);
        if (tag == kTagImageCount) {
            if (type != kTypeLong || count != 1)
                return rejected("MPF image count malformed");
            imageCount = readU32(e + 8, bigEndian);
            haveCount = true;
        } else if (tag == kTagEntries) {
            if (type != kTypeUndefined)
                return rejected("MPF entry list malformed");
            entriesBytes = count;
            entriesOffset = readU32(e + 8, bigEndian);
            haveEntries = true;
        } else if (tag == kTagVersion && (type != kTypeUndefined || count != 4)) {
            return rejected("MPF version malformed");
        }
    }
    if (!haveCount || !haveEntries)
        return rejected("MPF image count or entry list missing");
    if (imageCount < 1 || imageCount > kMaxImages)
        return rejected("MPF image count out of range");
    if (entriesBytes != quint64(imageCount) * 16)
        return rejected("MPF entry list size does not match the image count");
    if (entriesOffset + entriesBytes > quint64(payload.size()))
        return rejected("MPF entry list outside the segment");

    MpfIndex index;
    for (quint32 i = 0; i < imageCount; ++i) {
        const char *e = p + entriesOffset + quint64(i) * 16;
        index.entries.append(
            { readU32(e, bigEndian), readU32(e + 4, bigEndian), readU32(e + 8, bigEndian) });
    }
    if (index.entries.first().offset != 0)
        return rejected("MPF first image offset is not 0");
    return index;
}

QByteArray buildMpf(quint32 primarySize, quint32 secondSize, quint32 secondOffset)
{
    QByteArray out;
    out.reserve(kMpfPayloadSize);
    out.append("MM\0*", 4);
    appendU32(out, 8); // index IFD right after the header
    appendU16(out, 3);
    appendU16(out, kTagVersion);
    appendU16(out, kTypeUndefined);
    appendU32(out, 4);
    out.append("0100", 4);
    appendU16(out, kTagImageCount);
    appendU16(out, kTypeLong);
    appendU32(out, 1);
    appendU32(out, 2);
    appendU16(out, kTagEntries);
    appendU16(out, kTypeUndefined);
    appendU32(out, 32);
    appendU32(out, 50); // entry array after the IFD and its next-IFD link
    appendU32(out, 0); // no attribute IFD
    appendU32(out, 0x00030000); // baseline MP primary image
    appendU32(out, primarySize);
    appendU32(out, 0);
    appendU32(out, 0); // two dependent-image fields of 16 bits
    appendU32(out, 0);
    appendU32(out, secondSize);
    appendU32(out, secondOffset);
    appendU32(out, 0);
    return out;
}

} // namespace orvanta
