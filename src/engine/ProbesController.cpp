// SPDX-FileCopyrightText: 2026 The Orvanta developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "engine/ProbesController.h"

#include "engine/EngineDoctor.h"
#include "engine/EngineLaunch.h"
#include "engine/SystemProbes.h"
#include "i18n/LocalizationService.h"

namespace orvanta {

using namespace Qt::StringLiterals;

ProbesController::ProbesController(QObject *parent)
    : QObject(parent)
{
    // Memory is measured when the settings window shows its probe, not at
    // start-up: until then the published figure is the documented default.
    m_state.memoryPressureDesc = t("pressure_normal");
}

template<typename T>
void ProbesController::put(T ProbeState::*field, const T &value,
                           void (ProbesController::*changed)())
{
    if (m_state.*field == value)
        return;
    m_state.*field = value;
    Q_EMIT(this->*changed)();
}

#define ORVANTA_PROBE_PUT(name, value)                                                             \
    put(&ProbeState::name, decltype(ProbeState::name)(value), &ProbesController::name##Changed)

void ProbesController::setStateForTest(const std::function<void(ProbeState &)> &edit)
{
    ProbeState state = m_state;
    edit(state);
#define ORVANTA_PROBE_TAKE(Type, name, def) ORVANTA_PROBE_PUT(name, state.name);
    ORVANTA_PROBE_STATE(ORVANTA_PROBE_TAKE)
#undef ORVANTA_PROBE_TAKE
}

void ProbesController::updateVolumeInfo(const QString &destDir, const QString &fallbackDir)
{
    const VolumeInfo info = probeVolume(destDir, fallbackDir);
    ORVANTA_PROBE_PUT(volumeName, info.name);
    ORVANTA_PROBE_PUT(volumeFreeGB, info.freeGiB);
    ORVANTA_PROBE_PUT(volumeIsExternal, info.external);
    ORVANTA_PROBE_PUT(isVolumeSafe, info.safe);
}

void ProbesController::checkEnvironment()
{
    // A problem is published as a whole sentence (it names the engine's path
    // or the missing libraries) and written to the console when it is new.
    auto publish = [this](const EnvironmentVerdict &verdict) {
        const QString text = verdict.healthy() ? QString() : t(verdict.key, { verdict.detail });
        // The same finding in another language is not news.
        const bool isNew = !text.isEmpty()
            && (m_state.isEnvironmentHealthy
                || !m_state.missingDependencyMessage.contains(verdict.detail));
        ORVANTA_PROBE_PUT(isEnvironmentHealthy, verdict.healthy());
        ORVANTA_PROBE_PUT(missingDependencyMessage, text);
        if (isNew)
            Q_EMIT logLine(u"❌ "_s + text);
    };
    qDeleteAll(findChildren<EngineDoctorQuery *>(Qt::FindDirectChildrenOnly));
    const EngineLocatorContext locator = EngineLocatorContext::system();
    const EnvironmentVerdict installed = checkEngineInstalled(locator);
    publish(installed);
    if (!installed.healthy())
        return;
    // The engine knows best which of its libraries and data are missing.
    if (auto *query = EngineDoctorQuery::start(resolveEngineBinary(locator), this)) {
        connect(query, &EngineDoctorQuery::answered, this,
                [publish](const QStringList &missing) { publish(librariesVerdict(missing)); });
    }
}

void ProbesController::updateMemoryProbe()
{
    ORVANTA_PROBE_PUT(ramTotalGB, installedMemoryGiB());
    // Unreadable pressure information keeps the previous description.
    if (const auto pressure = readMemoryPressure())
        ORVANTA_PROBE_PUT(memoryPressureDesc, t(memoryPressureKey(int(*pressure))));
}

} // namespace orvanta
