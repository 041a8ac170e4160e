// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "PauseClock.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <ctime>

namespace orvanta::engine {

namespace {

std::atomic<std::int64_t> g_paused { 0 };
static_assert(std::atomic<std::int64_t>::is_always_lock_free, "used from a signal handler");

std::int64_t monotonicNs()
{
    timespec ts {};
    clock_gettime(CLOCK_MONOTONIC, &ts); // async-signal-safe
    return std::int64_t(ts.tv_sec) * 1000000000 + ts.tv_nsec;
}

void onStop(int)
{
    const int savedErrno = errno;
    const std::int64_t stoppedAt = monotonicNs();
    // Stop for real: with the default action restored, the signal stops the
    // whole process; raise() returns once SIGCONT has arrived.
    std::signal(SIGTSTP, SIG_DFL);
    sigset_t tstp;
    sigemptyset(&tstp);
    sigaddset(&tstp, SIGTSTP);
    pthread_sigmask(SIG_UNBLOCK, &tstp, nullptr);
    raise(SIGTSTP);
    g_paused.fetch_add(monotonicNs() - stoppedAt);
    installPauseClock();
    errno = savedErrno;
}

} // namespace

void installPauseClock()
{
    struct sigaction action
    {
    };
    action.sa_handler = onStop;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTSTP, &action, nullptr);
}

std::int64_t pausedNanoseconds()
{
    return g_paused.load();
}

} // namespace orvanta::engine
