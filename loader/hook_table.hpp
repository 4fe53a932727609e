// Everything that the add-on changes in the home-screen process.
#pragma once

namespace loader {

/// Installs the hooks and added methods of the running generation, in the table's order.
void installHookTable();

}  // namespace loader
