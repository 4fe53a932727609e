#include "simulator/frameworks/foundation/paths.hpp"

extern "C" const char* GSPathHandling(const char* mode);

namespace sim {

void installPathHandling() { GSPathHandling("unix"); }

}  // namespace sim
