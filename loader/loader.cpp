// The library's one entry point: runs when the hooking loader maps it, before the home screen starts up.
#include "labels/bridges.hpp"
#include "labels/rename_icon.hpp"
#include "loader/hook_table.hpp"
#include "menu/download_flag.hpp"
#include "mute/registry.hpp"
#include "settings/settings.hpp"

namespace {

struct Observer {
  const char* name;
  CFNotificationCallback callback;
};

constexpr Observer darwinObservers[] = {
    {"com.morvanel.sprigdial.isdownload", menu::downloadEnded},
    {"com.morvanel.sprigdial.renamelable", labels::refreshRenamedLabels},
    {"com.morvanel.sprigdial.iconlable", labels::updateLabels},
    {"com.morvanel.sprigdial.preferencechanged", settingsChanged},
};

void observeDarwinNotifications() {
  CFNotificationCenterRef center = CFNotificationCenterGetDarwinNotifyCenter();
  for (const auto& [name, callback] : darwinObservers)
    CFNotificationCenterAddObserver(center, nullptr, callback, NSString::owning(name), nullptr,
                                    CFNotificationSuspensionBehavior::coalesce);
}

[[gnu::constructor]] void start() {
  const AutoreleasePool pool;
  mute::createRegistryFile();
  labels::registerRenameIcon();
  loader::installHookTable();
  observeDarwinNotifications();
  loadSettings();
}

}  // namespace
