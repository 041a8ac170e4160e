// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The dark photo-neutral look of the whole application: colours, fonts, the
// style sheet and the per-language font choice. Main thread.
#pragma once

#include <QColor>
#include <QString>

class QApplication;

namespace orvanta::theme {

// Neutral greys (no colour cast, so photos are judged correctly) and one accent.
inline const QColor kWindow { 0x16, 0x17, 0x1a };
inline const QColor kSurface { 0x1f, 0x21, 0x25 };
inline const QColor kSurfaceRaised { 0x28, 0x2a, 0x2f };
inline const QColor kSurfaceSunken { 0x12, 0x13, 0x15 };
inline const QColor kBorder { 0x33, 0x36, 0x3c };
inline const QColor kTextPrimary { 0xec, 0xed, 0xef };
inline const QColor kTextSecondary { 0x9d, 0xa1, 0xa9 };
inline const QColor kTextTertiary { 0x6c, 0x70, 0x78 };
inline const QColor kAccent { 0x2f, 0x8c, 0xff };
// The keyboard focus ring: lighter than the accent so it reads on accent-filled controls too.
inline const QColor kFocusRing { 0x7a, 0xb8, 0xff };

// Status colours of the metric badges and the console.
inline const QColor kGreen { 0x34, 0xc7, 0x59 };
inline const QColor kRed { 0xff, 0x5a, 0x4f };
inline const QColor kYellow { 0xff, 0xd0, 0x2e };
inline const QColor kOrange { 0xff, 0x9f, 0x0a };
inline const QColor kBlue { 0x40, 0x9c, 0xff };
inline const QColor kPurple { 0xbf, 0x6a, 0xf2 };
inline const QColor kCyan { 0x5a, 0xd0, 0xf5 };

// Installs the palette, the style sheet and the font of `languageCode`.
void apply(QApplication &app, const QString &languageCode);
// Switches the application font to the one that suits `languageCode`.
void applyLanguageFont(const QString &languageCode);
// Picks the font family for a table code ("ja", "zh-Hans", ...): the CJK
// faces carry the right regional glyph forms for each language.
QString fontFamilyFor(const QString &languageCode);
// `text` shown literally on a button, check box or menu item: "&" there
// marks a keyboard mnemonic, and texts like "History & Quarantine" mean it.
QString literal(QString text);
// "#rrggbb" or "rgba(r, g, b, a)" for style sheets.
QString css(const QColor &color);

} // namespace orvanta::theme
