// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The application's reverse-DNS id: the name of its desktop file, AppStream
// component and icon. CMake reads it from this line for the install tree.
#pragma once

#include <QString>

namespace orvanta {

inline constexpr char16_t kAppId[] = u"io.github.orvanta.Orvanta";

inline QString appId()
{
    return QString::fromUtf16(kAppId);
}

// "io.github.orvanta.Orvanta.desktop": what docks and notification servers
// look up in the applications folders.
inline QString appDesktopFileName()
{
    return appId() + u".desktop";
}

} // namespace orvanta
