// What the home-screen process can be asked for, by its own account.
#pragma once

#include <filesystem>
#include <vector>

#include "simulator/control/vocabulary.hpp"

namespace sim {

/// The verbs that the SpringBoard of that folder has. Throws `std::runtime_error` when there is none.
std::vector<VerbDescription> processVerbs(const std::filesystem::path& buildFolder);

}  // namespace sim
