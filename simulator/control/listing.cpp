#include "simulator/control/listing.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace fs = std::filesystem;

namespace sim {
namespace {

char kindLetter(fs::file_type type) {
  static const std::map<fs::file_type, char> letters = {
      {fs::file_type::regular, '-'}, {fs::file_type::directory, 'd'}, {fs::file_type::symlink, 'l'},
      {fs::file_type::block, 'b'},   {fs::file_type::character, 'c'}, {fs::file_type::fifo, 'p'},
      {fs::file_type::socket, 's'}};
  const auto letter = letters.find(type);
  return letter != letters.end() ? letter->second : '?';
}

/// A bit that changes the letter of an execute permission.
struct SpecialBit {
  fs::perms bit, execute;
  std::size_t place;
  char with, without;
};
constexpr SpecialBit specialBits[] = {{fs::perms::set_uid, fs::perms::owner_exec, 2, 's', 'S'},
                                      {fs::perms::set_gid, fs::perms::group_exec, 5, 's', 'S'},
                                      {fs::perms::sticky_bit, fs::perms::others_exec, 8, 't', 'T'}};

bool has(fs::perms mode, fs::perms bit) { return (mode & bit) != fs::perms::none; }

std::string modeLetters(fs::perms mode) {
  std::string letters = "rwxrwxrwx";
  for (std::size_t place = 0; place < letters.size(); ++place) {
    if (!has(mode, static_cast<fs::perms>(0400U >> place))) letters[place] = '-';
  }
  for (const SpecialBit& special : specialBits) {
    if (has(mode, special.bit)) letters[special.place] = has(mode, special.execute) ? special.with : special.without;
  }
  return letters;
}

}  // namespace

std::string listing(const fs::path& folder, const std::function<std::string(const fs::path&)>& changed) {
  constexpr std::size_t sizeColumns = 12;
  std::set<fs::path> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
  std::string text;
  for (const fs::path& name : names) {
    const fs::path file = folder / name;
    const fs::file_status status = fs::symlink_status(file);
    const std::string size = fs::is_regular_file(status) ? std::to_string(fs::file_size(file)) : "";
    text += kindLetter(status.type()) + modeLetters(status.permissions()) +
            std::string(sizeColumns - std::min(sizeColumns, size.size()), ' ') + size + "  " + changed(file) + "  " +
            name.string();
    if (fs::is_symlink(status)) text += " -> " + fs::read_symlink(file).string();
    text += "\n";
  }
  return text;
}

}  // namespace sim
