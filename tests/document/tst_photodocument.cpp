// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The shared photo document: each stage read once however many ask, a broken
// file a defined empty state, a rewritten file a new document, and the cache
// bound by decoded bytes.

#include "common/TestEnvironment.h"
#include "document/CountingReader.h"
#include "document/PhotoDocumentCache.h"
#include "hdr/UltraHdrFixtures.h"
#include "hdr/codec/UltraHdrWriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

QByteArray ultraHdrBytes(int width, int height)
{
    const QByteArray sdr = test::encodeSdr(test::makeSdr(width, height));
    return encodeUltraHdr(sdr, test::makeHdr(sdr, false)).bytes;
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Loads `key` and waits until it has loaded or failed.
bool loadAndWait(PhotoDocument &document, StageKey key)
{
    QObject context;
    bool done = false;
    document.load(key, &context, [&] { done = true; });
    return QTest::qWaitFor([&] { return done; });
}

const PhotoStage kAllStages[]
    = { PhotoStage::Metadata,     PhotoStage::GainMap,   PhotoStage::SdrRendition,
        PhotoStage::HdrRendition, PhotoStage::Histogram, PhotoStage::Preview };

StageKey keyOf(PhotoStage stage)
{
    if (stage == PhotoStage::Histogram)
        return StageKey::histogram(2.5);
    return stage == PhotoStage::Preview ? StageKey::preview({ 64, 64 }) : StageKey(stage);
}

} // namespace

class PhotoDocumentTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_dir.isValid()); }

    void eachStageIsReadOnceForEveryone()
    {
        const QString path = m_dir.filePath(u"once.jpg"_s);
        QVERIFY(write(path, ultraHdrBytes(96, 64)));
        auto reader = std::make_shared<test::CountingReader>();
        PhotoDocumentCache cache(reader);
        QObject first, second, gone;
        int calls = 0;
        for (PhotoStage stage : kAllStages) {
            // Two views ask while the read is under way, a third asks and goes away.
            cache.document(path)->load(keyOf(stage), &first, [&] { ++calls; });
            cache.document(path)->load(keyOf(stage), &second, [&] { ++calls; });
            auto *leaving = new QObject;
            cache.document(path)->load(keyOf(stage), leaving, [&] { ++calls; });
            delete leaving;
        }
        QTRY_COMPARE(calls, 12);
        const std::shared_ptr<PhotoDocument> document = cache.document(path);
        for (PhotoStage stage : kAllStages) {
            QCOMPARE(document->status(keyOf(stage)), StageStatus::Loaded);
            document->load(keyOf(stage), &first, [&] { ++calls; }); // answered at once
            QCOMPARE(reader->count(stage), 1);
        }
        QCOMPARE(calls, 18);
        QCOMPARE(document->gainMap().kind, u"ISO 21496-1"_s);
        QCOMPARE(document->rendition(true).image.size(), QSize(96, 64));
        QVERIFY(document->rendition(true).gainMapIssue.isEmpty());
        QCOMPARE(document->histogram(2.5).lumaBins, computeHistogram(path, 2.5)->lumaBins);
        QCOMPARE(document->metadata().fileSizeBytes, QFileInfo(path).size());
        // Another peak is another histogram; an absent peak counts as 0.
        QVERIFY(loadAndWait(*document, StageKey::histogram(std::nullopt)));
        QVERIFY(loadAndWait(*document, StageKey::histogram(0.0)));
        QCOMPARE(reader->count(PhotoStage::Histogram), 2);
    }

    void aBrokenFileFailsEveryStageEmpty()
    {
        const QString cut = m_dir.filePath(u"cut.jpg"_s);
        QVERIFY(write(cut, ultraHdrBytes(96, 64).first(300)));
        PhotoDocumentCache cache;
        for (const QString &path : { cut, m_dir.filePath(u"missing.jpg"_s), QString() }) {
            const std::shared_ptr<PhotoDocument> document = cache.document(path);
            for (PhotoStage stage : kAllStages) {
                if (path == cut && stage == PhotoStage::Metadata)
                    continue; // its header still reads: the inspector shows what there is
                QVERIFY(loadAndWait(*document, keyOf(stage)));
                QCOMPARE(document->status(keyOf(stage)), StageStatus::Failed);
                QVERIFY2(!document->error(keyOf(stage)).isEmpty(), qPrintable(path));
            }
            QVERIFY(!document->gainMap().present);
            QVERIFY(document->rendition(false).image.isNull());
            QVERIFY(document->histogram(2.5).isEmpty());
            QCOMPARE(document->decodedBytes(), 0);
        }
    }

    void aRewrittenFileIsANewDocument()
    {
        const QString path = m_dir.filePath(u"rerun.jpg"_s);
        QVERIFY(write(path, ultraHdrBytes(96, 64)));
        auto reader = std::make_shared<test::CountingReader>();
        PhotoDocumentCache cache(reader);
        const std::shared_ptr<PhotoDocument> before = cache.document(path);
        QVERIFY(loadAndWait(*before, PhotoStage::SdrRendition));
        QCOMPARE(cache.document(path), before);
        QVERIFY(write(path, ultraHdrBytes(48, 32))); // the engine wrote it again
        const std::shared_ptr<PhotoDocument> after = cache.document(path);
        QVERIFY(after != before);
        QVERIFY(loadAndWait(*after, PhotoStage::SdrRendition));
        QCOMPARE(after->rendition(false).image.size(), QSize(48, 32));
        QCOMPARE(before->rendition(false).image.size(), QSize(96, 64)); // its holder keeps it
        QCOMPARE(reader->count(PhotoStage::SdrRendition), 2);
    }

    void theBoundEvictsOldDocumentsNoViewHolds()
    {
        PhotoDocumentCache cache;
        const qint64 one = 96 * 64 * 8; // RGBA half floats
        cache.setMaxBytes(2 * one);
        QStringList paths;
        for (int i = 0; i < 4; ++i) {
            paths << m_dir.filePath(u"bound%1.jpg"_s.arg(i));
            QVERIFY(write(paths.last(), ultraHdrBytes(96, 64)));
        }
        const std::shared_ptr<PhotoDocument> held = cache.document(paths[0]);
        QVERIFY(loadAndWait(*held, PhotoStage::SdrRendition));
        for (int i = 1; i < 4; ++i)
            QVERIFY(loadAndWait(*cache.document(paths[i]), PhotoStage::SdrRendition));
        // The held one stays although it is the oldest; of the others only the newest fits.
        QCOMPARE(cache.decodedBytes(), 2 * one);
        QCOMPARE(cache.documentCount(), 2);
        QCOMPARE(cache.document(paths[0]), held);
        QCOMPARE(cache.document(paths[3])->status(PhotoStage::SdrRendition), StageStatus::Loaded);
        QCOMPARE(cache.document(paths[2])->status(PhotoStage::SdrRendition),
                 StageStatus::NotLoaded);
    }

private:
    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(PhotoDocumentTest)
#include "tst_photodocument.moc"
