// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Bulk float → half-float conversion for the decoder's output rows, using the
// CPU's F16C instructions when present. Pure; any thread.
#pragma once

#include <QtGlobal>

namespace orvanta {

// `dst` receives IEEE binary16 values (the layout of qfloat16), rounded to nearest.
void floatsToHalves(quint16 *dst, const float *src, qsizetype count);

} // namespace orvanta
