#pragma once
// The one QApplication of the window tests, its settings kept in a folder of
// its own so that no test reads or writes the person's settings.

namespace plouvarine::testing {

void ensure_application();

}  // namespace plouvarine::testing
