// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The QImage side of the codec's ImageBuffer, for the layers that display
// pictures: wraps decoded pixels without copying them. Pure functions; any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QImage>

namespace orvanta {

// Takes the pixels over (no copy): the QImage frees them when its last copy goes.
QImage toQImage(ImageBuffer &&buffer);
// A copy of `image` in `format` (converted by QImage first when it differs).
ImageBuffer toImageBuffer(const QImage &image, PixelFormat format);

// Applies an EXIF orientation to a QImage, as the ImageBuffer overload does.
QImage applyExifOrientation(QImage image, int orientation);

} // namespace orvanta
