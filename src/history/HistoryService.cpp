#include "history/HistoryService.h"

namespace orvanta {

HistoryService::HistoryService() = default;

} // namespace orvanta
