#include "mute/sheet.hpp"

#include "appdata/alert.hpp"
#include "mute/durations.hpp"
#include "mute/registry.hpp"
#include "state/target.hpp"

namespace mute {
namespace {

NSString* notificationName() { return "com.morvanel.sprigdial.menu"_ns; }

/// `restarts` drops an earlier record first, so that a muting without end gives way to a timed one.
void addButton(UIAlertController* sheet, const Duration& duration, NSString* bundleIdentifier, bool restarts) {
  sheet->addAction(
      UIAlertAction::action(NSString::text(duration.title), UIAlertActionStyle::standard,
                            [bundleIdentifier = Ref(bundleIdentifier), restarts, seconds = duration.seconds] {
                              closeAlertWindow();
                              if (restarts) registerMute(bundleIdentifier, unmute.seconds);
                              registerMute(bundleIdentifier, seconds);
                            }));
}

}  // namespace

void muteNotifications(MenuHost*, SEL) {
  NSString* bundleIdentifier = currentBundleIdentifier.get();
  if (bundleIdentifier == nullptr) return;
  NSNotificationCenter::defaultCenter()->post(notificationName(), NSDictionary::with(bundleIdentifier, "id"_ns));
}

void launchMuteMenu(NSObject*, SEL, NSNotification* notification) {
  auto* bundleIdentifier = kept(as<NSString>(notification->userInfo()->objectForKey("id"_ns)));
  if (bundleIdentifier == nullptr) return;
  const bool muted = isMutedNow(bundleIdentifier);
  auto* sheet = UIAlertController::alertController("Mute Notifications"_ns, bundleIdentifier,
                                                   UIAlertControllerStyle::actionSheet);
  for (const Duration& duration : timed) addButton(sheet, duration, bundleIdentifier, muted);
  addButton(sheet, muted ? unmute : forever, bundleIdentifier, false);
  sheet->addAction(cancelAction());
  presentAlert(sheet, Popover::anchoredWhereKnown);
}

void applicationDidFinishLaunching(NSObject* springBoard, SEL selector, NSObject* application) {
  platformApplicationDidFinishLaunching(springBoard, selector, application);
  loadRegistry();
  NSNotificationCenter::defaultCenter()->addObserver(springBoard, "launchMuteMenu:"_sel, notificationName());
}

}  // namespace mute
