#include "simulator/preferences/application/bundles.hpp"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <stdexcept>

#include "simulator/frameworks/foundation/dictionaries.hpp"
#include "simulator/runtime/library.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr const char* entryFolder = "/Library/PreferenceLoader/Preferences";
constexpr const char* bundleFolders[] = {"/Library/PreferenceBundles", "/System/Library/PreferenceBundles"};

std::vector<fs::path> entryFiles() {
  std::vector<fs::path> files;
  std::error_code error;
  for (fs::recursive_directory_iterator file(entryFolder, error), end; !error && file != end; file.increment(error))
    if (file->path().extension() == ".plist") files.push_back(file->path());
  std::sort(files.begin(), files.end());
  return files;
}

// Where a bundle of that name is; where it would be when it is nowhere.
fs::path bundleNamed(const std::string& name) {
  std::error_code error;
  for (const char* folder : bundleFolders)
    if (fs::path bundle = fs::path(folder) / (name + ".bundle"); fs::is_directory(bundle, error)) return bundle;
  return fs::path(bundleFolders[0]) / (name + ".bundle");
}

PaneEntry readEntry(const fs::path& file) {
  id content = dictionaryAt(file);
  if (content == nullptr) throw std::runtime_error("it is no property list");
  id entry = send<id>(content, "objectForKey:"_sel, ns("entry"));
  if (!isKind(entry, "NSDictionary"_cls)) throw std::runtime_error("it has no \"entry\"");
  if (textIn(entry, "cell") != "PSLinkCell") throw std::runtime_error("its \"cell\" is no PSLinkCell");
  const std::string bundle = textIn(entry, "bundle");
  if (bundle.empty()) throw std::runtime_error("it names no \"bundle\"");
  id isController = send<id>(entry, "objectForKey:"_sel, ns("isController"));
  if (!isKind(isController, "NSNumber"_cls) || !send<BOOL>(isController, "boolValue"_sel))
    throw std::runtime_error("its bundle brings no controller: \"isController\" is not true");
  const std::string label = textIn(entry, "label");
  return {label.empty() ? file.stem().string() : label, bundleNamed(bundle)};
}

// A pane's controller is one of the framework's.
bool isController(Class cls) {
  while (cls != nullptr && cls != "PSViewController"_cls) cls = class_getSuperclass(cls);
  return cls != nullptr;
}

}  // namespace

std::vector<PaneEntry> paneEntries() {
  std::vector<PaneEntry> entries;
  for (const fs::path& file : entryFiles()) {
    try {
      entries.push_back(readEntry(file));
    } catch (const std::runtime_error& error) {
      std::fprintf(stderr, "Preferences: %s is passed over: %s\n", file.c_str(), error.what());
    }
  }
  std::stable_sort(entries.begin(), entries.end(),
                   [](const PaneEntry& a, const PaneEntry& b) { return a.label < b.label; });
  return entries;
}

Class principalClass(const std::string& bundle) {
  std::error_code error;
  if (!fs::is_directory(bundle, error)) throw std::runtime_error("there is no " + bundle);
  id info = dictionaryAt(bundle + "/Info.plist");
  if (info == nullptr) throw std::runtime_error(bundle + " has no Info.plist that can be read");
  const std::string executable = textIn(info, "CFBundleExecutable"), name = textIn(info, "NSPrincipalClass");
  if (executable.empty()) throw std::runtime_error(bundle + " names no executable");
  if (name.empty()) throw std::runtime_error(bundle + " names no principal class");
  if (const std::string fault = mapLibrary(bundle + "/" + executable); !fault.empty())
    throw std::runtime_error(bundle + "/" + executable + " is not mapped: " + fault);
  Class cls = objc_getClass(name.c_str());
  if (cls == nullptr) throw std::runtime_error(bundle + " has no class " + name);
  if (!isController(cls)) throw std::runtime_error(name + " is no controller of a pane");
  return cls;
}

}  // namespace sim
