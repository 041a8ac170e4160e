// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds which part of the developed RAW the camera JPG shows: cameras crop
// (digital zoom, other aspect ratios, lens corrections) and store the JPG at
// its own size. Pure function, any thread.
#pragma once

#include <QImage>
#include <QRect>

namespace orvanta::engine {

// `raw`: the developed RAW (Format_RGBX64, linear), `jpg`: the JPG (RGB888),
// both in stored pixel order. Returns the rectangle of `raw` that shows what
// `jpg` shows: the centred crop to the JPG's aspect ratio unless a smaller or
// shifted frame matches clearly better.
QRect findJpegFrame(const QImage &raw, const QImage &jpg);

} // namespace orvanta::engine
