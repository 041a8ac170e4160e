// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The camera and capture data of one photo as a plain value, with the exact
// display strings the inspector shows for each field. Any thread.
#pragma once

#include <QString>
#include <QtGlobal>

#include <optional>

namespace orvanta {

struct ProPhotoMetadata
{
    std::optional<QString> cameraMake;
    std::optional<QString> cameraModel;
    std::optional<QString> lensModel;
    std::optional<double> focalLength; // mm
    std::optional<double> focalLength35mm; // mm, 35 mm film equivalent
    std::optional<double> aperture; // f-number
    std::optional<double> shutterSpeed; // seconds
    std::optional<int> iso;
    std::optional<double> exposureBias; // EV
    std::optional<QString> dateTimeOriginal; // as stored, never parsed
    std::optional<int> pixelWidth;
    std::optional<int> pixelHeight;
    std::optional<qint64> fileSizeBytes;
    std::optional<QString> colorSpace; // reserved: the reader never fills it

    // Every number below is written with a point as the decimal separator,
    // whatever the locale; a missing or meaningless value shows as "—".
    QString shutterSpeedString() const; // "1/250s", "2.0s"
    QString apertureString() const; // "ƒ/2.8"
    QString focalLengthString() const; // "24 mm" (never the 35 mm figure)
    QString isoString() const; // "12800"
    QString exposureBiasString() const; // "+0.7 EV", "-0.7 EV", "0.0 EV" when absent
    QString resolutionString() const; // "6000 × 4000 (24.0 MP)"
    QString fileSizeString() const; // "23.84 MB" (mebibytes)

    bool operator==(const ProPhotoMetadata &) const = default;
};

// The placeholder for a missing value in any display: U+2014 EM DASH.
QString missingValuePlaceholder();

} // namespace orvanta
