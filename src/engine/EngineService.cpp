#include "engine/EngineService.h"

namespace orvanta {

EngineService::EngineService(QObject *parent) : QObject(parent) {}

EngineService::~EngineService() = default;

} // namespace orvanta
