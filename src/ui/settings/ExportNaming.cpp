// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/ExportNaming.h"

#include <QRegularExpression>

namespace orvanta::naming {

using namespace Qt::StringLiterals;

namespace {

// The sample the preview renders: a real-looking camera file name, a date
// with distinct month and day, and a current camera body.
const auto kSampleStem = u"DSC01557"_s;
const auto kSampleDate = u"2026-09-02"_s;
const auto kSampleCamera = u"ILCE-7CM2"_s;
const auto kSampleRating = u"5star"_s;

bool isForbidden(QChar c)
{
    static const QString set = u"/\\:*?\"<>|"_s;
    return c.unicode() < 0x20 || c.unicode() == 0x7f || set.contains(c);
}

QString describeCharacter(QChar c)
{
    if (c.unicode() < 0x20 || c.unicode() == 0x7f)
        return u"U+%1"_s.arg(uint(c.unicode()), 4, 16, QChar(u'0')).toUpper();
    return QString(c);
}

} // namespace

const QStringList &chipPlaceholders()
{
    static const QStringList chips
        = { u"{original}"_s, u"{profile}"_s, u"{date}"_s, u"{camera}"_s, u"{rating}"_s };
    return chips;
}

const QStringList &knownPlaceholders()
{
    static const QStringList known = chipPlaceholders() + QStringList { u"{stem}"_s };
    return known;
}

QString trimmedTemplate(const QString &tmpl)
{
    qsizetype begin = 0;
    qsizetype end = tmpl.size();
    auto blank = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (begin < end && blank(tmpl[begin]))
        ++begin;
    while (end > begin && blank(tmpl[end - 1]))
        --end;
    return tmpl.mid(begin, end - begin);
}

QString previewFileName(const QString &tmpl, const QString &subfolderRule, StyleProfile profile)
{
    QString name = trimmedTemplate(tmpl);
    if (name.isEmpty())
        name = QString::fromUtf16(kFallbackTemplate);
    const QString profileId = rawValue(profile);
    name.replace(u"{original}"_s, (kSampleStem));
    name.replace(u"{stem}"_s, (kSampleStem));
    name.replace(u"{profile}"_s, profileId);
    name.replace(u"{date}"_s, (kSampleDate));
    name.replace(u"{camera}"_s, (kSampleCamera));
    name.replace(u"{rating}"_s, (kSampleRating));
    // Only the lower-case extensions count: "x.JPG" becomes "x.JPG.jpg",
    // which is what the engine writes too.
    if (!name.endsWith(u".jpg"_s) && !name.endsWith(u".jpeg"_s))
        name += u".jpg"_s;

    QString folder;
    if (subfolderRule == u"by_date")
        folder = kSampleDate + u'/';
    else if (subfolderRule == u"by_rating")
        folder = u"5_Stars/"_s;
    else if (subfolderRule == u"by_profile")
        folder = profileId + u'/';
    return folder + name;
}

QString insertPlaceholder(const QString &tmpl, const QString &placeholder)
{
    if (tmpl.contains(placeholder))
        return tmpl;
    if (!tmpl.isEmpty() && !tmpl.endsWith(u'_'))
        return tmpl + u'_' + placeholder;
    return tmpl + placeholder;
}

TemplateIssues templateIssues(const QString &tmpl)
{
    TemplateIssues issues;
    const QString name = trimmedTemplate(tmpl);
    for (const QChar c : name) {
        const QString shown = describeCharacter(c);
        if (isForbidden(c) && !issues.forbiddenCharacters.contains(shown))
            issues.forbiddenCharacters.append(shown);
    }
    static const QRegularExpression braces(u"\\{[^{}]*\\}"_s);
    for (auto it = braces.globalMatch(name); it.hasNext();) {
        const QString part = it.next().captured();
        if (!knownPlaceholders().contains(part) && !issues.unknownPlaceholders.contains(part))
            issues.unknownPlaceholders.append(part);
    }
    return issues;
}

} // namespace orvanta::naming
