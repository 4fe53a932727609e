#include "simulator/device/samples.hpp"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "simulator/device/device.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/image.hpp"
#include "simulator/device/packages.hpp"
#include "simulator/device/property_list.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

using Json = nlohmann::ordered_json;
using Format = PropertyList::Format;

/// Many files of one size in a folder of the data container, their names numbered.
struct Files {
  std::string folder;
  int count;
  std::uint64_t size;
};

struct Sample {
  std::string id, folder;  ///< the bundle's folder, without its suffix
  Format format;
  Json info;   ///< what Info.plist holds besides what every application has
  Json badge;  ///< null without one
  std::vector<Files> data;
};

Json urlType(const Json& name, const Json& schemes) {
  Json type = {{"CFBundleTypeRole", "Editor"}};
  if (!name.is_null()) type["CFBundleURLName"] = name;
  type["CFBundleURLSchemes"] = schemes;
  return type;
}

Json quickAction(const std::string& type, const std::string& title, const std::string& subtitle) {
  Json action = {{"UIApplicationShortcutItemType", type}, {"UIApplicationShortcutItemTitle", title}};
  if (!subtitle.empty()) action["UIApplicationShortcutItemSubtitle"] = subtitle;
  return action;
}

const std::vector<Sample>& samples() {
  static const std::vector<Sample> table = {
      {"com.example.notes",
       "Notes",
       Format::xml,
       {{"CFBundleDisplayName", "Notes"},
        {"CFBundleShortVersionString", "1.2.3"},
        {"CFBundleURLTypes", Json::array({urlType("Notes", {"example-notes"})})},
        {"UIApplicationShortcutItems",
         Json::array({quickAction("new", "New Note", ""), quickAction("find", "Search", "In all notes")})}},
       3,
       {{"Documents/Notebook", 12, 2'048}, {"Library/Caches/Thumbnails", 3, 524'288}}},
      {"com.example.weather",
       "Weather",
       Format::binary,
       {{"CFBundleDisplayName", "Weather"},
        {"CFBundleShortVersionString", "4.0"},
        {"CFBundleURLTypes", Json::array({urlType("Forecast", {"example-weather", "example-forecast"}),
                                          urlType("Maps", {"example-radar"}), urlType(nullptr, {"example-sky"})})}},
       nullptr,
       {{"Library/Caches", 2, 1'048'576}}},
      {"com.example.photobox",
       "PhotoBox",
       Format::binary,
       {{"CFBundleDisplayName", "PhotoBox"}, {"CFBundleShortVersionString", "10.1"}},
       nullptr,
       {{"Documents/Albums", 4, 65'536},
        {"Library/Caches/Previews/Small", 40, 81'920},
        {"Library/Caches/Previews/Large", 30, 327'680}}},
      {"com.example.travel",
       "Travel Planner",
       Format::xml,
       {{"CFBundleDisplayName", "Travel Planner"}, {"CFBundleShortVersionString", "2.5"}},
       nullptr,
       {{"Library/Caches", 1, 1'572'864}}},
      {"com.example.prototype",
       "Prototype",
       Format::xml,
       {{"CFBundleDisplayName", "Prototype"}, {"CFBundleVersion", "17"}},
       nullptr,
       {}},
      {"com.example.caffe",
       "Caffe",
       Format::binary,
       {{"CFBundleDisplayName", "Caffè ☕️"}, {"CFBundleShortVersionString", "3.1.4"}},
       nullptr,
       {{"Documents", 2, 700}}},
      {"com.example.mail",
       "Mail",
       Format::binary,
       {{"CFBundleDisplayName", "Mail"},
        {"CFBundleShortVersionString", "7.0.1"},
        {"CFBundleURLTypes", Json::array({urlType("Letter", {"example-letter"}), Json{{"CFBundleURLName", "Empty"}}})},
        {"UIApplicationShortcutItems", Json::array({quickAction("compose", "New Message", "")})}},
       "New",
       {{"Library/Caches/Attachments", 20, 10'000}}},
      {"com.example.clock",
       "Clock",
       Format::xml,
       {{"CFBundleDisplayName", "Clock"}, {"CFBundleShortVersionString", "1.0"}},
       nullptr,
       {}},
      {"com.example.chess",
       "Chess",
       Format::binary,
       {{"CFBundleName", "Chess"}, {"CFBundleShortVersionString", "5.2"}},
       nullptr,
       {{"Documents/Games", 30, 1'200}, {"Library/Caches", 1, 2'097'000}}},
      {std::string(Device::filza),
       "Filza",
       Format::xml,
       {{"CFBundleDisplayName", "Filza"},
        {"CFBundleShortVersionString", "3.9"},
        {"CFBundleURLTypes", Json::array({urlType("Filza", {"filza"})})}},
       nullptr,
       {}},
  };
  return table;
}

/// The folders of a device; those that the machine's own are mounted on stay empty.
constexpr const char* folders[] = {
    "var/mobile/Documents",
    "var/mobile/Library/Preferences",
    "var/mobile/Library/SpringBoard",
    "var/mobile/Library/WebClips",
    "var/mobile/Containers/Data/Application",
    "var/containers/Bundle/Application",
    "var/lib/dpkg/info",
    "Library/MobileSubstrate/DynamicLibraries",
    "Library/PreferenceBundles",
    "Library/PreferenceLoader/Preferences",
    "usr/bin",
    "usr/lib/GNUstep",
    "usr/share/doc",
    "bin",
    "lib",
    "lib64",
    "etc",
    "dev",
    "proc",
    "tmp",
    "run/simulator",
};

void makeFolders(const fs::path& root) {
  for (const char* folder : folders) fs::create_directories(root / folder);
}

void makeData(const fs::path& container, const Sample& sample) {
  PropertyList(Json{{"FirstStart", false}, {"Starts", 7}})
      .write(container / "Library/Preferences" / (sample.id + ".plist"), Format::binary);
  writeFile(container / "Documents/Read me.txt", "Data of " + sample.id + ".\n");
  for (const Files& files : sample.data) {
    for (int number = 1; number <= files.count; ++number) {
      const std::string name = "item-" + std::to_string(number) + ".data";
      writeSparseFile(container / files.folder / name, files.size);
    }
  }
}

void makeApplication(const fs::path& root, const Sample& sample) {
  const fs::path bundle =
      root / "var/containers/Bundle/Application" / Device::uuid("bundle " + sample.id) / (sample.folder + ".app");
  Json info = {{"CFBundleIdentifier", sample.id},
               {"CFBundleExecutable", sample.folder},
               {"CFBundleName", sample.folder},
               {"CFBundlePackageType", "APPL"},
               {"MinimumOSVersion", "10.0"}};
  info.update(sample.info);
  PropertyList(info).write(bundle / "Info.plist", sample.format);
  writeSparseFile(bundle / sample.folder, 32'768);
  writeFile(bundle / "Icon.png", dialImage(60));
  const fs::path container = root / "var/mobile/Containers/Data/Application" / Device::uuid("data " + sample.id);
  if (fs::exists(container)) return;
  makeData(makeDataContainer(root, sample.id), sample);
}

}  // namespace

fs::path makeDataContainer(const fs::path& root, std::string_view id) {
  fs::path container = root / "var/mobile/Containers/Data/Application" / Device::uuid("data " + std::string(id));
  for (const char* folder : {"Documents", "Library/Caches", "Library/Preferences", "tmp"}) {
    fs::create_directories(container / folder);
  }
  PropertyList(Json{{"MCMMetadataContentClass", 2}, {"MCMMetadataIdentifier", id}})
      .write(container / ".com.apple.mobile_container_manager.metadata.plist", Format::binary);
  return container;
}

void makeSampleApplication(const fs::path& root, std::string_view id) {
  for (const Sample& sample : samples()) {
    if (sample.id == id) makeApplication(root, sample);
  }
}

void makeSampleDevice(const fs::path& root) {
  makeFolders(root);
  fs::create_symlink("/bin/tar", root / "usr/bin/tar");

  Json state = Json::object();
  for (const Sample& sample : samples()) {
    makeApplication(root, sample);
    if (!sample.badge.is_null()) state[sample.id] = {{"badge", sample.badge}};
  }
  PropertyList(state).write(root / "var/mobile/Library/SpringBoard/applicationState.plist");
  PropertyList(Json{{"Title", "Garden Diary"}, {"URL", "https://garden.example/diary"}})
      .write(root / "var/mobile/Library/WebClips" / (Device::uuid("bookmark") + ".webclip") / "Info.plist");
}

void makeBasePackage(const fs::path& root) {
  makeFolders(root);
  std::set<fs::path> all;
  for (const char* folder : folders) {
    for (fs::path path = fs::path("/") / folder; path != "/"; path = path.parent_path()) all.insert(path);
  }
  makePackageDatabase(root, {all.begin(), all.end()});
}

}  // namespace sim
