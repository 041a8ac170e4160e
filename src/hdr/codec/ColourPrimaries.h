// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// RGB colour spaces as the matrices that take their linear values to XYZ
// (D50, as ICC profiles hold them): the few gamuts Ultra HDR files use, and
// the colourant tags of ICC profiles read from and written into JPEGs.
// Pure functions; any thread.
#pragma once

#include "hdr/codec/JpegSegments.h"

#include <QByteArray>
#include <QByteArrayView>

#include <array>
#include <optional>

namespace orvanta {

using Matrix3 = std::array<double, 9>; // row-major

enum class Gamut { Srgb, DisplayP3, Bt2100 };

Matrix3 gamutToXyz(Gamut gamut);
Matrix3 multiply(const Matrix3 &a, const Matrix3 &b);
std::optional<Matrix3> inverse(const Matrix3 &m);
// The gamut whose matrix is within rounding of `toXyz`, if any.
std::optional<Gamut> gamutOf(const Matrix3 &toXyz);
const char *gamutName(Gamut gamut); // "sRGB", "Display P3", "BT.2100"

// An ICC profile's rXYZ/gXYZ/bXYZ colourants as an RGB-to-XYZ matrix;
// std::nullopt for a profile that is not a matrix RGB profile or is damaged.
std::optional<Matrix3> iccToXyz(QByteArrayView profile);
// A small matrix/TRC display profile (sRGB transfer curve) for `gamut`.
QByteArray makeIccProfile(Gamut gamut);

// The ICC profile carried by one JPEG image (its APP2 "ICC_PROFILE" chunks
// joined in order); empty when it has none or the chunks are inconsistent.
QByteArray iccProfileOf(QByteArrayView data, const JpegStream &image);
// `profile` as APP2 segments.
QByteArray iccSegments(const QByteArray &profile);

} // namespace orvanta
