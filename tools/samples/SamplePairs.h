// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes RAW+JPG pairs of one synthetic scene, for the engine's tests, its
// benchmark and the demo folder: a DNG (linear RGB, or a Bayer mosaic like a
// camera's) that holds highlights up to eight times SDR white, and a
// camera-style JPG of the same scene clipped at white, with Exif (camera,
// capture date, orientation, optional rating). Pure functions, any thread.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QString>

#include <optional>

namespace orvanta::samples {

// How the camera rendered its JPG when it differs from a plain development
// of the RAW, and how far the RAW's own colour profile is off.
struct JpegLook
{
    double redGain = 1.0, blueGain = 1.0; // white balance, relative to the RAW's
    double saturation = 1.0;
    double contrast = 0.0; // 0..1: an S-shaped tone curve on each encoded channel
    double crop = 1.0; // share of each side the JPG keeps, centred, at the same size
    double rawCrosstalk = 0.0; // how much each RAW channel sees of the other two
};

struct SampleScene
{
    int width = 240; // as stored (sensor orientation)
    int height = 160;
    int orientation = 1; // Exif orientation of both files
    bool bayer = false; // an RGGB mosaic instead of three samples a pixel
    std::optional<int> exifRating; // Exif.Image.Rating of the JPG
    QString dateTimeOriginal = QStringLiteral("2024:05:06 07:08:09");
    QString model = QStringLiteral("Synthetic");
    bool backlit = false; // bright sky over a dark subject filling the lower half
    bool face = false; // paint a drawn face on the right-hand side
    // With a look, the scene also holds a chart of coloured patches.
    std::optional<JpegLook> look;
};

// The chart of coloured patches (with a look), in scene pixels.
QRect chartRect(const SampleScene &scene);

// The bright "sun" the RAW holds above white (about 2.6 stops), in stored pixels.
QRect sunRect(const SampleScene &scene);
// A region the RAW clips as well (above its white level).
QRect blownRect(const SampleScene &scene);
// A patch of skin on the drawn face's cheek (with `face`), white on
// transparent, in stored pixels. The face is drawn upright as displayed.
QImage cheekMask(const SampleScene &scene);
// A dark region with no highlight.
QRect shadowRect(const SampleScene &scene);

// Scene radiance, linear, 1.0 = the JPG's white.
void sceneRadiance(const SampleScene &scene, int x, int y, float rgb[3]);

QByteArray makeDng(const SampleScene &scene);
QByteArray makeJpeg(const SampleScene &scene);

// Writes <dir>/<stem>.DNG and <dir>/<stem>.JPG.
bool writePair(const QString &dir, const QString &stem, const SampleScene &scene = {});

} // namespace orvanta::samples
