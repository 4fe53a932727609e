#include "tests/support/home.hpp"

#include <algorithm>
#include <stdexcept>

#include "simulator/device/files.hpp"
#include "tests/support/places.hpp"

namespace test {
namespace {

using Json = nlohmann::ordered_json;
namespace fs = std::filesystem;

constexpr double wellAboveAnyThreshold = 20;
// In seconds: the rename dialog has come, and a new menu may open.
constexpr double longerThanAnyGuard = 1;

sim::HomeScreen::Options prepared(sim::HomeScreen::Options options, sim::Generation generation,
                                  const fs::path& device) {
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

Home::Home(sim::Generation generation, sim::HomeScreen::Options options)
    : device_(folder_.path() / "device"), options_(prepared(std::move(options), generation, device_.root())) {}

sim::HomeScreen& Home::operator*() {
  if (!process_) process_.emplace(options_);
  return *process_;
}

sim::HomeScreen* Home::operator->() { return &**this; }

fs::path Home::path(const std::string& onPhone) const { return device_.root() / onPhone.substr(1); }

fs::path Home::container(const std::string& id) const { return path(device_.application(id)->data.string()); }
fs::path Home::bundle(const std::string& id) const { return path(device_.application(id)->bundle.string()); }

void Home::install(const App& app) {
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
  rescan();
}

void Home::uninstall(const std::string& id) {
  device_.uninstall(id);
  rescan();
}

void Home::removeFileManager() {
  device_.setFilzaInstalled(false);
  rescan();
}

void Home::setBadge(const std::string& id, const Json& badge) {
  write(path("/var/mobile/Library/SpringBoard/applicationState.plist"), {{id, {{"badge", badge}}}});
  rescan();
}

void Home::rescan() {
  if (process_) process_->rescan();
}

void Home::addCache(const std::string& id, const std::string& name, std::uint64_t size) {
  sim::writeSparseFile(container(id) / "Library/Caches" / name, size);
}

Home& Home::settings(const std::vector<std::string>& pairs) {
  if (process_) {
    process_->settings(pairs);
  } else {
    device_.setSettings(pairs);
  }
  return *this;
}

Home& Home::openMenu(const std::string& id) { return swipeUp(id, 0, -wellAboveAnyThreshold); }

Home& Home::swipeUp(const std::string& id, double dx, double dy) {
  (**this).swipe(id, {{dx, dy}});
  return *this;
}

Home& Home::openRenameDialog(const std::string& id) {
  openMenu(id);
  (**this).tap("Rename App").advance(longerThanAnyGuard);
  return *this;
}

Home& Home::rename(const std::string& id, const std::string& name) {
  openRenameDialog(id);
  (**this).type(name).tap("Apply");
  return *this;
}

sim::IconOnScreen Home::icon(const std::string& id) {
  const Screen seen = screen();
  const auto* found = seen.icon(id);
  if (found == nullptr) throw std::runtime_error("no icon " + id);
  return *found;
}

std::optional<std::string> Home::storedName(const std::string& id) const {
  const auto settings = sim::PropertyList::read(settingsFile());
  return settings ? settings->text(id) : std::nullopt;
}

void Home::storeFromOutside(const std::string& id, const Json& name) {
  auto settings = sim::PropertyList::read(settingsFile()).value_or(sim::PropertyList());
  settings.set(id, name);
  settings.write(settingsFile());
}

std::vector<sim::HomeScreen::Call> Home::callsDuring(const std::function<void()>& action) {
  const auto before = static_cast<std::ptrdiff_t>((**this).logMessages(true).calls().size());
  action();
  auto calls = (**this).logMessages(false).calls();
  calls.erase(calls.begin(), calls.begin() + before);
  return calls;
}

Screen Home::screen() { return (**this).screen(); }

AlertOnScreen Home::alert() { return (**this).sheet(); }

bool Home::showsAlert() { return screen().topAlert() != nullptr; }

std::vector<std::string> Home::buttons() { return alert().titles(); }

bool Home::hasButton(const std::string& title) {
  const auto titles = buttons();
  return std::find(titles.begin(), titles.end(), title) != titles.end();
}

std::string Home::cacheTitle() {
  for (const auto& title : buttons())
    if (title.rfind("Clear Caches", 0) == 0) return title;
  return "no cache entry";
}

long Home::live(const std::string& name) {
  const auto counts = (**this).live();
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
  sim::SandboxedProcess process(device.root(), buildFolder, {"/run/simulator/" + program}, {});
  if (const auto status = process.end(std::chrono::seconds(60)); status != 0)
    throw std::runtime_error(program + " failed: " + process.output());
  // Foundation may have something to say before.
  std::string output = process.output();
  output.erase(output.find_last_not_of('\n') + 1);
  return output.substr(output.find_last_of('\n') + 1);
}

}  // namespace test
