// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media/ProPhotoMetadata.h"

#include <cmath>

namespace orvanta {

QString missingValuePlaceholder()
{
    return QString(QChar(0x2014));
}

// QString::asprintf formats numbers in the C locale, so the separator is
// always a point, as the display rules require.
QString ProPhotoMetadata::shutterSpeedString() const
{
    if (!shutterSpeed || !(*shutterSpeed > 0.0))
        return missingValuePlaceholder();
    const double seconds = *shutterSpeed;
    if (seconds >= 1.0)
        return QString::asprintf("%.1fs", seconds);
    // std::llround rounds half away from zero: 0.3 s reads as 1/3s.
    return QStringLiteral("1/%1s").arg(std::llround(1.0 / seconds));
}

QString ProPhotoMetadata::apertureString() const
{
    if (!aperture || !(*aperture > 0.0))
        return missingValuePlaceholder();
    return QString(QChar(0x0192)) + QString::asprintf("/%.1f", *aperture);
}

QString ProPhotoMetadata::focalLengthString() const
{
    if (!focalLength || !(*focalLength > 0.0))
        return missingValuePlaceholder();
    return QString::asprintf("%.0f mm", *focalLength);
}

QString ProPhotoMetadata::isoString() const
{
    if (!iso || *iso < 1)
        return missingValuePlaceholder();
    return QString::number(*iso);
}

QString ProPhotoMetadata::exposureBiasString() const
{
    if (!exposureBias)
        return QStringLiteral("0.0 EV");
    if (*exposureBias > 0.0)
        return QString::asprintf("+%.1f EV", *exposureBias);
    return QString::asprintf("%.1f EV", *exposureBias);
}

QString ProPhotoMetadata::resolutionString() const
{
    if (!pixelWidth || *pixelWidth < 1 || !pixelHeight || *pixelHeight < 1)
        return missingValuePlaceholder();
    const qint64 pixels = qint64(*pixelWidth) * qint64(*pixelHeight);
    return QString::number(*pixelWidth) + QStringLiteral(" \u00D7 ") + QString::number(*pixelHeight)
        + QString::asprintf(" (%.1f MP)", double(pixels) / 1000000.0);
}

QString ProPhotoMetadata::fileSizeString() const
{
    if (!fileSizeBytes || *fileSizeBytes < 1)
        return missingValuePlaceholder();
    return QString::asprintf("%.2f MB", double(*fileSizeBytes) / 1048576.0);
}

} // namespace orvanta
