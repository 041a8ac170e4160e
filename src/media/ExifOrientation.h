// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// EXIF orientation: reading tag 0x0112 straight from a JPEG's APP1 block (no
// full metadata parse on the thumbnail path). Turning pictures upright is
// applyExifOrientation() in hdr/codec/ImageBuffer.h (and thumbnails/ImageAdapter.h
// for QImages). Pure functions, any thread.
#pragma once

#include <QtGlobal>

namespace orvanta {

// The orientation (1..8) stored in IFD0 of an APP1 payload that begins with
// "Exif\0\0"; 1 when there is none or the block is malformed.
int orientationFromExifBlock(const uchar *data, qsizetype size);

} // namespace orvanta
