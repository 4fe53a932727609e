#include "simulator/homescreen/common/home.hpp"

namespace sim {

Home& home() {
  static Home state;
  return state;
}

void openApplication(const std::string& bundleIdentifier) {
  home().frontmost = bundleIdentifier;
  std::erase(home().switcher, bundleIdentifier);
  home().switcher.insert(home().switcher.begin(), bundleIdentifier);
  home().events.push_back("launched " + bundleIdentifier);
}

}  // namespace sim
