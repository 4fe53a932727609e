// Application archives.
#pragma once

#include <filesystem>

namespace sim {

/// Unpacks a zip archive into the folder. Nothing is written outside it: absolute paths, "..", and paths that
/// lead through symbolic links are refused. Throws `BadInput` when the file is no such archive.
void unpack(const std::filesystem::path& archive, const std::filesystem::path& folder);

}  // namespace sim
