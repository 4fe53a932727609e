// Registers the home screen's classes.
#pragma once

namespace sim {

/// Those of the running generation and no others. To be called once, after the user-interface framework's.
void defineHomeScreenClasses();

}  // namespace sim
