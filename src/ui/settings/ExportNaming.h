// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the paths tab shows about the export naming template: the file name a
// sample photo would get, the placeholder chips, and what in a template would
// not work as a file name. Pure functions; any thread.
#pragma once

#include "styles/StyleProfile.h"

#include <QString>
#include <QStringList>

namespace orvanta::naming {

// The placeholders the chips offer, in chip order. "{stem}" is understood
// too, as another name for "{original}", but has no chip.
const QStringList &chipPlaceholders();
// Every placeholder the engine substitutes.
const QStringList &knownPlaceholders();

// The template an empty (or blank) field stands for.
inline constexpr char16_t kFallbackTemplate[] = u"{original}_hdr";

// Relative path of the sample photo (DSC01557, 5 stars, shot 2026-09-02 on
// an ILCE-7CM2) under `tmpl` and `subfolderRule` with `profile` selected,
// e.g. "5_Stars/2026-09-02_ILCE-7CM2.jpg".
QString previewFileName(const QString &tmpl, const QString &subfolderRule, StyleProfile profile);

// The template after tapping the chip of `placeholder`: unchanged when it is
// already there, otherwise appended, joined by "_" unless the template is
// empty or already ends with one.
QString insertPlaceholder(const QString &tmpl, const QString &placeholder);

// What would make a template produce names the engine cannot write or the
// user did not mean.
struct TemplateIssues
{
    // Characters that file systems refuse or that break names on some of
    // them (path separators, ":*?\"<>|", control characters), each once, in
    // order of appearance; control characters are written as U+XXXX.
    QStringList forbiddenCharacters;
    // "{name}" parts that are not placeholders (the match is case-sensitive,
    // so "{Date}" is one), each once, in order of appearance.
    QStringList unknownPlaceholders;

    bool isEmpty() const { return forbiddenCharacters.isEmpty() && unknownPlaceholders.isEmpty(); }
};

TemplateIssues templateIssues(const QString &tmpl);

// Spaces and tabs off both ends, as the engine reads the template.
QString trimmedTemplate(const QString &tmpl);

} // namespace orvanta::naming
