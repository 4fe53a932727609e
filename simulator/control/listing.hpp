// A folder's entries as a person reads them.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace sim {

/// One line for each entry, by name: its kind and mode as `ls` writes them, its size, when it was changed (as
/// `changed` tells), its name, and where a link points to.
std::string listing(const std::filesystem::path& folder,
                    const std::function<std::string(const std::filesystem::path&)>& changed);

}  // namespace sim
