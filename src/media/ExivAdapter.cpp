// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "media/ExivAdapter.h"

#include <QFile>

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wpedantic"
#include <exiv2/exiv2.hpp>
#pragma GCC diagnostic pop

#include <cmath>
#include <cstring>
#include <limits>
#include <mutex>

namespace orvanta::exiv {

namespace {

std::mutex s_xmpMutex;
// exiv2 0.27 does not promise that two threads may parse files at the same
// time (its image factory and XMP toolkit keep process-wide state), so every
// read through this adapter is serialised. A read takes milliseconds; the thumbnail loader and
// the metadata readers never notice the wait.
std::mutex s_readMutex;

void lockXmp(void *, bool lock)
{
    if (lock)
        s_xmpMutex.lock();
    else
        s_xmpMutex.unlock();
}

std::string nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}

const Exiv2::Value *findValue(const Exiv2::ExifData &exif, const char *key)
{
    const auto it = exif.findKey(Exiv2::ExifKey(key));
    if (it == exif.end() || it->count() < 1)
        return nullptr;
    return &it->value();
}

bool isIntegerType(Exiv2::TypeId type)
{
    switch (type) {
    case Exiv2::unsignedByte:
    case Exiv2::unsignedShort:
    case Exiv2::unsignedLong:
    case Exiv2::signedByte:
    case Exiv2::signedShort:
    case Exiv2::signedLong:
        return true;
    default:
        return false;
    }
}

// Rationals are divided here rather than through toFloat(), which works in
// single precision and divides by a zero denominator without complaint.
std::optional<double> numberAt(const Exiv2::ExifData &exif, const char *key)
{
    const Exiv2::Value *value = findValue(exif, key);
    if (!value)
        return std::nullopt;
    const Exiv2::TypeId type = value->typeId();
    if (isIntegerType(type))
        return double(value->toLong(0));
    if (type == Exiv2::unsignedRational || type == Exiv2::signedRational) {
        const Exiv2::Rational r = value->toRational(0);
        if (r.second == 0)
            return std::nullopt;
        return double(r.first) / double(r.second);
    }
    if (type == Exiv2::tiffFloat || type == Exiv2::tiffDouble) {
        const double d = double(value->toFloat(0));
        return std::isfinite(d) ? std::optional<double>(d) : std::nullopt;
    }
    return std::nullopt;
}

std::optional<int> integerAt(const Exiv2::ExifData &exif, const char *key)
{
    const Exiv2::Value *value = findValue(exif, key);
    if (!value || !isIntegerType(value->typeId()))
        return std::nullopt;
    const long n = value->toLong(0);
    if (n < std::numeric_limits<int>::min() || n > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(n);
}

std::optional<QString> textAt(const Exiv2::ExifData &exif, const char *key)
{
    const Exiv2::Value *value = findValue(exif, key);
    if (!value || value->typeId() != Exiv2::asciiString)
        return std::nullopt;
    const std::string text = value->toString();
    const size_t end = std::min(text.find('\0'), text.size());
    return QString::fromUtf8(text.data(), qsizetype(end));
}

std::optional<int> positiveDimension(long value)
{
    if (value < 1 || value > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(value);
}

ExifTags tagsOf(const Exiv2::Image &image)
{
    const Exiv2::ExifData &exif = image.exifData();
    ExifTags tags;
    tags.pixelWidth = positiveDimension(long(image.pixelWidth()));
    tags.pixelHeight = positiveDimension(long(image.pixelHeight()));
    tags.make = textAt(exif, "Exif.Image.Make");
    tags.model = textAt(exif, "Exif.Image.Model");
    tags.dateTime = textAt(exif, "Exif.Image.DateTime");
    tags.lensModel = textAt(exif, "Exif.Photo.LensModel");
    tags.dateTimeOriginal = textAt(exif, "Exif.Photo.DateTimeOriginal");
    tags.fNumber = numberAt(exif, "Exif.Photo.FNumber");
    tags.exposureTime = numberAt(exif, "Exif.Photo.ExposureTime");
    tags.focalLength = numberAt(exif, "Exif.Photo.FocalLength");
    tags.focalLength35mm = numberAt(exif, "Exif.Photo.FocalLengthIn35mmFilm");
    tags.exposureBias = numberAt(exif, "Exif.Photo.ExposureBiasValue");
    tags.iso = integerAt(exif, "Exif.Photo.ISOSpeedRatings");
    const std::optional<int> orientation = integerAt(exif, "Exif.Image.Orientation");
    if (orientation && *orientation >= 1 && *orientation <= 8)
        tags.orientation = orientation;
    return tags;
}

// Opens and parses a file; exiv2 reports every failure by throwing.
std::unique_ptr<Exiv2::Image> openImage(const QString &path)
{
    auto image = Exiv2::ImageFactory::open(nativePath(path));
    if (!image.get())
        return nullptr;
    image->readMetadata();
    return std::unique_ptr<Exiv2::Image>(image.release());
}

} // namespace

void initializeExiv2()
{
    static std::once_flag once;
    std::call_once(once, [] {
        Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
        Exiv2::XmpParser::initialize(&lockXmp, nullptr);
        Exiv2::enableBMFF(true);
    });
}

std::optional<ExifTags> readTags(const QString &path)
{
    initializeExiv2();
    const std::lock_guard lock(s_readMutex);
    try {
        const auto image = openImage(path);
        if (!image)
            return std::nullopt;
        return tagsOf(*image);
    } catch (...) {
        // Exiv2::AnyError for unreadable or corrupt files, std::bad_alloc for
        // absurd sizes in hostile ones: all mean "nothing could be read".
        return std::nullopt;
    }
}

std::optional<EmbeddedPreview> embeddedPreview(const QString &path, int minLongSide)
{
    initializeExiv2();
    const std::lock_guard lock(s_readMutex);
    try {
        const auto image = openImage(path);
        if (!image)
            return std::nullopt;
        const Exiv2::PreviewManager manager(*image);
        const Exiv2::PreviewPropertiesList list = manager.getPreviewProperties();
        if (list.empty())
            return std::nullopt;
        // The list is sorted by area, smallest first.
        auto chosen = list.end() - 1;
        for (auto it = list.begin(); it != list.end(); ++it) {
            if (int(std::max(it->width_, it->height_)) >= minLongSide) {
                chosen = it;
                break;
            }
        }
        const Exiv2::PreviewImage preview = manager.getPreviewImage(*chosen);
        EmbeddedPreview result;
        result.data = QByteArray(reinterpret_cast<const char *>(preview.pData()),
                                 qsizetype(preview.size()));
        result.mimeType = QByteArray::fromStdString(preview.mimeType());
        result.width = int(std::min<uint32_t>(preview.width(), 1u << 20));
        result.height = int(std::min<uint32_t>(preview.height(), 1u << 20));
        result.largeEnough = std::max(result.width, result.height) >= minLongSide;
        result.orientation = tagsOf(*image).orientation.value_or(1);
        if (result.data.isEmpty())
            return std::nullopt;
        return result;
    } catch (...) {
        return std::nullopt;
    }
}

} // namespace orvanta::exiv
