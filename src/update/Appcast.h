// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Reading an update feed (an RSS "appcast" with the sparkle namespace),
// comparing versions and checking an Ed25519 signature. Pure functions; any thread.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>

#include <optional>

namespace orvanta {

struct AppcastItem
{
    QString title;
    QString version; // the build number compared against ours
    QString shortVersion; // what people read ("2.3.1"); may be empty
    QUrl downloadUrl; // the enclosure
    qint64 length = 0;
    QByteArray edSignature; // base64, as written in the feed
    QUrl link; // the download or release page
    QUrl releaseNotes;

    QString displayVersion() const { return shortVersion.isEmpty() ? version : shortVersion; }
};

// The items of `xml`. Items without a version or an enclosure are skipped;
// a document that is not a well-formed feed gives nothing and an error text.
QList<AppcastItem> parseAppcast(const QByteArray &xml, QString *error = nullptr);

// Orders two version texts the way people read them: runs of digits compare
// as numbers ("1.10" > "1.9"), other runs as text, and a longer version with
// equal leading parts is the newer one. Negative, zero or positive.
int compareVersions(QStringView a, QStringView b);

// The item with the highest version, if any.
std::optional<AppcastItem> newestItem(const QList<AppcastItem> &items);

// A feed as published: the document, then as its very last thing the
// comment "<!-- orvanta-signature: BASE64 -->" holding the Ed25519 signature
// of every byte before that comment. Signing the feed itself covers every
// version, address, length and enclosure signature it lists, so nothing else
// has to be downloaded to trust it.
struct SignedFeed
{
    QByteArray content; // the signed bytes (the whole input when unsigned)
    QByteArray signatureBase64; // empty when the feed ends in no signature
};
SignedFeed splitSignedFeed(const QByteArray &feed);

// True when `signatureBase64` is a valid Ed25519 signature of `data` for
// `publicKeyBase64`. Wrong lengths and undecodable texts are false.
bool verifyEd25519(const QByteArray &data, const QByteArray &signatureBase64,
                   const QByteArray &publicKeyBase64);

} // namespace orvanta
