// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds the RAW+JPG pairs of a source folder and decides which of them this
// run processes: orphans, already delivered pairs, the rating filter and the
// stem filter. Runs on the main thread before any worker starts.
#pragma once

#include "EngineOptions.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace orvanta::engine {

struct PhotoPair
{
    QString stem;
    QString rawPath;
    QString jpgPath;
    QString fingerprint;
    std::optional<int> rating;
};

struct ScanResult
{
    QList<PhotoPair> pending;
    int pairs = 0; // pairs considered (after the stem filter)
    int orphans = 0; // RAW or JPG files without a partner
    int delivered = 0; // skipped: already delivered with the same fingerprint
    int belowRating = 0; // skipped: rated below --min-rating
    int skipped() const { return delivered + belowRating; }
    QString error; // the folder could not be read
};

bool isRawExtension(const QString &suffix);
bool isJpegExtension(const QString &suffix);

// A pair's identity: the two file names, sizes and modification times, so an
// edited or replaced file makes the pair new again while a move of the whole
// folder does not.
QString pairFingerprint(const QString &rawPath, const QString &jpgPath);

// The photo's star rating: XMP sidecar first, then the JPG's XMP, then its Exif.
std::optional<int> readRating(const QString &rawPath, const QString &jpgPath);

ScanResult scanSource(const RunOptions &options,
                      const std::function<bool(const QString &fingerprint)> &isDelivered);

} // namespace orvanta::engine
