// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Loads the picture pair the EDR viewer compares: the delivered Ultra HDR
// file expanded to HDR at full gain-map weight, and the camera's SDR JPEG.
// A plain function for a worker thread; the viewer publishes the result on
// the main thread.
#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

class QThreadPool;

namespace orvanta {

struct EdrPicturePair
{
    QImage sdr; // linear RGBA half floats, oriented; null when there is none
    QImage hdr; // linear RGBA half floats, oriented, values above 1.0 where the map boosts
    QSizeF imageSize { 0, 0 }; // the HDR picture's size; (0, 0) when it could not be read
    bool sdrFromHdrFile = false; // the camera JPEG was missing: the HDR file's own base is shown
    QString hdrIssue; // why the HDR side shows no boost (empty when the map was applied)
};

// `sdrPath` may be empty or name a missing file: the SDR side then shows the
// Ultra HDR file's own SDR base, so the pair can still be compared.
EdrPicturePair loadEdrPictures(const QString &sdrPath, const QString &hdrPath);
// The threads pictures are decoded on (never Qt's global pool, which the
// raster painter needs).
QThreadPool &edrDecodePool();

} // namespace orvanta
