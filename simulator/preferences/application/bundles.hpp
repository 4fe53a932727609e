// The preference loader's part: which panes there are beside the system's own, and the images that show them.
#pragma once

#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// A row that somebody has put into the settings application.
struct PaneEntry {
  std::string label;
  std::string bundle;  ///< its folder
};

/// The entries in the loader's folder and below, by their labels. One that means nothing is left out, with a line on
/// the error output that tells why.
std::vector<PaneEntry> paneEntries();

/// The principal class of a pane's bundle, whose image is mapped for it. Throws `std::runtime_error` that tells a
/// person in one line why there is none.
Class principalClass(const std::string& bundle);

}  // namespace sim
