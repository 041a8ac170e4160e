// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Finds faces with OpenCV's shipped Haar cascade and turns them into a skin
// weight: skin-coloured pixels inside each face's surroundings, softened. One
// cascade per thread (the classifier is not shared between workers).
#pragma once

#include "hdr/codec/ImageBuffer.h"

#include <QString>

#include <functional>

namespace orvanta::engine {

// The cascade file: $ORVANTA_RESOURCES_DIR/haarcascades/... first, then the
// system's OpenCV data. Empty when none is installed.
QString faceCascadePath();

// `grey` (Gray8) and `rgb` (Rgb8) are the same picture. Returns a Gray8 skin
// weight of that size (null when no face was found).
ImageBuffer findSkin(const ImageBuffer &grey, const ImageBuffer &rgb, int *faces);

std::function<ImageBuffer(const ImageBuffer &, const ImageBuffer &, int *)> skinFinder();

} // namespace orvanta::engine
