// The recipe half of AppViewModel.
#include "core/AppViewModel.h"

namespace orvanta {

// Start-up step. The recipe file reader is not built yet, so the list stays empty.
void AppViewModel::loadUserRecipes() {}

} // namespace orvanta
