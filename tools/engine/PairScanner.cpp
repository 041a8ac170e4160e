// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "PairScanner.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>

#include <exiv2/exiv2.hpp>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

bool isRawExtension(const QString &suffix)
{
    static const QStringList raw = { u"arw"_s, u"cr2"_s, u"cr3"_s, u"nef"_s, u"raf"_s,
                                     u"orf"_s, u"rw2"_s, u"dng"_s, u"pef"_s, u"srw"_s };
    return raw.contains(suffix.toLower());
}

bool isJpegExtension(const QString &suffix)
{
    const QString s = suffix.toLower();
    return s == u"jpg"_s || s == u"jpeg"_s;
}

QString pairFingerprint(const QString &rawPath, const QString &jpgPath)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &path : { rawPath, jpgPath }) {
        const QFileInfo info(path);
        hash.addData(info.fileName().toUtf8());
        hash.addData(QByteArray::number(info.size()));
        hash.addData(QByteArray::number(info.lastModified().toMSecsSinceEpoch()));
        hash.addData("\n");
    }
    return QString::fromLatin1(hash.result().toHex().left(32));
}

namespace {

std::optional<int> ratingFromXmpText(const QByteArray &xmp)
{
    static const QRegularExpression pattern(u"xmp:Rating(?:=\"|>)\\s*(-?\\d+)"_s);
    const QRegularExpressionMatch m = pattern.match(QString::fromUtf8(xmp));
    if (!m.hasMatch())
        return std::nullopt;
    return m.captured(1).toInt();
}

std::optional<int> ratingFromSidecar(const QString &rawPath)
{
    const QFileInfo raw(rawPath);
    const QString base = raw.dir().filePath(raw.completeBaseName());
    const QStringList candidates
        = { QString(rawPath + u".xmp"_s), QString(base + u".xmp"_s), QString(base + u".XMP"_s) };
    for (const QString &candidate : candidates) {
        QFile file(candidate);
        if (file.open(QIODevice::ReadOnly))
            if (const auto r = ratingFromXmpText(file.read(1 << 20)))
                return r;
    }
    return std::nullopt;
}

std::optional<int> ratingFromJpeg(const QString &jpgPath)
{
    try {
        auto image = Exiv2::ImageFactory::open(jpgPath.toStdString());
        if (!image.get())
            return std::nullopt;
        image->readMetadata();
        const auto xmp = image->xmpData().findKey(Exiv2::XmpKey("Xmp.xmp.Rating"));
        if (xmp != image->xmpData().end())
            return int(xmp->toLong());
        const auto exif = image->exifData().findKey(Exiv2::ExifKey("Exif.Image.Rating"));
        if (exif != image->exifData().end())
            return int(exif->toLong());
    } catch (const std::exception &) {
    }
    return std::nullopt;
}

} // namespace

std::optional<int> readRating(const QString &rawPath, const QString &jpgPath)
{
    if (const auto r = ratingFromSidecar(rawPath))
        return r;
    return ratingFromJpeg(jpgPath);
}

ScanResult scanSource(const RunOptions &options,
                      const std::function<bool(const QString &)> &isDelivered)
{
    ScanResult result;
    const QDir dir(options.sourceDir);
    if (!dir.exists()) {
        result.error = u"source folder does not exist: "_s + options.sourceDir;
        return result;
    }
    // Stem -> the first RAW and JPG by name; further files with the same stem are orphans.
    QMap<QString, std::pair<QString, QString>> byStem;
    const QFileInfoList files = dir.entryInfoList(QDir::Files | QDir::Readable, QDir::Name);
    for (const QFileInfo &info : files) {
        const bool raw = isRawExtension(info.suffix());
        if (!raw && !isJpegExtension(info.suffix()))
            continue;
        const QString stem = info.completeBaseName();
        if (!options.stems.isEmpty() && !options.stems.contains(stem))
            continue;
        QString &slot = raw ? byStem[stem].first : byStem[stem].second;
        if (slot.isEmpty())
            slot = info.absoluteFilePath();
        else
            ++result.orphans;
    }
    for (auto it = byStem.cbegin(); it != byStem.cend(); ++it) {
        const auto &[rawPath, jpgPath] = it.value();
        if (rawPath.isEmpty() || jpgPath.isEmpty()) {
            ++result.orphans;
            continue;
        }
        ++result.pairs;
        PhotoPair pair { it.key(), rawPath, jpgPath, pairFingerprint(rawPath, jpgPath),
                         readRating(rawPath, jpgPath) };
        if (options.minRating >= 1 && pair.rating.value_or(0) < options.minRating) {
            ++result.belowRating;
            continue;
        }
        if (!options.force && isDelivered(pair.fingerprint)) {
            ++result.delivered;
            continue;
        }
        result.pending << pair;
    }
    return result;
}

} // namespace orvanta::engine
