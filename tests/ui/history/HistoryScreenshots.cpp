// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Takes the screenshots of the history tab: a private home with generated
// camera photos and Ultra HDR outputs, a real state database that points at
// them, and the real main window on the history tab.
//
//   orvanta_history_screenshot --shot history|inspector|histogram-luma|histogram-rgb
//                              --lang en|de|fr|es|ja|zh-Hans|zh-Hant --out FILE.png
#include "common/ScreenshotSupport.h"
#include "core/AppViewModel.h"
#include "hdr/UltraHdrFixtures.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "i18n/LocalizationService.h"
#include "ui/MainWindow.h"
#include "ui/Theme.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/HistoryTableModel.h"
#include "ui/history/HistoryView.h"
#include "ui/history/HistoryViewFixtures.h"
#include "ui/history/InspectorView.h"
#include "ui/history/RowMediaStore.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDeadlineTimer>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QTableView>
#include <QThread>
#include <QVBoxLayout>

#include <cmath>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

void settle()
{
    test::pumpEvents(300);
}

// A small landscape: sky, sun, two mountain ridges and water, in a hue of its own.
QImage landscape(int index, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB888);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const int hue = (index * 37 + 190) % 360;
    QLinearGradient sky(0, 0, 0, height * 0.6);
    sky.setColorAt(0, QColor::fromHsv(hue, 140, 150));
    sky.setColorAt(1, QColor::fromHsv((hue + 30) % 360, 90, 245));
    p.fillRect(image.rect(), sky);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 244, 214));
    const double sunX = width * (0.2 + 0.6 * std::fmod(index * 0.37, 1.0));
    p.drawEllipse(QPointF(sunX, height * 0.28), height * 0.09, height * 0.09);
    for (int ridge = 0; ridge < 2; ++ridge) {
        QPainterPath path(QPointF(0, height));
        for (int x = 0; x <= width; x += width / 12) {
            const double y = height * (0.45 + 0.12 * ridge)
                - height * 0.12 * std::sin(x * 0.013 * (ridge + 1) + index);
            path.lineTo(x, y);
        }
        path.lineTo(width, height);
        p.setBrush(QColor::fromHsv((hue + 180) % 360, 80, ridge ? 70 : 110));
        p.drawPath(path);
    }
    QLinearGradient water(0, height * 0.75, 0, height);
    water.setColorAt(0, QColor::fromHsv(hue, 120, 120));
    water.setColorAt(1, QColor::fromHsv(hue, 160, 50));
    p.fillRect(QRectF(0, height * 0.78, width, height * 0.22), water);
    return image;
}

struct Library
{
    QString firstUltraHdr;
};

// Thirty photos of a trip: camera JPEGs with Exif, Ultra HDR outputs for the
// successful ones, a few failures, one output moved away.
Library writeLibrary(const QString &root)
{
    Library library;
    auto db = freshDatabase();
    for (int i = 0; i < 30; ++i) {
        const QString stem = u"DSC0%1"_s.arg(4201 + i);
        const QString jpg = root + u"/Lofoten/"_s + stem + u".JPG"_s;
        const QImage picture = landscape(i, 480, 320);
        QDir().mkpath(root + u"/Lofoten"_s);
        writeJpeg(jpg, picture);
        writeExif(
            jpg,
            { { "Exif.Image.Make", "Ascii", u"SONY"_s },
              { "Exif.Image.Model", "Ascii", i % 3 ? u"ILCE-7RM5"_s : u"ILCE-1"_s },
              { "Exif.Photo.LensModel", "Ascii",
                i % 2 ? u"FE 24-70mm F2.8 GM II"_s : u"FE 16-35mm F2.8 GM"_s },
              { "Exif.Photo.FNumber", "Rational", u"%1/10"_s.arg(28 + (i % 4) * 12) },
              { "Exif.Photo.ExposureTime", "Rational", u"1/%1"_s.arg(60 << (i % 5)) },
              { "Exif.Photo.ISOSpeedRatings", "Short", QString::number(100 << (i % 4)) },
              { "Exif.Photo.FocalLength", "Rational", u"%1/1"_s.arg(16 + i * 2) },
              { "Exif.Photo.ExposureBiasValue", "SRational", u"%1/10"_s.arg((i % 5) * 3 - 6) },
              { "Exif.Photo.DateTimeOriginal", "Ascii",
                u"2026:10:%1 %2:%3:07"_s.arg(12 + i / 10)
                    .arg(7 + i % 10, 2, 10, QChar(u'0'))
                    .arg(i * 2 % 60, 2, 10, QChar(u'0')) } });
        const bool failed = i == 4 || i == 17 || i == 23;
        Row row { .fingerprint = u"fp%1"_s.arg(i),
                  .stem = stem,
                  .status = failed ? u"FAILED"_s : u"SUCCESS"_s,
                  .processedAt = u"2026-10-14T09:%1:00"_s.arg(59 - i, 2, 10, QChar(u'0')),
                  .rawPath = root + u"/Lofoten/"_s + stem + u".ARW"_s,
                  .jpgPath = jpg,
                  .durationSec = 4.2 + (i % 7) * 0.83,
                  .rating = qint64(i % 6) };
        if (failed) {
            row.errorMessage = u"LibRaw: data corrupted near offset 0x3f2a10 (truncated ARW?)"_s;
        } else {
            QFile source(jpg);
            source.open(QIODevice::ReadOnly);
            const QByteArray sdr = source.readAll();
            const UltraHdrEncodeResult encoded = encodeUltraHdr(sdr, makeHdr(sdr, i % 2 == 0));
            const QString out = root + u"/Ultra HDR/"_s + stem + u"_hdr.jpg"_s;
            QDir().mkpath(root + u"/Ultra HDR"_s);
            if (i != 9) // this one was moved: the row falls back to the camera JPEG
                writeFile(out, encoded.bytes);
            if (library.firstUltraHdr.isEmpty() && i == 2)
                library.firstUltraHdr = out;
            row.outputPath = out;
            row.peakStops = 1.2 + std::fmod(i * 0.61, 2.3);
            row.numFaces = i % 4 == 1 ? 2 : (i % 5 == 0 ? 1 : 0);
            row.rawClipPct = 0.004 * (i % 9);
        }
        db->insert(row);
    }
    return library;
}

} // namespace

