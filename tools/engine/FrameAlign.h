// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds which part of the developed RAW the camera JPG shows: cameras crop
// (digital zoom, other aspect ratios, lens corrections) and store the JPG at
// its own size. Pure function, any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QRect>

namespace orvanta::engine {

// `raw`: the developed RAW (Rgbx16, linear), `jpg`: the JPG (Rgb8),
// both in stored pixel order. Returns the rectangle of `raw` that shows what
// `jpg` shows: the centred crop to the JPG's aspect ratio unless a smaller or
// shifted frame matches clearly better. The search uses up to `threads`
// threads; the frame found is the same for any count.
QRect findJpegFrame(const ImageBuffer &raw, const ImageBuffer &jpg, int threads = 1);

} // namespace orvanta::engine
