// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The Multi-Picture Format index (CIPA DC-007) that lists the images stored
// back to back in one JPEG file: reading it from an untrusted APP2 payload and
// writing the two-image form. Pure functions; any thread.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

namespace orvanta {

struct MpfEntry
{
    quint32 attributes = 0;
    quint32 size = 0;
    quint32 offset = 0; // relative to the MPF header (0 for the first image)
};

struct MpfIndex
{
    QList<MpfEntry> entries;
    QString error; // non-empty when the payload was rejected; entries are then empty
};

// `payload` follows the "MPF\0" signature (it starts at the byte-order mark).
// Both byte orders are read; unknown tags are skipped; the entry array must
// lie inside the payload and hold 16 bytes per announced image.
MpfIndex parseMpf(QByteArrayView payload);

// The payload (after "MPF\0") of a big-endian index of two images: the primary
// at offset 0 and a second image `secondOffset` bytes after the MPF header.
QByteArray buildMpf(quint32 primarySize, quint32 secondSize, quint32 secondOffset);
inline constexpr qsizetype kMpfPayloadSize = 82;

} // namespace orvanta
