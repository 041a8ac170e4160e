// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// EXIF orientation: reading tag 0x0112 straight from a JPEG's APP1 block (no
// full metadata parse on the thumbnail path) and turning an image upright.
// Pure functions, any thread.
#pragma once

#include <QImage>
#include <QtGlobal>

namespace orvanta {

// The orientation (1..8) stored in IFD0 of an APP1 payload that begins with
// "Exif\0\0"; 1 when there is none or the block is malformed.
int orientationFromExifBlock(const uchar *data, qsizetype size);

// Applies an EXIF orientation: 6 turns a landscape-stored portrait 90°
// clockwise, 8 counter-clockwise, 3 by 180°, 2/4/5/7 add a mirror.
QImage applyExifOrientation(QImage image, int orientation);

} // namespace orvanta
