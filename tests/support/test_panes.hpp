// Putting panes on a device, as their packages do.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "simulator/device/device.hpp"

namespace test {

using Json = nlohmann::ordered_json;

/// The domain that the settings of the test pane are in.
inline const std::string paneDomain = "com.example.pane";

/// An item of a pane's property list.
Json row(const std::string& cell, const std::string& label, const Json& more = Json::object());
/// One with a setting of the test pane's domain.
Json setting(const std::string& cell, const std::string& label, const std::string& key,
             const Json& more = Json::object());

/// An entry of the preference loader's, in a file of that name.
void installEntry(const sim::Device& device, const std::string& file, const Json& content);
/// A pane: its bundle, with an image of the build folder (none for ""), and its entry.
void installPane(const sim::Device& device, const std::string& name, const std::string& label, const std::string& image,
                 const std::string& principalClass);
/// The rows of the bundle `TestPane`.
void writeRows(const sim::Device& device, const std::vector<Json>& items);

/// Where a bundle of that name is on this PC.
std::filesystem::path paneBundle(const sim::Device& device, const std::string& name);

}  // namespace test
