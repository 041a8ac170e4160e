// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// `orvanta_engine doctor`: what the engine needs on this machine and what is
// missing, as text or as JSON for the application's environment check.
#pragma once

#include <QJsonObject>

namespace orvanta::engine {

QJsonObject doctorReport();
int runDoctor(bool json); // exit status 0 when nothing required is missing

} // namespace orvanta::engine
