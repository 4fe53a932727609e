#include "simulator/device/device.hpp"

#include <fcntl.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <system_error>

#include "simulator/device/archive.hpp"
#include "simulator/device/error.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/messages.hpp"
#include "simulator/device/packages.hpp"
#include "simulator/device/samples.hpp"
#include "simulator/device/sandbox.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

constexpr std::string_view bundles = "/var/containers/Bundle/Application";
constexpr std::string_view containers = "/var/mobile/Containers/Data/Application";

/// The application's folder in an unpacked archive.
fs::path findBundle(const fs::path& unpacked, const fs::path& archive) {
  std::vector<fs::path> found;
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(unpacked / "Payload", missing)) {
    if (entry.is_directory() && entry.path().extension() == ".app") found.push_back(entry.path());
  }
  if (found.empty()) throw BadInput(archive.string() + " holds no Payload/NAME.app");
  if (found.size() > 1) throw BadInput(archive.string() + " holds more than one Payload/NAME.app");
  return found.front();
}

/// What the home screen's own reader makes of the device, or of the one bundle that is given.
std::vector<Device::Application> readByHomeScreen(const fs::path& device, const std::vector<std::string>& bundle) {
  std::vector<std::string> command{"/run/simulator/installd"};
  command.insert(command.end(), bundle.begin(), bundle.end());
  SandboxedProcess reader(device, {{programFolder().string(), "/run/simulator"}}, command, {});
  const auto answer = Messages(reader.socket()).receive();
  if (!answer) {
    reader.end(std::chrono::seconds(20));
    throw std::runtime_error("cannot tell what is installed: " + reader.output());
  }
  std::vector<Device::Application> applications;
  for (const auto& item : answer->at("applications")) {
    applications.push_back({item.at("id"), item.at("name"), item.at("version"), item.at("bundle").get<std::string>(),
                            item.at("data").get<std::string>()});
  }
  return applications;
}

/// Puts two folders in one another's places, both at once.
void exchange(const fs::path& one, const fs::path& other) {
  if (renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) != 0) {
    throw std::system_error(errno, std::generic_category(), other.string());
  }
}

/// A bundle identifier becomes part of file names.
bool isIdentifier(const std::string& id) {
  return !id.empty() && id.front() != '.' && id.size() < 200 && std::all_of(id.begin(), id.end(), [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '.' || c == '-' || c == '_';
  });
}

nlohmann::ordered_json settingValue(const std::string& text) {
  if (text == "true" || text == "YES") return true;
  if (text == "false" || text == "NO") return false;
  const char* end = text.data() + text.size();
  std::int64_t integer = 0;
  if (const auto [rest, failed] = std::from_chars(text.data(), end, integer); failed == std::errc() && rest == end) {
    return integer;
  }
  // Words such as "nan" are text, though they can be read as numbers.
  double number = 0;
  if (text.find_first_not_of("+-.0123456789eE") == std::string::npos &&
      text.find_first_of("0123456789") != std::string::npos) {
    const auto [rest, failed] = std::from_chars(text.data(), end, number);
    if (failed == std::errc() && rest == end) return number;
  }
  return text;
}

}  // namespace

const std::vector<Device::Marker>& Device::markers() {
  static const std::vector<Marker> table = {
      {"substitute", "/usr/lib/libsubstitute.dylib", "the library of one hooking loader", false},
      {"substrate", "/usr/lib/substrate", "the folder of another hooking loader", true},
      {"unc0ver", "/.installed_unc0ver", "the mark of one installer", false},
  };
  return table;
}

Device::Device(fs::path root) : root_(std::move(root)) {
  std::error_code failed;
  fs::create_directories(root_, failed);
  if (failed || !fs::is_directory(root_)) throw BadInput("cannot make a device in " + root_.string());
  root_ = fs::canonical(root_);
  if (fs::is_empty(root_)) makeSampleDevice(root_);
  if (!fs::is_directory(at(bundles)) || !fs::is_directory(at(containers))) {
    throw BadInput(root_.string() + " is not a device's folder");
  }
  // It is new, or from the time when nothing was installed on devices.
  if (!hasPackages(*this)) {
    makeBasePackage(root_);
    installAddOn(*this);
  }
}

fs::path Device::resolve(const fs::path& path) const {
  constexpr int mostLinks = 40;
  int links = 0;
  std::vector<fs::path> left(path.begin(), path.end());
  std::reverse(left.begin(), left.end());
  fs::path resolved = root_;
  while (!left.empty()) {
    const fs::path part = left.back();
    left.pop_back();
    if (part.empty() || part == "/" || part == ".") continue;
    if (part == "..") {
      if (resolved == root_) throw BadInput(path.string() + " leads out of the device");
      resolved = resolved.parent_path();
      continue;
    }
    const fs::path next = resolved / part;
    std::error_code failed;
    const fs::path target = fs::read_symlink(next, failed);
    if (failed) {
      resolved = next;
      continue;
    }
    if (++links > mostLinks) throw BadInput(path.string() + " has too many symbolic links");
    // A device's absolute links mean its own root, unless what they name is the machine's.
    if (target.is_absolute()) resolved = root_;
    const std::vector<fs::path> parts(target.begin(), target.end());
    left.insert(left.end(), parts.rbegin(), parts.rend());
  }
  return resolved;
}

