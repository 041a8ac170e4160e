// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Frame times of the compare window's OpenGL viewer on a 24-megapixel pair:
// dragging the divider across the picture, and panning at 5x. Each frame is
// one input event followed by a synchronous repaint that waits for the GPU.
// Before them, the time from handing the viewer a decoded pair to its first
// frame and to its full resolution on the GPU, for a first pair and for a
// next one of the same size. Run under a real X server:
//   xvfb-run -a -s "-screen 0 1920x1080x24" build/bench/compare/bench_compareviewer [WIDTH HEIGHT]
//   [FRAMES]
// defaults 6000 4000 120
#include "../../tools/screenshots/CompareScene.h"
#include "core/AppViewModel.h"
#include "ui/compare/EdrGlSurface.h"
#include "ui/compare/EdrViewer.h"
#include "ui/compare/HDRCompareView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

struct Figures
{
    double median, p90, worst;
};

Figures figures(std::vector<double> ms)
{
    std::sort(ms.begin(), ms.end());
    return { ms[ms.size() / 2], ms[ms.size() * 9 / 10], ms.back() };
}

void send(QWidget *target, QEvent::Type type, QPointF at)
{
    QMouseEvent event(type, at, target->mapToGlobal(at), Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(target, &event);
}

// Moves the pointer along `path` with the button held, one timed frame per point.
std::vector<double> g_paintMs;
std::vector<double> g_cpuMs;

// CPU time of this process on all its threads (llvmpipe draws on several):
// on a busy machine it says more about the cost of a frame than wall time.
double processCpuMs()
{
    timespec ts {};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return ts.tv_sec * 1e3 + ts.tv_nsec / 1e6;
}

std::vector<double> timedDrag(EdrViewer *viewer, const std::vector<QPointF> &path)
{
    std::vector<double> ms;
    g_paintMs.clear();
    g_cpuMs.clear();
    send(viewer, QEvent::MouseButtonPress, path.front());
    for (const QPointF &point : path) {
        QElapsedTimer timer;
        timer.start();
        const double cpuStart = processCpuMs();
        send(viewer, QEvent::MouseMove, point);
        viewer->surface()->repaint();
        QCoreApplication::processEvents();
        ms.push_back(timer.nsecsElapsed() / 1e6);
        g_paintMs.push_back(viewer->surface()->lastPaintMs());
        g_cpuMs.push_back(processCpuMs() - cpuStart);
    }
    send(viewer, QEvent::MouseButtonRelease, path.back());
    return ms;
}

// The scene computed at a quarter of the size, then enlarged with a fine
// per-pixel grain so every texel differs (computing 24 MP directly takes minutes).
QImage enlarged(const QImage &small, int width, int height, float scale = 1.0f)
{
    QImage image(width, height, QImage::Format_RGBA16FPx4);
    for (int y = 0; y < height; ++y) {
        const auto *in = reinterpret_cast<const qfloat16 *>(
            small.constScanLine(std::min(y / 4, small.height() - 1)));
        auto *out = reinterpret_cast<qfloat16 *>(image.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const qfloat16 *p = in + 4 * std::min(x / 4, small.width() - 1);
            const float grain = 1.0f + 0.03f * float(((x * 7919) ^ (y * 104729)) & 15) / 15.0f;
            for (int c = 0; c < 3; ++c)
                out[4 * x + c] = qfloat16(float(p[c]) * grain * scale);
            out[4 * x + 3] = qfloat16(1.0f);
        }
    }
    return image;
}

void report(const char *what, const std::vector<double> &ms)
{
    const Figures f = figures(ms);
    const Figures p = figures(g_paintMs);
    const Figures c = figures(g_cpuMs);
    std::printf(
        "%-26s %3zu frames  wall median %6.2f  p90 %6.2f  worst %6.2f ms | drawing median %6.2f ms"
        " | CPU per frame median %6.2f ms\n",
        what, ms.size(), f.median, f.p90, f.worst, p.median, c.median);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    const int width = args.size() > 2 ? args.at(1).toInt() : 6000;
    const int height = args.size() > 2 ? args.at(2).toInt() : 4000;
    const int frames = args.size() > 3 ? args.at(3).toInt() : 120;
    if (!EdrViewer::openGlAvailable()) {
        std::fprintf(stderr, "no OpenGL: run under xvfb-run\n");
        return 1;
    }

    AppViewModel model;
    PhotoRecord record;
    record.fingerprint = u"bench"_s;
    record.stem = u"bench"_s;
    HDRCompareView view(model, record, {}, nullptr);
    view.resize(1100, 750);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view))
        return 1;
    EdrViewer *viewer = view.viewer();
    viewer->surface()->setFinishEachFrame(true);

    // The floor: frames that only clear the surface, so what remains is Qt
    // putting the widget's texture and the window's other widgets on screen.
    QApplication::processEvents();
    std::vector<QPointF> still(std::size_t(frames), QPointF(10, 10));
    report("empty frame (clear only)", timedDrag(viewer, still));

    QElapsedTimer timer;
    timer.start();
    EdrPicturePair pair;
    pair.hdr
        = enlarged(test::sceneHdr(width / 4, height / 4, QImage::Format_RGBA16FPx4), width, height);
    pair.sdr = enlarged(test::sceneHdr(width / 4, height / 4, QImage::Format_RGBA16FPx4), width,
                        height, 0.9f);
    pair.imageSize = QSizeF(width, height);
    std::printf("pair %dx%d (%.1f MP) generated in %.0f ms\n", width, height,
                width * double(height) / 1e6, timer.nsecsElapsed() / 1e6);
    // The first frame shows the pair from its reduced levels; the full
    // resolution follows one side at a time. The second pair has the first's
    // size, as when stepping through photos from one camera.
    for (const char *which : { "first pair", "next pair, same size" }) {
        QSignalSpy uploaded(viewer->surface(), &EdrGlSurface::picturesUploaded);
        QSignalSpy detailed(viewer->surface(), &EdrGlSurface::detailUploaded);
        timer.restart();
        viewer->setPictures(pair);
        viewer->surface()->repaint();
        if (uploaded.isEmpty() && !uploaded.wait(60000))
            return 1;
        const double firstFrame = timer.nsecsElapsed() / 1e6;
        // How long the event loop, which takes the user's input, is held up
        // at most while the full resolution goes up.
        QElapsedTimer sinceTick;
        sinceTick.start();
        double longestStall = 0;
        QTimer ticks;
        ticks.setTimerType(Qt::PreciseTimer);
        QObject::connect(&ticks, &QTimer::timeout, [&] {
            longestStall = std::max(longestStall, sinceTick.nsecsElapsed() / 1e6);
            sinceTick.restart();
        });
        ticks.start(1);
        if (detailed.isEmpty() && !detailed.wait(60000))
            return 1;
        ticks.stop();
        std::printf("upload of the %s: first frame %.0f ms, full resolution %.0f ms, longest "
                    "stall of the event loop meanwhile %.0f ms\n",
                    which, firstFrame, timer.nsecsElapsed() / 1e6, longestStall);
    }
    pair = {};
    const QSize area = viewer->size();
    std::printf("viewer %dx%d points at device pixel ratio %.1f\n", area.width(), area.height(),
                viewer->devicePixelRatioF());

    // The divider from 10 % to 90 % of the width and back.
    std::vector<QPointF> divider;
    for (int i = 0; i < frames; ++i) {
        const double t = 0.5 - 0.5 * std::cos(2.0 * M_PI * i / frames);
        divider.emplace_back(
            QPointF(area.width() * (0.5 + 0.4 * (t * 2.0 - 1.0)), area.height() * 0.5).toPoint());
    }
    divider.front() = QPointF(area.width() * 0.5, area.height() * 0.5);
    report("divider drag (fit)", timedDrag(viewer, divider));

    // Zoom to 5x, then pan in a circle starting away from the divider.
    const QPointF centre(QPoint(area.width() / 4, area.height() / 2));
    QNativeGestureEvent pinch(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2,
                              centre, centre, viewer->mapToGlobal(centre), 4.0, {});
    QApplication::sendEvent(viewer, &pinch);
    std::printf("zoom %.1fx\n", viewer->model().zoomScale());
    std::vector<QPointF> pan;
    for (int i = 0; i < frames; ++i) {
        const double a = 2.0 * M_PI * i / frames;
        // Whole points, as a mouse reports them.
        pan.emplace_back(
            (centre + QPointF(120.0 * std::sin(a), 90.0 * (1.0 - std::cos(a)))).toPoint());
    }
    report("pan at 5x", timedDrag(viewer, pan));

    // With zebra and the filmic view on, the heaviest shader path.
    EdrViewerSettings settings = viewer->settings();
    settings.zebraEnabled = true;
    settings.shadowZebraEnabled = true;
    settings.toneMapMode = SDRToneMapMode::FilmicRollOff;
    viewer->updateState(settings);
    report("pan at 5x, zebra + filmic", timedDrag(viewer, pan));
    return 0;
}
