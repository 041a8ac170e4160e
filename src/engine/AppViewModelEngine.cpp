// The engine half of AppViewModel: probes, batch runs, notifications.
#include "core/AppViewModel.h"

namespace orvanta {

// The storage, environment and notification steps of start-up. The probes and
// the notification service are not built yet, so the model keeps the defaults
// it was created with (a safe local volume, a healthy environment).
void AppViewModel::setUpEngine() {}
void AppViewModel::updateVolumeInfo() {}
void AppViewModel::checkEnvironment() {}
void AppViewModel::requestNotificationPermission() {}

} // namespace orvanta
