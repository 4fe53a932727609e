#include "simulator/homescreen/common/installed.hpp"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <tuple>

#include "simulator/homescreen/common/property_list.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

// The folders in a folder, in the order of their names; none when it cannot be read.
std::vector<fs::path> foldersIn(const fs::path& folder) {
  std::vector<fs::path> folders;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    if (std::error_code unreadable; entry->is_directory(unreadable)) folders.push_back(entry->path());
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

std::string nameOf(id info, const fs::path& bundle) {
  for (const char* key : {"CFBundleDisplayName", "CFBundleName", "CFBundleExecutable"})
    if (std::string name = textIn(info, key); !name.empty()) return name;
  return bundle.stem();
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

std::vector<InstalledApplication> installedApplications() {
  const auto containers = dataContainers();
  std::vector<InstalledApplication> applications;
  for (const auto& container : foldersIn("/var/containers/Bundle/Application"))
    for (const auto& bundle : foldersIn(container)) {
      if (bundle.extension() != ".app") continue;
      id info = dictionaryAt(bundle / "Info.plist");
      const std::string identifier = textIn(info, "CFBundleIdentifier");
      if (identifier.empty()) continue;
      const auto data = containers.find(identifier);
      applications.push_back({identifier, nameOf(info, bundle), bundle,
                              data != containers.end() ? std::optional(data->second) : std::nullopt,
                              quickActionsOf(info), urlSchemesOf(info)});
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
