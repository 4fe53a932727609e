// What is installed on the device, as its file tree tells.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/runtime/objc.hpp"

namespace sim {

/// A quick action that an application declares. Its type and its title are what the application says, be they texts or
/// not.
struct DeclaredQuickAction {
  Ref<objc_object> type;
  Ref<objc_object> title;
  std::string subtitle;
};

struct InstalledApplication {
  std::string bundleIdentifier;
  std::string name;
  std::string version;                       ///< as people write it; empty when none is told
  std::string bundlePath;                    ///< without a "/" at its end
  std::optional<std::string> containerPath;  ///< of its data; none when it never ran
  std::vector<DeclaredQuickAction> quickActions;
  std::vector<std::string> urlSchemes;  ///< in lower case
};

/// The application in a bundle's folder, its data left out; none without a readable bundle identifier.
std::optional<InstalledApplication> applicationIn(const std::string& bundlePath);

/// The device's applications, by name. Bundles without a readable bundle identifier are left out.
std::vector<InstalledApplication> installedApplications();

/// The titles of the web pages on the home screen, by folder name.
std::vector<std::string> installedBookmarks();

}  // namespace sim
