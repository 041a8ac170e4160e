// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Screenshots of the compare window on a generated Ultra HDR photo (run
// under xvfb-run): split view, zebra, zoomed with the pixel readout, and the
// filmic view on a standard display. Not a test: it only draws.
#include "CompareScene.h"
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/Theme.h"
#include "ui/compare/EdrViewer.h"
#include "ui/compare/HDRCompareView.h"
#include "ui/compare/HDRCompareWindowManager.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QtTest>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

PhotoRecord sceneRecord(const QString &folder, const QString &stem)
{
    PhotoRecord record;
    record.fingerprint = stem;
    record.stem = stem;
    record.jpgPath = folder + u"/"_s + stem + u".JPG"_s;
    record.outputPath = folder + u"/"_s + stem + u"_uhdr.jpg"_s;
    record.status = u"SUCCESS"_s;
    record.peakStops = 3.32;
    record.rating = 4;
    return record;
}

bool save(QWidget *window, const QString &path)
{
    QApplication::processEvents();
    const bool saved = window->grab().save(path);
    qInfo("%s %s", qPrintable(path), saved ? "saved" : "NOT saved");
    return saved;
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCommandLineParser parser;
    parser.addOption({ u"lang"_s, u"Language code"_s, u"code"_s, u"en"_s });
    parser.addOption({ u"out"_s, u"Folder for the PNG files"_s, u"dir"_s, u"."_s });
    parser.process(app);
    const AppLanguage language
        = appLanguageFromRawValue(parser.value(u"lang"_s)).value_or(AppLanguage::English);
    const QString out = parser.value(u"out"_s);
    const QString suffix
        = language == AppLanguage::English ? QString() : u"_"_s + parser.value(u"lang"_s);

    LocalizationService::shared().setCurrentLanguage(language);
    theme::apply(app, LocalizationService::shared().effectiveLanguageCode());
    AppViewModel model;
    model.setCurrentLanguage(language);

    const QString folder = environment.home();
    const PhotoRecord record = sceneRecord(folder, u"DSC04187"_s);
    if (!test::writeScene(2400, 1600, *record.jpgPath, *record.outputPath))
        return 1;
    HDRCompareWindowManager::shared().open(model, record,
                                           { sceneRecord(folder, u"DSC04186"_s), record });
    HDRCompareView *view = HDRCompareWindowManager::shared().currentWindow();
    if (!QTest::qWaitForWindowExposed(view))
        return 1;
    QSignalSpy loaded(view->viewer(), &EdrViewer::picturesLoaded);
    if (!loaded.wait(30000))
        return 1;
    QTest::qWait(300); // let the upload frame reach the screen

    bool ok = save(view, out + u"/compare_split"_s + suffix + u".png"_s);
    CompareState state = view->state();
    state.isZebraEnabled = true;
    state.zebraThreshold = 1.5f;
    view->setState(state);
    ok &= save(view, out + u"/compare_zebra"_s + suffix + u".png"_s);

    state.isZebraEnabled = false;
    state.compareMode = EDRCompareMode::HdrOnly;
    view->setState(state);
    EdrViewer *viewer = view->viewer();
    const QPointF centre(viewer->width() * 0.62, viewer->height() * 0.42);
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                              centre, centre, viewer->mapToGlobal(centre), 2.0, {});
    QApplication::sendEvent(viewer, &pinch);
    QTest::mouseMove(viewer, (centre + QPointF(40, -30)).toPoint());
    ok &= save(view, out + u"/compare_zoom_readout"_s + suffix + u".png"_s);

    QTest::mouseDClick(viewer, Qt::LeftButton, {}, centre.toPoint()); // back to the fitted view
    state.compareMode = EDRCompareMode::Split;
    state.sdrToneMapMode = SDRToneMapMode::FilmicRollOff;
    state.simulatedHeadroom = 2.0;
    state.splitPosition = 0.45;
    view->setState(state);
    ok &= save(view, out + u"/compare_filmic"_s + suffix + u".png"_s);
    return ok ? 0 : 1;
}
