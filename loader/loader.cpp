// The library's one entry point: runs when the hooking loader maps it, before the home screen starts up.
#include "labels/bridges.hpp"
#include "labels/rename_icon.hpp"
#include "loader/hook_table.hpp"
#include "menu/download_flag.hpp"
#include "mute/registry.hpp"
#include "settings/settings.hpp"

namespace {

/// The name is a constant: the center may keep the pointer for as long as the observer is registered.
struct Observer {
  NSString* (*name)();
  CFNotificationCallback callback;
};

constexpr Observer darwinObservers[] = {
    {[] { return "com.morvanel.sprigdial.isdownload"_ns; }, menu::downloadEnded},
    {[] { return "com.morvanel.sprigdial.renamelable"_ns; }, labels::refreshRenamedLabels},
    {[] { return "com.morvanel.sprigdial.iconlable"_ns; }, labels::updateLabels},
    {[] { return "com.morvanel.sprigdial.preferencechanged"_ns; }, settingsChanged},
};

void observeDarwinNotifications() {
  CFNotificationCenterRef center = CFNotificationCenterGetDarwinNotifyCenter();
  for (const auto& [name, callback] : darwinObservers)
    CFNotificationCenterAddObserver(center, nullptr, callback, name(), nullptr,
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
