// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "styles/UserRecipe.h"

#include "i18n/FormatArgs.h"

namespace orvanta {

QString UserRecipe::summaryDescription() const
{
    return formatPrintf(QStringLiteral("Mid: %.2fst · P-Mid: %.2f · P-Hi: %.2f · Chroma: %.2f · "
                                       "Skin: %.2f"),
                        { midTarget, powerMid, powerHi, chromaBoost, skinDamp });
}

} // namespace orvanta
