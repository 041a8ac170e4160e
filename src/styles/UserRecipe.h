// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// A named snapshot of the five fine-tuning values. Plain value; any thread.
#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

namespace orvanta {

struct UserRecipe
{
    QUuid id;
    QString name;
    QDateTime createdAt;
    double midTarget = 0.55;
    double powerMid = 0.45;
    double powerHi = 1.5;
    double chromaBoost = 0.28;
    double skinDamp = 0.4;

    // "Mid: 0.55st · P-Mid: 0.45 · P-Hi: 1.50 · Chroma: 0.28 · Skin: 0.40";
    // the labels are the same in every language.
    QString summaryDescription() const;

    friend bool operator==(const UserRecipe &, const UserRecipe &) = default;
};

} // namespace orvanta
