// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "hdr/EdrViewerTypes.h"

namespace orvanta {

using namespace Qt::StringLiterals;

std::optional<EDRCompareMode> compareModeFromRaw(int raw)
{
    if (raw < 0 || raw > 2)
        return std::nullopt;
    return EDRCompareMode(raw);
}

std::optional<SDRToneMapMode> toneMapModeFromRaw(int raw)
{
    if (raw < 0 || raw > 1)
        return std::nullopt;
    return SDRToneMapMode(raw);
}

const QList<EDRCompareMode> &allCompareModes()
{
    static const QList<EDRCompareMode> modes { EDRCompareMode::Split, EDRCompareMode::HdrOnly,
                                               EDRCompareMode::SdrOnly };
    return modes;
}

const QList<SDRToneMapMode> &allToneMapModes()
{
    static const QList<SDRToneMapMode> modes { SDRToneMapMode::Natural,
                                               SDRToneMapMode::FilmicRollOff };
    return modes;
}

QString titleKey(EDRCompareMode mode)
{
    switch (mode) {
    case EDRCompareMode::HdrOnly:
        return u"edr_mode_hdr"_s;
    case EDRCompareMode::SdrOnly:
        return u"edr_mode_sdr"_s;
    case EDRCompareMode::Split:
        break;
    }
    return u"edr_mode_split"_s;
}

QString titleKey(SDRToneMapMode mode)
{
    return mode == SDRToneMapMode::FilmicRollOff ? u"sdr_mode_filmic"_s : u"sdr_mode_natural"_s;
}

QString hintKey(SDRToneMapMode mode)
{
    return mode == SDRToneMapMode::FilmicRollOff ? u"sdr_mode_filmic_hint"_s
                                                 : u"sdr_mode_natural_hint"_s;
}

EDRCompareMode nextCompareMode(EDRCompareMode mode)
{
    switch (mode) {
    case EDRCompareMode::Split:
        return EDRCompareMode::HdrOnly;
    case EDRCompareMode::HdrOnly:
        return EDRCompareMode::SdrOnly;
    case EDRCompareMode::SdrOnly:
        break;
    }
    return EDRCompareMode::Split;
}

} // namespace orvanta
