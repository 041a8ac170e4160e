// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The picture pair the compare viewer shows, from the documents of the
// camera's SDR JPEG and of the delivered Ultra HDR file, so stepping back to
// a photo, or the histogram and inspector beside it, reads nothing twice.
// Main thread.
#pragma once

#include <QImage>
#include <QObject>
#include <QSizeF>
#include <QString>

#include <functional>

namespace orvanta {

class PhotoDocumentCache;

struct EdrPicturePair
{
    QImage sdr; // linear RGBA half floats, oriented; null when there is none
    QImage hdr; // linear RGBA half floats, oriented, values above 1.0 where the map boosts
    QSizeF imageSize { 0, 0 }; // the HDR picture's size; (0, 0) when it could not be read
    bool sdrFromHdrFile = false; // the camera JPEG was missing: the HDR file's own base is shown
    QString hdrIssue; // why the HDR side shows no boost (empty when the map was applied)
};

// Calls `done` on the main thread with the pair (at once when both sides are
// already decoded), unless `context` is gone by then. `sdrPath` may be empty
// or name a missing file: the SDR side then shows the Ultra HDR file's own
// SDR base, so the pair can still be compared.
void loadPicturePair(PhotoDocumentCache &cache, const QString &sdrPath, const QString &hdrPath,
                     QObject *context, std::function<void(const EdrPicturePair &)> done);

} // namespace orvanta
