// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// orvanta_engine: converts folders of camera RAW+JPG pairs into Ultra HDR
// photos. See usageText() for the command line.
#include "BatchRunner.h"
#include "Doctor.h"
#include "EngineOptions.h"
#include "EventLog.h"
#include "FolderWatcher.h"
#include "PauseClock.h"
#include "media/ExivAdapter.h"

#include <QCoreApplication>

#include <csignal>
#include <cstdio>

using namespace orvanta::engine;
using namespace Qt::StringLiterals;

namespace {

void onSignal(int signal)
{
    FolderWatcher::signalArrived(signal);
    if (signal == SIGINT)
        BatchRunner::requestInterrupt();
    else
        BatchRunner::requestTerminate();
}

void installSignalHandlers()
{
    struct sigaction action
    {
    };
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    // The application pauses a batch with SIGTSTP; the time stopped is left
    // out of the photos' durations.
    installPauseClock();
    // Should the application go away mid-batch, the batch still finishes
    // and is recorded; writes to the closed pipe just fail.
    std::signal(SIGPIPE, SIG_IGN);
}

int runBatch(RunOptions options, bool watch)
{
    applyConfigFile(options, defaultConfigPath());
    EventLog log(options.jsonStream);
    log.openLogFile();
    log.line(u"🚀 orvanta_engine %1: %2 -> %3"_s.arg(QStringLiteral(ORVANTA_VERSION),
                                                    options.sourceDir, options.destDir));
    if (watch) {
        FolderWatcher watcher(options, log);
        return watcher.run();
    }
    BatchRunner runner(options, log);
    return runner.run();
}

} // namespace

int main(int argc, char *argv[])
{
    installSignalHandlers();
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"orvanta_engine"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANTA_VERSION));
    orvanta::exiv::initializeExiv2();
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();
    const ParsedCommandLine parsed = parseCommandLine(arguments);
    switch (parsed.command) {
    case Command::Help:
        std::fputs(usageText().toUtf8().constData(), stdout);
        return ExitOk;
    case Command::Version:
        std::printf("orvanta_engine %s\n", ORVANTA_VERSION);
        return ExitOk;
    case Command::Doctor:
        return runDoctor(parsed.doctorJson);
    case Command::Run:
    case Command::Watch:
        return runBatch(parsed.options, parsed.command == Command::Watch);
    case Command::Invalid:
        break;
    }
    std::fprintf(stderr, "orvanta_engine: %s\nTry 'orvanta_engine --help'.\n",
                 qPrintable(parsed.error));
    return ExitSetup;
}
