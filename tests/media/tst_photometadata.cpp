// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Photo metadata: the display rules of every accessor, and what the reader
// takes from real files the test writes (JPEG with Exif, PNG, DNG, text,
// empty and missing files).
#include "MediaFixtures.h"
#include "common/TestEnvironment.h"
#include "media/MetadataService.h"

using namespace orvanta;
using namespace orvanta::test;

class PhotoMetadataTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void shutterSpeedIsFractionBelowOneSecond_data()
    {
        QTest::addColumn<std::optional<double>>("seconds");
        QTest::addColumn<QString>("expected");
        const QString dash = QStringLiteral("\u2014");
        QTest::newRow("absent") << std::optional<double>() << dash;
        QTest::newRow("zero") << std::optional<double>(0.0) << dash;
        QTest::newRow("negative") << std::optional<double>(-1.0) << dash;
        QTest::newRow("one second") << std::optional<double>(1.0) << QStringLiteral("1.0s");
        QTest::newRow("thirty seconds") << std::optional<double>(30.0) << QStringLiteral("30.0s");
        QTest::newRow("2.5 seconds") << std::optional<double>(2.5) << QStringLiteral("2.5s");
        QTest::newRow("half") << std::optional<double>(0.5) << QStringLiteral("1/2s");
        QTest::newRow("1/250") << std::optional<double>(0.004) << QStringLiteral("1/250s");
        QTest::newRow("0.3 rounds to 1/3") << std::optional<double>(0.3) << QStringLiteral("1/3s");
        QTest::newRow("0.4 rounds half up to 1/3")
            << std::optional<double>(0.4) << QStringLiteral("1/3s");
        QTest::newRow("1/8000") << std::optional<double>(1.0 / 8000) << QStringLiteral("1/8000s");
    }

    void shutterSpeedIsFractionBelowOneSecond()
    {
        QFETCH(std::optional<double>, seconds);
        QFETCH(QString, expected);
        ProPhotoMetadata m;
        m.shutterSpeed = seconds;
        QCOMPARE(m.shutterSpeedString(), expected);
    }

    void apertureFocalAndIsoUseTheirUnits_data()
    {
        QTest::addColumn<ProPhotoMetadata>("metadata");
        QTest::addColumn<QString>("aperture");
        QTest::addColumn<QString>("focal");
        QTest::addColumn<QString>("iso");
        const QString dash = QStringLiteral("\u2014");
        QTest::newRow("all absent") << ProPhotoMetadata {} << dash << dash << dash;
        ProPhotoMetadata m;
        m.aperture = 2.8;
        m.focalLength = 24.0;
        m.focalLength35mm = 36.0;
        m.iso = 100;
        QTest::newRow("typical") << m << QStringLiteral("\u0192/2.8") << QStringLiteral("24 mm")
                                 << QStringLiteral("100");
        m.aperture = 8.0;
        m.focalLength = 23.5;
        m.iso = 12800;
        QTest::newRow("whole f-number, rounded focal, no grouping")
            << m << QStringLiteral("\u0192/8.0") << QStringLiteral("24 mm")
            << QStringLiteral("12800");
        m.aperture = 0.0;
        m.focalLength = -5.0;
        m.iso = 0;
        QTest::newRow("zero and negative are missing") << m << dash << dash << dash;
        ProPhotoMetadata only35;
        only35.focalLength35mm = 50.0;
        QTest::newRow("35 mm equivalent is never shown") << only35 << dash << dash << dash;
    }

    void apertureFocalAndIsoUseTheirUnits()
    {
        QFETCH(ProPhotoMetadata, metadata);
        QFETCH(QString, aperture);
        QFETCH(QString, focal);
        QFETCH(QString, iso);
        QCOMPARE(metadata.apertureString(), aperture);
        QCOMPARE(metadata.focalLengthString(), focal);
        QCOMPARE(metadata.isoString(), iso);
    }

    void exposureBiasShowsZeroWhenAbsentAndSignWhenPositive_data()
    {
        QTest::addColumn<std::optional<double>>("bias");
        QTest::addColumn<QString>("expected");
        QTest::newRow("absent") << std::optional<double>() << QStringLiteral("0.0 EV");
        QTest::newRow("zero") << std::optional<double>(0.0) << QStringLiteral("0.0 EV");
        QTest::newRow("positive") << std::optional<double>(0.7) << QStringLiteral("+0.7 EV");
        QTest::newRow("negative") << std::optional<double>(-0.7) << QStringLiteral("-0.7 EV");
        QTest::newRow("two stops") << std::optional<double>(2.0) << QStringLiteral("+2.0 EV");
    }

    void exposureBiasShowsZeroWhenAbsentAndSignWhenPositive()
    {
        QFETCH(std::optional<double>, bias);
        QFETCH(QString, expected);
        ProPhotoMetadata m;
        m.exposureBias = bias;
        QCOMPARE(m.exposureBiasString(), expected);
    }

    void resolutionAndFileSizeFormats_data()
    {
        QTest::addColumn<std::optional<int>>("width");
        QTest::addColumn<std::optional<int>>("height");
        QTest::addColumn<std::optional<qint64>>("bytes");
        QTest::addColumn<QString>("resolution");
        QTest::addColumn<QString>("size");
        const QString dash = QStringLiteral("\u2014");
        QTest::newRow("absent") << std::optional<int>() << std::optional<int>()
                                << std::optional<qint64>() << dash << dash;
        QTest::newRow("24 MP, 24 MiB")
            << std::optional<int>(6000) << std::optional<int>(4000)
            << std::optional<qint64>(25165824) << QStringLiteral("6000 \u00D7 4000 (24.0 MP)")
            << QStringLiteral("24.00 MB");
        QTest::newRow("rounded megapixels and mebibytes")
            << std::optional<int>(4032) << std::optional<int>(3024)
            << std::optional<qint64>(1500000) << QStringLiteral("4032 \u00D7 3024 (12.2 MP)")
            << QStringLiteral("1.43 MB");
        QTest::newRow("one side missing") << std::optional<int>(6000) << std::optional<int>()
                                          << std::optional<qint64>(0) << dash << dash;
        QTest::newRow("zero height")
            << std::optional<int>(6000) << std::optional<int>(0) << std::optional<qint64>(1) << dash
            << QStringLiteral("0.00 MB");
        QTest::newRow("product beyond 32 bits")
            << std::optional<int>(100000) << std::optional<int>(100000)
            << std::optional<qint64>(Q_INT64_C(10737418240))
            << QStringLiteral("100000 \u00D7 100000 (10000.0 MP)") << QStringLiteral("10240.00 MB");
    }

    void resolutionAndFileSizeFormats()
    {
        QFETCH(std::optional<int>, width);
        QFETCH(std::optional<int>, height);
        QFETCH(std::optional<qint64>, bytes);
        QFETCH(QString, resolution);
        QFETCH(QString, size);
        ProPhotoMetadata m;
        m.pixelWidth = width;
        m.pixelHeight = height;
        m.fileSizeBytes = bytes;
        QCOMPARE(m.resolutionString(), resolution);
        QCOMPARE(m.fileSizeString(), size);
    }

    void numbersUseAPointWhateverTheLocale()
    {
        const QLocale previous;
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        ProPhotoMetadata m;
        m.aperture = 2.8;
        m.shutterSpeed = 2.5;
        m.exposureBias = -0.3;
        m.pixelWidth = 6000;
        m.pixelHeight = 4000;
        m.fileSizeBytes = 1500000;
        const QStringList shown
            = { m.apertureString(), m.shutterSpeedString(), m.exposureBiasString(),
                m.resolutionString(), m.fileSizeString() };
        QLocale::setDefault(previous);
        QCOMPARE(
            shown,
            (QStringList { QStringLiteral("\u0192/2.8"), QStringLiteral("2.5s"),
                           QStringLiteral("-0.3 EV"), QStringLiteral("6000 \u00D7 4000 (24.0 MP)"),
                           QStringLiteral("1.43 MB") }));
    }

    void jpegExifIsReadTrimmedAndTyped()
    {
        const QString file = path(QStringLiteral("camera.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(300, 200, Qt::red, Qt::blue)));
        QVERIFY(writeExif(
            file,
            {
                { "Exif.Image.Make", "Ascii", QStringLiteral(" SONY \n") },
                { "Exif.Image.Model", "Ascii", QStringLiteral("ILCE-7RM5  ") },
                { "Exif.Photo.LensModel", "Ascii", QStringLiteral("\tFE 24-70mm F2.8 GM II") },
                { "Exif.Photo.FNumber", "Rational", QStringLiteral("14/5") },
                { "Exif.Photo.ExposureTime", "Rational", QStringLiteral("1/250") },
                { "Exif.Photo.FocalLength", "Rational", QStringLiteral("24/1") },
                { "Exif.Photo.FocalLengthIn35mmFilm", "Short", QStringLiteral("36") },
                { "Exif.Photo.ExposureBiasValue", "SRational", QStringLiteral("-7/10") },
                { "Exif.Photo.ISOSpeedRatings", "Short", QStringLiteral("800") },
                { "Exif.Photo.DateTimeOriginal", "Ascii", QStringLiteral("2024:05:01 18:42:07") },
            }));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        QCOMPARE(m.cameraMake, QStringLiteral("SONY"));
        QCOMPARE(m.cameraModel, QStringLiteral("ILCE-7RM5"));
        QCOMPARE(m.lensModel, QStringLiteral("FE 24-70mm F2.8 GM II"));
        QCOMPARE(m.aperture, 2.8);
        QCOMPARE(m.shutterSpeed, 0.004);
        QCOMPARE(m.focalLength, 24.0);
        QCOMPARE(m.focalLength35mm, 36.0);
        QCOMPARE(m.exposureBias, -0.7);
        QCOMPARE(m.iso, 800);
        QCOMPARE(m.dateTimeOriginal, QStringLiteral("2024:05:01 18:42:07"));
        QCOMPARE(m.pixelWidth, 300);
        QCOMPARE(m.pixelHeight, 200);
        QCOMPARE(m.fileSizeBytes, QFileInfo(file).size());
        QVERIFY(!m.colorSpace); // how the values read: the formatting cases above
    }

    void isoIsTheFirstOfAListOrTheScalar_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("value");
        QTest::addColumn<std::optional<int>>("expected");
        QTest::newRow("scalar short")
            << QStringLiteral("Short") << QStringLiteral("400") << std::optional<int>(400);
        QTest::newRow("list of shorts")
            << QStringLiteral("Short") << QStringLiteral("200 400") << std::optional<int>(200);
        QTest::newRow("long") << QStringLiteral("Long") << QStringLiteral("102400")
                              << std::optional<int>(102400);
        QTest::newRow("text is skipped")
            << QStringLiteral("Ascii") << QStringLiteral("ISO 100") << std::optional<int>();
    }

    void isoIsTheFirstOfAListOrTheScalar()
    {
        QFETCH(QString, type);
        QFETCH(QString, value);
        QFETCH(std::optional<int>, expected);
        const QString file = path(QStringLiteral("iso.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(64, 48, Qt::gray, Qt::white)));
        const QByteArray typeName = type.toLatin1();
        QVERIFY(writeExif(file, { { "Exif.Photo.ISOSpeedRatings", typeName.constData(), value } }));
        QCOMPARE(MetadataService::shared().extractMetadata(file).iso, expected);
    }

    void originalDateWinsOverTiffDate_data()
    {
        QTest::addColumn<QString>("tiffDate");
        QTest::addColumn<QString>("originalDate");
        QTest::addColumn<std::optional<QString>>("expected");
        QTest::newRow("both") << QStringLiteral("2024:06:02 09:00:00")
                              << QStringLiteral("2024:05:01 18:42:07")
                              << std::optional<QString>(QStringLiteral("2024:05:01 18:42:07"));
        QTest::newRow("tiff only") << QStringLiteral("2024:06:02 09:00:00") << QString()
                                   << std::optional<QString>(QStringLiteral("2024:06:02 09:00:00"));
        QTest::newRow("kept as stored, unparsed")
            << QString() << QStringLiteral("sometime in May")
            << std::optional<QString>(QStringLiteral("sometime in May"));
        QTest::newRow("neither") << QString() << QString() << std::optional<QString>();
    }

    void originalDateWinsOverTiffDate()
    {
        QFETCH(QString, tiffDate);
        QFETCH(QString, originalDate);
        QFETCH(std::optional<QString>, expected);
        const QString file = path(QStringLiteral("dates.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(64, 48, Qt::gray, Qt::white)));
        QList<ExifTag> tags;
        if (!tiffDate.isEmpty())
            tags.append({ "Exif.Image.DateTime", "Ascii", tiffDate });
        if (!originalDate.isEmpty())
            tags.append({ "Exif.Photo.DateTimeOriginal", "Ascii", originalDate });
        if (!tags.isEmpty())
            QVERIFY(writeExif(file, tags));
        QCOMPARE(MetadataService::shared().extractMetadata(file).dateTimeOriginal, expected);
    }

    void valuesOfTheWrongTypeStayAbsent()
    {
        const QString file = path(QStringLiteral("wrongtypes.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(64, 48, Qt::gray, Qt::white)));
        QVERIFY(writeExif(file,
                          {
                              { "Exif.Image.Make", "Short", QStringLiteral("7") },
                              { "Exif.Photo.FNumber", "Ascii", QStringLiteral("f/2.8") },
                              { "Exif.Photo.ExposureTime", "Rational", QStringLiteral("1/0") },
                              { "Exif.Photo.FocalLength", "Rational", QStringLiteral("35/1") },
                          }));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        QVERIFY(!m.cameraMake);
        QVERIFY(!m.aperture);
        QVERIFY(!m.shutterSpeed); // a zero denominator is no number
        QCOMPARE(m.focalLength, 35.0);
        QCOMPARE(m.shutterSpeedString(), QStringLiteral("\u2014"));
    }

    void blankMakeStaysAnEmptyString()
    {
        const QString file = path(QStringLiteral("blank.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(64, 48, Qt::gray, Qt::white)));
        QVERIFY(writeExif(file, { { "Exif.Image.Make", "Ascii", QStringLiteral("   \n ") } }));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        QVERIFY(m.cameraMake.has_value());
        QCOMPARE(*m.cameraMake, QString());
        QVERIFY(!m.cameraModel);
    }

    void pngGivesSizeAndDimensionsOnly()
    {
        const QString file = path(QStringLiteral("plain.png"));
        QVERIFY(writePng(file, twoToneImage(120, 80, Qt::green, Qt::black)));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        ProPhotoMetadata expected;
        expected.pixelWidth = 120;
        expected.pixelHeight = 80;
        expected.fileSizeBytes = QFileInfo(file).size();
        QCOMPARE(m, expected);
        QCOMPARE(m.exposureBiasString(), QStringLiteral("0.0 EV"));
    }

    void dngIsReadLikeAnyOtherContainer()
    {
        const QString file = path(QStringLiteral("DSC0001.dng"));
        QVERIFY(writeDng(file, 16, 12,
                         {
                             { "Exif.Image.Make", "Ascii", QStringLiteral("Leica Camera AG") },
                             { "Exif.Image.Model", "Ascii", QStringLiteral("Q3") },
                             { "Exif.Photo.ISOSpeedRatings", "Short", QStringLiteral("3200") },
                             { "Exif.Photo.ExposureTime", "Rational", QStringLiteral("2/1") },
                         },
                         twoToneImage(320, 240, Qt::red, Qt::blue)));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        QCOMPARE(m.cameraMake, QStringLiteral("Leica Camera AG"));
        QCOMPARE(m.cameraModel, QStringLiteral("Q3"));
        QCOMPARE(m.isoString(), QStringLiteral("3200"));
        QCOMPARE(m.shutterSpeedString(), QStringLiteral("2.0s"));
        QCOMPARE(m.resolutionString(), QStringLiteral("16 \u00D7 12 (0.0 MP)"));
    }

    void unreadableFilesGiveOnlyWhatTheFileSystemKnows_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("create");
        QTest::newRow("text file")
            << QStringLiteral("notes.txt") << QByteArray("not an image\n") << true;
        QTest::newRow("empty file") << QStringLiteral("empty.jpg") << QByteArray() << true;
        QTest::newRow("truncated jpeg")
            << QStringLiteral("cut.jpg") << QByteArray("\xFF\xD8\xFF\xE1\x40\x00Exif\0\0MM", 14)
            << true;
        QTest::newRow("missing file") << QStringLiteral("gone.jpg") << QByteArray() << false;
    }

    void unreadableFilesGiveOnlyWhatTheFileSystemKnows()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(bool, create);
        const QString file = path(name);
        if (create)
            QVERIFY(writeFile(file, bytes));
        const ProPhotoMetadata m = MetadataService::shared().extractMetadata(file);
        ProPhotoMetadata expected;
        if (create)
            expected.fileSizeBytes = bytes.size();
        QCOMPARE(m, expected);
        QCOMPARE(m.fileSizeString(),
                 bytes.isEmpty() ? QStringLiteral("\u2014")
                                 : QString::asprintf("%.2f MB", bytes.size() / 1048576.0));
    }

    void absentPathGivesTheEmptyRecord()
    {
        QCOMPARE(MetadataService::shared().extractMetadata(QString()), ProPhotoMetadata {});
    }

private:
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

ORVANTA_TEST_GUI_MAIN(PhotoMetadataTest)
#include "tst_photometadata.moc"
