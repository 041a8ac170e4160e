// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes 8-bit grey pictures (the engine's debug masks) as PNG files with
// zlib alone, so the engine needs no image library of a GUI toolkit. Any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QByteArray>
#include <QString>

namespace orvanta::engine {

// The PNG file of a Gray8 picture; empty for a null or other picture.
QByteArray greyPng(const ImageBuffer &grey);
bool writeGreyPng(const ImageBuffer &grey, const QString &path);

} // namespace orvanta::engine
