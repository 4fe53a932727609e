#include "tests/support/test_panes.hpp"

#include "simulator/device/files.hpp"
#include "tests/support/places.hpp"

namespace test {

namespace fs = std::filesystem;

Json row(const std::string& cell, const std::string& label, const Json& more) {
  Json item = {{"cell", cell}, {"label", label}};
  item.update(more);
  return item;
}

Json setting(const std::string& cell, const std::string& label, const std::string& key, const Json& more) {
  Json item = row(cell, label, {{"key", key}, {"defaults", paneDomain}, {"PostNotification", paneDomain + ".changed"}});
  item.update(more);
  return item;
}

fs::path paneBundle(const sim::Device& device, const std::string& name) {
  return device.root() / "Library/PreferenceBundles" / (name + ".bundle");
}

void installEntry(const sim::Device& device, const std::string& file, const Json& content) {
  const fs::path path = device.root() / "Library/PreferenceLoader/Preferences" / (file + ".plist");
  fs::create_directories(path.parent_path());
  sim::PropertyList(content).write(path);
}

void installPane(const sim::Device& device, const std::string& name, const std::string& label, const std::string& image,
                 const std::string& principalClass) {
  const fs::path bundle = paneBundle(device, name);
  fs::create_directories(bundle);
  sim::PropertyList({{"CFBundleExecutable", name}, {"NSPrincipalClass", principalClass}}).write(bundle / "Info.plist");
  if (!image.empty()) fs::copy_file(fs::path(buildFolder) / image, bundle / name);
  installEntry(device, name,
               {{"entry", {{"bundle", name}, {"cell", "PSLinkCell"}, {"isController", true}, {"label", label}}}});
}

void writeRows(const sim::Device& device, const std::vector<Json>& items) {
  sim::PropertyList({{"title", "Test Pane"}, {"items", items}}).write(paneBundle(device, "TestPane") / "Root.plist");
}

}  // namespace test
