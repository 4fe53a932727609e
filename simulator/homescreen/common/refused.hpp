// What a person cannot do with the home screen as it is.
#pragma once

#include <stdexcept>

namespace sim {

/// He asked for something that the home screen does not have, or does not allow now. Nothing has changed.
struct Refused : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Something lies over what he wanted to touch.
struct Covered : Refused {
  using Refused::Refused;
};

}  // namespace sim
