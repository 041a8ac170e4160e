// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "SamplePairs.h"

#include "hdr/codec/JpegCodec.h"
#include "thumbnails/ImageAdapter.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <cmath>
#include <functional>

namespace orvanta::samples {

namespace {

constexpr double kRawWhite = 60000.0; // the DNG's white level
constexpr double kRawExposure = 1.0 / 8; // radiance 8 reaches the sensor's white

// A minimal little-endian TIFF writer: one IFD0 and an optional Exif IFD.
struct TiffEntry
{
    quint16 tag;
    quint16 type; // 1 BYTE, 2 ASCII, 3 SHORT, 4 LONG, 5 RATIONAL, 10 SRATIONAL
    quint32 count;
    QByteArray data;
};

QByteArray le16(quint16 v)
{
    QByteArray b(2, 0);
    qToLittleEndian(v, b.data());
    return b;
}
QByteArray le32(quint32 v)
{
    QByteArray b(4, 0);
    qToLittleEndian(v, b.data());
    return b;
}

TiffEntry shortEntry(quint16 tag, QList<quint16> values)
{
    QByteArray d;
    for (quint16 v : values)
        d += le16(v);
    return { tag, 3, quint32(values.size()), d };
}
TiffEntry longEntry(quint16 tag, quint32 value)
{
    return { tag, 4, 1, le32(value) };
}
TiffEntry asciiEntry(quint16 tag, const QString &text)
{
    const QByteArray d = text.toLatin1() + '\0';
    return { tag, 2, quint32(d.size()), d };
}
TiffEntry rationalEntry(quint16 tag, quint16 type, QList<std::pair<qint32, qint32>> values)
{
    QByteArray d;
    for (auto [n, den] : values)
        d += le32(quint32(n)) + le32(quint32(den));
    return { tag, type, quint32(values.size()), d };
}

qsizetype ifdSize(const QList<TiffEntry> &entries)
{
    qsizetype size = 2 + 12 * entries.size() + 4;
    for (const TiffEntry &e : entries)
        if (e.data.size() > 4)
            size += (e.data.size() + 1) & ~1;
    return size;
}

QByteArray writeIfd(QList<TiffEntry> entries, quint32 offset)
{
    std::sort(entries.begin(), entries.end(), [](auto &a, auto &b) { return a.tag < b.tag; });
    QByteArray head = le16(quint16(entries.size())), tail;
    quint32 dataAt = offset + 2 + 12 * quint32(entries.size()) + 4;
    for (const TiffEntry &e : entries) {
        head += le16(e.tag) + le16(e.type) + le32(e.count);
        if (e.data.size() <= 4) {
            head += e.data + QByteArray(4 - e.data.size(), '\0');
        } else {
            head += le32(dataAt + quint32(tail.size()));
            tail += e.data;
            if (tail.size() & 1)
                tail += '\0';
        }
    }
    return head + le32(0) + tail;
}

// Header, then `pixels` at offset 8, then IFD0, then the Exif IFD.
QByteArray buildTiff(QList<TiffEntry> ifd0, const QList<TiffEntry> &exif, const QByteArray &pixels)
{
    const quint32 ifd0At = 8 + quint32((pixels.size() + 1) & ~1);
    if (!exif.isEmpty())
        ifd0 << longEntry(34665, 0);
    const quint32 exifAt = ifd0At + quint32(ifdSize(ifd0));
    if (!exif.isEmpty())
        ifd0.last() = longEntry(34665, exifAt);
    QByteArray out = QByteArray("II*\0", 4) + le32(ifd0At) + pixels;
    if (out.size() & 1)
        out += '\0';
    out += writeIfd(ifd0, ifd0At);
    if (!exif.isEmpty())
        out += writeIfd(exif, exifAt);
    return out;
}

QList<TiffEntry> cameraEntries(const SampleScene &scene)
{
    QList<TiffEntry> e { asciiEntry(271, QStringLiteral("Orvanta")), asciiEntry(272, scene.model),
                         shortEntry(274, { quint16(scene.orientation) }) };
    return e;
}

bool inside(const QRect &r, int x, int y)
{
    return r.contains(x, y);
}

float srgbDecode(int code)
{
    const double e = code / 255.0;
    return float(e <= 0.04045 ? e / 12.92 : std::pow((e + 0.055) / 1.055, 2.4));
}

struct FaceGeometry
{
    double cx, cy, fw, fh;
};

bool turnsSideways(int orientation)
{
    return orientation >= 5 && orientation <= 8;
}
int undoOrientation(int orientation)
{
    return orientation == 6 ? 8 : orientation == 8 ? 6 : orientation;
}

// The face as the photo is displayed (upright), in display pixels.
FaceGeometry faceGeometry(const SampleScene &s)
{
    const bool sideways = turnsSideways(s.orientation);
    const double w = sideways ? s.height : s.width, h = sideways ? s.width : s.height;
    const double side = std::min(w, h);
    return { w * 0.7, h * 0.5, side * 0.26, side * 0.34 };
}

QSize displaySize(const SampleScene &s)
{
    return turnsSideways(s.orientation) ? QSize(s.height, s.width) : QSize(s.width, s.height);
}

// Draws in display pixels, returns the picture in stored pixels.
QImage storedFromDisplay(const SampleScene &scene, const std::function<void(QPainter &)> &draw)
{
    QImage display(displaySize(scene), QImage::Format_ARGB32);
    display.fill(Qt::transparent);
    {
        QPainter p(&display);
        p.setPen(Qt::NoPen);
        draw(p);
    }
    return applyExifOrientation(display, undoOrientation(scene.orientation));
}

// A drawn face, upright on display: hair, skin, brows, eyes, nose and mouth,
// enough for a frontal-face detector. Kept for the last scene asked for.
const QImage &faceLayer(const SampleScene &scene)
{
    static QImage layer;
    static int layerOrientation = 0;
    if (layer.size() == QSize(scene.width, scene.height) && layerOrientation == scene.orientation)
        return layer;
    layerOrientation = scene.orientation;
    const auto [cx, cy, fw, fh] = faceGeometry(scene);
    layer = storedFromDisplay(scene, [&, cx = cx, cy = cy, fw = fw, fh = fh](QPainter &p) {
        p.setBrush(QColor(40, 30, 25));
        p.drawEllipse(QPointF(cx, cy - fh * 0.25), fw * 1.08, fh * 0.9);
        p.setBrush(QColor(232, 182, 150));
        p.drawEllipse(QPointF(cx, cy + fh * 0.05), fw * 0.95, fh);
        p.setBrush(QColor(60, 40, 35));
        p.drawRect(QRectF(cx - fw * 0.62, cy - fh * 0.32, fw * 0.45, fh * 0.07));
        p.drawRect(QRectF(cx + fw * 0.17, cy - fh * 0.32, fw * 0.45, fh * 0.07));
        p.setBrush(QColor(50, 35, 30));
        p.drawEllipse(QPointF(cx - fw * 0.4, cy - fh * 0.12), fw * 0.16, fh * 0.07);
        p.drawEllipse(QPointF(cx + fw * 0.4, cy - fh * 0.12), fw * 0.16, fh * 0.07);
        p.setBrush(QColor(190, 135, 110));
        p.drawEllipse(QPointF(cx, cy + fh * 0.18), fw * 0.14, fh * 0.08);
        p.setBrush(QColor(150, 70, 70));
        p.drawEllipse(QPointF(cx, cy + fh * 0.45), fw * 0.35, fh * 0.07);
    });
    return layer;
}

} // namespace

QRect sunRect(const SampleScene &s)
{
    return { s.width / 8, s.height / 6, s.width / 5, s.height / 4 };
}
QRect blownRect(const SampleScene &s)
{
    return { s.width * 5 / 8, s.height / 6, s.width / 8, s.height / 6 };
}
QImage cheekMask(const SampleScene &s)
{
    const auto [cx, cy, fw, fh] = faceGeometry(s);
    return storedFromDisplay(s, [&, cx = cx, cy = cy, fw = fw, fh = fh](QPainter &p) {
        p.fillRect(QRectF(cx - fw * 0.7, cy + fh * 0.05, fw * 0.35, fh * 0.2), Qt::white);
    });
}
QRect shadowRect(const SampleScene &s)
{
    return { s.width / 10, s.height * 2 / 3, s.width / 4, s.height / 4 };
}
QRect chartRect(const SampleScene &s)
{
    return { s.width * 2 / 5, s.height * 5 / 8, s.width * 11 / 20, s.height * 5 / 16 };
}

namespace {

// Mid-tone colours, linear, in a 6 x 2 grid over the chart.
void chartColour(const SampleScene &scene, int x, int y, float rgb[3])
{
    static const float patches[12][3] = {
        { 0.40f, 0.12f, 0.08f }, { 0.10f, 0.30f, 0.10f }, { 0.08f, 0.12f, 0.45f },
        { 0.45f, 0.40f, 0.06f }, { 0.35f, 0.10f, 0.35f }, { 0.06f, 0.30f, 0.38f },
        { 0.50f, 0.28f, 0.20f }, { 0.20f, 0.20f, 0.20f }, { 0.25f, 0.35f, 0.05f },
        { 0.15f, 0.05f, 0.20f }, { 0.05f, 0.15f, 0.12f }, { 0.60f, 0.55f, 0.50f },
    };
    const QRect chart = chartRect(scene);
    const int col = std::clamp((x - chart.left()) * 6 / chart.width(), 0, 5);
    const int row = std::clamp((y - chart.top()) * 2 / chart.height(), 0, 1);
    std::copy_n(patches[row * 6 + col], 3, rgb);
}

// A camera's rendering of scene light: white balance, saturation, tone curve.
void renderLook(const JpegLook &look, float lin[3])
{
    lin[0] *= float(look.redGain);
    lin[2] *= float(look.blueGain);
    const float y = 0.2126f * lin[0] + 0.7152f * lin[1] + 0.0722f * lin[2];
    for (int c = 0; c < 3; ++c)
        lin[c] = std::max(0.0f, y + (lin[c] - y) * float(look.saturation));
}

double toneCurve(const JpegLook &look, double encoded)
{
    const double s = encoded * encoded * (3.0 - 2.0 * encoded);
    return encoded + (s - encoded) * look.contrast;
}

} // namespace

void sceneRadiance(const SampleScene &scene, int x, int y, float rgb[3])
{
    // A soft gradient from deep shadow to bright mid-tones, a blue-ish cast on the left.
    const float t = float(x) / scene.width, v = float(y) / scene.height;
    const float base = 0.03f + 0.55f * t * (1.0f - 0.5f * v);
    rgb[0] = base * 0.9f;
    rgb[1] = base;
    rgb[2] = base * (1.1f - 0.2f * t);
    if (scene.backlit) {
        rgb[0] = rgb[1] = rgb[2] = y < scene.height / 2 ? 0.85f : 0.015f;
        return;
    }
    if (inside(shadowRect(scene), x, y))
        rgb[0] = rgb[1] = rgb[2] = 0.02f;
    if (scene.look && inside(chartRect(scene), x, y))
        chartColour(scene, x, y, rgb);
    if (inside(sunRect(scene), x, y)) {
        rgb[0] = 6.0f;
        rgb[1] = 5.6f;
        rgb[2] = 4.8f;
    }
    if (!scene.face && inside(blownRect(scene), x, y))
        rgb[0] = rgb[1] = rgb[2] = 20.0f;
    if (scene.face) {
        const QImage &face = faceLayer(scene);
        const QRgb px = face.pixel(x, y);
        if (qAlpha(px) == 255) {
            rgb[0] = srgbDecode(qRed(px));
            rgb[1] = srgbDecode(qGreen(px));
            rgb[2] = srgbDecode(qBlue(px));
        }
    }
}

QByteArray makeDng(const SampleScene &scene)
{
    const int samples = scene.bayer ? 1 : 3;
    QByteArray pixels(qsizetype(scene.width) * scene.height * samples * 2, '\0');
    auto *out = reinterpret_cast<uchar *>(pixels.data());
    for (int y = 0; y < scene.height; ++y)
        for (int x = 0; x < scene.width; ++x) {
            float rgb[3];
            sceneRadiance(scene, x, y, rgb);
            if (scene.look && scene.look->rawCrosstalk > 0) {
                const float k = float(scene.look->rawCrosstalk), sum = rgb[0] + rgb[1] + rgb[2];
                for (float &v : rgb)
                    v = v * (1 - k) + (sum - v) * k / 2;
            }
            const size_t at = (size_t(y) * scene.width + x) * samples;
            for (int c = 0; c < samples; ++c) {
                // RGGB: red on even rows and columns, blue on odd ones, green between.
                const int channel = scene.bayer ? ((y & 1) + (x & 1)) : c;
                const double v = std::min(kRawWhite, rgb[channel] * kRawExposure * kRawWhite);
                qToLittleEndian(quint16(std::lround(v)), out + (at + c) * 2);
            }
        }
    // Camera space = linear sRGB: the colour matrix is the XYZ (D65) to sRGB one.
    QList<std::pair<qint32, qint32>> xyzToSrgb
        = { { 32406, 10000 }, { -15372, 10000 }, { -4986, 10000 },
            { -9689, 10000 }, { 18758, 10000 },  { 415, 10000 },
            { 557, 10000 },   { -2040, 10000 },  { 10570, 10000 } };
    QList<TiffEntry> ifd0 = cameraEntries(scene);
    ifd0 << longEntry(254, 0) << longEntry(256, quint32(scene.width))
         << longEntry(257, quint32(scene.height)) << shortEntry(259, { 1 }) << longEntry(273, 8)
         << longEntry(278, quint32(scene.height)) << longEntry(279, quint32(pixels.size()))
         << shortEntry(284, { 1 }) << TiffEntry { 50706, 1, 4, QByteArray("\x01\x04\x00\x00", 4) }
         << asciiEntry(50708, QStringLiteral("Orvanta ") + scene.model) << longEntry(50714, 0)
         << longEntry(50717, quint32(kRawWhite)) << rationalEntry(50721, 10, xyzToSrgb)
         << rationalEntry(50728, 5, { { 1, 1 }, { 1, 1 }, { 1, 1 } }) << shortEntry(50778, { 21 });
    if (scene.bayer)
        ifd0 << shortEntry(258, { 16 }) << shortEntry(262, { 32803 }) << shortEntry(277, { 1 })
             << shortEntry(33421, { 2, 2 })
             << TiffEntry { 33422, 1, 4, QByteArray("\x00\x01\x01\x02", 4) };
    else
        ifd0 << shortEntry(258, { 16, 16, 16 }) << shortEntry(262, { 34892 })
             << shortEntry(277, { 3 });
    return buildTiff(ifd0, {}, pixels);
}

QByteArray makeJpeg(const SampleScene &scene)
{
    QByteArray rgb(qsizetype(scene.width) * scene.height * 3, '\0');
    for (int y = 0; y < scene.height; ++y)
        for (int x = 0; x < scene.width; ++x) {
            float lin[3];
            const JpegLook look = scene.look.value_or(JpegLook {});
            // The JPG shows the centre `crop` of the scene at the full size.
            const int sx = int(scene.width * (0.5 - look.crop / 2) + (x + 0.5) * look.crop);
            const int sy = int(scene.height * (0.5 - look.crop / 2) + (y + 0.5) * look.crop);
            sceneRadiance(scene, sx, sy, lin);
            renderLook(look, lin);
            for (int c = 0; c < 3; ++c) {
                const double l = std::clamp(double(lin[c]), 0.0, 1.0);
                const double e = l <= 0.0031308 ? 12.92 * l : 1.055 * std::pow(l, 1 / 2.4) - 0.055;
                rgb[(qsizetype(y) * scene.width + x) * 3 + c]
                    = char(std::lround(toneCurve(look, e) * 255));
            }
        }
    const QByteArray jpeg = encodeJpeg(reinterpret_cast<const uchar *>(rgb.constData()),
                                       scene.width, scene.height, 3, scene.width * 3, 95);
    QList<TiffEntry> ifd0 = cameraEntries(scene);
    if (scene.exifRating)
        ifd0 << shortEntry(18246, { quint16(*scene.exifRating) });
    const QByteArray tiff = buildTiff(ifd0, { asciiEntry(36867, scene.dateTimeOriginal) }, {});
    const QByteArray app1 = QByteArray("Exif\0\0", 6) + tiff;
    QByteArray segment("\xff\xe1", 2);
    segment += char((app1.size() + 2) >> 8);
    segment += char((app1.size() + 2) & 0xff);
    return jpeg.left(2) + segment + app1 + jpeg.mid(2);
}

bool writePair(const QString &dir, const QString &stem, const SampleScene &scene)
{
    QDir().mkpath(dir);
    QFile raw(dir + QLatin1Char('/') + stem + QStringLiteral(".DNG"));
    QFile jpg(dir + QLatin1Char('/') + stem + QStringLiteral(".JPG"));
    return raw.open(QIODevice::WriteOnly) && raw.write(makeDng(scene)) > 0
        && jpg.open(QIODevice::WriteOnly) && jpg.write(makeJpeg(scene)) > 0;
}

} // namespace orvanta::samples
