// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The five rendering styles the engine knows, with what the interface shows
// for each, and the five fine-tuning parameters of the custom style.
// Plain values; any thread (texts follow the current language).
#pragma once

#include <QColor>
#include <QList>
#include <QString>

#include <array>
#include <optional>
#include <utility>

namespace orvanta {

enum class StyleProfile {
    Default,
    Portrait,
    Landscape,
    Cinematic,
    Custom,
};

// Raw value: what the configuration file and the engine's command line carry.
QString rawValue(StyleProfile profile);
std::optional<StyleProfile> styleProfileFromRawValue(QStringView raw);
const QList<StyleProfile> &allStyleProfiles(); // declaration order

QString displayName(StyleProfile profile); // localized title
QString subtitle(StyleProfile profile); // localized description
// Symbol name of the style ("sparkles", "film", ...): the key under which the
// interface finds its icon.
QString iconName(StyleProfile profile);
QColor accentColor(StyleProfile profile);
// Badges for the profile's card: (localized name, fixed value) pairs.
QList<std::pair<QString, QString>> parametersSummary(StyleProfile profile);

// One of the five sliders of the custom style.
struct FineTuningParameter
{
    const char *property; // property name on AppViewModel
    const char *configKey; // key in config.json
    const char *engineFlag;
    double defaultValue;
    double minimum;
    double maximum;
    double step;
    const char *labelKey;
};

enum class FineTuning { MidTarget, PowerMid, PowerHi, ChromaBoost, SkinDamp };

// In slider order. The chroma slider's upper end is its default on purpose:
// the slider can only lower the boost from where it starts.
const std::array<FineTuningParameter, 5> &fineTuningParameters();
const FineTuningParameter &fineTuningParameter(FineTuning which);

// What a slider may hold once the user drags it; values loaded from a file
// or a recipe are used as they are and are not passed through this.
double clampToSlider(FineTuning which, double value);

} // namespace orvanta
