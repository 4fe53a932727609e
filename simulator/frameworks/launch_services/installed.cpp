#include "simulator/frameworks/launch_services/installed.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <tuple>

#include "simulator/frameworks/foundation/dictionaries.hpp"
#include "simulator/frameworks/foundation/file_names.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

// The folders in a folder, as the platform writes their paths, in the order of their names; none when it cannot be
// read.
std::vector<fs::path> foldersIn(const fs::path& folder) {
  std::vector<fs::path> folders;
  std::error_code error;
  const fs::path bytes = bytesOfPath(ns(folder));
  for (fs::directory_iterator entry(bytes, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code unreadable; entry->is_directory(unreadable))
      folders.emplace_back(text(textOfPath(entry->path().native()).get()));
  std::sort(folders.begin(), folders.end());
  return folders;
}

// Where each application keeps its data.
std::map<std::string, std::string> dataContainers() {
  std::map<std::string, std::string> containers;
  for (const auto& folder : foldersIn("/var/mobile/Containers/Data/Application")) {
    id metadata = dictionaryAt(folder / ".com.apple.mobile_container_manager.metadata.plist");
    containers.emplace(textIn(metadata, "MCMMetadataIdentifier"), folder);
  }
  return containers;
}

// The first text that says something.
std::string firstText(id info, std::initializer_list<const char*> keys) {
  for (const char* key : keys)
    if (std::string found = textIn(info, key); !found.empty()) return found;
  return {};
}

std::string nameOf(id info, const fs::path& bundle) {
  const std::string name = firstText(info, {"CFBundleDisplayName", "CFBundleName", "CFBundleExecutable"});
  return name.empty() ? bundle.stem().string() : name;
}

// Nothing at all reads as an empty text.
id declared(id item, const char* key) {
  id value = send<id>(item, "objectForKey:"_sel, ns(key));
  return value != nullptr ? value : ns("");
}

std::vector<DeclaredQuickAction> quickActionsOf(id info) {
  std::vector<DeclaredQuickAction> actions;
  for (id item : arrayIn(info, "UIApplicationShortcutItems", "NSDictionary"_cls))
    actions.push_back({declared(item, "UIApplicationShortcutItemType"),
                       declared(item, "UIApplicationShortcutItemTitle"),
                       textIn(item, "UIApplicationShortcutItemSubtitle")});
  return actions;
}

std::vector<std::string> urlSchemesOf(id info) {
  std::vector<std::string> schemes;
  for (id type : arrayIn(info, "CFBundleURLTypes", "NSDictionary"_cls))
    for (id scheme : arrayIn(type, "CFBundleURLSchemes", "NSString"_cls)) {
      schemes.push_back(text(scheme));
      for (char& letter : schemes.back()) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
  return schemes;
}

}  // namespace

std::optional<InstalledApplication> applicationIn(const std::string& bundlePath) {
  id info = dictionaryAt(bundlePath + "/Info.plist");
  std::string identifier = textIn(info, "CFBundleIdentifier");
  if (identifier.empty()) return std::nullopt;
  return InstalledApplication{std::move(identifier),
                              nameOf(info, bundlePath),
                              firstText(info, {"CFBundleShortVersionString", "CFBundleVersion"}),
                              bundlePath,
                              std::nullopt,
                              quickActionsOf(info),
                              urlSchemesOf(info)};
}

std::vector<InstalledApplication> installedApplications() {
  const auto containers = dataContainers();
  std::vector<InstalledApplication> applications;
  for (const auto& container : foldersIn("/var/containers/Bundle/Application"))
    for (const auto& bundle : foldersIn(container)) {
      if (bundle.extension() != ".app") continue;
      auto application = applicationIn(bundle);
      if (!application) continue;
      const auto data = containers.find(application->bundleIdentifier);
      if (data != containers.end()) application->containerPath = data->second;
      applications.push_back(std::move(*application));
    }
  std::sort(applications.begin(), applications.end(), [](const auto& a, const auto& b) {
    return std::tie(a.name, a.bundleIdentifier) < std::tie(b.name, b.bundleIdentifier);
  });
  return applications;
}

std::vector<std::string> installedBookmarks() {
  std::vector<std::string> titles;
  for (const auto& folder : foldersIn("/var/mobile/Library/WebClips")) {
    if (folder.extension() != ".webclip") continue;
    if (std::string title = textIn(dictionaryAt(folder / "Info.plist"), "Title"); !title.empty())
      titles.push_back(title);
  }
  return titles;
}

}  // namespace sim