int main(int argc, char *argv[])
{
    TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);

    QCommandLineParser parser;
    parser.addOption({ u"shot"_s, u"What to show"_s, u"shot"_s, u"history"_s });
    parser.addOption({ u"lang"_s, u"Language code"_s, u"code"_s, u"en"_s });
    parser.addOption({ u"out"_s, u"PNG file"_s, u"file"_s, u"history.png"_s });
    parser.process(app);
    const QString shot = parser.value(u"shot"_s);
    const AppLanguage language
        = appLanguageFromRawValue(parser.value(u"lang"_s)).value_or(AppLanguage::English);

    const Library library = writeLibrary(environment.home() + u"/Pictures"_s);
    LocalizationService::shared().setCurrentLanguage(language);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setCurrentLanguage(language);
    // Folders as a photographer would have them (they only label the fields).
    model.setSourceDir(u"/home/anna/Pictures/2026-10 Lofoten"_s);
    model.setDestDir(u"/home/anna/Pictures/Ultra HDR"_s);
    model.setVisibleColumns({ ListColumn::PeakStops, ListColumn::Exposure, ListColumn::CameraLens,
                              ListColumn::Faces, ListColumn::Duration });

    if (shot.startsWith(u"histogram"_s)) {
        QWidget frame;
        frame.setObjectName(u"histogramFrame"_s);
        frame.setStyleSheet(
            u"QWidget#histogramFrame { background: %1; }"_s.arg(theme::css(theme::kSurface)));
        auto *layout = new QVBoxLayout(&frame);
        layout->setContentsMargins(16, 14, 16, 14);
        auto *view = new HdrHistogramView(model, &frame);
        layout->addWidget(view);
        frame.resize(460, 210);
        frame.show();
        view->setChannelMode(shot.endsWith(u"rgb"_s) ? HistogramChannelMode::Rgb
                                                     : HistogramChannelMode::Luma);
        view->setFile(library.firstUltraHdr, 2.42);
        waitFor([&] { return !view->isCalculating(); }, 20000);
        settle();
        return frame.grab().save(parser.value(u"out"_s)) ? 0 : 1;
    }

    MainWindow window(model);
    auto *history = new HistoryView(model);
    history->setCompareOpener([](const PhotoRecord &, const QList<PhotoRecord> &) {});
    window.setHistoryView(history);
    model.setSelectedTab(1);
    window.resize(shot == u"inspector"_s ? 1440 : 1180, 1040);
    window.show();
    if (!waitFor([&] { return history->tableModel()->rowCount() == 30; }, 20000)) {
        qWarning("the history did not load");
        return 1;
    }
    model.toggleRecordSelection(u"fp1"_s);
    model.toggleRecordSelection(u"fp3"_s);
    if (shot == u"inspector"_s) {
        const PhotoRecord record
            = history->tableModel()->record(history->tableModel()->rowOf(u"fp2"_s));
        history->openInspector(record);
        waitFor([&] { return !history->inspector()->histogram()->isCalculating(); }, 20000);
    }
    // Let the thumbnails and metadata of the visible rows arrive.
    settle();
    waitFor(
        [&] {
            return history->mediaStore()->pendingThumbnails() == 0
                && history->mediaStore()->pendingMetadata() == 0;
        },
        20000);
    QTableView *table = history->tableView();
    const QRect row = table->visualRect(history->tableModel()->index(5, 1));
    QTest::mouseMove(table->viewport(), row.center());
    settle();
    const QString out = parser.value(u"out"_s);
    if (shot == u"inspector"_s) {
        // The whole panel as well, beyond what the window's height shows.
        QString panel = out;
        panel.replace(u".png"_s, u"-panel.png"_s);
        if (!history->inspector()->grab().save(panel))
            return 1;
    }
    return window.grab().save(out) ? 0 : 1;
}
