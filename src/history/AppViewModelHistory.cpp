// The history half of AppViewModel: paged queries, selection, bulk actions.
#include "core/AppViewModel.h"

namespace orvanta {

// Start-up step. The database reader is not built yet, so the history stays
// at its empty defaults.
void AppViewModel::setUpHistory() {}
void AppViewModel::refreshHistory() {}

} // namespace orvanta
