// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Where a delivered photo goes: the naming template and the subfolder rule
// applied to one pair's facts. Pure functions, any thread.
#pragma once

#include <QString>

namespace orvanta::engine {

struct NamingFacts
{
    QString stem;
    QString profileId;
    QString date; // capture date, "yyyy-MM-dd"
    QString camera; // camera model
    int rating = 0;
};

// The file name (with ".jpg" added unless it ends in ".jpg" or ".jpeg").
QString outputFileName(const QString &namingTemplate, const NamingFacts &facts);
// "" for "none" and unknown rules, else the folder name followed by "/".
QString subfolderFor(const QString &rule, const NamingFacts &facts);

} // namespace orvanta::engine
