// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The built-in string tables: one constant list of (key, UTF-8 text) pairs per
// language. Read once by LocalizationService when it is first used; any thread.
#pragma once

#include <span>

namespace orvanta {

struct StringEntry
{
    const char *key;
    const char *text; // UTF-8, may hold printf-style directives
};

namespace strings {
std::span<const StringEntry> en();
std::span<const StringEntry> zhHans();
std::span<const StringEntry> zhHant();
std::span<const StringEntry> ja();
std::span<const StringEntry> de();
std::span<const StringEntry> fr();
std::span<const StringEntry> es();
} // namespace strings

} // namespace orvanta
