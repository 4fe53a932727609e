// What is installed on a device beside applications: packages, and the installer's database of them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/device/device.hpp"

namespace sim {

/// The add-on's package.
inline constexpr std::string_view addOnPackage = "com.morvanel.sprigdial";

struct Package {
  std::string name, version;
  bool wantsRestart = false;  ///< of the home screen: its script has asked the installer for it
};

/// The packages, by name.
std::vector<Package> installedPackages(const Device& device);
/// Installs a package's file, in the place of an earlier version, whose other files go; nothing else is touched. Then
/// its script runs. Throws `BadInput`; the device is unchanged then, unless it was the script that failed.
Package installPackage(const Device& device, const std::filesystem::path& file);
/// Takes a package's files away, and folders that nothing is left in. Throws `BadInput` for one that is not installed.
Package removePackage(const Device& device, std::string_view name);

/// Whether there is a database.
bool hasPackages(const Device& device);
/// Puts the add-on as this PC's build made it onto a device that is not running yet.
void installAddOn(const Device& device);
/// The same where a package of that name is installed.
void updateAddOn(const Device& device);

/// Makes the database, with one package that owns the device's own folders, absolute paths.
void makePackageDatabase(const std::filesystem::path& root, const std::vector<std::filesystem::path>& folders);

}  // namespace sim
