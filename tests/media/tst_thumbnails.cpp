// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Thumbnails: the decoder's routes (DCT-scaled JPEG with orientation, PNG,
// the DNG's embedded preview, files that are not images), the bounded cache,
// and the manager's file choice, cache answers, delivery and cancellation.
#include "MediaFixtures.h"
#include "common/TestEnvironment.h"
#include "media/ExifOrientation.h"
#include "media/MetadataService.h"
#include "thumbnails/JpegThumbnailDecoder.h"
#include "thumbnails/RawThumbnail.h"
#include "thumbnails/ThumbnailDecoder.h"
#include "thumbnails/ThumbnailManager.h"

#include <QRandomGenerator>
#include <QSemaphore>

using namespace orvanta;
using namespace orvanta::test;

namespace {

bool isReddish(QRgb c)
{
    return qRed(c) > 180 && qBlue(c) < 80;
}
bool isBluish(QRgb c)
{
    return qBlue(c) > 180 && qRed(c) < 80;
}

// Records what a completion received.
struct Received
{
    int calls = 0;
    std::optional<ThumbnailResult> result;

    ThumbnailManager::Completion completion()
    {
        return [this](const ThumbnailResult &r) {
            ++calls;
            result = r;
        };
    }
};

// A decoder the test holds at a gate, recording the order of the files it was given.
struct GatedDecoder
{
    QSemaphore entered;
    QSemaphore gate;
    QMutex mutex;
    QStringList order;

    ThumbnailManager::Decoder decoder()
    {
        return [this](const QString &path, int size) {
            {
                const QMutexLocker lock(&mutex);
                order.append(QFileInfo(path).fileName());
            }
            entered.release();
            gate.acquire();
            return ThumbnailResult::success(QImage(size, size / 2, QImage::Format_RGB32));
        };
    }
    QStringList decoded()
    {
        const QMutexLocker lock(&mutex);
        return order;
    }
};

} // namespace

class ThumbnailsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void scaleIsTheSmallestStepReachingTheRequest_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("request");
        QTest::addColumn<int>("numerator");
        QTest::newRow("24 MP to a row") << 6000 << 4000 << 76 << 1;
        QTest::newRow("24 MP portrait to 160") << 4000 << 6000 << 160 << 1;
        QTest::newRow("1/8 just too small") << 1000 << 800 << 126 << 2;
        QTest::newRow("1/8 exactly enough, rounded up") << 1001 << 800 << 126 << 1;
        QTest::newRow("half") << 1000 << 1000 << 400 << 4;
        QTest::newRow("larger than the image") << 300 << 200 << 400 << 8;
    }

    void scaleIsTheSmallestStepReachingTheRequest()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, request);
        QFETCH(int, numerator);
        QCOMPARE(jpegScaleNumerator(width, height, request), numerator);
    }

    void jpegIsFittedAndTurnedUpright_data()
    {
        QTest::addColumn<int>("orientation");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("redSide"); // where the stored left half ends up
        QTest::newRow("no tag") << 0 << QSize(160, 107) << QStringLiteral("left");
        QTest::newRow("upright") << 1 << QSize(160, 107) << QStringLiteral("left");
        QTest::newRow("mirrored") << 2 << QSize(160, 107) << QStringLiteral("right");
        QTest::newRow("180") << 3 << QSize(160, 107) << QStringLiteral("right");
        QTest::newRow("90 clockwise") << 6 << QSize(107, 160) << QStringLiteral("top");
        QTest::newRow("90 counter-clockwise") << 8 << QSize(107, 160) << QStringLiteral("bottom");
        QTest::newRow("transposed") << 5 << QSize(107, 160) << QStringLiteral("top");
        QTest::newRow("transverse") << 7 << QSize(107, 160) << QStringLiteral("bottom");
    }

    void jpegIsFittedAndTurnedUpright()
    {
        QFETCH(int, orientation);
        QFETCH(QSize, size);
        QFETCH(QString, redSide);
        const QString file = path(QStringLiteral("oriented.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(1500, 1000, Qt::red, Qt::blue)));
        if (orientation > 0)
            QVERIFY(writeExif(
                file, { { "Exif.Image.Orientation", "Short", QString::number(orientation) } }));
        const ThumbnailResult result = decodeThumbnail(file, 160);
        QVERIFY(result.isSuccess());
        const QImage &image = result.image();
        QCOMPARE(image.size(), size);
        const int w = image.width(), h = image.height();
        QRgb red, blue;
        if (redSide == QLatin1String("left") || redSide == QLatin1String("right")) {
            red = image.pixel(redSide == QLatin1String("left") ? 5 : w - 5, h / 2);
            blue = image.pixel(redSide == QLatin1String("left") ? w - 5 : 5, h / 2);
        } else {
            red = image.pixel(w / 2, redSide == QLatin1String("top") ? 5 : h - 5);
            blue = image.pixel(w / 2, redSide == QLatin1String("top") ? h - 5 : 5);
        }
        QVERIFY2(isReddish(red), qPrintable(QColor(red).name()));
        QVERIFY2(isBluish(blue), qPrintable(QColor(blue).name()));
    }

    void smallImagesAreNeverEnlarged()
    {
        const QString file = path(QStringLiteral("small.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(60, 40, Qt::red, Qt::blue)));
        const ThumbnailResult result = decodeThumbnail(file, 160);
        QVERIFY(result.isSuccess());
        QCOMPARE(result.image().size(), QSize(60, 40));
    }

    void pngIsDecodedAtTheTargetSize()
    {
        const QString file = path(QStringLiteral("wide.png"));
        QVERIFY(writePng(file, twoToneImage(800, 200, Qt::red, Qt::blue)));
        const ThumbnailResult result = decodeThumbnail(file, 76);
        QVERIFY(result.isSuccess());
        QCOMPARE(result.image().size(), QSize(76, 19));
        QVERIFY(isReddish(result.image().pixel(2, 9)));
    }

    void dngUsesItsEmbeddedPreview()
    {
        // The sensor strip is a flat reddish grey; only the preview is two-toned,
        // and the file's orientation (90° clockwise) applies to the preview.
        const QString file = path(QStringLiteral("DSC0002.DNG"));
        QVERIFY(writeDng(file, 16, 12,
                         { { "Exif.Image.Orientation", "Short", QStringLiteral("6") } },
                         twoToneImage(320, 240, Qt::red, Qt::blue)));
        QVERIFY(isRawFileName(file));
        const ThumbnailResult result = decodeThumbnail(file, 76);
        QVERIFY(result.isSuccess());
        QCOMPARE(result.image().size(), QSize(57, 76));
        QVERIFY(isReddish(result.image().pixel(28, 3)));
        QVERIFY(isBluish(result.image().pixel(28, 72)));
    }

    void libRawReadsTheSamePreview()
    {
        // LibRaw is the route for previews exiv2 does not find; here both can
        // read the file, so LibRaw's answer must match in size and orientation.
        const QString file = path(QStringLiteral("DSC0003.dng"));
        // LibRaw ignores raw images under 22 pixels a side.
        QVERIFY(writeDng(file, 64, 48,
                         { { "Exif.Image.Orientation", "Short", QStringLiteral("8") } },
                         twoToneImage(320, 240, Qt::red, Qt::blue)));
        const QImage image = decodeRawThumbnail(file, 76);
        QVERIFY(!image.isNull());
        QCOMPARE(image.size(), QSize(57, 76));
        QVERIFY(isBluish(image.pixel(28, 3))); // 90° counter-clockwise: the right half on top
        QVERIFY(isReddish(image.pixel(28, 72)));
        QCOMPARE(exifOrientationFromLibRawFlip(0), 1);
        QCOMPARE(exifOrientationFromLibRawFlip(3), 3);
        QCOMPARE(exifOrientationFromLibRawFlip(5), 8);
        QCOMPARE(exifOrientationFromLibRawFlip(6), 6);
    }

    void filesThatAreNotImagesAreDecodeErrors_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << QStringLiteral("notes.txt") << QByteArray("hello\n");
        QTest::newRow("empty") << QStringLiteral("empty.jpg") << QByteArray();
        QTest::newRow("jpeg header only")
            << QStringLiteral("cut.jpg") << QByteArray("\xFF\xD8\xFF\xE0\x00\x10JFIF\0", 11);
        QTest::newRow("RAW name, no container") << QStringLiteral("fake.nef") << QByteArray("NEF?");
        QTest::newRow("DNG without a preview") << QStringLiteral("bare.dng") << QByteArray();
    }

    void filesThatAreNotImagesAreDecodeErrors()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        const QString file = path(name);
        if (name == QLatin1String("bare.dng"))
            QVERIFY(writeDng(file, 16, 12, {}, QImage()));
        else
            QVERIFY(writeFile(file, bytes));
        const ThumbnailResult result = decodeThumbnail(file, 160);
        QCOMPARE(result.kind(), ThumbnailResult::Kind::DecodeError);
        QVERIFY(result.image().isNull());
    }

    void damagedJpegsGiveADefinedOutcome_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::addColumn<bool>("decodes");
        // A truncated or scrambled scan still yields a picture (libjpeg fills
        // what is missing); damage to the headers is a decode error.
        QTest::newRow("cut in half") << QStringLiteral("half") << true;
        QTest::newRow("scan overwritten with noise") << QStringLiteral("noise") << true;
        QTest::newRow("cut inside the headers") << QStringLiteral("headers") << false;
        QTest::newRow("zero width in the frame header") << QStringLiteral("zero-width") << false;
        QTest::newRow("Exif block of garbage") << QStringLiteral("exif-garbage") << true;
    }

    void damagedJpegsGiveADefinedOutcome()
    {
        QFETCH(QString, damage);
        QFETCH(bool, decodes);
        const QString source = path(QStringLiteral("intact.jpg"));
        QVERIFY(writeJpeg(source, twoToneImage(640, 480, Qt::red, Qt::blue)));
        QVERIFY(writeExif(source,
                          { { "Exif.Image.Make", "Ascii", QStringLiteral("Nikon") },
                            { "Exif.Image.Orientation", "Short", QStringLiteral("6") } }));
        QFile in(source);
        QVERIFY(in.open(QIODevice::ReadOnly));
        QByteArray bytes = in.readAll();
        const qsizetype sof = bytes.indexOf(QByteArray("\xFF\xC0", 2));
        const qsizetype exif = bytes.indexOf(QByteArray("Exif\0\0", 6));
        QVERIFY(sof > 0 && exif > 0);
        QRandomGenerator random(7);
        if (damage == QLatin1String("half")) {
            bytes.truncate(bytes.size() / 2);
        } else if (damage == QLatin1String("noise")) {
            for (qsizetype i = bytes.size() / 2; i < bytes.size() - 200; ++i)
                bytes[i] = char(random.bounded(256));
        } else if (damage == QLatin1String("headers")) {
            bytes.truncate(sof + 4);
        } else if (damage == QLatin1String("zero-width")) {
            bytes[sof + 7] = 0; // SOF: length(2) precision(1) height(2) width(2)
            bytes[sof + 8] = 0;
        } else {
            // Only inside the APP1 segment, whose length precedes "Exif".
            const int length = uchar(bytes[exif - 2]) << 8 | uchar(bytes[exif - 1]);
            for (qsizetype i = exif + 6; i < exif - 2 + length; ++i)
                bytes[i] = char(random.bounded(256));
        }
        const QString file = path(QStringLiteral("damaged-%1.jpg").arg(damage));
        QVERIFY(writeFile(file, bytes));

        const ThumbnailResult result = decodeThumbnail(file, 76);
        QCOMPARE(result.isSuccess(), decodes);
        if (decodes)
            QVERIFY(std::max(result.image().width(), result.image().height()) <= 76);
        const ProPhotoMetadata metadata = MetadataService::shared().extractMetadata(file);
        QCOMPARE(metadata.fileSizeBytes, bytes.size());
    }

    void orientationIsReadOnlyFromWellFormedExif_data()
    {
        QTest::addColumn<QByteArray>("block");
        QTest::addColumn<int>("orientation");
        // IFD0 with one entry: tag 0x0112, type SHORT, count 1, value.
        const QByteArray bigEndian(
            "Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0", 28);
        const QByteArray littleEndian(
            "Exif\0\0II\x2A\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x08\0\0\0", 28);
        QTest::newRow("big-endian 6") << bigEndian << 6;
        QTest::newRow("little-endian 8") << littleEndian << 8;
        QTest::newRow("cut inside the entry") << bigEndian.left(20) << 1;
        QByteArray outOfRange = bigEndian;
        outOfRange[25] = 9;
        QTest::newRow("value out of range") << outOfRange << 1;
        QByteArray farIfd = bigEndian;
        farIfd[13] = char(0x7F);
        QTest::newRow("IFD offset past the end") << farIfd << 1;
        QTest::newRow("not Exif") << QByteArray("http://ns.adobe.com/xap/1.0/") << 1;
    }

    void orientationIsReadOnlyFromWellFormedExif()
    {
        QFETCH(QByteArray, block);
        QFETCH(int, orientation);
        QCOMPARE(orientationFromExifBlock(reinterpret_cast<const uchar *>(block.constData()),
                                          block.size()),
                 orientation);
    }

    void cacheHoldsAtMost30MiBOfPixels()
    {
        ThumbnailCache cache;
        QCOMPARE(cache.costLimit(), Q_INT64_C(31457280));
        const QImage big(1024, 1024, QImage::Format_RGB32); // 4 MiB of cost
        for (int i = 0; i < 10; ++i)
            QVERIFY(cache.insert(QString::number(i), big));
        QCOMPARE(cache.count(), 7);
        QCOMPARE(cache.totalCost(), 7 * 4 * 1048576);
        QVERIFY(cache.totalCost() <= cache.costLimit());
        // Replacing an entry does not count it twice.
        QVERIFY(cache.insert(QStringLiteral("9"), big));
        QCOMPARE(cache.count(), 7);
        // An image that alone breaks the limit is refused and evicts nothing.
        QVERIFY(!cache.insert(QStringLiteral("huge"), QImage(3000, 3000, QImage::Format_RGB32)));
        QCOMPARE(cache.count(), 7);
    }

    void cacheEvictsTheLeastRecentlyUsed()
    {
        ThumbnailCache cache(3, 1000000);
        const QImage tiny(2, 2, QImage::Format_RGB32);
        for (const char *key : { "a", "b", "c" })
            cache.insert(QString::fromLatin1(key), tiny);
        QVERIFY(cache.find(QStringLiteral("a"))); // a is now the most recent
        cache.insert(QStringLiteral("d"), tiny);
        QVERIFY(cache.contains(QStringLiteral("a")));
        QVERIFY(!cache.contains(QStringLiteral("b")));
        QVERIFY(cache.contains(QStringLiteral("c")));
        QVERIFY(cache.contains(QStringLiteral("d")));
    }

    void viewSizeBecomesTwiceTheLongerSide_data()
    {
        QTest::addColumn<QSizeF>("points");
        QTest::addColumn<std::optional<int>>("pixels");
        QTest::newRow("history row") << QSizeF(38, 22) << std::optional<int>(76);
        QTest::newRow("100 x 40") << QSizeF(100, 40) << std::optional<int>(200);
        QTest::newRow("fractional truncates") << QSizeF(20.7, 10) << std::optional<int>(41);
        QTest::newRow("empty") << QSizeF(0, 0) << std::optional<int>();
        QTest::newRow("infinite") << QSizeF(qInf(), 10) << std::optional<int>();
        QTest::newRow("not a number") << QSizeF(qQNaN(), qQNaN()) << std::optional<int>();
    }

    void viewSizeBecomesTwiceTheLongerSide()
    {
        QFETCH(QSizeF, points);
        QFETCH(std::optional<int>, pixels);
        QCOMPARE(ThumbnailManager::pixelSizeForView(points), pixels);
    }

    void noUsableFileIsMissingAtOnce_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<QString>("fallback");
        QTest::newRow("both null") << QString() << QString();
        QTest::newRow("both empty") << QStringLiteral("") << QStringLiteral("");
        QTest::newRow("neither exists")
            << QStringLiteral("/nonexistent/a.jpg") << QStringLiteral("/nonexistent/b.jpg");
        QTest::newRow("a folder is no file") << QDir::tempPath() << QString();
    }

    void noUsableFileIsMissingAtOnce()
    {
        QFETCH(QString, target);
        QFETCH(QString, fallback);
        ThumbnailManager manager;
        Received received;
        const auto ticket
            = manager.loadThumbnail(target, fallback, 76, nullptr, received.completion());
        QCOMPARE(ticket, ThumbnailManager::Ticket(0));
        QCOMPARE(received.calls, 1);
        QCOMPARE(received.result->kind(), ThumbnailResult::Kind::MissingOnDisk);
        QCOMPARE(manager.pendingCount(), 0);
    }

    void missingTargetFallsBackAndCachesUnderTheFallbackKey()
    {
        const QString fallback = path(QStringLiteral("camera-fallback.jpg"));
        QVERIFY(writeJpeg(fallback, twoToneImage(600, 400, Qt::red, Qt::blue)));
        const QString target = path(QStringLiteral("output-not-yet-written.jpg"));
        ThumbnailManager manager;
        Received received;
        QVERIFY(manager.loadThumbnail(target, fallback, 76, nullptr, received.completion()) != 0);
        QCOMPARE(received.calls, 0);
        QTRY_COMPARE(received.calls, 1);
        QVERIFY(received.result->isSuccess());
        QCOMPARE(received.result->image().size(), QSize(76, 51));
        QVERIFY(manager.cache().contains(ThumbnailManager::cacheKey(fallback, 76)));
        QVERIFY(!manager.cache().contains(ThumbnailManager::cacheKey(target, 76)));
    }

    void secondRequestIsAnsweredFromTheCacheWithoutTheLoader()
    {
        const QString file = path(QStringLiteral("cached.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(600, 400, Qt::red, Qt::blue)));
        ThumbnailManager manager;
        Received first;
        manager.loadThumbnail(file, QString(), 160, nullptr, first.completion());
        QTRY_COMPARE(first.calls, 1);
        QCOMPARE(manager.decodeCount(), 1);

        Received second;
        QCOMPARE(manager.loadThumbnail(file, QString(), 160, nullptr, second.completion()),
                 ThumbnailManager::Ticket(0));
        QCOMPARE(second.calls, 1); // synchronously
        QCOMPARE(second.result->image(), first.result->image());
        QCOMPARE(manager.decodeCount(), 1);

        // Another size is another entry, so it goes to the loader.
        Received other;
        manager.loadThumbnail(file, QString(), 76, nullptr, other.completion());
        QTRY_COMPARE(other.calls, 1);
        QCOMPARE(manager.decodeCount(), 2);

        // The photo reprocessed at the same path: the new picture, not the cached one.
        QVERIFY(writeJpeg(file, twoToneImage(300, 600, Qt::green, Qt::blue)));
        Received rewritten;
        QVERIFY(manager.loadThumbnail(file, QString(), 160, nullptr, rewritten.completion()) != 0);
        QTRY_COMPARE(rewritten.calls, 1);
        QCOMPARE(rewritten.result->image().size(), QSize(80, 160));
    }

    void textFileDeliversDecodeErrorOnTheMainThread()
    {
        const QString file = path(QStringLiteral("readme.txt"));
        QVERIFY(writeFile(file, QByteArray("plain text\n")));
        ThumbnailManager manager;
        QThread *deliveredOn = nullptr;
        std::optional<ThumbnailResult> result;
        manager.loadThumbnail(file, QString(), 76, nullptr, [&](const ThumbnailResult &r) {
            deliveredOn = QThread::currentThread();
            result = r;
        });
        QTRY_VERIFY(result.has_value());
        QCOMPARE(result->kind(), ThumbnailResult::Kind::DecodeError);
        QCOMPARE(deliveredOn, QThread::currentThread());
        QCOMPARE(manager.cache().count(), 0);
    }

    void newestRequestGoesFirstAndCancelledOnesAreNeverDecoded()
    {
        QStringList names;
        for (const char *name : { "a.jpg", "b.jpg", "c.jpg", "d.jpg", "e.jpg" }) {
            names.append(path(QString::fromLatin1(name)));
            QVERIFY(writeFile(names.last(), QByteArray("x")));
        }
        GatedDecoder gated;
        ThumbnailManager manager(gated.decoder());
        QList<Received> received(names.size());
        QList<ThumbnailManager::Ticket> tickets;
        tickets.append(manager.loadThumbnail(names[0], {}, 76, nullptr, received[0].completion()));
        QVERIFY(gated.entered.tryAcquire(1, 10000)); // the loader holds "a"
        for (int i = 1; i < names.size(); ++i)
            tickets.append(
                manager.loadThumbnail(names[i], {}, 76, nullptr, received[i].completion()));
        QCOMPARE(manager.pendingCount(), 4);
        QVERIFY(manager.cancel(tickets[2])); // "c" scrolled away before decoding
        QVERIFY(!manager.cancel(tickets[2])); // only once
        QVERIFY(!manager.cancel(tickets[0])); // "a" is already being decoded...
        gated.gate.release(100);
        QTRY_COMPARE(received[1].calls, 1);
        QTRY_COMPARE(received[3].calls, 1);
        QTRY_COMPARE(received[4].calls, 1);
        QCOMPARE(gated.decoded(),
                 (QStringList { QStringLiteral("a.jpg"), QStringLiteral("e.jpg"),
                                QStringLiteral("d.jpg"), QStringLiteral("b.jpg") }));
        QCOMPARE(received[2].calls, 0);
        QCOMPARE(received[0].calls, 0); // ...and its completion was dropped
        QVERIFY(manager.cache().contains(ThumbnailManager::cacheKey(names[0], 76)));
        QVERIFY(!manager.cache().contains(ThumbnailManager::cacheKey(names[2], 76)));
    }

    void goneContextGetsNoCallButTheImageIsCached()
    {
        const QString file = path(QStringLiteral("row.jpg"));
        QVERIFY(writeFile(file, QByteArray("x")));
        GatedDecoder gated;
        ThumbnailManager manager(gated.decoder());
        auto *row = new QObject;
        Received received;
        manager.loadThumbnail(file, {}, 76, row, received.completion());
        QVERIFY(gated.entered.tryAcquire(1, 10000));
        delete row;
        gated.gate.release();
        QTRY_VERIFY(manager.cache().contains(ThumbnailManager::cacheKey(file, 76)));
        // The loader is serial: once a later request is delivered, the first
        // one's delivery has been processed (and dropped) before it.
        const QString next = path(QStringLiteral("next-row.jpg"));
        QVERIFY(writeFile(next, QByteArray("x")));
        Received later;
        manager.loadThumbnail(next, {}, 76, nullptr, later.completion());
        gated.gate.release();
        QTRY_COMPARE(later.calls, 1);
        QCOMPARE(received.calls, 0);
    }

    void duplicateRequestsDecodeOnce()
    {
        const QString file = path(QStringLiteral("twice.jpg"));
        QVERIFY(writeJpeg(file, twoToneImage(600, 400, Qt::red, Qt::blue)));
        const QString blocker = path(QStringLiteral("blocker.jpg"));
        QVERIFY(writeFile(blocker, QByteArray("x")));
        GatedDecoder gated;
        ThumbnailManager manager([&gated](const QString &p, int size) {
            return p.endsWith(QLatin1String("blocker.jpg")) ? gated.decoder()(p, size)
                                                            : decodeThumbnail(p, size);
        });
        Received a, b, c;
        manager.loadThumbnail(blocker, {}, 76, nullptr, a.completion());
        QVERIFY(gated.entered.tryAcquire(1, 10000));
        manager.loadThumbnail(file, {}, 76, nullptr, b.completion());
        manager.loadThumbnail(file, {}, 76, nullptr, c.completion());
        gated.gate.release();
        QTRY_COMPARE(b.calls + c.calls, 2);
        QCOMPARE(manager.decodeCount(), 2); // the blocker and one of the two
        QCOMPARE(b.result->image(), c.result->image());
    }

private:
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QTemporaryDir m_dir;
};

ORVANTA_TEST_GUI_MAIN(ThumbnailsTest)
#include "tst_thumbnails.moc"
