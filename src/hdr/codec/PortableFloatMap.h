// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Portable float maps (.pfm): the plain linear-light exchange format the
// command-line tool reads and writes. Pure functions; any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace orvanta {

// RGB ("PF") or grayscale ("Pf") maps of either byte order; rows are stored
// bottom to top. Returns an RgbaF32 picture, or a null one with `error` set.
ImageBuffer readPortableFloatMap(QByteArrayView bytes, QString *error = nullptr);
// Writes an RGB little-endian map of any float or 8-bit picture (8-bit values
// are taken as they are, divided by 255, not linearised).
QByteArray writePortableFloatMap(const ImageBuffer &image);

} // namespace orvanta
