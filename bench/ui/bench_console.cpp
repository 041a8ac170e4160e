// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The console under a chatty engine: lines appended one at a time to a full
// 1000-line log, each followed by a repaint of the visible console, next to
// the same work through a plain QStringListModel that is reset on every
// change. Run by hand (offscreen is fine):
//   QT_QPA_PLATFORM=offscreen bench_console [lines] [repeats]
#include "common/TestEnvironment.h"
#include "core/AppViewModel.h"
#include "i18n/LocalizationService.h"
#include "ui/ConsoleLogView.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListView>
#include <QStringListModel>

#include <algorithm>
#include <cstdio>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

QString engineLine(long i)
{
    switch (i % 4) {
    case 0:
        return u"[09:41:%1] worker-%2 DSC%3 gain map +2.41st"_s.arg(i % 60).arg(i % 8).arg(i);
    case 1:
        return u"✅ SUCCESS DSC%1 → DSC%1_hdr.jpg"_s.arg(i);
    case 2:
        return u"   detail line %1"_s.arg(i);
    default:
        return u"⚠️ WARN DSC%1 has no JPG partner, skipped"_s.arg(i);
    }
}

// Seconds for `lines` appends to the full console, each painted.
double timeConsole(long lines)
{
    AppViewModel model;
    ConsoleLogView view(model);
    view.resize(840, 320);
    view.show();
    for (long i = 0; i < 1000; ++i)
        model.appendLog(engineLine(i));
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    for (long i = 0; i < lines; ++i) {
        model.appendLog(engineLine(1000 + i));
        view.listView()->viewport()->repaint();
    }
    return timer.nsecsElapsed() / 1e9;
}

// The naive way: the whole list handed to a string model on every change.
double timeResetModel(long lines)
{
    QStringList log;
    for (long i = 0; i < 1000; ++i)
        log << engineLine(i);
    QStringListModel rows(log);
    QListView view;
    view.setModel(&rows);
    view.resize(840, 280);
    view.show();
    QCoreApplication::processEvents();
    QElapsedTimer timer;
    timer.start();
    for (long i = 0; i < lines; ++i) {
        log << engineLine(1000 + i);
        if (log.size() > 1000)
            log.removeFirst();
        rows.setStringList(log);
        view.scrollToBottom();
        view.viewport()->repaint();
    }
    return timer.nsecsElapsed() / 1e9;
}

} // namespace

int main(int argc, char *argv[])
{
    test::TestEnvironment environment;
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(u"orvanta"_s);
    QCoreApplication::setApplicationName(u"orvanta"_s);
    theme::apply(app, u"en"_s);
    LocalizationService::shared().setCurrentLanguage(AppLanguage::English);
    const long lines = argc > 1 ? std::atol(argv[1]) : 20000;
    const int repeats = argc > 2 ? std::atoi(argv[2]) : 3;

    double best = 1e9, bestReset = 1e9;
    for (int r = 0; r < repeats; ++r) {
        best = std::min(best, timeConsole(lines));
        if (!qEnvironmentVariableIsSet("BENCH_CONSOLE_ONLY")) // for profiling the console alone
            bestReset = std::min(bestReset, timeResetModel(lines));
    }
    std::printf("%ld appends to a full 1000-line console, each repainted (best of %d)\n", lines,
                repeats);
    std::printf("  ConsoleLogView        %8.3f s  %9.0f lines/s  %7.1f us/line\n", best,
                lines / best, best / lines * 1e6);
    std::printf("  reset QStringListModel %7.3f s  %9.0f lines/s  %7.1f us/line\n", bestReset,
                lines / bestReset, bestReset / lines * 1e6);
    return 0;
}
