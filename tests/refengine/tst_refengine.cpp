// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The engine end to end: pairs written by the test, the real binary, its
// progress records, its state database and the Ultra HDR files it delivers.
#include "EngineProcess.h"
#include "SamplePairs.h"
#include "common/TestEnvironment.h"
#include "hdr/codec/UltraHdrDecoder.h"
#include "media/ExivAdapter.h"
#include "thumbnails/ImageAdapter.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <csignal>
#include <sqlite3.h>

Q_DECLARE_METATYPE(orvanta::samples::JpegLook)

using namespace orvanta;
using namespace orvanta::samples;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

using Row = QVariantMap;

QString dbPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
        + u"/Orvanta/pipeline_state.db"_s;
}

// The rows `sql` gives on the engine's database, values as SQLite prints them
// (NULL stays null).
QList<Row> query(const char *sql)
{
    QList<Row> rows;
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(dbPath().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr)
        == SQLITE_OK) {
        const auto collect = [](void *out, int n, char **values, char **names) {
            Row row;
            for (int c = 0; c < n; ++c)
                row.insert(QString::fromUtf8(names[c]),
                           values[c] ? QVariant(QString::fromUtf8(values[c])) : QVariant());
            static_cast<QList<Row> *>(out)->append(row);
            return 0;
        };
        sqlite3_exec(db, sql, collect, &rows, nullptr);
    }
    sqlite3_close(db);
    return rows;
}

QList<Row> readRows()
{
    return query("SELECT * FROM processed_files ORDER BY stem");
}

Row rowFor(const QString &stem)
{
    for (const Row &r : readRows())
        if (r.value(u"stem"_s).toString() == stem)
            return r;
    return {};
}

QStringList filesUnder(const QString &dir)
{
    QStringList out;
    QDirIterator it(dir, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        out << QDir(dir).relativeFilePath(it.next());
    out.sort();
    return out;
}

// Mean luminance of a decoded picture over the pixels where `mask` is set.
double meanLuminance(const ImageBuffer &picture, const QImage &mask)
{
    double sum = 0;
    int n = 0;
    for (int y = 0; y < picture.height(); ++y) {
        const qfloat16 *px = picture.rowAs<qfloat16>(y);
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(mask.pixel(x, y)) > 128) {
                sum += 0.2126 * float(px[x * 4]) + 0.7152 * float(px[x * 4 + 1])
                    + 0.0722 * float(px[x * 4 + 2]);
                ++n;
            }
    }
    return n ? sum / n : -1.0;
}

// A mask of `rect` (shrunk by a margin, stored pixels), turned as the file displays it.
QImage displayMask(const SampleScene &scene, QRect rect)
{
    QImage mask(scene.width, scene.height, QImage::Format_RGB32);
    mask.fill(Qt::black);
    QPainter(&mask).fillRect(rect.adjusted(4, 4, -4, -4), Qt::white);
    return applyExifOrientation(mask, scene.orientation);
}

// Where the SDR picture is a mid-tone (luminance 0.1 to 0.7, no channel near
// clipping): the mean HDR/SDR ratio of each channel in stops, and the share of
// those pixels whose channels disagree by more than a third of a stop.
struct MidToneGains
{
    double stops[3] = { 0, 0, 0 };
    double disagreeing = 1.0;
    int pixels = 0;
};

MidToneGains midToneGains(const QString &file)
{
    UltraHdrDecodeOptions sdrOnly;
    sdrOnly.applyGainMap = false;
    const QImage hdr
        = toQImage(decodeUltraHdrFile(file).image).convertToFormat(QImage::Format_RGBA32FPx4);
    const QImage sdr = toQImage(decodeUltraHdrFile(file, sdrOnly).image)
                           .convertToFormat(QImage::Format_RGBA32FPx4);
    MidToneGains g;
    int disagreeing = 0;
    for (int y = 0; y < sdr.height() && sdr.size() == hdr.size(); ++y) {
        const auto *s = reinterpret_cast<const float *>(sdr.constScanLine(y));
        const auto *h = reinterpret_cast<const float *>(hdr.constScanLine(y));
        for (int x = 0; x < sdr.width(); ++x) {
            const float *sp = s + x * 4, *hp = h + x * 4;
            const double lum = 0.2126 * sp[0] + 0.7152 * sp[1] + 0.0722 * sp[2];
            if (lum < 0.1 || lum > 0.7 || std::max({ sp[0], sp[1], sp[2] }) > 0.95f
                || std::min({ sp[0], sp[1], sp[2] }) < 0.01f)
                continue;
            double lo = 99, hi = -99;
            for (int c = 0; c < 3; ++c) {
                const double stops = std::log2(std::max(hp[c], 1e-6f) / sp[c]);
                g.stops[c] += stops;
                lo = std::min(lo, stops);
                hi = std::max(hi, stops);
            }
            disagreeing += hi - lo > 1.0 / 3;
            ++g.pixels;
        }
    }
    for (double &v : g.stops)
        v /= std::max(1, g.pixels);
    g.disagreeing = g.pixels ? double(disagreeing) / g.pixels : 1.0;
    return g;
}

} // namespace

