// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/HdrHistogram.h"

#include "hdr/codec/JpegCodec.h"
#include "hdr/codec/JpegSegments.h"

#include <QFile>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRenditionSize = 512;

// Rotates and mirrors a decoded picture by its EXIF orientation (1...8).
QImage oriented(const QImage &image, int orientation)
{
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.transformed(QTransform().rotate(180));
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.transformed(QTransform().rotate(90)).mirrored(true, false);
    case 6:
        return image.transformed(QTransform().rotate(90));
    case 7:
        return image.transformed(QTransform().rotate(-90)).mirrored(true, false);
    case 8:
        return image.transformed(QTransform().rotate(-90));
    default:
        return image;
    }
}

QImage fitted(const QImage &image)
{
    if (image.isNull() || std::max(image.width(), image.height()) <= kRenditionSize)
        return image;
    return image.scaled(kRenditionSize, kRenditionSize, Qt::KeepAspectRatio,
                        Qt::SmoothTransformation);
}

// JPEG through libjpeg's DCT scaling: only as many pixels as the rendition needs.
QImage jpegRendition(const QByteArray &bytes)
{
    const JpegStream stream = walkJpeg(bytes);
    if (stream.width <= 0 || stream.height <= 0)
        return {};
    const int longSide = std::max(stream.width, stream.height);
    int denominator = 8;
    while (denominator > 1 && (longSide + denominator - 1) / denominator < kRenditionSize)
        denominator /= 2;
    JpegDecoder decoder;
    JpegDecoder::Options options;
    options.output = JpegDecoder::Output::Rgba;
    options.scaleDenominator = denominator;
    options.fast = true;
    if (!decoder.open(QByteArrayView(bytes).first(stream.end), options))
        return {};
    QImage image(decoder.width(), decoder.height(), QImage::Format_RGBA8888);
    if (image.isNull()
        || decoder.readRows(image.bits(), image.bytesPerLine(), image.height()) != image.height())
        return {};
    return oriented(fitted(image), exifOrientation(bytes, stream));
}

} // namespace

QString rawValue(HistogramChannelMode mode)
{
    return mode == HistogramChannelMode::Luma ? u"Luma"_s : u"RGB"_s;
}

const QList<HistogramChannelMode> &allHistogramChannelModes()
{
    static const QList<HistogramChannelMode> modes { HistogramChannelMode::Luma,
                                                     HistogramChannelMode::Rgb };
    return modes;
}

int histogramBin(float value, float peakStops)
{
    // Float arithmetic on purpose: the bin edges are defined in single precision.
    if (value > 0.82f && peakStops > 0.1f) {
        const float extent = std::clamp(peakStops / 3.6f, 0.25f, 1.0f);
        const int bin = 160 + int(std::trunc(extent * ((value - 0.82f) / 0.18f) * 95.0f));
        return std::clamp(bin, 160, 255);
    }
    return std::clamp(int(std::trunc((value / 0.82f) * 159.0f)), 0, 159);
}

HistogramCounts countHistogram(const QImage &rgba, std::optional<double> peakStops)
{
    HistogramCounts counts;
    const QImage image = rgba.format() == QImage::Format_RGBA8888
            || rgba.format() == QImage::Format_RGBA8888_Premultiplied
        ? rgba
        : rgba.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const float peak = float(peakStops.value_or(0.0));
    // Each 8-bit value's bin is the same for every pixel: look it up.
    std::array<int, 256> channelBin {};
    for (int v = 0; v < 256; ++v)
        channelBin[v] = histogramBin(float(v) / 255.0f, peak);
    for (int y = 0; y < image.height(); ++y) {
        const uchar *p = image.constScanLine(y);
        for (int x = 0; x < image.width(); ++x, p += 4) {
            const float luma
                = (0.2126f * float(p[0]) + 0.7152f * float(p[1]) + 0.0722f * float(p[2])) / 255.0f;
            ++counts.luma[histogramBin(luma, peak)];
            ++counts.red[channelBin[p[0]]];
            ++counts.green[channelBin[p[1]]];
            ++counts.blue[channelBin[p[2]]];
        }
    }
    return counts;
}

QList<float> postProcess(const QList<qint64> &counts)
{
    const qsizetype n = counts.size();
    QList<float> a(n), b(n);
    for (qsizetype i = 0; i < n; ++i)
        a[i] = float(counts[i]);
    for (int pass = 0; pass < 2; ++pass) {
        for (qsizetype i = 0; i < n; ++i) {
            const float left = a[std::max<qsizetype>(i - 1, 0)];
            const float right = a[std::min(i + 1, n - 1)];
            b[i] = 0.25f * left + 0.5f * a[i] + 0.25f * right;
        }
        std::swap(a, b);
    }
    const float maximum = n > 0 ? *std::max_element(a.cbegin(), a.cend()) : 0.0f;
    if (!(maximum > 0.0f))
        return QList<float>(n, 0.0f);
    for (float &v : a)
        v = std::pow(v / maximum, 0.85f);
    return a;
}

QList<float> postProcess(const std::array<qint64, 256> &counts)
{
    return postProcess(QList<qint64>(counts.cbegin(), counts.cend()));
}

QImage histogramRendition(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.readAll();
    QImage image = jpegRendition(bytes);
    if (image.isNull()) { // not a JPEG: let Qt's readers try
        QImageReader reader(path);
        reader.setAutoTransform(true);
        const QSize size = reader.size();
        if (size.isValid() && std::max(size.width(), size.height()) > kRenditionSize)
            reader.setScaledSize(size.scaled(kRenditionSize, kRenditionSize, Qt::KeepAspectRatio));
        image = fitted(reader.read());
    }
    return image.isNull() ? QImage() : image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
}

std::optional<HDRHistogramData> computeHistogram(const QString &path,
                                                 std::optional<double> peakStops)
{
    const QImage image = histogramRendition(path);
    if (image.isNull())
        return std::nullopt;
    const HistogramCounts counts = countHistogram(image, peakStops);
    HDRHistogramData data;
    data.lumaBins = postProcess(counts.luma);
    data.redBins = postProcess(counts.red);
    data.greenBins = postProcess(counts.green);
    data.blueBins = postProcess(counts.blue);
    return data;
}

HistogramCurve histogramCurve(const QList<float> &bins, QSizeF size)
{
    HistogramCurve curve;
    const qsizetype n = bins.size();
    if (n < 2)
        return curve;
    const double step = size.width() / double(n - 1);
    QList<QPointF> points(n);
    for (qsizetype i = 0; i < n; ++i)
        points[i] = QPointF(double(i) * step,
                            size.height() - std::min(double(bins[i]), 1.0) * size.height());
    curve.stroke.moveTo(points[0]);
    for (qsizetype i = 0; i + 1 < n; ++i) {
        const QPointF &p0 = points[std::max<qsizetype>(i - 1, 0)];
        const QPointF &p1 = points[i];
        const QPointF &p2 = points[i + 1];
        const QPointF &p3 = points[std::min(i + 2, n - 1)];
        curve.stroke.cubicTo(p1 + (p2 - p0) / 6.0, p2 - (p3 - p1) / 6.0, p2);
    }
    curve.fill = curve.stroke;
    curve.fill.lineTo(points.last().x(), size.height());
    curve.fill.lineTo(0.0, size.height());
    curve.fill.closeSubpath();
    return curve;
}

} // namespace orvanta
