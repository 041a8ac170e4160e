// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "document/PhotoReader.h"

#include "hdr/codec/UltraHdrDecoder.h"
#include "hdr/codec/UltraHdrLayout.h"
#include "media/MetadataService.h"
#include "thumbnails/ImageAdapter.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

QString unreadable(const QString &path)
{
    return u"Cannot read %1"_s.arg(path);
}

} // namespace

ReadResult<ProPhotoMetadata> PhotoReader::metadata(const QString &path) const
{
    // exiv2 answers "nothing" for a file it cannot parse; only a file that
    // cannot be opened at all is a failure, since its size alone is worth showing.
    if (!QFileInfo(path).isReadable())
        return { {}, unreadable(path) };
    return { MetadataService::shared().extractMetadata(path), {} };
}

ReadResult<GainMapSummary> PhotoReader::gainMap(const QString &path) const
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return { {}, unreadable(path) };
    const UltraHdrLayout layout = inspectUltraHdr(file.readAll());
    if (!layout.isJpeg())
        return { {}, layout.error };
    if (!layout.primary.complete)
        return { {}, u"The file is cut short"_s };
    GainMapSummary summary;
    if (!layout.isUltraHdr())
        return { summary, {} }; // a plain JPEG: read fine, carries no map
    const GainMapMetadata &meta = *layout.metadata;
    summary.present = true;
    // The ISO block's own version numbers are 0.0 in every file written to
    // the published standard, which reads as a fault; the name says it all.
    // Adobe's hdrgm namespace carries a real version.
    summary.kind = meta.source == GainMapMetadataSource::Iso21496 ? u"ISO 21496-1"_s
                                                                  : u"XMP hdrgm "_s + meta.version;
    summary.channels = meta.channelCount;
    summary.minStops = meta.channel(0).minLog2;
    summary.maxStops = meta.channel(0).maxLog2;
    for (int c = 1; c < meta.channelCount; ++c) {
        summary.minStops = std::min(summary.minStops, meta.channel(c).minLog2);
        summary.maxStops = std::max(summary.maxStops, meta.channel(c).maxLog2);
    }
    return { summary, {} };
}

ReadResult<Rendition> PhotoReader::rendition(const QString &path, bool hdr) const
{
    UltraHdrDecodeOptions options;
    options.applyGainMap = hdr;
    UltraHdrDecodeResult decoded = decodeUltraHdrFile(path, options);
    if (decoded.image.isNull())
        return { {}, decoded.error.isEmpty() ? unreadable(path) : decoded.error };
    return { { toQImage(std::move(decoded.image)), hdr ? decoded.gainMapIssue : QString() }, {} };
}

ReadResult<HDRHistogramData> PhotoReader::histogram(const QString &path,
                                                    std::optional<double> peakStops) const
{
    std::optional<HDRHistogramData> data = computeHistogram(path, peakStops);
    if (!data)
        return { {}, unreadable(path) };
    return { std::move(*data), {} };
}

ReadResult<QImage> PhotoReader::preview(const QString &path, QSize bounds) const
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
    if (size.isValid()) {
        if (turned)
            size.transpose();
        if (size.width() > bounds.width() || size.height() > bounds.height())
            size.scale(bounds, Qt::KeepAspectRatio);
        if (turned)
            size.transpose();
        reader.setScaledSize(size); // the JPEG decoder scales while decoding
    }
    QImage image = reader.read();
    if (image.isNull())
        return { {}, reader.errorString() };
    return { std::move(image), {} };
}

} // namespace orvanta
