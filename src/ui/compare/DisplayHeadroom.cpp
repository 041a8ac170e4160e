// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/compare/DisplayHeadroom.h"

#include <QtGlobal>

namespace orvanta::displayheadroom {

namespace {
std::function<double()> &overrideProvider()
{
    static std::function<double()> provider;
    return provider;
}
} // namespace

double current(const QWidget *widget)
{
    Q_UNUSED(widget);
    if (const auto &provider = overrideProvider())
        return provider();
    // Neither the X11 nor the Wayland platform of Qt 6.4 can output extended
    // range, so every screen is a standard one here.
    return 1.0;
}

void setOverride(std::function<double()> provider)
{
    overrideProvider() = std::move(provider);
}

} // namespace orvanta::displayheadroom