class TestRefEngine : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_dir;
    QString m_source, m_dest;

    QStringList runArgs(const QStringList &extra = {}) const
    {
        return QStringList { u"run"_s, u"-s"_s,           m_source,     u"-d"_s,
                             m_dest,   u"--profile-id"_s, u"default"_s, u"--json-stream"_s }
        + extra;
    }

private slots:
    void init()
    {
        m_source
            = m_dir.filePath(u"src-"_s + QString::number(QRandomGenerator::global()->generate()));
        m_dest = m_source + u"-out"_s;
        QDir().mkpath(m_source);
        QFile::remove(dbPath());
        QFile::remove(dbPath() + u"-wal"_s);
        QFile::remove(dbPath() + u"-shm"_s);
    }

    void helpVersionAndBadOptions()
    {
        EngineProcess help({ u"--help"_s });
        QCOMPARE(help.run(), 0);
        QVERIFY(help.log().contains(u"run -s SOURCE -d DEST"_s));
        EngineProcess version({ u"--version"_s });
        QCOMPARE(version.run(), 0);
        QVERIFY(version.log().startsWith(u"orvanta_engine "_s));
        EngineProcess bad(runArgs({ u"--no-such-flag"_s }));
        QCOMPARE(bad.run(), 1);
        QVERIFY(bad.log().contains(u"unknown option --no-such-flag"_s));
        EngineProcess missingDest({ u"run"_s, u"-s"_s, m_source });
        QCOMPARE(missingDest.run(), 1);
    }

    void deliveredFileHoldsHighlightsAboveSdrWhite_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<bool>("bayer");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("mapChannels");
        QTest::newRow("upright") << 1 << false << QStringList() << 3;
        QTest::newRow("turned 90 degrees") << 6 << false << QStringList() << 3;
        QTest::newRow("upside down") << 3 << false << QStringList() << 3;
        QTest::newRow("bayer mosaic") << 1 << true << QStringList() << 3;
        QTest::newRow("bayer mosaic, turned") << 8 << true << QStringList() << 3;
        // Without a chroma boost the map holds one gain, for luminance.
        QTest::newRow("one gain for luminance")
            << 6 << true
            << QStringList { u"--profile-id"_s, u"custom"_s, u"--chroma-boost"_s, u"0"_s } << 1;
    }
    void deliveredFileHoldsHighlightsAboveSdrWhite()
    {
        QFETCH(int, orientation);
        QFETCH(bool, bayer);
        QFETCH(QStringList, options);
        QFETCH(int, mapChannels);
        SampleScene scene;
        scene.orientation = orientation;
        scene.bayer = bayer;
        QVERIFY(writePair(m_source, u"IMG_0001"_s, scene));
        EngineProcess engine(runArgs(options));
        QCOMPARE(engine.run(), 0);

        const QString output = m_dest + u"/IMG_0001_hdr.jpg"_s;
        QVERIFY2(QFile::exists(output), qPrintable(engine.log()));
        const UltraHdrDecodeResult hdr = decodeUltraHdrFile(output);
        QVERIFY2(hdr.gainMapApplied, qPrintable(hdr.gainMapIssue + hdr.error));
        QCOMPARE(hdr.layout.metadata->channelCount, mapChannels);
        // Where the RAW held the sun, the HDR rendition goes well above white;
        // in the deep shadow it stays where the JPG has it.
        const double sun = meanLuminance(hdr.image, displayMask(scene, sunRect(scene)));
        const double shadow = meanLuminance(hdr.image, displayMask(scene, shadowRect(scene)));
        QVERIFY2(sun > 2.0, qPrintable(QString::number(sun)));
        QVERIFY2(shadow < 0.05, qPrintable(QString::number(shadow)));
        // The camera's Exif travels with the picture.
        const auto tags = exiv::readTags(output);
        QVERIFY(tags.has_value());
        QCOMPARE(tags->model.value_or(QString()), u"Synthetic"_s);
        QCOMPARE(tags->orientation.value_or(1), orientation);
    }

    // The camera renders its JPG its own way (white balance, saturation, tone
    // curve, framing) and the RAW's profile need not be LibRaw's: the HDR
    // rendition still keeps the JPG's colours where the JPG holds them.
    void hdrKeepsTheCameraJpegsColours_data()
    {
        QTest::addColumn<JpegLook>("look");
        QTest::addColumn<bool>("bayer");
        QTest::newRow("as developed") << JpegLook {} << false;
        QTest::newRow("warmer white balance") << JpegLook { 1.25, 0.8 } << false;
        QTest::newRow("more saturated") << JpegLook { 1.0, 1.0, 1.35 } << false;
        QTest::newRow("S-shaped tone curve") << JpegLook { 1.0, 1.0, 1.0, 0.5 } << true;
        QTest::newRow("cropped") << JpegLook { 1.0, 1.0, 1.0, 0.0, 0.9 } << false;
        QTest::newRow("other camera profile") << JpegLook { 1.0, 1.0, 1.0, 0.0, 1.0, 0.15 } << true;
        QTest::newRow("all at once") << JpegLook { 1.2, 0.85, 1.25, 0.4, 0.92, 0.1 } << true;
    }
    void hdrKeepsTheCameraJpegsColours()
    {
        QFETCH(JpegLook, look);
        QFETCH(bool, bayer);
        SampleScene scene;
        scene.width = 480;
        scene.height = 320;
        scene.bayer = bayer;
        scene.look = look;
        QVERIFY(writePair(m_source, u"look"_s, scene));
        EngineProcess engine(runArgs());
        QCOMPARE(engine.run(), 0);
        const QJsonObject done = engine.event(u"item_done"_s);
        QVERIFY2(!done.isEmpty(), qPrintable(engine.log()));
        const MidToneGains g = midToneGains(m_dest + u"/look_hdr.jpg"_s);
        qInfo("mid-tone gain R %+.3f G %+.3f B %+.3f stops, %.2f%% of %d pixels disagree, "
              "fit residual %.3f",
              g.stops[0], g.stops[1], g.stops[2], 100 * g.disagreeing, g.pixels,
              done.value(u"colour_residual"_s).toDouble());
        QVERIFY(g.pixels > 10000);
        const auto [lo, hi] = std::minmax({ g.stops[0], g.stops[1], g.stops[2] });
        QVERIFY2(hi - lo < 0.1, "the channels' mid-tone gains differ: a colour shift");
        QVERIFY2(std::abs(lo) < 0.1 && std::abs(hi) < 0.1, "the mid-tones moved");
        QVERIFY(g.disagreeing < 0.01);
        QCOMPARE(rowFor(u"look"_s).value(u"colour_residual"_s).toDouble(),
                 done.value(u"colour_residual"_s).toDouble());
        QVERIFY(done.value(u"colour_residual"_s).toDouble() > 0.0);
        QVERIFY(done.value(u"colour_residual"_s).toDouble() < 0.25);
    }

    void jpegOfAnotherSceneIsRefusedNotShifted()
    {
        // The JPG shows the scene mirrored: same colours, nowhere the same place.
        SampleScene scene;
        scene.width = 480;
        scene.height = 320;
        scene.look = JpegLook {};
        QVERIFY(writePair(m_source, u"mixed"_s, scene));
        const QImage mirrored = QImage::fromData(makeJpeg(scene)).mirrored(true, false);
        QVERIFY(mirrored.save(m_source + u"/mixed.JPG"_s, "JPG", 95));
        EngineProcess engine(runArgs());
        QCOMPARE(engine.run(), 0);
        const QJsonObject failed = engine.event(u"item_failed"_s);
        QVERIFY2(failed.value(u"reason"_s).toString() == u"colour_unmatched"_s,
                 qPrintable(engine.log()));
        QVERIFY(failed.value(u"colour_residual"_s).isDouble());
        QCOMPARE(rowFor(u"mixed"_s).value(u"status"_s).toString(), u"FAILED"_s);
        QVERIFY(!QFile::exists(m_dest + u"/mixed_hdr.jpg"_s));
    }

    void recordsAndEventsDescribeTheSameItems()
    {
        QVERIFY(writePair(m_source, u"A"_s));
        QVERIFY(writePair(m_source, u"B"_s));
        EngineProcess engine(runArgs({ u"-w"_s, u"2"_s }));
        QCOMPARE(engine.run(), 0);
        const QJsonObject scan = engine.event(u"scan"_s);
        QCOMPARE(scan.value(u"pairs"_s).toInt(), 2);
        QCOMPARE(scan.value(u"pending"_s).toInt(), 2);
        QCOMPARE(engine.events(u"item_start"_s).size(), 2);
        const QList<QJsonObject> done = engine.events(u"item_done"_s);
        QCOMPARE(done.size(), 2);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), 2);
        for (const QJsonObject &item : done) {
            const Row row = rowFor(item.value(u"stem"_s).toString());
            QCOMPARE(row.value(u"status"_s).toString(), u"SUCCESS"_s);
            QCOMPARE(row.value(u"peak_stops"_s).toDouble(), item.value(u"peak_stops"_s).toDouble());
            QCOMPARE(row.value(u"raw_clip_pct"_s).toDouble(),
                     item.value(u"bayer_clip"_s).toDouble());
            QCOMPARE(row.value(u"num_faces"_s).toInt(), item.value(u"faces"_s).toInt());
            QCOMPARE(item.value(u"faces"_s).toInt(), 0); // the sample scene shows nobody
            QVERIFY(item.value(u"peak_stops"_s).toDouble() > 1.0);
            const QStringList stages = item.value(u"stages"_s).toObject().keys();
            for (const char *stage :
                 { "jpg_decode", "metadata", "raw_decode", "develop", "align", "colour_fit",
                   "faces", "tone_gain", "encode", "write", "db" })
                QVERIFY2(stages.contains(QLatin1String(stage)), stage);
            // The blown square is clipped on the sensor too: about 1/64 of the frame.
            QVERIFY(item.value(u"bayer_clip"_s).toDouble() > 0.5);
            QVERIFY(item.value(u"bayer_clip"_s).toDouble() < 5.0);
            QVERIFY(QFile::exists(row.value(u"output_path"_s).toString()));
            QVERIFY(!row.value(u"processed_at"_s).toString().isEmpty());
        }
        QCOMPARE(filesUnder(m_dest), QStringList({ u"A_hdr.jpg"_s, u"B_hdr.jpg"_s }));
    }

    void databaseIsInWalModeWithIndexes()
    {
        QVERIFY(writePair(m_source, u"A"_s));
        QCOMPARE(EngineProcess(runArgs()).run(), 0);
        QCOMPARE(query("PRAGMA journal_mode").value(0).value(u"journal_mode"_s).toString(),
                 u"wal"_s);
        const QString indexes = query("SELECT group_concat(name) AS names FROM sqlite_master "
                                      "WHERE type='index' AND tbl_name='processed_files' "
                                      "AND name LIKE 'idx_%'")
                                    .value(0)
                                    .value(u"names"_s)
                                    .toString();
        for (const char *column :
             { "processed_at", "stem", "peak_stops", "num_faces", "duration", "rating", "status" })
            QVERIFY2(indexes.contains(QString::fromLatin1(column)), qPrintable(indexes));
    }

    void scanCountsOrphansAndSkipsDeliveredPairs()
    {
        QVERIFY(writePair(m_source, u"A"_s));
        QVERIFY(writePair(m_source, u"B"_s));
        QFile::copy(m_source + u"/A.DNG"_s, m_source + u"/lonely.nef"_s);
        QFile::copy(m_source + u"/A.JPG"_s, m_source + u"/alone.jpeg"_s);
        QFile notes(m_source + u"/notes.txt"_s);
        QVERIFY(notes.open(QIODevice::WriteOnly));
        notes.write("not a photo");
        notes.close();

        EngineProcess first(runArgs());
        QCOMPARE(first.run(), 0);
        QCOMPARE(first.event(u"scan"_s).value(u"orphans"_s).toInt(), 2);
        QCOMPARE(first.event(u"scan"_s).value(u"pending"_s).toInt(), 2);

        EngineProcess again(runArgs());
        QCOMPARE(again.run(), 0);
        QCOMPARE(again.event(u"scan"_s).value(u"skipped"_s).toInt(), 2);
        QCOMPARE(again.event(u"scan"_s).value(u"pending"_s).toInt(), 0);
        QCOMPARE(again.event(u"batch_done"_s).value(u"skipped"_s).toInt(), 2);
        QVERIFY(again.events(u"item_start"_s).isEmpty());

        // A changed JPG is a new pair; forcing takes everything again.
        SampleScene edited;
        edited.dateTimeOriginal = u"2024:05:07 07:08:09"_s;
        QFile jpg(m_source + u"/B.JPG"_s);
        QVERIFY(jpg.open(QIODevice::WriteOnly | QIODevice::Truncate));
        jpg.write(makeJpeg(edited));
        jpg.close();
        EngineProcess changed(runArgs());
        QCOMPARE(changed.run(), 0);
        QCOMPARE(changed.event(u"scan"_s).value(u"pending"_s).toInt(), 1);
        QCOMPARE(changed.event(u"item_start"_s).value(u"stem"_s).toString(), u"B"_s);

        EngineProcess forced(runArgs({ u"-f"_s }));
        QCOMPARE(forced.run(), 0);
        QCOMPARE(forced.event(u"scan"_s).value(u"pending"_s).toInt(), 2);
        QCOMPARE(readRows().size(), 3); // A, B before the edit, B after it
    }

    void deletedOutputIsDeliveredAgain()
    {
        QVERIFY(writePair(m_source, u"A"_s));
        QCOMPARE(EngineProcess(runArgs()).run(), 0);
        QVERIFY(QFile::remove(m_dest + u"/A_hdr.jpg"_s));
        // A killed run's partial files, here and in a subfolder, go at the
        // start of the next run; other hidden files stay.
        QVERIFY(QDir().mkpath(m_dest + u"/2024"_s));
        for (const QString &name :
             { u"/.A_hdr.jpg.part"_s, u"/2024/.B_hdr.jpg.part"_s, u"/.keep"_s }) {
            QFile leftover(m_dest + name);
            QVERIFY(leftover.open(QIODevice::WriteOnly));
            leftover.write("cut");
        }
        EngineProcess again(runArgs());
        QCOMPARE(again.run(), 0);
        QCOMPARE(again.event(u"scan"_s).value(u"pending"_s).toInt(), 1);
        QVERIFY(QFile::exists(m_dest + u"/A_hdr.jpg"_s));
        QVERIFY(!QFile::exists(m_dest + u"/.A_hdr.jpg.part"_s));
        QVERIFY(!QFile::exists(m_dest + u"/2024/.B_hdr.jpg.part"_s));
        QVERIFY(QFile::exists(m_dest + u"/.keep"_s));
    }

    void dryRunReportsAndWritesNothing()
    {
        QVERIFY(writePair(m_source, u"A"_s));
        QVERIFY(writePair(m_source, u"B"_s));
        EngineProcess engine(runArgs({ u"-n"_s }));
        QCOMPARE(engine.run(), 0);
        QCOMPARE(engine.event(u"scan"_s).value(u"pending"_s).toInt(), 2);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), 0);
        QVERIFY(engine.events(u"item_start"_s).isEmpty());
        QVERIFY(!QDir(m_dest).exists());
        QVERIFY(readRows().isEmpty());
        QVERIFY(engine.log().contains(u"would convert A -> A_hdr.jpg"_s));
    }

    void ratingFilterReadsSidecarThenJpeg()
    {
        SampleScene twoStars;
        twoStars.exifRating = 2;
        SampleScene threeStars; // exactly the minimum: "3 stars or more" takes it
        threeStars.exifRating = 3;
        QVERIFY(writePair(m_source, u"exif2"_s, twoStars));
        QVERIFY(writePair(m_source, u"exif3"_s, threeStars));
        QVERIFY(writePair(m_source, u"sidecar5"_s, twoStars));
        QVERIFY(writePair(m_source, u"unrated"_s));
        QFile xmp(m_source + u"/sidecar5.xmp"_s);
        QVERIFY(xmp.open(QIODevice::WriteOnly));
        xmp.write("<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF "
                  "xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
                  "<rdf:Description xmlns:xmp='http://ns.adobe.com/xap/1.0/' "
                  "xmp:Rating=\"5\"/></rdf:RDF></x:xmpmeta>");
        xmp.close();
        EngineProcess engine(runArgs({ u"--min-rating"_s, u"3"_s, u"-n"_s }));
        QCOMPARE(engine.run(), 0);
        QCOMPARE(engine.event(u"scan"_s).value(u"pairs"_s).toInt(), 4);
        QCOMPARE(engine.event(u"scan"_s).value(u"pending"_s).toInt(), 2);
        QCOMPARE(engine.event(u"scan"_s).value(u"skipped"_s).toInt(), 2);
        QVERIFY(engine.log().contains(u"would convert exif3"_s));
        QVERIFY(engine.log().contains(u"would convert sidecar5"_s));
    }

    void stemsRestrictTheRun()
    {
        for (const QString &stem : { u"a"_s, u"b"_s, u"c"_s })
            QVERIFY(writePair(m_source, stem));
        EngineProcess engine(runArgs({ u"--stem"_s, u"a,c"_s }));
        QCOMPARE(engine.run(), 0);
        QCOMPARE(engine.event(u"scan"_s).value(u"pairs"_s).toInt(), 2);
        QCOMPARE(filesUnder(m_dest), QStringList({ u"a_hdr.jpg"_s, u"c_hdr.jpg"_s }));
        QCOMPARE(rowFor(u"a"_s).value(u"rating"_s).toInt(), 0);
    }

    void namingTemplateAndSubfolderPlaceTheFile_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("naming");
        QTest::addColumn<QString>("rule");
        QTest::addColumn<QString>("expected");
        QTest::newRow("by date") << u"default"_s << u"{date}_{camera}"_s << u"by_date"_s
                                 << u"2024-05-06/2024-05-06_Synthetic.jpg"_s;
        QTest::newRow("by rating") << u"default"_s << u"{stem}-{rating}.jpeg"_s << u"by_rating"_s
                                   << u"3_Stars/P1-3star.jpeg"_s;
        QTest::newRow("by profile")
            << u"cinematic_film"_s << u"{profile}_{original}.JPG"_s << u"by_profile"_s
            << u"cinematic_film/cinematic_film_P1.JPG.jpg"_s;
    }
    void namingTemplateAndSubfolderPlaceTheFile()
    {
        QFETCH(QString, profile);
        QFETCH(QString, naming);
        QFETCH(QString, rule);
        QFETCH(QString, expected);
        SampleScene scene;
        scene.exifRating = 3;
        QVERIFY(writePair(m_source, u"P1"_s, scene));
        EngineProcess engine({ u"run"_s, u"-s"_s, m_source, u"-d"_s, m_dest, u"--profile-id"_s,
                               profile, u"--json-stream"_s, u"--naming-template"_s, naming,
                               u"--subfolder-rule"_s, rule });
        QCOMPARE(engine.run(), 0);
        QCOMPARE(filesUnder(m_dest), QStringList { expected });
        QCOMPARE(rowFor(u"P1"_s).value(u"output_path"_s).toString(), m_dest + u'/' + expected);
    }

    void photosSharingATemplateNameKeepTheirOwnFiles()
    {
        QVERIFY(writePair(m_source, u"one"_s));
        QVERIFY(writePair(m_source, u"two"_s));
        const QStringList byDate
            = runArgs({ u"--naming-template"_s, u"{date}"_s, u"-w"_s, u"2"_s });
        QCOMPARE(EngineProcess(byDate).run(), 0);
        QCOMPARE(filesUnder(m_dest), QStringList({ u"2024-05-06-2.jpg"_s, u"2024-05-06.jpg"_s }));
        QVERIFY(rowFor(u"one"_s).value(u"output_path"_s)
                != rowFor(u"two"_s).value(u"output_path"_s));
        // Forcing again replaces each photo's own file rather than adding more.
        QCOMPARE(EngineProcess(byDate + QStringList { u"-f"_s }).run(), 0);
        QCOMPARE(filesUnder(m_dest).size(), 2);
    }

    void corruptRawFailsOnlyThatItem()
    {
        QVERIFY(writePair(m_source, u"good"_s));
        QVERIFY(writePair(m_source, u"broken"_s));
        QFile raw(m_source + u"/broken.DNG"_s);
        QVERIFY(raw.open(QIODevice::WriteOnly | QIODevice::Truncate));
        raw.write(QByteArray(4096, 'x'));
        raw.close();
        EngineProcess engine(runArgs());
        QCOMPARE(engine.run(), 0);
        QCOMPARE(engine.events(u"item_failed"_s).size(), 1);
        QCOMPARE(engine.event(u"item_failed"_s).value(u"stem"_s).toString(), u"broken"_s);
        QCOMPARE(engine.event(u"item_failed"_s).value(u"reason"_s).toString(), u"raw_unreadable"_s);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), 1);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"failed"_s).toInt(), 1);
        const Row failed = rowFor(u"broken"_s);
        QCOMPARE(failed.value(u"status"_s).toString(), u"FAILED"_s);
        QVERIFY(failed.value(u"error_message"_s).toString().startsWith(u"RAW open"_s));
        QVERIFY(failed.value(u"output_path"_s).isNull());
        QCOMPARE(rowFor(u"good"_s).value(u"status"_s).toString(), u"SUCCESS"_s);
        QCOMPARE(filesUnder(m_dest), QStringList { u"good_hdr.jpg"_s });
        // A failed pair is tried again next time; a delivered one is not.
        EngineProcess again(runArgs());
        QCOMPARE(again.run(), 0);
        QCOMPARE(again.event(u"scan"_s).value(u"pending"_s).toInt(), 1);
    }

    void interruptFinishesInFlightItemsAndExits130()
    {
        EngineProcess engine(runArgs({ u"-w"_s, u"1"_s }));
        QVERIFY(startOnLargePairs(engine, m_source, 6, 1800, u"item_start"_s));
        ::kill(pid_t(engine.pid()), SIGINT);
        QCOMPARE(engine.run(), 130);
        const int finished
            = int(engine.events(u"item_done"_s).size() + engine.events(u"item_failed"_s).size());
        QVERIFY(finished >= 1);
        QVERIFY(finished < 6);
        QCOMPARE(int(engine.events(u"item_start"_s).size()), finished);
        QCOMPARE(int(readRows().size()), finished);
        QCOMPARE(engine.event(u"batch_done"_s).value(u"success"_s).toInt(), finished);
        for (const QString &file : filesUnder(m_dest))
            QVERIFY2(!file.endsWith(u".part"_s), qPrintable(file));
        QCOMPARE(int(filesUnder(m_dest).size()), finished);
    }

    void terminateStopsAtOnceWithoutPartialFiles_data()
    {
        QTest::addColumn<bool>("interruptFirst");
        QTest::addColumn<int>("exitStatus");
        QTest::newRow("terminate alone is a failure") << false << 143;
        // The application escalates a user's stop this way; it stays a cancellation.
        QTest::newRow("terminate after an interrupt is a cancellation") << true << 130;
    }

    void terminateStopsAtOnceWithoutPartialFiles()
    {
        QFETCH(bool, interruptFirst);
        QFETCH(int, exitStatus);
        EngineProcess engine(runArgs({ u"-w"_s, u"1"_s }));
        QVERIFY(startOnLargePairs(engine, m_source, 4, 1800, u"item_start"_s));
        if (interruptFirst)
            ::kill(pid_t(engine.pid()), SIGINT);
        ::kill(pid_t(engine.pid()), SIGTERM);
        QCOMPARE(engine.run(), exitStatus);
        QVERIFY(engine.events(u"batch_done"_s).isEmpty());
        for (const QString &file : filesUnder(m_dest))
            QVERIFY2(!file.endsWith(u".part"_s), qPrintable(file));
        QVERIFY(int(filesUnder(m_dest).size()) < 4);
    }

    void canaryStopsWhenTheDestinationDisappears()
    {
        EngineProcess engine(runArgs({ u"-w"_s, u"1"_s }));
        QVERIFY(startOnLargePairs(engine, m_source, 10, 1200, u"item_done"_s));
        QVERIFY(QDir(m_dest).removeRecursively());
        QCOMPARE(engine.run(), 2);
        QVERIFY(engine.log().contains(u"Storage canary"_s));
        QVERIFY(engine.events(u"item_done"_s).size() < 10);
        QVERIFY(!QDir(m_dest).exists());
    }

    void facesAreFoundAndSkinIsDampedBySkinValue_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::newRow("landscape") << 1;
        QTest::newRow("portrait, stored sideways") << 6;
    }
    void facesAreFoundAndSkinIsDampedBySkinValue()
    {
        QFETCH(int, orientation);
        SampleScene portrait;
        portrait.width = 480;
        portrait.height = 320;
        portrait.orientation = orientation;
        portrait.face = true;
        QVERIFY(writePair(m_source, u"face"_s, portrait));
        const auto convert = [&](const QString &skinDamp, double &cheek, int &faces) {
            EngineProcess engine(
                runArgs({ u"-f"_s, u"--profile-id"_s, u"custom"_s, u"--mid-target"_s, u"1.50"_s,
                          u"--power-mid"_s, u"1.50"_s, u"--skin-damp"_s, skinDamp }));
            QCOMPARE(engine.run(), 0);
            faces = engine.event(u"item_done"_s).value(u"faces"_s).toInt();
            const UltraHdrDecodeResult hdr = decodeUltraHdrFile(m_dest + u"/face_hdr.jpg"_s);
            const UltraHdrDecodeResult sdr
                = decodeUltraHdrFile(m_dest + u"/face_hdr.jpg"_s, { 1.0 });
            const QImage mask = applyExifOrientation(cheekMask(portrait), orientation);
            cheek = meanLuminance(hdr.image, mask) / meanLuminance(sdr.image, mask);
        };
        double undamped = 0, damped = 0;
        int facesUndamped = 0, facesDamped = 0;
        convert(u"0.00"_s, undamped, facesUndamped);
        convert(u"1.00"_s, damped, facesDamped);
        QCOMPARE(facesUndamped, 1);
        QCOMPARE(facesDamped, 1);
        QCOMPARE(rowFor(u"face"_s).value(u"num_faces"_s).toInt(), 1);
        // Undamped, the cheek is lifted like any bright mid-tone; fully damped it stays as the JPG
        // shows it.
        QVERIFY2(undamped > 1.3, qPrintable(QString::number(undamped)));
        QVERIFY2(damped < 1.1, qPrintable(QString::number(damped)));
    }

    void backlitFillLiftsTheDarkSubjectOnlyWhenAskedAndBacklit()
    {
        SampleScene backlit;
        backlit.backlit = true;
        QVERIFY(writePair(m_source, u"sky"_s, backlit));
        QVERIFY(writePair(m_source, u"plain"_s));
        const auto shadowGain = [&](const QString &stem, const SampleScene &scene, QRect rect) {
            const QString file = m_dest + u'/' + stem + u"_hdr.jpg"_s;
            const QImage mask = displayMask(scene, rect);
            return meanLuminance(decodeUltraHdrFile(file).image, mask)
                / meanLuminance(decodeUltraHdrFile(file, { 1.0 }).image, mask);
        };
        const QRect subject(10, backlit.height * 3 / 4, backlit.width - 20,
                            backlit.height / 4 - 10);
        QCOMPARE(EngineProcess(runArgs()).run(), 0);
        QVERIFY(shadowGain(u"sky"_s, backlit, subject) < 1.1);
        QCOMPARE(EngineProcess(runArgs({ u"-f"_s, u"--backlit-fill"_s })).run(), 0);
        QVERIFY2(shadowGain(u"sky"_s, backlit, subject) > 1.3,
                 qPrintable(QString::number(shadowGain(u"sky"_s, backlit, subject))));
        // A frame that is not back-lit keeps its shadows even with the fill on.
        QVERIFY(shadowGain(u"plain"_s, SampleScene(), shadowRect(SampleScene())) < 1.1);
    }

    void memoryPressureHoldsBackExtraWorkersUnlessToldNot()
    {
        const QString psi = m_dir.filePath(u"pressure"_s);
        QFile file(psi);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("some avg10=42.00 avg60=30.00 avg300=10.00 total=1\nfull avg10=5.00 avg60=1.00 "
                   "avg300=0.00 total=1\n");
        file.close();
        for (int i = 0; i < 3; ++i)
            QVERIFY(writePair(m_source, u"p%1"_s.arg(i)));
        qputenv("ORVANTA_PSI_FILE", psi.toUtf8());
        EngineProcess throttled(runArgs({ u"-w"_s, u"2"_s }));
        const int throttledStatus = throttled.run();
        EngineProcess unthrottled(runArgs({ u"-w"_s, u"2"_s, u"-f"_s, u"--no-throttle"_s }));
        const int unthrottledStatus = unthrottled.run();
        qunsetenv("ORVANTA_PSI_FILE");
        // The first worker carries the batch alone; nothing is lost.
        QCOMPARE(throttledStatus, 0);
        QCOMPARE(throttled.event(u"batch_done"_s).value(u"success"_s).toInt(), 3);
        QVERIFY(throttled.log().contains(u"Memory pressure: extra workers wait"_s));
        QCOMPARE(unthrottledStatus, 0);
        QCOMPARE(unthrottled.event(u"batch_done"_s).value(u"success"_s).toInt(), 3);
        QVERIFY(!unthrottled.log().contains(u"Memory pressure"_s));
    }

    void debugMasksAreWrittenBesideTheOutput()
    {
        QDir().mkpath(QDir::homePath() + u"/.config/orvanta"_s);
        QFile config(QDir::homePath() + u"/.config/orvanta/config.json"_s);
        QVERIFY(config.open(QIODevice::WriteOnly));
        config.write(R"({ "export_debug_masks" : true, "workers" : 1 })");
        config.close();
        QVERIFY(writePair(m_source, u"M"_s));
        EngineProcess engine(runArgs());
        const int status = engine.run();
        QFile::remove(config.fileName());
        QCOMPARE(status, 0);
        QCOMPARE(filesUnder(m_dest),
                 QStringList({ u"M_hdr.jpg"_s, u"M_hdr_facemask.png"_s, u"M_hdr_gainmap.png"_s }));
        const QImage gain(m_dest + u"/M_hdr_gainmap.png"_s);
        QVERIFY(!gain.isNull());
        // The sun is lifted, the shadow is not.
        const SampleScene scene;
        const QPoint sun = sunRect(scene).center(), shadow = shadowRect(scene).center();
        const double sx = double(gain.width()) / scene.width;
        QVERIFY(qGray(gain.pixel(int(sun.x() * sx), int(sun.y() * sx))) > 100);
        QVERIFY(qGray(gain.pixel(int(shadow.x() * sx), int(shadow.y() * sx))) < 10);
    }

    void logFileKeepsTheRun()
    {
        QVERIFY(writePair(m_source, u"L"_s));
        QCOMPARE(EngineProcess(runArgs()).run(), 0);
        const QDir logs(qEnvironmentVariable("XDG_STATE_HOME") + u"/Orvanta/logs"_s);
        const QStringList files = logs.entryList(QDir::Files);
        QVERIFY(!files.isEmpty());
        QFile log(logs.filePath(files.first()));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray text = log.readAll();
        QVERIFY(text.contains("[1/1] L"));
        QVERIFY(text.contains("ORVANTA_EVENT: {"));
    }

    void doctorReportsLibrariesAsJson()
    {
        EngineProcess doctor({ u"doctor"_s, u"--json"_s });
        QCOMPARE(doctor.run(), 0);
        const QJsonObject report = QJsonDocument::fromJson(doctor.log().toUtf8()).object();
        QCOMPARE(report.value(u"healthy"_s).toBool(), true);
        QVERIFY(report.value(u"missing"_s).toArray().isEmpty());
        QStringList names;
        for (const QJsonValue &v : report.value(u"checks"_s).toArray())
            names << v[u"name"_s].toString();
        QVERIFY(names.contains(u"libraw"_s));
        QVERIFY(names.contains(u"face_cascade"_s));
        QCOMPARE(report.value(u"state_db"_s).toString(), dbPath());
    }
};

ORVANTA_TEST_GUILESS_MAIN(TestRefEngine)
#include "tst_refengine.moc"
