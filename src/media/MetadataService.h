// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Reads the camera and capture data of one image file (the delivered Ultra HDR
// JPEG, a camera JPEG, a PNG or a RAW) into a ProPhotoMetadata. Stateless:
// callable from any thread, concurrently.
#pragma once

#include "media/ProPhotoMetadata.h"

#include <QString>

class QThreadPool;

namespace orvanta {

class MetadataService
{
public:
    static MetadataService &shared();
    // The threads metadata reads and preview decodes run on (never Qt's
    // global pool, which the raster painter needs).
    static QThreadPool &pool();

    MetadataService();

    // Never fails: whatever cannot be read stays absent. A null path gives
    // the empty record.
    ProPhotoMetadata extractMetadata(const QString &path) const;
};

} // namespace orvanta
