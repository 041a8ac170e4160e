// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "SystemLoad.h"

#include <QFile>

namespace orvanta::engine {

qint64 availableMemoryBytes()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (file.open(QIODevice::ReadOnly)) {
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (line.startsWith("MemAvailable:")) {
                const QList<QByteArray> parts = line.simplified().split(' ');
                if (parts.size() >= 2)
                    return parts[1].toLongLong() * 1024;
            }
        }
    }
    return 4ll << 30;
}

std::optional<double> memoryPressureAvg10(const QByteArray &psiText)
{
    for (const QByteArray &line : psiText.split('\n')) {
        if (!line.startsWith("some "))
            continue;
        for (const QByteArray &field : line.split(' ')) {
            if (field.startsWith("avg10=")) {
                bool ok = false;
                const double v = field.mid(6).toDouble(&ok);
                if (ok)
                    return v;
            }
        }
    }
    return std::nullopt;
}

bool memoryPressureHigh()
{
    // ORVANTA_PSI_FILE points elsewhere, for containers that mount their own
    // pressure file and for tests.
    const QString path
        = qEnvironmentVariable("ORVANTA_PSI_FILE", QStringLiteral("/proc/pressure/memory"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    return memoryPressureAvg10(file.readAll()).value_or(0.0) > 10.0;
}

} // namespace orvanta::engine
