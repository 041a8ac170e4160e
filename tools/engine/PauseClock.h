// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Time the engine spent suspended by the application's Pause (SIGTSTP, then
// SIGCONT), so a photo's recorded duration is its working time only. The
// handler and the reader may run on any thread.
#pragma once

#include <cstdint>

namespace orvanta::engine {

// Catches SIGTSTP: notes the moment, then stops the process the default way;
// on continuing adds the time stopped to the total. Call once at start-up.
void installPauseClock();

// Nanoseconds spent stopped since start-up; subtract two readings to learn
// how much of an interval was paused.
std::int64_t pausedNanoseconds();

} // namespace orvanta::engine
