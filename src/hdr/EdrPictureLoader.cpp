// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/EdrPictureLoader.h"

#include "hdr/codec/UltraHdrDecoder.h"

#include <QFileInfo>

namespace orvanta {

EdrPicturePair loadEdrPictures(const QString &sdrPath, const QString &hdrPath)
{
    EdrPicturePair pair;
    if (!hdrPath.isEmpty()) {
        const UltraHdrDecodeResult hdr = decodeUltraHdrFile(hdrPath);
        pair.hdr = hdr.image;
        pair.hdrIssue = hdr.image.isNull() ? hdr.error : hdr.gainMapIssue;
        if (!pair.hdr.isNull())
            pair.imageSize = pair.hdr.size();
    }
    UltraHdrDecodeOptions sdrOnly;
    sdrOnly.applyGainMap = false;
    if (!sdrPath.isEmpty() && QFileInfo::exists(sdrPath))
        pair.sdr = decodeUltraHdrFile(sdrPath, sdrOnly).image;
    if (pair.sdr.isNull() && !pair.hdr.isNull()) {
        pair.sdr = decodeUltraHdrFile(hdrPath, sdrOnly).image;
        pair.sdrFromHdrFile = !pair.sdr.isNull();
    }
    return pair;
}

} // namespace orvanta
