// The device: an ordinary folder that looks like the root of a phone's file system.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/device/property_list.hpp"

namespace sim {

class Device {
 public:
  static constexpr std::string_view settingsFile = "/var/mobile/Library/Preferences/com.morvanel.sprigdial.plist";
  static constexpr std::string_view filza = "com.example.filza";

  struct Application {
    std::string id;                      ///< bundle identifier
    std::string name;                    ///< what the home screen shows
    std::string version;                 ///< as people write it; empty when the application tells none
    std::filesystem::path bundle, data;  ///< absolute paths on the device; data is empty without a container
  };

  /// What an environment of the hooking loader leaves behind.
  struct Marker {
    std::string_view name, path, help;
    bool folder;
  };
  static const std::vector<Marker>& markers();

  /// Opens the folder; makes a device with the sample applications when it is missing or empty. Throws
  /// `BadInput` when the folder is something else.
  explicit Device(std::filesystem::path root);

  const std::filesystem::path& root() const { return root_; }
  /// Where a path of the device is on this machine, symbolic links followed as on the device. Throws `BadInput`
  /// when a link leads out of the device. The file itself need not exist.
  std::filesystem::path resolve(const std::filesystem::path& path) const;

  /// The applications, by name, as the home screen finds them.
  std::vector<Application> applications() const;
  std::optional<Application> application(std::string_view id) const;
  /// Installs an application archive and gives what it held. Replaces the bundle of an application that is there, at
  /// once, and keeps its data. Throws `BadInput`; the device is unchanged then.
  Application install(const std::filesystem::path& archive);
  /// Takes an application away, with its data.
  void uninstall(std::string_view id);

  /// Whether the file manager is installed; switching keeps its data.
  bool filzaInstalled() const;
  void setFilzaInstalled(bool installed);
  /// Puts a marker there or takes it away, by its name. Throws `BadInput` for an unknown one.
  void setMarker(std::string_view name, bool present);

  /// What texts KEY=VALUE set, by key: true, false, YES and NO become booleans, numbers become numbers, everything else
  /// stays text, and nothing becomes null. Throws `BadInput` for a text without "=" or without a key.
  static nlohmann::ordered_json settingsIn(const std::vector<std::string>& assignments);
  /// Writes those settings into the file; null removes the key. Other keys stay. Throws as `settingsIn` does; nothing
  /// is written then.
  void setSettings(const std::vector<std::string>& assignments);

  /// An identifier of 128 bits as text, always the same for the same seed.
  static std::string uuid(std::string_view seed);

 private:
  std::filesystem::path at(std::string_view path) const { return root_ / path.substr(1); }

  std::filesystem::path root_;
};

}  // namespace sim
