#include "simulator/device/packages.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <ranges>
#include <set>
#include <sstream>
#include <system_error>

#include "simulator/device/error.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/package_file.hpp"
#include "simulator/device/sandbox.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

using Paths = std::vector<fs::path>;

constexpr std::string_view databaseFolder = "/var/lib/dpkg";
constexpr std::string_view statusFile = "/var/lib/dpkg/status";

fs::path infoFile(std::string_view package, std::string_view kind) {
  return fs::path(databaseFolder) / "info" / std::string(package).append(".").append(kind);
}

/// The paragraphs of the status file, each of a package, by name.
std::map<std::string, std::string> readStatus(const Device& device) {
  std::map<std::string, std::string> packages;
  std::istringstream lines(readFile(device.resolve(statusFile)).value_or(""));
  std::string paragraph;
  const auto close = [&] {
    if (!paragraph.empty()) packages[fieldOf(paragraph, "Package")] = paragraph;
    paragraph.clear();
  };
  for (std::string line; std::getline(lines, line);) {
    if (line.empty()) close();
    else paragraph += line + "\n";
  }
  close();
  return packages;
}

void writeStatus(const fs::path& file, const std::map<std::string, std::string>& packages) {
  std::string text;
  for (const auto& [name, paragraph] : packages) text += paragraph + "\n";
  writeFile(file, text);
}

/// A package's paragraph with that state in it, behind the name.
std::string withState(std::string_view control, std::string_view state) {
  const std::size_t behind = control.find('\n') + 1;
  return std::string(control.substr(0, behind))
      .append("Status: install ok ")
      .append(state)
      .append("\n")
      .append(control.substr(behind));
}

void setState(const Device& device, const std::string& name, std::string_view control, std::string_view state) {
  auto packages = readStatus(device);
  packages[name] = withState(control, state);
  writeStatus(device.resolve(statusFile), packages);
}

std::string listOf(const Paths& paths) {
  std::string text = "/.\n";
  for (const fs::path& path : paths) text += path.string() + "\n";
  return text;
}

/// What a package has put onto the device: files, and folders before what they hold.
Paths pathsOf(const Device& device, std::string_view package) {
  Paths paths;
  std::istringstream lines(readFile(device.resolve(infoFile(package, "list"))).value_or(""));
  for (std::string line; std::getline(lines, line);) {
    if (line != "/.") paths.emplace_back(line);
  }
  return paths;
}

/// What other packages have put there, and which of them.
std::map<fs::path, std::string> pathsOfOthers(const Device& device, std::string_view package) {
  std::map<fs::path, std::string> owners;
  for (const auto& [name, paragraph] : readStatus(device)) {
    if (name == package) continue;
    for (const fs::path& path : pathsOf(device, name)) owners[path] = name;
  }
  return owners;
}

/// Where an entry is on this PC; a link that is there is not followed.
fs::path placeOf(const Device& device, const fs::path& path) {
  return device.resolve(path.parent_path()) / path.filename();
}

/// Refuses what cannot be put in its place.
void checkPlaces(const Device& device, const PackageFile& package, const std::map<fs::path, std::string>& others) {
  for (const PackageFile::Entry& entry : package.entries) {
    const auto refuse = [&](const std::string& reason) { throw BadInput(entry.path.string() + " " + reason); };
    const fs::path place = entry.folder ? device.resolve(entry.path) : placeOf(device, entry.path);
    if (entry.folder && fs::exists(place) && !fs::is_directory(place)) refuse("is a file on the device");
    if (!entry.folder && fs::is_directory(fs::symlink_status(place))) refuse("is a folder on the device");
    if (const auto owner = others.find(entry.path); !entry.folder && owner != others.end()) {
      refuse("belongs to " + owner->second);
    }
    fs::path above = place.parent_path();
    while (!fs::exists(above)) above = above.parent_path();
    if (!fs::is_directory(above)) refuse("would be in a file");
  }
}

/// Puts all in its place; each file appears whole.
void put(const Device& device, const PackageFile& package) {
  const TemporaryFolder staging(device.resolve(databaseFolder));
  const fs::path staged = staging.path() / "file";
  for (const PackageFile::Entry& entry : package.entries) {
    const auto permissions = static_cast<fs::perms>(entry.permissions);
    if (entry.folder) {
      const fs::path place = device.resolve(entry.path);
      if (fs::create_directories(place)) fs::permissions(place, permissions | fs::perms::owner_all);
      continue;
    }
    std::ofstream stream(staged, std::ios::binary);
    stream.write(entry.content.data(), static_cast<std::streamsize>(entry.content.size()));
    stream.close();
    if (!stream) throw std::system_error(errno, std::generic_category(), entry.path.string());
    fs::permissions(staged, permissions);
    const fs::path place = placeOf(device, entry.path);
    fs::create_directories(place.parent_path());
    fs::rename(staged, place);
  }
}

