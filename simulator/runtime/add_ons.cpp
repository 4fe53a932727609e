#include "simulator/runtime/add_ons.hpp"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "simulator/runtime/library.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {
namespace {

namespace fs = std::filesystem;

constexpr const char* folder = "/Library/MobileSubstrate/DynamicLibraries";

std::vector<fs::path> addOns() {
  std::vector<fs::path> images;
  std::error_code unreadable;
  for (const auto& entry : fs::directory_iterator(folder, unreadable)) {
    if (entry.path().extension() == ".dylib") images.push_back(entry.path());
  }
  std::sort(images.begin(), images.end());
  return images;
}

id valueIn(id dictionary, const char* key, Class cls) {
  id value = send<id>(dictionary, "objectForKey:"_sel, ns(key));
  return isKind(value, cls) ? value : nullptr;
}

/// Why an add-on with this filter is not for the process; nothing when it is.
std::string faultOfFilter(const fs::path& file, const std::string& bundle) {
  std::error_code unreadable;
  if (!fs::exists(file, unreadable)) return "it has no filter";
  id content = send<id>("NSDictionary"_cls, "dictionaryWithContentsOfFile:"_sel, ns(file));
  if (content == nullptr) return "its filter cannot be read";
  id filter = valueIn(content, "Filter", "NSDictionary"_cls);
  // Loaders disagree about what every other key means.
  for (id key : elements(send<id>(filter, "allKeys"_sel))) {
    if (text(key) != "Bundles") return "its filter asks for more than bundles: " + text(key);
  }
  for (id named : elements(valueIn(filter, "Bundles", "NSArray"_cls))) {
    if (isKind(named, "NSString"_cls) && text(named) == bundle) return "";
  }
  return "its filter does not name " + bundle;
}

}  // namespace

std::vector<std::string> mapAddOns(const std::string& bundle) {
  std::vector<std::string> lines;
  for (const fs::path& image : addOns()) {
    std::string fault = faultOfFilter(fs::path(image).replace_extension(".plist"), bundle);
    if (fault.empty()) fault = mapLibrary(image);
    if (!fault.empty()) lines.push_back(image.filename().string() + " is not mapped: " + fault);
  }
  return lines;
}

}  // namespace sim
