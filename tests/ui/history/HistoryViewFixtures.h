// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Real files and databases for the history view tests: photos written as
// JPEGs (with Exif) and Ultra HDR files, and rows that point at them.
#pragma once

#include "common/TestEnvironment.h"
#include "history/HistoryService.h"
#include "history/HistoryTestDatabase.h"
#include "media/MediaFixtures.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QThreadPool>

#include <memory>

namespace orvanta::test {

// Lets every queued query finish and its result reach the model.
inline void settleHistory()
{
    for (int round = 0; round < 6; ++round) {
        HistoryService::pool().waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

// A fresh state database at the path the application reads.
inline std::unique_ptr<TestDatabase> freshDatabase()
{
    const QString path = HistoryService::defaultDbPath();
    QDir(QFileInfo(path).absolutePath()).removeRecursively();
    QDir().mkpath(QFileInfo(path).absolutePath());
    return std::make_unique<TestDatabase>(path);
}

inline void removeDatabaseAndConfig()
{
    QDir(QFileInfo(HistoryService::defaultDbPath()).absolutePath()).removeRecursively();
    QFile::remove(QDir::homePath() + QStringLiteral("/.config/orvanta/config.json"));
}

// A camera-like JPEG with the Exif the metadata columns show.
inline bool writeCameraJpeg(const QString &path, QColor left, QColor right, int width = 320,
                            int height = 213)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!writeJpeg(path, twoToneImage(width, height, left, right)))
        return false;
    return writeExif(
        path,
        { { "Exif.Image.Make", "Ascii", QStringLiteral("SONY") },
          { "Exif.Image.Model", "Ascii", QStringLiteral("ILCE-7RM5") },
          { "Exif.Photo.LensModel", "Ascii", QStringLiteral("FE 24-70mm F2.8 GM II") },
          { "Exif.Photo.FNumber", "Rational", QStringLiteral("28/10") },
          { "Exif.Photo.ExposureTime", "Rational", QStringLiteral("1/250") },
          { "Exif.Photo.ISOSpeedRatings", "Short", QStringLiteral("200") },
          { "Exif.Photo.FocalLength", "Rational", QStringLiteral("35/1") },
          { "Exif.Photo.DateTimeOriginal", "Ascii", QStringLiteral("2026:03:14 09:41:00") } });
}

} // namespace orvanta::test