/// Takes these away, folders only when they are empty then and no other package's.
void takeAway(const Device& device, const Paths& paths, const std::map<fs::path, std::string>& others) {
  for (const fs::path& path : std::ranges::reverse_view(paths)) {
    if (others.contains(path)) continue;
    std::error_code notEmpty;
    fs::remove(placeOf(device, path), notEmpty);
  }
}

/// Runs one of the package's scripts, if it has it, inside the device, as an installer that listens; gives whether it
/// asks for a new home screen.
bool runScript(const Device& device, const std::string& package, const char* event, const char* word) {
  const fs::path script = infoFile(package, event);
  if (!fs::exists(device.resolve(script))) return false;
  SandboxedProcess process(device.root(), {}, {script.string(), word}, {{"CYDIA", "3 1"}});
  const auto status = process.end(std::chrono::seconds(60));
  if (status != 0) throw BadInput(package + ": its script " + event + " failed; it said: " + process.output());
  char asked[256];
  const ssize_t size = recv(process.socket(), asked, sizeof asked, MSG_DONTWAIT);
  return std::string_view(asked, static_cast<std::size_t>(std::max<ssize_t>(size, 0))) == "finish:restart\n";
}

/// Unpacks it and notes it in the database as unpacked.
PackageFile unpackPackage(const Device& device, const fs::path& file) {
  PackageFile package = readPackage(file);
  const std::string name = package.field("Package");
  const auto others = pathsOfOthers(device, name);
  checkPlaces(device, package, others);
  put(device, package);

  Paths paths;
  for (const PackageFile::Entry& entry : package.entries) paths.push_back(entry.path);
  Paths left = pathsOf(device, name);
  const std::set<fs::path> kept(paths.begin(), paths.end());
  std::erase_if(left, [&](const fs::path& path) { return kept.contains(path); });
  takeAway(device, left, others);

  for (const char* kind : {"md5sums", "postinst", "postrm"}) {
    const fs::path place = device.resolve(infoFile(name, kind));
    const auto member = package.members.find(kind);
    fs::remove(place);
    if (member == package.members.end()) continue;
    writeFile(place, member->second);
    fs::permissions(place, kind == std::string_view("md5sums") ? fs::perms(0644) : fs::perms(0755));
  }
  writeFile(device.resolve(infoFile(name, "list")), listOf(paths));
  setState(device, name, package.control, "unpacked");
  return package;
}

}  // namespace

std::vector<Package> installedPackages(const Device& device) {
  std::vector<Package> packages;
  for (const auto& [name, paragraph] : readStatus(device)) packages.push_back({name, fieldOf(paragraph, "Version")});
  return packages;
}

Package installPackage(const Device& device, const fs::path& file) {
  const PackageFile unpacked = unpackPackage(device, file);
  Package package{unpacked.field("Package"), unpacked.field("Version")};
  package.wantsRestart = runScript(device, package.name, "postinst", "configure");
  setState(device, package.name, unpacked.control, "installed");
  return package;
}

Package removePackage(const Device& device, std::string_view name) {
  auto packages = readStatus(device);
  const auto found = packages.find(std::string(name));
  if (found == packages.end()) throw BadInput("no package " + std::string(name) + " is installed");
  if (fieldOf(found->second, "Essential") == "yes") throw BadInput("no device works without " + found->first);
  Package package{found->first, fieldOf(found->second, "Version")};
  takeAway(device, pathsOf(device, name), pathsOfOthers(device, name));
  package.wantsRestart = runScript(device, package.name, "postrm", "remove");
  for (const char* kind : {"list", "md5sums", "postinst", "postrm"}) fs::remove(device.resolve(infoFile(name, kind)));
  packages.erase(found);
  writeStatus(device.resolve(statusFile), packages);
  return package;
}

bool hasPackages(const Device& device) { return fs::exists(device.resolve(statusFile)); }

void installAddOn(const Device& device) {
  const PackageFile unpacked = unpackPackage(device, programFolder() / "Sprigdial.deb");
  setState(device, unpacked.field("Package"), unpacked.control, "installed");
}

void updateAddOn(const Device& device) {
  if (readStatus(device).contains(std::string(addOnPackage))) installAddOn(device);
}

void makePackageDatabase(const fs::path& root, const Paths& folders) {
  writeFile(root / infoFile("base", "list").relative_path(), listOf(folders));
  writeStatus(root / fs::path(statusFile).relative_path(),
              {{"base", withState("Package: base\nEssential: yes\nVersion: 1\nArchitecture: iphoneos-arm\n"
                                  "Description: the folders that every device has\n",
                                  "installed")}});
}

}  // namespace sim
