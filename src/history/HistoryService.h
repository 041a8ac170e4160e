// Read access to the engine's state database. Each call opens and closes its
// own connection; safe to call from worker threads.
#pragma once

namespace orvanta {

class HistoryService
{
public:
    HistoryService();
};

} // namespace orvanta
