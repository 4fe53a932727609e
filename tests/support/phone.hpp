// A phone for one test, and words for what a test looks at.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "simulator/control/phone.hpp"
#include "simulator/device/files.hpp"

namespace test {

using sim::AlertOnScreen;
using sim::Screen;

/// In seconds: how long sheets and alerts take to come and to go.
inline constexpr double presentation = 0.4, dismissal = 0.3;

/// An application as a test puts it on the device, beside the samples.
struct App {
  std::string id = "com.example.test";
  std::string name = "Test App";
  nlohmann::ordered_json info = {};  ///< further Info.plist keys; a null value takes a default key away
  std::string folder = "Test.app";   ///< name of the bundle's folder
  bool hasContainer = true;
  bool hasCaches = true;
};

/// A folder that lasts longer than the phone on it.
struct OwnFolder {
  sim::TemporaryFolder folder;
};

/// One test's phone: a device of its own, and the library mapped. Nothing runs before `boot` or the first gesture.
class Phone : private OwnFolder, public sim::Phone {
 public:
  explicit Phone(sim::Generation generation, sim::Phone::Options options = {});

  /// A file or folder of the device, given by its path on the phone.
  std::filesystem::path path(const std::string& onPhone) const;
  /// Where the application keeps its data and its bundle, on this PC.
  std::filesystem::path container(const std::string& id) const;
  std::filesystem::path bundle(const std::string& id) const;
  void install(const App& app);
  /// The samples include the file manager.
  void removeFileManager();
  /// Takes the add-on away before the home screen boots.
  void removeAddOn();
  /// Puts another image in the place of the add-on's.
  void useAddOn(const std::filesystem::path& image);
  /// Gives the icon a badge, a number or a text, and every other icon none.
  void setBadge(const std::string& id, const nlohmann::ordered_json& badge);
  /// A file of that size below the application's caches.
  void addCache(const std::string& id, const std::string& name, std::uint64_t size);

  /// Opens the menu of the application by a swipe.
  Phone& openMenu(const std::string& id = "com.example.test");
  /// The platform tells of a finger on the icon whatever lies over it: one that came down before that did.
  Phone& touchInSpite(const std::string& id);
  /// Asks for the application's menu as a swipe does, whatever lies over its icon.
  Phone& openMenuInSpite(const std::string& id = "com.example.test");

  /// Opens the dialog that renames the application.
  Phone& openRenameDialog(const std::string& id = "com.example.test");
  /// Renames the application by that dialog.
  Phone& rename(const std::string& id, const std::string& name);

  /// Fails the test when there is no such icon.
  sim::IconOnScreen icon(const std::string& id);
  /// The alert or sheet of the topmost window; fails the test when there is none.
  AlertOnScreen alert();
  bool showsAlert();
  std::vector<std::string> buttons();
  bool hasButton(const std::string& title);
  /// The button of the cache entry.
  std::string cacheTitle();
  /// The settings file on this PC.
  std::filesystem::path settingsFile() const { return path(std::string(sim::Device::settingsFile)); }
  /// The name that the settings file holds for the application; none when it holds no text there.
  std::optional<std::string> storedName(const std::string& id) const;
  /// Writes a name, or something else, into the settings file and tells nobody.
  void storeFromOutside(const std::string& id, const nlohmann::ordered_json& name);
  /// The log entries that `action` adds, messages included.
  std::vector<sim::Phone::Call> callsDuring(const std::function<void()>& action);
  using sim::Phone::live;
  /// How many objects of that class are alive; "blocks" counts copied blocks.
  long live(const std::string& name);

 private:
  void rescanIfBooted();
};

/// Everything below a folder, by path: its mode, and its content or where its link points to.
std::map<std::string, std::string> filesBelow(const std::filesystem::path& folder);

/// The last line that a program of the build folder prints when it runs inside the device.
std::string runInside(const sim::Device& device, const std::string& program);

/// Every behaviour is tested on both generations.
class Generations : public testing::TestWithParam<sim::Generation> {
 protected:
  Phone phone{GetParam()};
  bool isOld() const { return GetParam() == sim::Generation::old; }
  /// A phone's screen, held upright.
  sim::Frame bounds() const { return {0, 0, 375, isOld() ? 667.0 : 812.0}; }
  std::string menuHost() const { return isOld() ? "SBIconController" : "SBHIconManager"; }
};
class OldGeneration : public testing::Test {
 protected:
  Phone phone{sim::Generation::old};
};
class NewGeneration : public testing::Test {
 protected:
  Phone phone{sim::Generation::recent};
};

inline const auto bothGenerations = testing::Values(sim::Generation::old, sim::Generation::recent);
inline std::string generationName(const testing::TestParamInfo<sim::Generation>& info) {
  return info.param == sim::Generation::old ? "Old" : "New";
}

}  // namespace test
