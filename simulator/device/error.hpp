// What can go wrong for the one who uses the simulator.
#pragma once

#include <stdexcept>

namespace sim {

/// A person's mistake: an unknown application, a missing file, a wrong value. Nothing was changed.
struct BadInput : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The home-screen process ended by itself, or had to be ended because it did not answer.
struct HomeScreenDied : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The same of the settings application; the home screen goes on.
struct SettingsDied : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace sim
