#include "simulator/device/device.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "simulator/control/error.hpp"
#include "simulator/device/archive.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/samples.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

constexpr std::string_view bundles = "/var/containers/Bundle/Application";
constexpr std::string_view containers = "/var/mobile/Containers/Data/Application";
constexpr const char* containerDescription = ".com.apple.mobile_container_manager.metadata.plist";

std::string applicationName(const PropertyList& info, const fs::path& bundle) {
  for (const char* key : {"CFBundleDisplayName", "CFBundleName"}) {
    if (auto name = info.text(key)) return *name;
  }
  return bundle.stem().string();
}

/// The application's folder in an unpacked archive.
fs::path findBundle(const fs::path& unpacked, const fs::path& archive) {
  std::error_code missing;
  for (const auto& entry : fs::directory_iterator(unpacked / "Payload", missing)) {
    if (entry.is_directory() && entry.path().extension() == ".app") return entry.path();
  }
  throw BadInput(archive.string() + " holds no Payload/NAME.app");
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

std::vector<Device::Application> Device::applications() const {
  std::vector<std::pair<std::string, fs::path>> data;
  for (const auto& entry : fs::directory_iterator(at(containers))) {
    const auto description = PropertyList::read(entry.path() / containerDescription);
    if (!description) continue;
    if (auto id = description->text("MCMMetadataIdentifier")) {
      data.emplace_back(*id, fs::path(containers) / entry.path().filename());
    }
  }
  std::vector<Application> found;
  for (const auto& holder : fs::directory_iterator(at(bundles))) {
    if (!holder.is_directory()) continue;
    for (const auto& bundle : fs::directory_iterator(holder)) {
      const auto info = PropertyList::read(bundle.path() / "Info.plist");
      if (bundle.path().extension() != ".app" || !info) continue;
      const auto id = info->text("CFBundleIdentifier");
      if (!id) continue;
      const auto own = std::find_if(data.begin(), data.end(), [&](const auto& item) { return item.first == *id; });
      found.push_back({*id, applicationName(*info, bundle.path()),
                       fs::path(bundles) / holder.path().filename() / bundle.path().filename(),
                       own != data.end() ? own->second : fs::path()});
    }
  }
  std::sort(found.begin(), found.end(), [](const Application& a, const Application& b) { return a.id < b.id; });
  return found;
}

std::optional<Device::Application> Device::application(std::string_view id) const {
  for (Application& application : applications()) {
    if (application.id == id) return std::move(application);
  }
  return std::nullopt;
}

std::string Device::install(const fs::path& archive) {
  if (!fs::is_regular_file(archive)) throw BadInput("no such file: " + archive.string());
  // On the device, so that the finished bundle only has to be renamed.
  const TemporaryFolder unpacked(at("/tmp"));
  unpack(archive, unpacked.path());
  const fs::path bundle = findBundle(unpacked.path(), archive);
  const auto info = PropertyList::read(bundle / "Info.plist");
  if (!info) throw BadInput(archive.string() + ": Info.plist is missing or no property list");
  std::string id = info->text("CFBundleIdentifier").value_or("");
  if (!isIdentifier(id)) throw BadInput(archive.string() + ": Info.plist has no usable CFBundleIdentifier");

  const fs::path holder = at(bundles) / uuid("bundle " + id);
  const auto previous = application(id);
  if (previous) fs::rename(resolve(previous->bundle).parent_path(), unpacked.path() / "previous");
  fs::create_directories(holder);
  fs::rename(bundle, holder / bundle.filename());
  if (!previous || previous->data.empty()) makeDataContainer(root_, id);
  return id;
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

void Device::setSettings(const std::vector<std::string>& assignments) {
  const fs::path file = resolve(settingsFile);
  PropertyList settings = PropertyList::read(file).value_or(PropertyList());
  if (!settings.isDictionary()) settings = PropertyList();
  for (const std::string& assignment : assignments) {
    const std::size_t sign = assignment.find('=');
    if (sign == std::string::npos || sign == 0) throw BadInput("not KEY=VALUE: " + assignment);
    const std::string key = assignment.substr(0, sign);
    const std::string value = assignment.substr(sign + 1);
    if (value.empty()) settings.remove(key);
    else settings.set(key, settingValue(value));
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
