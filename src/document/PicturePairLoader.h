// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The picture pair the compare viewer shows, from the documents of the
// camera's SDR JPEG and of the delivered Ultra HDR file, so stepping back to
// a photo, or the histogram and inspector beside it, reads nothing twice.
// Main thread.
#pragma once

#include "hdr/EdrPictureLoader.h"

#include <QObject>

#include <functional>

namespace orvanta {

class PhotoDocumentCache;

// Calls `done` on the main thread with the pair (at once when both sides are
// already decoded), unless `context` is gone by then. `sdrPath` may be empty
// or name a missing file: the SDR side then shows the Ultra HDR file's own
// SDR base, so the pair can still be compared.
void loadPicturePair(PhotoDocumentCache &cache, const QString &sdrPath, const QString &hdrPath,
                     QObject *context, std::function<void(const EdrPicturePair &)> done);

} // namespace orvanta
