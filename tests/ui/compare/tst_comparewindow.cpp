// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The compare window without OpenGL (offscreen platform): opening position,
// navigation, keyboard shortcuts, clean mode, the display badge and banner
// against the screen's headroom, the panel provider, and the window manager.
#include "app/ComparePanels.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "document/CountingReader.h"
#include "document/PhotoDocumentCache.h"
#include "hdr/UltraHdrFixtures.h"
#include "hdr/codec/UltraHdrWriter.h"
#include "ui/Theme.h"
#include "ui/compare/CompareToolbar.h"
#include "ui/compare/DisplayHeadroom.h"
#include "ui/compare/EdrGlSurface.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/compare/HDRCompareWindowManager.h"
#include "ui/history/HdrHistogramView.h"
#include "ui/history/InspectorView.h"
#include "ui/history/QuickPreviewWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QSignalSpy>
#include <QSlider>

#include <memory>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

PhotoRecord record(const QString &id, const QString &folder = {})
{
    PhotoRecord r;
    r.fingerprint = id;
    r.stem = u"IMG_"_s + id;
    r.status = u"SUCCESS"_s;
    if (!folder.isEmpty()) {
        r.jpgPath = folder + u"/"_s + id + u".JPG"_s;
        r.outputPath = folder + u"/"_s + id + u"_uhdr.jpg"_s;
    }
    return r;
}

// A camera JPEG at `jpgPath` and its Ultra HDR file at `uhdrPath`.
bool writePair(int width, int height, const QString &jpgPath, const QString &uhdrPath)
{
    const QByteArray sdr = test::encodeSdr(test::makeSdr(width, height));
    const QByteArray uhdr = encodeUltraHdr(QByteArrayView(sdr), test::makeHdr(sdr, false)).bytes;
    QFile camera(jpgPath), output(uhdrPath);
    return !uhdr.isEmpty() && camera.open(QIODevice::WriteOnly) && camera.write(sdr) == sdr.size()
        && output.open(QIODevice::WriteOnly) && output.write(uhdr) == uhdr.size();
}

// Plain labels in place of the history views' inspector and histogram.
struct LabelPanels : ComparePanelProvider
{
    QWidget *createInspector(AppViewModel &, QWidget *parent) override
    {
        return new QLabel(u"inspector"_s, parent);
    }
    void showInspectorRecord(QWidget *inspector, const PhotoRecord &r) override
    {
        static_cast<QLabel *>(inspector)->setText(r.stem);
    }
    QWidget *createHistogram(AppViewModel &, QWidget *parent) override
    {
        return new QLabel(u"histogram"_s, parent);
    }
    void showHistogramRecord(QWidget *histogram, const PhotoRecord &r,
                             const QString &hdrPath) override
    {
        static_cast<QLabel *>(histogram)->setText(
            r.peakStops ? hdrPath + u' ' + QString::number(*r.peakStops) : hdrPath);
    }
};

} // namespace

class TestCompareWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_model = std::make_unique<AppViewModel>();
        m_model->setCurrentLanguage(AppLanguage::English);
        displayheadroom::setOverride({});
    }
    void cleanup()
    {
        displayheadroom::setOverride({});
        m_model.reset();
    }

    void opensOnTheRecordsPositionOrTheFirst_data()
    {
        QTest::addColumn<QString>("opened");
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("count");
        QTest::newRow("third of three")
            << u"c"_s << QStringList { u"a"_s, u"b"_s, u"c"_s } << 2 << 3;
        QTest::newRow("not in the list") << u"x"_s << QStringList { u"a"_s, u"b"_s } << 0 << 2;
        QTest::newRow("empty list") << u"x"_s << QStringList {} << 0 << 1;
        QTest::newRow("only record") << u"a"_s << QStringList { u"a"_s } << 0 << 1;
    }
    void opensOnTheRecordsPositionOrTheFirst()
    {
        QFETCH(QString, opened);
        QFETCH(QStringList, list);
        QFETCH(int, index);
        QFETCH(int, count);
        QList<PhotoRecord> records;
        for (const QString &id : list)
            records.append(record(id));
        auto view = makeView(record(opened), records);
        QCOMPARE(view->currentIndex(), index);
        QCOMPARE(view->allRecords().size(), count);
        QCOMPARE(view->currentRecord().id(),
                 opened); // the opening record, even when not in the list
        QCOMPARE(view->findChild<QLabel *>(u"positionLabel"_s)->text(),
                 u"%1 / %2"_s.arg(index + 1).arg(count));
        QCOMPARE(view->findChild<QLabel *>(u"stemLabel"_s)->text(), u"IMG_"_s + opened);
        QCOMPARE(view->state(), CompareState());
        if (count == 1) { // alone: both ends at once
            QSignalSpy changed(view.get(), &HDRCompareView::recordChanged);
            view->showNextPhoto();
            view->showPreviousPhoto();
            QCOMPARE(changed.count(), 0);
            QVERIFY(!view->findChild<QAbstractButton *>(u"previousButton"_s)->isEnabled());
            QVERIFY(!view->findChild<QAbstractButton *>(u"nextButton"_s)->isEnabled());
        }
    }
    void navigationLoadsTheNewPair()
    {
        const QString folder = m_dir.path();
        QVERIFY(writePair(96, 64, folder + u"/a.JPG"_s, folder + u"/a_uhdr.jpg"_s));
        QVERIFY(writePair(64, 96, folder + u"/b.JPG"_s, folder + u"/b_uhdr.jpg"_s));
        const QList<PhotoRecord> records { record(u"a"_s, folder), record(u"b"_s, folder) };
        auto view = makeView(records.at(0), records);
        QCOMPARE(view->viewer()->currentHdrPath(), folder + u"/a_uhdr.jpg"_s);
        QTRY_COMPARE(view->viewer()->imageSize(), QSizeF(96, 64));
        view->showPreviousPhoto(); // at the start: nothing
        QCOMPARE(view->currentIndex(), 0);
        view->showNextPhoto();
        QCOMPARE(view->currentIndex(), 1);
        QCOMPARE(view->currentRecord().id(), u"b"_s);
        QCOMPARE(view->viewer()->currentSdrPath(), folder + u"/b.JPG"_s);
        QCOMPARE(view->viewer()->currentHdrPath(), folder + u"/b_uhdr.jpg"_s);
        QTRY_COMPARE(view->viewer()->imageSize(), QSizeF(64, 96));
        QVERIFY(!view->viewer()->sdrFromHdrFile());
        view->showNextPhoto(); // at the end: nothing
        QCOMPARE(view->currentIndex(), 1);
    }
    void missingFilesGiveNoPath()
    {
        PhotoRecord r = record(u"m"_s, m_dir.path());
        QVERIFY(writePair(32, 32, *r.jpgPath, m_dir.filePath(u"other.jpg"_s)));
        QCOMPARE(HDRCompareView::sdrPath(r), *r.jpgPath);
        QCOMPARE(HDRCompareView::hdrPath(r), QString()); // set, but nothing on disk
        r.jpgPath = u""_s;
        QCOMPARE(HDRCompareView::sdrPath(r), QString());
        r.jpgPath.reset();
        QCOMPARE(HDRCompareView::sdrPath(r), QString());
    }
    void keyboardShortcuts()
    {
        LabelPanels panels;
        const QList<PhotoRecord> records { record(u"a"_s), record(u"b"_s), record(u"c"_s) };
        auto view = makeView(records.at(1), records, &panels);
        view->show();
        QApplication::setActiveWindow(view.get());
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        QWidget *target = view->viewer();

        QTest::keyClick(target, Qt::Key_Z);
        QVERIFY(view->state().isZebraEnabled);
        QVERIFY(view->findChild<QAbstractButton *>(u"zebraButton"_s)->isChecked());
        QTest::keyClick(target, Qt::Key_Z);
        QVERIFY(!view->state().isZebraEnabled);

        QTest::keyClick(target, Qt::Key_H);
        QVERIFY(view->state().isHistogramPresented);
        QVERIFY(view->histogram()->isVisible());

        QCOMPARE(view->state().compareMode, EDRCompareMode::Split);
        QTest::keyClick(target, Qt::Key_Space);
        QCOMPARE(view->state().compareMode, EDRCompareMode::HdrOnly);
        QTest::keyClick(target, Qt::Key_Space);
        QCOMPARE(view->state().compareMode, EDRCompareMode::SdrOnly);
        QTest::keyClick(target, Qt::Key_Space);
        QCOMPARE(view->state().compareMode, EDRCompareMode::Split);

        QTest::keyClick(target, Qt::Key_Right);
        QCOMPARE(view->currentRecord().id(), u"c"_s);
        QTest::keyClick(target, Qt::Key_Right);
        QCOMPARE(view->currentRecord().id(), u"c"_s);
        QTest::keyClick(target, Qt::Key_Left);
        QTest::keyClick(target, Qt::Key_Left);
        QCOMPARE(view->currentRecord().id(), u"a"_s);

        QTest::keyClick(target, Qt::Key_Tab);
        QVERIFY(view->state().isCleanMode);
        QTest::keyClick(target, Qt::Key_Tab);
        QVERIFY(!view->state().isCleanMode);
    }
    void cleanModeLeavesOnlyThePicture()
    {
        LabelPanels panels;
        auto view = makeView(record(u"a"_s), {}, &panels);
        CompareState state;
        state.isInspectorPresented = true;
        state.isHistogramPresented = true;
        view->setState(state);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        const QStringList chrome { u"compareToolbar"_s, u"sdrBanner"_s, u"compareFooter"_s,
                                   u"sdrSideLabel"_s, u"hdrSideLabel"_s };
        for (const QString &name : chrome)
            QVERIFY2(view->findChild<QWidget *>(name)->isVisible(), qPrintable(name));
        QVERIFY(view->inspector()->isVisible() && view->histogram()->isVisible());
        state.isCleanMode = true;
        view->setState(state);
        for (const QString &name : chrome)
            QVERIFY2(!view->findChild<QWidget *>(name)->isVisible(), qPrintable(name));
        QVERIFY(!view->inspector()->isVisible() && !view->histogram()->isVisible());
        QVERIFY(view->viewer()->isVisible());
    }
    void dividerMovesWriteBackIntoTheWindowState()
    {
        auto view = makeView(record(u"a"_s), {});
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        EdrViewer *viewer = view->viewer();
        QTest::mousePress(viewer, Qt::LeftButton, {}, QPoint(viewer->width() / 4, 100));
        QCOMPARE(view->state().splitPosition, double(viewer->width() / 4) / viewer->width());
        QTest::mouseRelease(viewer, Qt::LeftButton, {}, QPoint(viewer->width() / 4, 100));
        QCOMPARE(viewer->settings().splitPosition, view->state().splitPosition);
    }
    void badgeAndBannerFollowTheHeadroom_data()
    {
        QTest::addColumn<double>("headroom");
        QTest::addColumn<bool>("hdrBadge");
        QTest::addColumn<bool>("rendererToneMaps");
        QTest::newRow("1.0: standard") << 1.0 << false << true;
        QTest::newRow("1.1: labelled standard, rendered as HDR") << 1.1 << false << false;
        QTest::newRow("1.2: still standard") << 1.2 << false << false;
        QTest::newRow("4.0: HDR") << 4.0 << true << false;
    }
    void badgeAndBannerFollowTheHeadroom()
    {
        QFETCH(double, headroom);
        QFETCH(bool, hdrBadge);
        QFETCH(bool, rendererToneMaps);
        displayheadroom::setOverride([headroom] { return headroom; });
        auto view = makeView(record(u"a"_s), {});
        CompareState state;
        state.sdrToneMapMode = SDRToneMapMode::FilmicRollOff;
        view->setState(state);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        QCOMPARE(view->findChild<QLabel *>(u"displayBadge"_s)->text(),
                 m_model->t(hdrBadge ? "edr_badge_xdr" : "edr_badge_sdr"));
        QCOMPARE(view->findChild<QWidget *>(u"sdrBanner"_s)->isVisible(), !hdrBadge);
        QCOMPARE(view->viewer()->frameState({ 100, 100 }).filmic, rendererToneMaps);
    }
    void withoutProviderPanelTogglesAreHidden()
    {
        auto view = makeView(record(u"a"_s), {});
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        QVERIFY(!view->findChild<QWidget *>(u"histogramButton"_s)->isVisible());
        QVERIFY(!view->findChild<QWidget *>(u"inspectorButton"_s)->isVisible());
        QVERIFY(view->findChild<QWidget *>(u"zebraButton"_s)->isVisible());
        QTest::keyClick(view->viewer(), Qt::Key_H);
        QVERIFY(!view->state().isHistogramPresented);
    }
    void providerPanelsFollowTheCurrentRecord()
    {
        LabelPanels panels;
        const QString folder = m_dir.path();
        QVERIFY(writePair(32, 32, folder + u"/b.JPG"_s, folder + u"/b_uhdr.jpg"_s));
        QList<PhotoRecord> records { record(u"a"_s), record(u"b"_s, folder) };
        records[1].peakStops = 2.5; // known only to the compare window, not the main list
        auto view = makeView(records.at(0), records, &panels);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto *inspector = qobject_cast<QLabel *>(view->inspector());
        auto *histogram = qobject_cast<QLabel *>(view->histogram());
        QVERIFY(inspector && histogram);
        QVERIFY(!inspector->isVisible());
        QCOMPARE(inspector->text(), u"IMG_a"_s);
        QCOMPARE(histogram->text(), QString()); // no HDR file for "a"
        view->findChild<QAbstractButton *>(u"inspectorButton"_s)->click();
        QVERIFY(view->state().isInspectorPresented);
        QVERIFY(inspector->isVisible());
        view->showNextPhoto();
        QCOMPARE(inspector->text(), u"IMG_b"_s);
        QCOMPARE(histogram->text(), folder + u"/b_uhdr.jpg 2.5"_s);
    }
    void aPhotoIsReadOnceByEveryView()
    {
        const QString folder = m_dir.path();
        QVERIFY(writePair(48, 32, folder + u"/r.JPG"_s, folder + u"/r_uhdr.jpg"_s));
        PhotoRecord r = record(u"r"_s, folder);
        r.peakStops = 2.0;
        auto reader = std::make_shared<test::CountingReader>();
        PhotoDocumentCache::shared().setReader(reader);
        // The compare window with the history's panels, the history tab's own
        // inspector and the quick preview (asked twice), all on one record.
        HistoryComparePanels panels;
        auto view = makeView(r, { r, record(u"x"_s) }, &panels);
        InspectorView sidePanel(*m_model);
        QSignalSpy sideLoaded(&sidePanel, &InspectorView::loaded);
        QSignalSpy compareLoaded(view->inspector(), SIGNAL(loaded()));
        sidePanel.setRecord(r);
        QuickPreviewWindow preview(*m_model);
        preview.showFile(*r.outputPath, r.stem);
        preview.showFile(*r.outputPath, r.stem);
        const auto *histogram = qobject_cast<HdrHistogramView *>(view->histogram());
        QTRY_VERIFY(sideLoaded.size() == 1 && compareLoaded.size() == 1 && preview.hasImage());
        QTRY_VERIFY(!view->viewer()->isLoading() && !histogram->isCalculating()
                    && !sidePanel.histogram()->isCalculating());
        view->showNextPhoto();
        view->showPreviousPhoto(); // back to a photo already decoded
        QTRY_VERIFY(!view->viewer()->isLoading());
        QCOMPARE(view->viewer()->imageSize(), QSizeF(48, 32));
        QCOMPARE(histogram->histogramData().lumaBins,
                 computeHistogram(*r.outputPath, 2.0)->lumaBins);
        for (int stage = 0; stage < 6; ++stage)
            QVERIFY2(reader->reads[stage] == 1, qPrintable(QString::number(stage)));
        PhotoDocumentCache::shared().setReader({});
    }
    void managerOpensAFreshWindowEachTime()
    {
        auto &manager = HDRCompareWindowManager::shared();
        const QList<PhotoRecord> records { record(u"a"_s), record(u"b"_s) };
        manager.open(*m_model, records.at(1), records);
        QPointer<HDRCompareView> first = manager.currentWindow();
        QVERIFY(first);
        QVERIFY(QTest::qWaitForWindowExposed(first));
        QCOMPARE(first->windowTitle(), u"Orvanta • IMG_b (HDR)"_s);
        // Fitted to the screen (the offscreen one is small), whole and centred.
        const QRect available = first->screen()->availableGeometry();
        QVERIFY(first->size().width() <= HDRCompareView::kDefaultSize.width());
        QVERIFY(available.contains(first->frameGeometry()));
        QVERIFY(first->minimumSize().width() <= available.width()
                && first->minimumSize().height() <= available.height());
        QCOMPARE(first->currentIndex(), 1);
        CompareState changed;
        changed.isZebraEnabled = true;
        first->setState(changed);

        manager.open(*m_model, records.at(0), records);
        QPointer<HDRCompareView> second = manager.currentWindow();
        QVERIFY(second && second != first);
        QVERIFY(first); // the earlier window stays open
        QCOMPARE(second->state(), CompareState()); // fresh state on every opening
        QCOMPARE(second->windowTitle(), u"Orvanta • IMG_a (HDR)"_s);
        second->close();
        QTRY_VERIFY(!second); // closing gives the window (and its textures) back
        QVERIFY(!manager.currentWindow());
        first->close();
        QTRY_VERIFY(!first);
    }
    void viewerSaysSoWithoutOpenGl()
    {
        auto view = makeView(record(u"a"_s), {});
        QVERIFY(!EdrViewer::openGlAvailable()); // offscreen
        QVERIFY(!view->viewer()->isDrawing());
        QVERIFY(!view->viewer()->findChild<EdrGlSurface *>());
        auto *notice = view->viewer()->findChild<QLabel *>(u"edrNoGl"_s);
        QVERIFY(notice);
        QCOMPARE(notice->text(), m_model->t("edr_no_gl"));
    }
    void languageChangeRetranslates()
    {
        auto view = makeView(record(u"a"_s), {});
        auto *split = view->findChild<QAbstractButton *>(u"mode_edr_mode_split"_s);
        QCOMPARE(split->text(), u"Split View"_s);
        QSet<QString> modes; // each mode button says which mode it is
        for (const QAbstractButton *button : view->findChildren<QAbstractButton *>()) {
            if (button->objectName().startsWith(u"mode_"))
                modes << button->text();
        }
        QCOMPARE(modes.size(), 3);
        m_model->setCurrentLanguage(AppLanguage::German);
        QCOMPARE(split->text(), m_model->t("edr_mode_split"));
        QVERIFY(split->text() != u"Split View"_s);
        QCOMPARE(view->findChild<QLabel *>(u"sdrSideLabel"_s)->text(), m_model->t("edr_label_sdr"));
    }
    void toolbarFitsAtTheDefaultWidthInEveryLanguage_data()
    {
        QTest::addColumn<AppLanguage>("language");
        QTest::addColumn<double>("headroom");
        for (AppLanguage language : allAppLanguages()) {
            if (language == AppLanguage::System)
                continue;
            QTest::addRow("%s sdr", qPrintable(rawValue(language))) << language << 1.0;
            QTest::addRow("%s hdr", qPrintable(rawValue(language))) << language << 4.0;
        }
    }
    void toolbarFitsAtTheDefaultWidthInEveryLanguage()
    {
        QFETCH(AppLanguage, language);
        QFETCH(double, headroom);
        m_model->setCurrentLanguage(language);
        // The application's own look: its paddings and fonts decide the widths.
        theme::apply(*qApp, rawValue(language));
        displayheadroom::setOverride([headroom] { return headroom; });
        LabelPanels panels;
        auto view = makeView(record(u"a"_s), {}, &panels);
        view->resize(HDRCompareView::kDefaultSize);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto *toolbar = view->findChild<CompareToolbar *>();
        // No control squeezed below what its text (or its icon) needs.
        const auto checkWidths = [&] {
            for (QWidget *control : toolbar->findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
                if (!control->isVisible())
                    continue;
                const int needed = qobject_cast<QLabel *>(control)
                    ? control->minimumSizeHint().width()
                    : control->sizeHint().width();
                QVERIFY2(control->width() >= needed,
                         qPrintable(u"%1 \"%2\" is %3 px of %4"_s.arg(
                             control->objectName(), control->property("text").toString(),
                             QString::number(control->width()), QString::number(needed))));
            }
        };
        checkWidths();
        QVERIFY(!toolbar->isCompact());
        // A smaller screen: icons with tooltips take the place of long texts.
        QVERIFY(toolbar->minimumWidth() < toolbar->sizeHint().width());
        if (toolbar->minimumWidth() <= view->screen()->availableGeometry().width()) {
            view->resize(view->minimumWidth(), 700);
            QTRY_VERIFY(toolbar->isCompact());
            toolbar->layout()->activate();
            checkWidths();
        }
        m_model->setCurrentLanguage(AppLanguage::English);
        theme::apply(*qApp, u"en"_s);
    }
    void thresholdAndHeadroomControlsDriveTheViewer()
    {
        auto view = makeView(record(u"a"_s), {});
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto *zebra = view->findChild<QSlider *>(u"zebraThreshold"_s);
        QCOMPARE(zebra->minimum(), 5); // 0.5 ... 4.0 in tenths
        QCOMPARE(zebra->maximum(), 40);
        zebra->setValue(25);
        QCOMPARE(view->state().zebraThreshold, 2.5f);
        QCOMPARE(view->viewer()->settings().zebraThreshold, 2.5f);
        view->findChild<QCheckBox *>(u"shadowZebra"_s)->setChecked(true);
        view->findChild<QSlider *>(u"shadowThreshold"_s)->setValue(10);
        QVERIFY(view->viewer()->settings().shadowZebraEnabled);
        QCOMPARE(view->viewer()->settings().shadowThreshold, 0.1f);

        // The simulated headroom only applies to the filmic view.
        auto *headroom = view->findChild<QSlider *>(u"simulatedHeadroom"_s);
        QVERIFY(!headroom->isEnabled());
        view->findChild<QAbstractButton *>(u"toneMap_sdr_mode_filmic"_s)->click();
        QCOMPARE(view->state().sdrToneMapMode, SDRToneMapMode::FilmicRollOff);
        QVERIFY(headroom->isEnabled());
        headroom->setValue(30);
        QCOMPARE(view->state().simulatedHeadroom, 3.0);
        const EdrFrameState frame = view->viewer()->frameState({ 100, 100 });
        QVERIFY(frame.filmic);
        QCOMPARE(frame.filmicGain, float(1.0 / 3.0));
        QCOMPARE(view->findChild<QLabel *>(u"toneMapHint"_s)->text(),
                 m_model->t("sdr_mode_filmic_hint"));
    }
    void pixelReadoutShowsTheValueUnderThePointer()
    {
        auto view = makeView(record(u"a"_s), {});
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto *label = view->findChild<QLabel *>(u"pixelReadout"_s);
        QVERIFY(!label->isVisible());
        Q_EMIT view->viewer()->pixelReadoutChanged(
            EdrPixelReadout { { 12, 34 }, { 2.5f, 1.25f, 0.5f, 1.0f } });
        QVERIFY(label->isVisible());
        const double stops = std::log2(0.2126 * 2.5 + 0.7152 * 1.25 + 0.0722 * 0.5);
        QCOMPARE(label->text(), m_model->t("edr_pixel_readout", { 12, 34, 2.5, 1.25, 0.5, stops }));
        QVERIFY(label->text().contains(u"2.500"_s));
        Q_EMIT view->viewer()->pixelReadoutChanged(std::nullopt);
        QVERIFY(!label->isVisible());
    }
    void pixelReadoutKeepsClearOfTheHistogram()
    {
        LabelPanels panels;
        auto view = makeView(record(u"a"_s), {}, &panels);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view.get()));
        auto *histogram = qobject_cast<QLabel *>(view->histogram());
        // A histogram as wide as the real one's legend reaches into the corner.
        histogram->setMinimumSize(view->viewer()->width() * 3 / 4, 120);
        view->findChild<QAbstractButton *>(u"histogramButton"_s)->click();
        QVERIFY(histogram->isVisible());
        Q_EMIT view->viewer()->pixelReadoutChanged(
            EdrPixelReadout { { 4000, 3000 }, { 12.5f, 11.25f, 10.5f, 1.0f } });
        auto *label = view->findChild<QLabel *>(u"pixelReadout"_s);
        QVERIFY(label->isVisible());
        QVERIFY(!label->geometry().intersects(histogram->geometry()));
        QVERIFY(view->viewer()->rect().contains(label->geometry()));
    }

private:
    std::unique_ptr<HDRCompareView> makeView(const PhotoRecord &r, const QList<PhotoRecord> &list,
                                             ComparePanelProvider *provider = nullptr)
    {
        auto view = std::make_unique<HDRCompareView>(*m_model, r, list, provider);
        view->resize(1100, 750);
        return view;
    }

    std::unique_ptr<AppViewModel> m_model;
    QTemporaryDir m_dir;
};

ORVANTA_TEST_WIDGETS_MAIN(TestCompareWindow)
#include "tst_comparewindow.moc"
