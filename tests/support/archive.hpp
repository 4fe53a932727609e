// Application archives, made as other programs make them.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace test {

/// Writes a zip archive of these files, content by path. Programs mark names as UTF-8 or leave that to be guessed.
void writeArchive(const std::filesystem::path& archive, const std::map<std::string, std::string>& files,
                  bool marksNames = true);

}  // namespace test
