// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What the machine offers a batch: free space where photos are delivered,
// whether the engine and its libraries are there, installed memory and its
// pressure. Published for the header and the settings. Main thread.
#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace orvanta {

// clang-format off
#define ORVANTA_PROBE_STATE(X) \
    X(QString, volumeName, QString()) \
    X(double, volumeFreeGB, 0) \
    X(bool, volumeIsExternal, false) \
    X(bool, isVolumeSafe, true) \
    X(bool, isEnvironmentHealthy, true) \
    X(QString, missingDependencyMessage, {}) \
    X(double, ramTotalGB, 16.0) \
    X(QString, memoryPressureDesc, {})
#define ORVANTA_PROBE_FIELD(Type, name, def) Type name = def;
#define ORVANTA_PROBE_GETTER(Type, name, def) Type name() const { return m_state.name; }
#define ORVANTA_PROBE_SIGNAL(Type, name, def) void name##Changed();
// clang-format on

struct ProbeState
{
    ORVANTA_PROBE_STATE(ORVANTA_PROBE_FIELD)
};

class ProbesController : public QObject
{
    Q_OBJECT
public:
    explicit ProbesController(QObject *parent = nullptr);

    ORVANTA_PROBE_STATE(ORVANTA_PROBE_GETTER)

    // The volume holding `destDir` (or the nearest folder above it that
    // exists; `fallbackDir` when none does).
    void updateVolumeInfo(const QString &destDir, const QString &fallbackDir);
    // Publishes at once whether an engine is installed, then asks the engine
    // which of its libraries are missing and publishes that when it answers.
    void checkEnvironment();
    void updateMemoryProbe();

    // For tests that need the views in a given state: edits a copy of the
    // state, then takes every field and announces those that changed.
    void setStateForTest(const std::function<void(ProbeState &)> &edit);

Q_SIGNALS:
    ORVANTA_PROBE_STATE(ORVANTA_PROBE_SIGNAL)
    // A finding worth a console line (a new environment problem).
    void logLine(const QString &line);

private:
    template<typename T>
    void put(T ProbeState::*field, const T &value, void (ProbesController::*changed)());
    ProbeState m_state;
};

} // namespace orvanta
