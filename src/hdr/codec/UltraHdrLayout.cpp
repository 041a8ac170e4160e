// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/UltraHdrLayout.h"

#include "hdr/codec/IsoGainMapBlock.h"
#include "hdr/codec/MpfIndex.h"
#include "hdr/codec/XmpGainMap.h"

#include <QList>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

// A hostile file can hold thousands of SOI markers; looking at a handful of
// candidates keeps the search linear in practice.
constexpr int kMaxCandidates = 16;

struct Candidate
{
    qsizetype offset = 0;
    qsizetype limit = 0; // the walk may not read past this
    GainMapLocator locator = GainMapLocator::None;
};

bool startsImage(QByteArrayView data, qsizetype at)
{
    return at >= 0 && at + 2 < data.size() && quint8(data[at]) == 0xFF
        && quint8(data[at + 1]) == jpeg::SOI && quint8(data[at + 2]) == 0xFF;
}

void addMpfCandidates(QByteArrayView data, UltraHdrLayout &layout, QList<Candidate> &out)
{
    for (const JpegSegment &segment : layout.primary.segments) {
        if (segment.marker != jpeg::APP2 || segment.payloadSize < 4
            || data.sliced(segment.payloadOffset, 4) != jpeg::mpf())
            continue;
        const qsizetype header = segment.payloadOffset + 4;
        const MpfIndex index = parseMpf(data.sliced(header, segment.payloadSize - 4));
        if (!index.error.isEmpty()) {
            layout.issues.append(index.error);
            continue;
        }
        for (qsizetype i = 1; i < index.entries.size(); ++i) {
            const MpfEntry &entry = index.entries[i];
            const qint64 at = qint64(header) + entry.offset;
            const qint64 end = at + entry.size;
            if (at < layout.primary.end || end > data.size() || !startsImage(data, at)) {
                layout.issues.append(
                    u"MPF image %1 does not point at an image after the primary"_s.arg(i + 1));
                continue;
            }
            out.append({ qsizetype(at), qsizetype(end), GainMapLocator::Mpf });
        }
    }
}

void addContainerCandidate(QByteArrayView data, UltraHdrLayout &layout, QList<Candidate> &out)
{
    const QByteArrayView xmp = findAppPayload(data, layout.primary, jpeg::APP1, jpeg::xmp());
    if (xmp.isEmpty())
        return;
    const XmpPacket packet = parseXmp(xmp);
    layout.primaryHdrgmVersion = packet.hdrgmVersion();
    qint64 at = layout.primary.end;
    for (qsizetype i = 0; i < packet.directory.size(); ++i) {
        const ContainerItem &item = packet.directory[i];
        if (i == 0) { // the primary itself: its length is where the file says it ends
            at += std::max<qint64>(0, item.padding);
            continue;
        }
        if (item.length <= 0 || item.padding < 0 || at > data.size())
            break;
        if (item.semantic == u"GainMap") {
            if (startsImage(data, at))
                out.append({ qsizetype(at),
                             qsizetype(std::min<qint64>(at + item.length, data.size())),
                             GainMapLocator::Container });
            else
                layout.issues.append(u"XMP container directory does not point at an image"_s);
            return;
        }
        at += item.length + item.padding;
    }
}

void addScanCandidates(QByteArrayView data, UltraHdrLayout &layout, QList<Candidate> &out)
{
    static const QByteArrayView soi("\xFF\xD8\xFF", 3);
    qsizetype from = layout.primary.end;
    for (int found = 0; found < kMaxCandidates; ++found) {
        const qsizetype at = data.indexOf(soi, from);
        if (at < 0)
            return;
        out.append({ at, data.size(), GainMapLocator::Scan });
        from = at + 2;
    }
}

} // namespace

QString locatorName(GainMapLocator locator)
{
    switch (locator) {
    case GainMapLocator::Mpf:
        return u"mpf"_s;
    case GainMapLocator::Container:
        return u"container"_s;
    case GainMapLocator::Scan:
        return u"scan"_s;
    case GainMapLocator::None:
        break;
    }
    return u"none"_s;
}

QString UltraHdrLayout::gainMapIssue() const
{
    if (!error.isEmpty())
        return error;
    if (isUltraHdr())
        return {};
    if (!issues.isEmpty())
        return issues.last();
    return u"no gain map"_s;
}

std::optional<GainMapMetadata> gainMapMetadataOf(QByteArrayView data, const JpegStream &image,
                                                 QStringList &issues, bool *carriesMetadata)
{
    bool carries = false;
    std::optional<GainMapMetadata> chosen;
    for (QByteArrayView payload : findAppPayloads(data, image, jpeg::APP2, jpeg::iso())) {
        const IsoBlock block = parseIsoBlock(payload);
        if (block.versionOnly)
            continue;
        carries = true;
        if (block.metadata && !chosen)
            chosen = block.metadata;
        else if (!block.error.isEmpty())
            issues.append(block.error);
    }
    if (!chosen) {
        for (QByteArrayView payload : findAppPayloads(data, image, jpeg::APP1, jpeg::xmp())) {
            const XmpPacket packet = parseXmp(payload);
            if (!packet.hdrgm.contains(u"GainMapMax"_s) && packet.wellFormed)
                continue;
            carries = true;
            QString why;
            chosen = gainMapMetadataFromXmp(packet, &why);
            if (chosen)
                break;
            issues.append(why);
        }
    }
    if (carriesMetadata)
        *carriesMetadata = carries;
    return chosen;
}

UltraHdrLayout inspectUltraHdr(QByteArrayView data)
{
    UltraHdrLayout layout;
    layout.primary = walkJpeg(data, 0);
    if (layout.primary.end == layout.primary.start) {
        layout.error = u"not a JPEG file"_s;
        return layout;
    }
    layout.orientation = exifOrientation(data, layout.primary);
    for (QByteArrayView payload : findAppPayloads(data, layout.primary, jpeg::APP2, jpeg::iso()))
        layout.primaryHasIsoVersion
            = layout.primaryHasIsoVersion || parseIsoBlock(payload).versionOnly;
    if (!layout.primary.complete) {
        layout.issues.append(u"primary image is truncated"_s);
        return layout;
    }

    QList<Candidate> candidates;
    addMpfCandidates(data, layout, candidates);
    addContainerCandidate(data, layout, candidates);
    addScanCandidates(data, layout, candidates);

    QList<qsizetype> seen;
    for (const Candidate &candidate : std::as_const(candidates)) {
        if (seen.contains(candidate.offset))
            continue;
        seen.append(candidate.offset);
        const JpegStream image = walkJpeg(data.first(candidate.limit), candidate.offset);
        if (!image.complete) {
            layout.issues.append(u"gain map image at %1 is truncated"_s.arg(candidate.offset));
            continue;
        }
        ++layout.imagesAfterPrimary;
        bool carries = false;
        std::optional<GainMapMetadata> metadata
            = gainMapMetadataOf(data, image, layout.issues, &carries);
        if (!metadata)
            continue;
        layout.gainMap = image;
        layout.metadata = metadata;
        layout.locatedBy = candidate.locator;
        break;
    }
    return layout;
}

} // namespace orvanta
