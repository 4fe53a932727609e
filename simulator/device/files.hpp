// Small helpers for files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// The folder of the running program, where those that it starts are, too.
std::filesystem::path programFolder();

/// The whole file; none when it cannot be read.
std::optional<std::string> readFile(const std::filesystem::path& file);
/// Replaces the file whole, through a temporary file beside it; makes its folder. Throws `std::system_error`.
void writeFile(const std::filesystem::path& file, std::string_view content);
/// A file of that many bytes that takes no room on the disk; makes its folder. Throws `std::system_error`.
void writeSparseFile(const std::filesystem::path& file, std::uint64_t size);

/// A new folder, removed with everything in it at the end.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(const std::filesystem::path& parent = std::filesystem::temp_directory_path());
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace sim
