// Packages as an installer takes them (.deb).
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

/// The value of a field in a paragraph of "NAME: VALUE" lines; empty without one.
std::string fieldOf(std::string_view paragraph, std::string_view name);

struct PackageFile {
  struct Entry {
    std::filesystem::path path;  ///< absolute, on the device
    bool folder = false;
    unsigned permissions = 0;
    std::string content;
  };
  std::string control;                         ///< its paragraph of fields, which ends in a newline
  std::map<std::string, std::string> members;  ///< what comes with it: "postinst", "postrm", "md5sums"
  std::vector<Entry> entries;                  ///< folders before what they hold

  std::string field(std::string_view name) const { return fieldOf(control, name); }
};

/// Reads a package whole. Throws `BadInput` for what is none, or not for this device, or holds what it must not: links,
/// paths that lead elsewhere, scripts that nobody would run.
PackageFile readPackage(const std::filesystem::path& file);

}  // namespace sim
