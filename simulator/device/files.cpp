#include "simulator/device/files.hpp"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <system_error>

namespace fs = std::filesystem;

namespace sim {
namespace {

/// Without execute permission a folder can be neither read nor emptied.
void makeRemovable(const fs::path& folder) {
  std::error_code ignored;
  fs::permissions(folder, fs::perms::owner_all, fs::perm_options::add, ignored);
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    if (!entry.is_symlink(ignored) && entry.is_directory(ignored)) makeRemovable(entry.path());
  }
}

}  // namespace

fs::path programFolder() { return fs::read_symlink("/proc/self/exe").parent_path(); }

std::optional<std::string> readFile(const fs::path& file) {
  std::error_code failed;
  if (!fs::is_regular_file(file, failed)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  // What some file systems tell of a file's size is no more than a guess.
  const std::uintmax_t size = fs::file_size(file, failed);
  std::string content(failed ? 0 : size, '\0');
  stream.read(content.data(), static_cast<std::streamsize>(content.size()));
  content.resize(static_cast<std::size_t>(stream.gcount()));
  if (stream) content.append(std::istreambuf_iterator<char>(stream), {});
  return content;
}

void writeFile(const fs::path& file, std::string_view content) {
  fs::create_directories(file.parent_path());
  const fs::path temporary = file.parent_path() / ("." + file.filename().string() + ".new");
  std::ofstream stream(temporary, std::ios::binary | std::ios::trunc);
  stream.write(content.data(), static_cast<std::streamsize>(content.size()));
  stream.close();
  if (!stream) throw std::system_error(errno, std::generic_category(), file.string());
  fs::rename(temporary, file);
}

void writeSparseFile(const fs::path& file, std::uint64_t size) {
  fs::create_directories(file.parent_path());
  const std::ofstream created(file, std::ios::binary);
  fs::resize_file(file, size);
}

TemporaryFolder::TemporaryFolder(const fs::path& parent) {
  std::string pattern = (parent / "home-screen.XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::system_error(errno, std::generic_category(), pattern);
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
  if (ignored) {
    makeRemovable(path_);
    fs::remove_all(path_, ignored);
  }
}

}  // namespace sim
