#include "simulator/device/package_file.hpp"

#include <sys/stat.h>

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>

#include "simulator/device/archive_reader.hpp"
#include "simulator/device/error.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

using Form = ArchiveReader::Form;

/// What a device takes: a phone's packages, those that this PC's build makes in their place, and what has no images.
constexpr std::string_view architectures[] = {"iphoneos-arm", "pc", "all"};
/// What may come with a package.
constexpr std::string_view memberNames[] = {"control", "md5sums", "postinst", "postrm"};

bool contains(const auto& list, std::string_view word) {
  return std::find(std::begin(list), std::end(list), word) != std::end(list);
}

std::map<std::string, std::string> membersIn(const fs::path& file, std::string content) {
  ArchiveReader reader(std::move(content), file, Form::tar);
  std::map<std::string, std::string> members;
  while (archive_entry* entry = reader.next()) {
    if (archive_entry_filetype(entry) == S_IFDIR) continue;
    const std::string name = reader.path().string();
    if (archive_entry_filetype(entry) != S_IFREG || !contains(memberNames, name)) {
      reader.refuse("is nothing that this device's installer knows");
    }
    members[name] = reader.content();
  }
  return members;
}

std::vector<PackageFile::Entry> entriesIn(const fs::path& file, std::string content) {
  ArchiveReader reader(std::move(content), file, Form::tar);
  std::vector<PackageFile::Entry> entries;
  std::set<fs::path> files;
  while (archive_entry* entry = reader.next()) {
    fs::path path = ("/" / reader.path()).lexically_normal();
    if (!path.has_filename() && path != "/") path = path.parent_path();
    const auto type = archive_entry_filetype(entry);
    if (archive_entry_hardlink(entry) != nullptr || type == S_IFLNK) reader.refuse("is a link");
    if (type != S_IFREG && type != S_IFDIR) reader.refuse("is no file or folder");
    const bool folder = type == S_IFDIR;
    for (fs::path above = path; above != "/"; above = above.parent_path()) {
      if (files.contains(above)) reader.refuse("is there already");
    }
    if (!folder) files.insert(path);
    if (path != "/") {
      entries.push_back({path, folder, archive_entry_perm(entry) & 0777, folder ? "" : reader.content()});
    }
  }
  return entries;
}

bool isName(const std::string& name) {
  return name.size() > 1 && std::isalnum(static_cast<unsigned char>(name.front())) != 0 &&
         std::all_of(name.begin(), name.end(), [](unsigned char c) {
           return std::islower(c) != 0 || std::isdigit(c) != 0 || c == '+' || c == '-' || c == '.';
         });
}

}  // namespace

std::string fieldOf(std::string_view paragraph, std::string_view name) {
  for (std::size_t start = 0; start < paragraph.size();) {
    const std::size_t end = std::min(paragraph.find('\n', start), paragraph.size());
    const std::string_view line = paragraph.substr(start, end - start);
    if (line.starts_with(name) && line.substr(name.size()).starts_with(":")) {
      const std::size_t value = line.find_first_not_of(" \t", name.size() + 1);
      return value == std::string_view::npos
                 ? ""
                 : std::string(line.substr(value, line.find_last_not_of(" \t\r") + 1 - value));
    }
    start = end + 1;
  }
  return {};
}

PackageFile readPackage(const fs::path& file) {
  if (!fs::is_regular_file(file)) throw BadInput("no such file: " + file.string());
  const auto refuse = [&](const std::string& reason) { throw BadInput(file.string() + " " + reason); };
  std::optional<std::string> format;
  std::optional<std::string> control;
  std::optional<std::string> data;
  ArchiveReader reader(file, Form::ar);
  while (archive_entry* entry = reader.next()) {
    const std::string name = archive_entry_pathname(entry);
    if (name == "debian-binary") format = reader.content();
    else if (name.starts_with("control.tar")) control = reader.content();
    else if (name.starts_with("data.tar")) data = reader.content();
  }
  if (!format || !format->starts_with("2.") || !control || !data) refuse("is no package");

  PackageFile package;
  package.members = membersIn(file, *std::move(control));
  package.control = package.members["control"];
  package.members.erase("control");
  while (package.control.ends_with('\n')) package.control.pop_back();
  package.control += '\n';
  if (!isName(package.field("Package")) || package.field("Version").empty() ||
      package.control.find("\n\n") != std::string::npos) {
    refuse("tells no usable name and version");
  }
  if (const std::string architecture = package.field("Architecture"); !contains(architectures, architecture)) {
    refuse("is for another kind of device: " + architecture);
  }
  package.entries = entriesIn(file, *std::move(data));
  return package;
}

}  // namespace sim
