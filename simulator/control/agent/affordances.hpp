// What a person can do now, and where.
#pragma once

#include <nlohmann/json.hpp>

namespace sim {

/// `{"icons": [{"id", "label", "point"}], "entries": [{"title", "point"}], "buttons": [{"title", "point"}],
/// "device": [...]}`: the icons that can be touched, the entries of the open quick-action list, the buttons of the
/// topmost sheet or alert, and the verbs of the device's own buttons. A point is `[x, y]` on the screen, null for what
/// no view shows.
nlohmann::json affordances();

}  // namespace sim
