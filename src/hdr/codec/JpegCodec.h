// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Thin, failure-safe wrappers over libjpeg-turbo: a scanline decoder for
// untrusted streams (errors become a message, never an abort or a jump through
// our frames) and a one-call encoder. One object per thread.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>

namespace orvanta {

class JpegDecoder
{
public:
    enum class Output {
        Rgb, // 3 bytes a pixel, whatever the stream holds
        Rgba, // 4 bytes a pixel, alpha 255
        Native, // 1 byte a pixel for a grayscale stream, else 3
    };
    struct Options
    {
        Output output = Output::Rgb;
        int scaleDenominator = 1; // 1, 2, 4 or 8: libjpeg's DCT scaling
        bool fast = false; // faster, slightly less exact IDCT and upsampling
        qint64 maxPixels = 1ll << 28; // refuse larger frames before allocating anything
    };

    JpegDecoder();
    ~JpegDecoder();
    JpegDecoder(const JpegDecoder &) = delete;
    JpegDecoder &operator=(const JpegDecoder &) = delete;

    // Reads the header and starts decompression. `data` must outlive the decoder.
    bool open(QByteArrayView data, const Options &options);
    int width() const; // of the output (after scaling)
    int height() const;
    int components() const; // bytes per output pixel
    int rowsRead() const;
    // Decodes up to `maxRows` rows into `dst`, one row every `stride` bytes.
    // Returns the number of rows decoded, or -1 once the stream failed.
    int readRows(unsigned char *dst, qsizetype stride, int maxRows);
    QString error() const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

// Encodes 8-bit pixels (1 component: grayscale, 3: RGB) at `quality` (1...100),
// with chroma at half resolution unless `fullChroma`. Returns an empty array on failure.
QByteArray encodeJpeg(const unsigned char *pixels, int width, int height, int components,
                      qsizetype stride, int quality, bool fullChroma = false);

} // namespace orvanta
