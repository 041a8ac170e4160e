// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "OutputNaming.h"

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

// Path separators and control characters cannot be part of one file name.
QString safeName(QString text)
{
    for (QChar &c : text)
        if (c == u'/' || c == u'\\' || c.unicode() < 0x20)
            c = u'_';
    return text.trimmed();
}

} // namespace

QString outputFileName(const QString &namingTemplate, const NamingFacts &facts)
{
    QString name = namingTemplate.trimmed();
    if (name.isEmpty())
        name = u"{original}_hdr"_s;
    name.replace(u"{original}"_s, facts.stem)
        .replace(u"{stem}"_s, facts.stem)
        .replace(u"{profile}"_s, facts.profileId)
        .replace(u"{date}"_s, facts.date)
        .replace(u"{camera}"_s, facts.camera)
        .replace(u"{rating}"_s, QString::number(facts.rating) + u"star"_s);
    name = safeName(name);
    if (name.isEmpty() || name == u"."_s || name == u".."_s)
        name = facts.stem + u"_hdr"_s;
    if (!name.endsWith(u".jpg"_s) && !name.endsWith(u".jpeg"_s))
        name += u".jpg"_s;
    return name;
}

QString subfolderFor(const QString &rule, const NamingFacts &facts)
{
    const QString r = rule.trimmed();
    if (r == u"by_date"_s)
        return safeName(facts.date) + u'/';
    if (r == u"by_rating"_s)
        return QString::number(facts.rating) + u"_Stars/"_s;
    if (r == u"by_profile"_s)
        return safeName(facts.profileId) + u'/';
    return {};
}

} // namespace orvanta::engine
