// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "FaceDetector.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <opencv2/imgproc.hpp>
#include <opencv2/objdetect.hpp>
#include <vector>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

constexpr int kDetectLongSide = 960; // faces are found on a picture this large

cv::CascadeClassifier *threadCascade()
{
    thread_local std::unique_ptr<cv::CascadeClassifier> cascade;
    thread_local bool tried = false;
    if (!tried) {
        tried = true;
        const QString path = faceCascadePath();
        auto c = std::make_unique<cv::CascadeClassifier>();
        if (!path.isEmpty() && c->load(path.toStdString()))
            cascade = std::move(c);
    }
    return cascade.get();
}

bool isSkin(const uchar *rgb)
{
    const double r = rgb[0], g = rgb[1], b = rgb[2];
    const double cr = 128 + 0.5 * r - 0.418688 * g - 0.081312 * b;
    const double cb = 128 - 0.168736 * r - 0.331264 * g + 0.5 * b;
    return cr >= 133 && cr <= 173 && cb >= 77 && cb <= 127;
}

} // namespace

QString faceCascadePath()
{
    const QString name = u"haarcascade_frontalface_default.xml"_s;
    const QString resources = qEnvironmentVariable("ORVANTA_RESOURCES_DIR");
    const QStringList candidates
        = { resources.isEmpty() ? QString() : QString(resources + u"/haarcascades/"_s + name),
            QString(u"/usr/share/opencv4/haarcascades/"_s + name),
            QString(u"/usr/share/opencv/haarcascades/"_s + name) };
    for (const QString &candidate : candidates) {
        if (!candidate.isEmpty() && QFileInfo(candidate).isFile())
            return candidate;
    }
    return {};
}

ImageBuffer findSkin(const ImageBuffer &grey, const ImageBuffer &rgb, int *faces)
{
    *faces = 0;
    cv::CascadeClassifier *cascade = threadCascade();
    if (!cascade || grey.isNull())
        return {};
    const double scale
        = std::min(1.0, double(kDetectLongSide) / std::max(grey.width(), grey.height()));
    const cv::Mat full(grey.height(), grey.width(), CV_8UC1, const_cast<uchar *>(grey.bits()),
                       size_t(grey.stride()));
    cv::Mat small;
    cv::resize(full, small, cv::Size(), scale, scale, cv::INTER_AREA);
    cv::equalizeHist(small, small);
    std::vector<cv::Rect> found;
    const int minSide = std::max(24, std::min(small.cols, small.rows) / 20);
    cascade->detectMultiScale(small, found, 1.1, 5, 0, cv::Size(minSide, minSide));
    *faces = int(found.size());
    if (found.empty())
        return {};
    cv::Mat mask(grey.height(), grey.width(), CV_8UC1, cv::Scalar(0));
    for (const cv::Rect &f : found) {
        const cv::Point centre(int((f.x + f.width / 2.0) / scale),
                               int((f.y + f.height / 2.0) / scale));
        const cv::Size axes(int(f.width * 0.75 / scale), int(f.height * 1.0 / scale));
        cv::Mat region(mask.size(), CV_8UC1, cv::Scalar(0));
        cv::ellipse(region, centre, axes, 0, 0, 360, cv::Scalar(255), cv::FILLED);
        for (int y = 0; y < mask.rows; ++y) {
            const uchar *in = region.ptr<uchar>(y);
            const uchar *px = rgb.row(y);
            uchar *out = mask.ptr<uchar>(y);
            for (int x = 0; x < mask.cols; ++x)
                if (in[x] && isSkin(px + x * 3))
                    out[x] = 255;
        }
    }
    const int blur = (std::max(3, std::min(mask.cols, mask.rows) / 100)) | 1;
    cv::GaussianBlur(mask, mask, cv::Size(blur, blur), 0);
    ImageBuffer out(grey.width(), grey.height(), PixelFormat::Gray8);
    for (int y = 0; y < mask.rows && !out.isNull(); ++y)
        std::copy_n(mask.ptr<uchar>(y), mask.cols, out.row(y));
    return out;
}

std::function<ImageBuffer(const ImageBuffer &, const ImageBuffer &, int *)> skinFinder()
{
    return &findSkin;
}

} // namespace orvanta::engine
