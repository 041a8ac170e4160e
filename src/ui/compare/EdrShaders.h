// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The GLSL programs of the EDR viewer's OpenGL surface, built on the kernels
// of hdr/EdrKernels. Pure; any thread.
#pragma once

#include <QString>

namespace orvanta::edrshaders {

// One triangle that covers the whole viewport; no vertex buffer needed.
extern const char *const kVertexShader;
// The picture pair, the divider, the stripes and the filmic view, or (toLayer)
// the picture alone, sRGB-encoded, with the stripe kind it needs in alpha.
QString frameShader();
// The layer on screen, with its stripes.
QString composeShader();

} // namespace orvanta::edrshaders
