// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Splits [0, n) into up to `threads` contiguous, non-empty ranges and runs
// them at once, the first on the calling thread: for per-pixel or per-row work
// whose parts write only their own outputs. Returns when every range is done.
#pragma once

#include <algorithm>
#include <cstddef>
#include <thread>
#include <vector>

namespace orvanta {

template<typename Body> void inRanges(std::size_t n, int threads, const Body &body)
{
    if (n == 0)
        return;
    // No more ranges than items, so that no two ranges start at the same index.
    threads = int(std::min<std::size_t>({ std::size_t(std::max(threads, 1)), n, 16 }));
    std::vector<std::thread> helpers;
    for (int t = 1; t < threads; ++t)
        helpers.emplace_back([&, t] { body(n * t / threads, n * (t + 1) / threads); });
    body(0, n / threads);
    for (std::thread &helper : helpers)
        helper.join();
}

} // namespace orvanta
