// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The XMP side of an Ultra HDR file: the Adobe hdrgm gain-map properties and
// the GContainer directory that says where the gain map image sits. Reads
// untrusted packets (attribute and element forms, arrays of 1 or 3 values,
// any prefixes) and writes the packets for the primary and the gain map.
// Pure functions; any thread.
#pragma once

#include "hdr/codec/GainMapMetadata.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace orvanta {

struct ContainerItem
{
    QString semantic; // "Primary", "GainMap", ...
    QString mime;
    qint64 length = 0;
    qint64 padding = 0;
};

struct XmpPacket
{
    bool wellFormed = false;
    QString error;
    QHash<QString, QStringList> hdrgm; // property local name -> its value(s)
    QList<ContainerItem> directory;

    QString hdrgmVersion() const { return hdrgm.value(QStringLiteral("Version")).value(0); }
};

XmpPacket parseXmp(QByteArrayView xml);

// The gain map's metadata from its hdrgm properties, validated; std::nullopt
// with a reason when a required value is missing, a present value does not
// parse, an array does not hold 1 or 3 numbers, or a value is out of range.
std::optional<GainMapMetadata> gainMapMetadataFromXmp(const XmpPacket &packet, QString *error);

// Packets as written into the files: the primary announces hdrgm 1.0 and the
// container directory (primary, then a gain map of `gainMapLength` bytes);
// the gain map carries its values, as attributes for one channel and as
// rdf:Seq elements for three.
QByteArray primaryXmp(qint64 gainMapLength);
QByteArray gainMapXmp(const GainMapMetadata &metadata);

} // namespace orvanta
