#include "simulator/homescreen/common/home.hpp"

namespace sim {

HomeState& homeState() {
  static HomeState state;
  return state;
}

void openApplication(const std::string& bundleIdentifier) {
  homeState().frontmost = bundleIdentifier;
  std::erase(homeState().switcher, bundleIdentifier);
  homeState().switcher.insert(homeState().switcher.begin(), bundleIdentifier);
  homeState().events.push_back("launched " + bundleIdentifier);
}

}  // namespace sim