std::vector<Device::Application> Device::applications() const { return readByHomeScreen(root_, {}); }

std::optional<Device::Application> Device::application(std::string_view id) const {
  for (Application& application : applications()) {
    if (application.id == id) return std::move(application);
  }
  return std::nullopt;
}

Device::Application Device::install(const fs::path& archive) {
  if (!fs::is_regular_file(archive)) throw BadInput("no such file: " + archive.string());
  // On the device, where the home screen's reader sees it and the finished bundle only has to be renamed.
  const TemporaryFolder staging(at(bundles).parent_path());
  const auto onDevice = [&](const fs::path& path) { return "/" / path.lexically_relative(root_); };
  unpack(archive, staging.path() / "archive");
  const fs::path bundle = findBundle(staging.path() / "archive", archive);
  const auto read = readByHomeScreen(root_, {onDevice(bundle)});
  if (read.empty()) throw BadInput(archive.string() + ": Info.plist is missing or tells no CFBundleIdentifier");
  Application installed = read.front();
  if (!isIdentifier(installed.id)) {
    throw BadInput(archive.string() + ": Info.plist has no usable CFBundleIdentifier");
  }

  const auto previous = application(installed.id);
  const fs::path data =
      previous && !previous->data.empty() ? resolve(previous->data) : makeDataContainer(root_, installed.id);
  const fs::path holder = staging.path() / "holder";
  fs::create_directory(holder);
  fs::rename(bundle, holder / bundle.filename());
  const fs::path place =
      previous ? resolve(previous->bundle).parent_path() : at(bundles) / uuid("bundle " + installed.id);
  if (previous) exchange(holder, place);
  else fs::rename(holder, place);
  installed.bundle = onDevice(place / bundle.filename());
  installed.data = onDevice(data);
  return installed;
}

void Device::uninstall(std::string_view id) {
  const auto installed = application(id);
  if (!installed) throw BadInput("no application " + std::string(id));
  fs::remove_all(resolve(installed->bundle).parent_path());
  if (!installed->data.empty()) fs::remove_all(resolve(installed->data));
}

bool Device::filzaInstalled() const { return application(filza).has_value(); }

void Device::setFilzaInstalled(bool installed) {
  const auto present = application(filza);
  if (installed && !present) makeSampleApplication(root_, filza);
  if (!installed && present) fs::remove_all(resolve(present->bundle).parent_path());
}

void Device::setMarker(std::string_view name, bool present) {
  for (const Marker& marker : markers()) {
    if (marker.name != name) continue;
    if (!present) fs::remove_all(at(marker.path));
    else if (marker.folder) fs::create_directories(at(marker.path));
    else writeFile(at(marker.path), "");
    return;
  }
  throw BadInput("no marker " + std::string(name));
}

nlohmann::ordered_json Device::settingsIn(const std::vector<std::string>& assignments) {
  auto values = nlohmann::ordered_json::object();
  for (const std::string& assignment : assignments) {
    const std::size_t sign = assignment.find('=');
    if (sign == std::string::npos || sign == 0) throw BadInput("not KEY=VALUE: " + assignment);
    const std::string value = assignment.substr(sign + 1);
    values[assignment.substr(0, sign)] = value.empty() ? nullptr : settingValue(value);
  }
  return values;
}

void Device::setSettings(const std::vector<std::string>& assignments) {
  const auto values = settingsIn(assignments);
  const fs::path file = resolve(settingsFile);
  PropertyList settings = PropertyList::read(file).value_or(PropertyList());
  if (!settings.isDictionary()) settings = PropertyList();
  for (const auto& [key, value] : values.items()) {
    if (value.is_null()) settings.remove(key);
    else settings.set(key, value);
  }
  settings.write(file, PropertyList::Format::binary);
}

std::string Device::uuid(std::string_view seed) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  std::uint64_t hash = 0xCBF29CE484222325U;
  for (int index = 0; index < 32; ++index) {
    if (index == 8 || index == 12 || index == 16 || index == 20) text += '-';
    for (const unsigned char byte : seed) hash = (hash ^ byte) * 0x100000001B3U;
    hash ^= hash >> 29U;
    text += digits[hash >> 60U];
  }
  return text;
}

}  // namespace sim
