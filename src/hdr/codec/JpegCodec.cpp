// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/codec/JpegCodec.h"

#include <algorithm>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <jpeglib.h>

namespace orvanta {

namespace {

// libjpeg reports fatal errors through error_exit, which must not return: we
// jump back to the setjmp in the wrapper method that called into the library.
// Only libjpeg's own C frames lie between the two, so no destructor is skipped.
struct ErrorManager
{
    jpeg_error_mgr pub;
    std::jmp_buf jump;
    char message[JMSG_LENGTH_MAX];
};

void onError(j_common_ptr cinfo)
{
    auto *err = reinterpret_cast<ErrorManager *>(cinfo->err);
    (*cinfo->err->format_message)(cinfo, err->message);
    std::longjmp(err->jump, 1);
}

void onOutputMessage(j_common_ptr)
{
} // warnings are counted, never printed

void installErrorManager(ErrorManager &err)
{
    jpeg_std_error(&err.pub);
    err.pub.error_exit = onError;
    err.pub.output_message = onOutputMessage;
    err.message[0] = '\0';
}

} // namespace

struct JpegDecoder::State
{
    ErrorManager err;
    jpeg_decompress_struct cinfo;
    bool created = false;
    bool started = false;
    bool failed = false;
    QString error;
};

JpegDecoder::JpegDecoder()
    : m_state(std::make_unique<State>())
{
}

JpegDecoder::~JpegDecoder()
{
    if (m_state->created)
        jpeg_destroy_decompress(&m_state->cinfo);
}

bool JpegDecoder::open(QByteArrayView data, const Options &options)
{
    State &s = *m_state;
    if (s.created || data.isEmpty())
        return false;
    installErrorManager(s.err);
    s.cinfo.err = &s.err.pub;
    if (setjmp(s.err.jump)) {
        s.failed = true;
        s.error = QString::fromLatin1(s.err.message);
        return false;
    }
    jpeg_create_decompress(&s.cinfo);
    s.created = true;
    jpeg_mem_src(&s.cinfo, reinterpret_cast<const unsigned char *>(data.data()),
                 static_cast<unsigned long>(data.size()));
    jpeg_read_header(&s.cinfo, TRUE);
    if (qint64(s.cinfo.image_width) * s.cinfo.image_height > options.maxPixels) {
        s.failed = true;
        s.error = QStringLiteral("image too large");
        return false;
    }
    switch (options.output) {
    case Output::Rgb:
        s.cinfo.out_color_space = JCS_RGB;
        break;
    case Output::Rgba:
        s.cinfo.out_color_space = JCS_EXT_RGBA;
        break;
    case Output::Native:
        s.cinfo.out_color_space = s.cinfo.num_components == 1 ? JCS_GRAYSCALE : JCS_RGB;
        break;
    }
    s.cinfo.scale_num = 1;
    s.cinfo.scale_denom = static_cast<unsigned int>(std::clamp(options.scaleDenominator, 1, 8));
    if (options.fast) {
        s.cinfo.dct_method = JDCT_IFAST;
        s.cinfo.do_fancy_upsampling = FALSE;
    }
    jpeg_start_decompress(&s.cinfo);
    s.started = true;
    return true;
}

int JpegDecoder::width() const
{
    return m_state->started ? int(m_state->cinfo.output_width) : 0;
}

int JpegDecoder::height() const
{
    return m_state->started ? int(m_state->cinfo.output_height) : 0;
}

int JpegDecoder::components() const
{
    return m_state->started ? m_state->cinfo.output_components : 0;
}

int JpegDecoder::rowsRead() const
{
    return m_state->started ? int(m_state->cinfo.output_scanline) : 0;
}

int JpegDecoder::readRows(unsigned char *dst, qsizetype stride, int maxRows)
{
    State &s = *m_state;
    if (!s.started || s.failed)
        return -1;
    if (setjmp(s.err.jump)) {
        s.failed = true;
        s.error = QString::fromLatin1(s.err.message);
        return -1;
    }
    int done = 0;
    while (done < maxRows && s.cinfo.output_scanline < s.cinfo.output_height) {
        JSAMPROW rows[8];
        const int batch = std::min(maxRows - done, 8);
        for (int i = 0; i < batch; ++i)
            rows[i] = dst + (done + i) * stride;
        done += int(jpeg_read_scanlines(&s.cinfo, rows, JDIMENSION(batch)));
    }
    return done;
}

QString JpegDecoder::error() const
{
    return m_state->error;
}

namespace {

struct EncodeState
{
    ErrorManager err;
    jpeg_compress_struct cinfo;
    unsigned char *buffer = nullptr;
    unsigned long size = 0;
};

// Runs the whole compression inside one setjmp frame; returns false on error.
bool compress(EncodeState &s, const unsigned char *pixels, int width, int height, int components,
              qsizetype stride, int quality, bool fullChroma)
{
    installErrorManager(s.err);
    s.cinfo.err = &s.err.pub;
    if (setjmp(s.err.jump)) {
        jpeg_destroy_compress(&s.cinfo);
        return false;
    }
    jpeg_create_compress(&s.cinfo);
    jpeg_mem_dest(&s.cinfo, &s.buffer, &s.size);
    s.cinfo.image_width = JDIMENSION(width);
    s.cinfo.image_height = JDIMENSION(height);
    s.cinfo.input_components = components;
    s.cinfo.in_color_space = components == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&s.cinfo);
    jpeg_set_quality(&s.cinfo, std::clamp(quality, 1, 100), TRUE);
    s.cinfo.dct_method = JDCT_ISLOW;
    if (fullChroma && components == 3) {
        for (int c = 0; c < 3; ++c)
            s.cinfo.comp_info[c].h_samp_factor = s.cinfo.comp_info[c].v_samp_factor = 1;
    }
    jpeg_start_compress(&s.cinfo, TRUE);
    while (s.cinfo.next_scanline < s.cinfo.image_height) {
        JSAMPROW row
            = const_cast<unsigned char *>(pixels + qsizetype(s.cinfo.next_scanline) * stride);
        jpeg_write_scanlines(&s.cinfo, &row, 1);
    }
    jpeg_finish_compress(&s.cinfo);
    jpeg_destroy_compress(&s.cinfo);
    return true;
}

} // namespace

QByteArray encodeJpeg(const unsigned char *pixels, int width, int height, int components,
                      qsizetype stride, int quality, bool fullChroma)
{
    if (!pixels || width <= 0 || height <= 0 || (components != 1 && components != 3)
        || width > 65500 || height > 65500)
        return {};
    auto s = std::make_unique<EncodeState>();
    const bool ok = compress(*s, pixels, width, height, components, stride, quality, fullChroma);
    QByteArray out;
    if (ok && s->buffer)
        out = QByteArray(reinterpret_cast<const char *>(s->buffer), qsizetype(s->size));
    std::free(s->buffer);
    return out;
}

} // namespace orvanta
