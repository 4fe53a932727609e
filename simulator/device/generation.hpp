#pragma once

namespace sim {

/// Which of the two generations of the home screen a device has.
enum class Generation { old, recent };

}  // namespace sim
