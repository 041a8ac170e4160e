// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Portable float maps (.pfm): the plain linear-light exchange format the
// command-line tool reads and writes. Pure functions; any thread.
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QFile>
#include <QString>

namespace orvanta {

// RGB ("PF") or grayscale ("Pf") maps of either byte order; rows are stored
// bottom to top. Returns an RgbaF32 picture, or a null one with `error` set.
ImageBuffer readPortableFloatMap(QByteArrayView bytes, QString *error = nullptr);
// Writes an RGB little-endian map of any float or 8-bit picture (8-bit values
// are taken as they are, divided by 255, not linearised).
QByteArray writePortableFloatMap(const ImageBuffer &image);
// The same, written row by row to `device`, so no second copy of a large
// picture is held. False when the device would not take every byte.
bool writePortableFloatMap(const ImageBuffer &image, QIODevice &device);

struct PortableFloatMapHeader
{
    int width = 0, height = 0, channels = 3;
    bool littleEndian = true;
    qint64 dataOffset = 0;
    qint64 rowBytes() const { return qint64(width) * channels * 4; }
    qint64 dataSize() const { return rowBytes() * height; }
    // Where row `y` (0 = top) starts after the header: rows are stored bottom up.
    qint64 rowOffset(int y) const { return rowBytes() * (height - 1 - y); }
    // One stored row to 4 floats a pixel (alpha 1).
    void decodeRow(const char *in, float *rgba) const;
};

// Reads a float map file a row at a time, for pictures too large to hold
// twice. readRow() may be called from several threads at once.
class PortableFloatMapReader
{
public:
    bool open(const QString &path, QString *error = nullptr);
    int width() const { return m_header.width; }
    int height() const { return m_header.height; }
    // Row `y` (0 = top) as 4 floats a pixel, alpha 1; false on a read error.
    bool readRow(int y, float *rgba) const;

private:
    QFile m_file;
    PortableFloatMapHeader m_header;
};

} // namespace orvanta
