// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "Doctor.h"

#include "FaceDetector.h"
#include "StateDatabase.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <cstdio>
#include <exiv2/exiv2.hpp>
#include <jpeglib.h>
#include <libraw/libraw.h>
#include <opencv2/core/version.hpp>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace orvanta::engine {

namespace {

QJsonObject item(const QString &name, const QString &kind, bool found, const QString &detail,
                 bool required)
{
    return { { u"name"_s, name },
             { u"kind"_s, kind },
             { u"found"_s, found },
             { u"detail"_s, detail },
             { u"required"_s, required } };
}

} // namespace

QJsonObject doctorReport()
{
    QJsonArray checks;
    checks << item(u"libraw"_s, u"library"_s, true, QString::fromLatin1(LibRaw::version()), true);
    checks << item(u"exiv2"_s, u"library"_s, true, QString::fromStdString(Exiv2::versionString()),
                   true);
    checks << item(u"libjpeg"_s, u"library"_s, true, QString::number(JPEG_LIB_VERSION), true);
    checks << item(u"sqlite3"_s, u"library"_s, true, QString::fromLatin1(sqlite3_libversion()),
                   true);
    checks << item(u"opencv"_s, u"library"_s, true, QString::fromLatin1(CV_VERSION), true);
    const QString cascade = faceCascadePath();
    checks << item(u"face_cascade"_s, u"data"_s, !cascade.isEmpty(),
                   cascade.isEmpty() ? u"install opencv-data"_s : cascade, false);
    const QString exiftool = QStandardPaths::findExecutable(u"exiftool"_s);
    checks << item(u"exiftool"_s, u"tool"_s, !exiftool.isEmpty(),
                   exiftool.isEmpty() ? u"not needed by this engine"_s : exiftool, false);
    QStringList missing;
    for (const QJsonValue &v : std::as_const(checks))
        if (v[u"required"_s].toBool() && !v[u"found"_s].toBool())
            missing << v[u"name"_s].toString();
    return { { u"engine"_s, u"orvanta_engine"_s },
             { u"version"_s, QStringLiteral(ORVANTA_VERSION) },
             { u"healthy"_s, missing.isEmpty() },
             { u"missing"_s, QJsonArray::fromStringList(missing) },
             { u"checks"_s, checks },
             { u"state_db"_s, StateDatabase::defaultPath() } };
}

int runDoctor(bool json)
{
    const QJsonObject report = doctorReport();
    if (json) {
        std::fputs(QJsonDocument(report).toJson(QJsonDocument::Indented).constData(), stdout);
    } else {
        for (const QJsonValue &v : report[u"checks"_s].toArray())
            std::printf("%s %-14s %s\n",
                        v[u"found"_s].toBool() ? "✅" : (v[u"required"_s].toBool() ? "❌" : "⚠️"),
                        qPrintable(v[u"name"_s].toString()), qPrintable(v[u"detail"_s].toString()));
    }
    return report[u"healthy"_s].toBool() ? 0 : 1;
}

} // namespace orvanta::engine
