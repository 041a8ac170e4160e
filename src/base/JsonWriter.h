// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Writes JSON in the layout of the shared configuration file: two spaces per
// level, " : " between key and value, each array element on its own line.
// Pure function; any thread.
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>

namespace orvanta {

QByteArray prettyJson(const QJsonObject &object);
QByteArray prettyJson(const QJsonArray &array);

} // namespace orvanta
