// The framework of settings panes.
#pragma once

namespace sim {

/// Registers every class of the framework. To be called once, after UIKit's.
void definePreferences();

}  // namespace sim
