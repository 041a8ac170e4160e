// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/EdrPictureLoader.h"

#include "hdr/codec/UltraHdrDecoder.h"

#include <QFileInfo>
#include <QThreadPool>

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

QThreadPool &edrDecodePool()
{
    // Never destroyed: a worker may still wait on a file or a lock when the
    // application exits, and nothing should wait for it then.
    static QThreadPool *const pool = [] {
        auto *p = new QThreadPool;
        p->setObjectName(QStringLiteral("orvanta.decode"));
        p->setMaxThreadCount(2);
        return p;
    }();
    return *pool;
}

} // namespace orvanta
