// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Waiting helpers for the screenshot programs: they drive real windows
// outside QTest's own loop and grab them once what they wait for has drawn.
// Main thread.
#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

#include <functional>

namespace orvanta::test {

// Runs the event loop until `condition` holds or `ms` have passed.
inline bool waitFor(const std::function<bool()> &condition, int ms)
{
    QDeadlineTimer deadline(ms);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(10);
    }
    return true;
}

// Lets queued work, layouts and paints run for about `ms`.
inline void pumpEvents(int ms)
{
    waitFor([] { return false; }, ms);
}

} // namespace orvanta::test
