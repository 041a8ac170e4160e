// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the EDR viewer shows and how it treats HDR on an SDR display, with the
// text keys of each choice. Plain values; any thread.
#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace orvanta {

enum class EDRCompareMode { Split = 0, HdrOnly = 1, SdrOnly = 2 };
enum class SDRToneMapMode { Natural = 0, FilmicRollOff = 1 };

std::optional<EDRCompareMode> compareModeFromRaw(int raw);
std::optional<SDRToneMapMode> toneMapModeFromRaw(int raw);
const QList<EDRCompareMode> &allCompareModes();
const QList<SDRToneMapMode> &allToneMapModes();

QString titleKey(EDRCompareMode mode); // "edr_mode_split", ...
QString titleKey(SDRToneMapMode mode); // "sdr_mode_natural", "sdr_mode_filmic"
QString hintKey(SDRToneMapMode mode); // "sdr_mode_natural_hint", "sdr_mode_filmic_hint"

// Space in the compare window: split → HDR only → SDR only → split.
EDRCompareMode nextCompareMode(EDRCompareMode mode);

} // namespace orvanta
