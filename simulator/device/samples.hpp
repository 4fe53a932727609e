// What a new device holds: invented applications with data, and a bookmark.
#pragma once

#include <filesystem>
#include <string_view>

namespace sim {

/// Fills an empty folder.
void makeSampleDevice(const std::filesystem::path& root);
/// Makes the folders that every device has, those that are missing, and the installer's database, which tells them.
void makeBasePackage(const std::filesystem::path& root);
/// Puts one sample application there; its data container is kept when it exists. Unknown identifiers are left out.
void makeSampleApplication(const std::filesystem::path& root, std::string_view id);
/// Makes the data container of an application, unless it has one; returns its path on this machine.
std::filesystem::path makeDataContainer(const std::filesystem::path& root, std::string_view id);

}  // namespace sim
