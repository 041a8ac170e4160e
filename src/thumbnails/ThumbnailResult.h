// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The outcome of one thumbnail request: the image, a file that exists but
// could not be decoded, or no file at all. A plain value, any thread.
#pragma once

#include <QImage>

namespace orvanta {

class ThumbnailResult
{
public:
    enum class Kind { Success, DecodeError, MissingOnDisk };

    static ThumbnailResult success(QImage image)
    {
        return ThumbnailResult(Kind::Success, std::move(image));
    }
    static ThumbnailResult decodeError() { return ThumbnailResult(Kind::DecodeError, {}); }
    static ThumbnailResult missingOnDisk() { return ThumbnailResult(Kind::MissingOnDisk, {}); }

    Kind kind() const { return m_kind; }
    bool isSuccess() const { return m_kind == Kind::Success; }
    // Null unless kind() is Success.
    const QImage &image() const { return m_image; }

private:
    ThumbnailResult(Kind kind, QImage image)
        : m_kind(kind)
        , m_image(std::move(image))
    {
    }

    Kind m_kind;
    QImage m_image;
};

} // namespace orvanta
