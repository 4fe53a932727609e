#include "tests/support/phone.hpp"

#include <algorithm>
#include <stdexcept>

#include "simulator/device/files.hpp"
#include "simulator/device/transfer.hpp"
#include "tests/support/places.hpp"

namespace test {
namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

// In seconds: the rename dialog has come, and a new menu may open.
constexpr double longerThanAnyGuard = 1;

sim::Phone::Options prepared(sim::Phone::Options options, sim::Generation generation, const fs::path& device) {
  options.generation = generation;
  options.device = device;
  options.buildFolder = buildFolder;
  // A message to an object that is gone ends the process, instead of working by chance.
  options.environment.insert({{"NSZombieEnabled", "YES"}, {"CRASH_ON_ZOMBIE", "YES"}});
  return options;
}

void write(const fs::path& file, const Json& content) {
  fs::create_directories(file.parent_path());
  sim::PropertyList(content).write(file);
}

}  // namespace

Phone::Phone(sim::Generation generation, sim::Phone::Options options)
    : sim::Phone(prepared(std::move(options), generation, folder.path() / "device")) {}

fs::path Phone::path(const std::string& onPhone) const { return device().root() / onPhone.substr(1); }

fs::path Phone::container(const std::string& id) const { return path(device().application(id)->data.string()); }
fs::path Phone::bundle(const std::string& id) const { return path(device().application(id)->bundle.string()); }

void Phone::install(const App& app) {
  Json info{{"CFBundleIdentifier", app.id}, {"CFBundleDisplayName", app.name}, {"CFBundleShortVersionString", "2.5"}};
  for (const auto& [key, value] : app.info.items()) {
    if (value.is_null()) {
      info.erase(key);
    } else {
      info[key] = value;
    }
  }
  const std::string uuid = sim::Device::uuid(app.id);
  write(path("/var/containers/Bundle/Application/" + uuid + "/" + app.folder + "/Info.plist"), info);
  if (app.hasContainer) {
    const auto data = path("/var/mobile/Containers/Data/Application/" + uuid);
    write(data / ".com.apple.mobile_container_manager.metadata.plist", {{"MCMMetadataIdentifier", app.id}});
    fs::create_directories(data / "Documents");
    fs::create_directories(data / (app.hasCaches ? "Library/Caches" : "Library"));
  }
  rescanIfBooted();
}

void Phone::removeAddOn() { removePackage(sim::addOnPackage); }

void Phone::useAddOn(const fs::path& image) {
  sim::putOnDevice(device(), image, "/Library/MobileSubstrate/DynamicLibraries/Sprigdial.dylib");
}

void Phone::removeFileManager() { setFilzaInstalled(false); }

void Phone::setBadge(const std::string& id, const Json& badge) {
  write(path("/var/mobile/Library/SpringBoard/applicationState.plist"), {{id, {{"badge", badge}}}});
  rescanIfBooted();
}

void Phone::rescanIfBooted() {
  if (booted()) rescan();
}

void Phone::addCache(const std::string& id, const std::string& name, std::uint64_t size) {
  sim::writeSparseFile(container(id) / "Library/Caches" / name, size);
}

Phone& Phone::touchInSpite(const std::string& id) {
  ask("perform", {{"selector", "_addTouchedIconView:"}, {"view", id}});
  return *this;
}

Phone& Phone::openMenuInSpite(const std::string& id) {
  touchInSpite(id);
  perform("showAlertView");
  return *this;
}

Phone& Phone::openMenu(const std::string& id) {
  swipeUp(id);
  return *this;
}

Phone& Phone::openRenameDialog(const std::string& id) {
  openMenu(id);
  tap("Rename App").advance(longerThanAnyGuard);
  return *this;
}

Phone& Phone::rename(const std::string& id, const std::string& name) {
  openRenameDialog(id);
  type(name).tap("Apply");
  return *this;
}

sim::IconOnScreen Phone::icon(const std::string& id) {
  const Screen seen = screen();
  const auto* found = seen.icon(id);
  if (found == nullptr) throw std::runtime_error("no icon " + id);
  return *found;
}

std::optional<std::string> Phone::storedName(const std::string& id) const {
  const auto settings = sim::PropertyList::read(settingsFile());
  return settings ? settings->text(id) : std::nullopt;
}

void Phone::storeFromOutside(const std::string& id, const Json& name) {
  auto settings = sim::PropertyList::read(settingsFile()).value_or(sim::PropertyList());
  settings.set(id, name);
  settings.write(settingsFile());
}

std::vector<sim::Phone::Call> Phone::callsDuring(const std::function<void()>& action) {
  const auto before = static_cast<std::ptrdiff_t>(logMessages(true).calls().size());
  action();
  auto calls = logMessages(false).calls();
  calls.erase(calls.begin(), calls.begin() + before);
  return calls;
}

AlertOnScreen Phone::alert() { return sheet(); }

bool Phone::showsAlert() { return screen().topAlert() != nullptr; }

std::vector<std::string> Phone::buttons() { return alert().titles(); }

bool Phone::hasButton(const std::string& title) {
  const auto titles = buttons();
  return std::find(titles.begin(), titles.end(), title) != titles.end();
}

std::string Phone::cacheTitle() {
  for (const auto& title : buttons())
    if (title.rfind("Clear Caches", 0) == 0) return title;
  return "no cache entry";
}

long Phone::live(const std::string& name) {
  const auto counts = live();
  const auto found = counts.find(name);
  return found != counts.end() ? found->second : 0;
}

std::map<std::string, std::string> filesBelow(const fs::path& folder) {
  std::map<std::string, std::string> all;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const auto status = entry.symlink_status();
    std::string content;
    if (fs::is_symlink(status)) content = "-> " + fs::read_symlink(entry).string();
    if (fs::is_regular_file(status)) content = sim::readFile(entry).value_or("unreadable");
    all[entry.path().string()] = std::to_string(static_cast<unsigned>(status.permissions())) + " " + content;
  }
  return all;
}

std::string runInside(const sim::Device& device, const std::string& program) {
  sim::SandboxedProcess process(device.root(), {{buildFolder, "/run/simulator"}}, {"/run/simulator/" + program}, {});
  if (const auto status = process.end(std::chrono::seconds(60)); status != 0)
    throw std::runtime_error(program + " failed: " + process.output());
  // Foundation may have something to say before.
  std::string output = process.output();
  output.erase(output.find_last_not_of('\n') + 1);
  return output.substr(output.find_last_of('\n') + 1);
}

}  // namespace test
