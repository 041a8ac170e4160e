// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update/Appcast.h"

#include <QXmlStreamReader>

#include <sodium.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

const QString kSparkleNs = u"http://www.andymatuschak.org/xml-namespaces/sparkle"_s;

// An enclosure may carry the versions itself (the older feed form); the
// item's own elements win when both are present.
void readEnclosure(const QXmlStreamAttributes &a, AppcastItem &item)
{
    item.downloadUrl = QUrl(a.value(u"url"_s).toString().trimmed());
    item.length = a.value(u"length"_s).toLongLong();
    item.edSignature = a.value(kSparkleNs, u"edSignature"_s).toString().trimmed().toLatin1();
    if (item.version.isEmpty())
        item.version = a.value(kSparkleNs, u"version"_s).toString().trimmed();
    if (item.shortVersion.isEmpty())
        item.shortVersion = a.value(kSparkleNs, u"shortVersionString"_s).toString().trimmed();
}

AppcastItem readItem(QXmlStreamReader &xml)
{
    AppcastItem item;
    QString enclosureVersion;
    while (xml.readNextStartElement()) {
        const auto name = xml.name();
        const bool sparkle = xml.namespaceUri() == kSparkleNs;
        if (sparkle && name == u"version") {
            item.version = xml.readElementText().trimmed();
        } else if (sparkle && name == u"shortVersionString") {
            item.shortVersion = xml.readElementText().trimmed();
        } else if (sparkle && name == u"releaseNotesLink") {
            item.releaseNotes = QUrl(xml.readElementText().trimmed());
        } else if (!sparkle && name == u"title") {
            item.title = xml.readElementText().trimmed();
        } else if (!sparkle && name == u"link") {
            item.link = QUrl(xml.readElementText().trimmed());
        } else if (!sparkle && name == u"enclosure") {
            const QString before = item.version;
            const QString beforeShort = item.shortVersion;
            readEnclosure(xml.attributes(), item);
            // Keep item-level values seen earlier; readEnclosure only filled blanks.
            if (!before.isEmpty())
                item.version = before;
            if (!beforeShort.isEmpty())
                item.shortVersion = beforeShort;
            xml.skipCurrentElement();
        } else {
            xml.skipCurrentElement();
        }
    }
    return item;
}

} // namespace

QList<AppcastItem> parseAppcast(const QByteArray &data, QString *error)
{
    QList<AppcastItem> items;
    QXmlStreamReader xml(data);
    bool sawChannel = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == u"channel")
            sawChannel = true;
        else if (xml.name() == u"item") {
            AppcastItem item = readItem(xml);
            if (!item.version.isEmpty() && item.downloadUrl.isValid()
                && !item.downloadUrl.isEmpty())
                items << item;
        }
    }
    if (xml.hasError() || !sawChannel) {
        if (error)
            *error = xml.hasError() ? xml.errorString() : u"not an update feed"_s;
        return {};
    }
    return items;
}

int compareVersions(QStringView a, QStringView b)
{
    qsizetype i = 0, j = 0;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    while (i < a.size() || j < b.size()) {
        // Separators (".", "-", " ") only split runs.
        while (i < a.size() && !a[i].isLetterOrNumber())
            ++i;
        while (j < b.size() && !b[j].isLetterOrNumber())
            ++j;
        if (i >= a.size() || j >= b.size())
            return i < a.size() ? 1 : (j < b.size() ? -1 : 0);
        const bool da = isDigit(a[i]), db = isDigit(b[j]);
        qsizetype ei = i, ej = j;
        while (ei < a.size() && a[ei].isLetterOrNumber() && isDigit(a[ei]) == da)
            ++ei;
        while (ej < b.size() && b[ej].isLetterOrNumber() && isDigit(b[ej]) == db)
            ++ej;
        const QStringView ra = a.mid(i, ei - i), rb = b.mid(j, ej - j);
        if (da && db) {
            // Compare as numbers without overflow: strip zeros, then length, then digits.
            QStringView na = ra, nb = rb;
            while (na.size() > 1 && na.front() == u'0')
                na = na.mid(1);
            while (nb.size() > 1 && nb.front() == u'0')
                nb = nb.mid(1);
            if (na.size() != nb.size())
                return na.size() < nb.size() ? -1 : 1;
            if (const int c = na.compare(nb); c != 0)
                return c < 0 ? -1 : 1;
        } else if (da != db) {
            // "1.0" is newer than "1.0b1": a number outranks a pre-release tag.
            return da ? 1 : -1;
        } else if (const int c = ra.compare(rb, Qt::CaseInsensitive); c != 0) {
            return c < 0 ? -1 : 1;
        }
        i = ei;
        j = ej;
    }
    return 0;
}

std::optional<AppcastItem> newestItem(const QList<AppcastItem> &items)
{
    std::optional<AppcastItem> best;
    for (const AppcastItem &item : items)
        if (!best || compareVersions(item.version, best->version) > 0)
            best = item;
    return best;
}

SignedFeed splitSignedFeed(const QByteArray &feed)
{
    static constexpr QByteArrayView kMarker = "orvanta-signature:";
    const qsizetype open = feed.lastIndexOf("<!--");
    if (open < 0)
        return { feed, {} };
    // Only white space may follow the comment, which holds nothing but the marker.
    const QByteArray comment = feed.mid(open).trimmed();
    if (!comment.endsWith("-->") || comment.count("-->") != 1)
        return { feed, {} };
    const QByteArray inner = comment.mid(4, comment.size() - 7).trimmed();
    if (!inner.startsWith(kMarker))
        return { feed, {} };
    return { feed.left(open), inner.mid(kMarker.size()).trimmed() };
}

namespace {
bool decodeBase64(const QByteArray &text, unsigned char *out, size_t expected)
{
    size_t written = 0;
    const QByteArray trimmed = text.trimmed();
    if (sodium_base642bin(out, expected, trimmed.constData(), size_t(trimmed.size()), nullptr,
                          &written, nullptr, sodium_base64_VARIANT_ORIGINAL)
        != 0)
        return false;
    return written == expected;
}
} // namespace

bool verifyEd25519(const QByteArray &data, const QByteArray &signatureBase64,
                   const QByteArray &publicKeyBase64)
{
    static const bool ready = sodium_init() >= 0;
    if (!ready)
        return false;
    unsigned char signature[crypto_sign_BYTES];
    unsigned char key[crypto_sign_PUBLICKEYBYTES];
    if (!decodeBase64(signatureBase64, signature, sizeof signature)
        || !decodeBase64(publicKeyBase64, key, sizeof key))
        return false;
    return crypto_sign_verify_detached(signature,
                                       reinterpret_cast<const unsigned char *>(data.constData()),
                                       quint64(data.size()), key)
        == 0;
}

} // namespace orvanta
