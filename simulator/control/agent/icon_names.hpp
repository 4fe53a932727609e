// The names that a person gives icons.
#pragma once

#include <string>

#include "simulator/homescreen/common/SBIcon.hpp"

namespace sim {

/// What gestures call the icon: its bundle identifier, a web page's title.
std::string ownNameOf(SBIcon* icon);
/// The text of its label, seen or not.
std::string labelOf(SBIcon* icon);

/// What gestures call the icon of that identifier or label; the name as it is when no icon goes by it. An identifier
/// comes before labels. Throws `Refused` for the label of several icons.
std::string identifierOf(const std::string& name);

}  // namespace sim
