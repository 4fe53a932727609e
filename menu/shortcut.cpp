#include "menu/shortcut.hpp"

#include "settings/settings.hpp"
#include "state/target.hpp"

namespace menu {
namespace {

bool isOffered() { return settings.enabled && settings.useForce; }

NSString* itemType() { return "SprigdialItem"_ns; }
NSString* itemTitle() { return "Sprigdial"_ns; }

SBSApplicationShortcutItem* makeItem(const NSString* bundleIdentifier) {
  auto* item = SBSApplicationShortcutItem::make();
  item->setLocalizedTitle(itemTitle());
  item->setBundleIdentifierToLaunch(bundleIdentifier);
  item->setType(itemType());
  return item;
}

// What an entry answers may be of any kind.
bool isOurType(const NSObject* type) { return itemType()->isEqual(type); }
bool isOurTitle(const NSObject* title) { return itemTitle()->isEqual(title); }

void openMenu(const MenuHost* host) { send(host, "showAlertView"_sel); }

}  // namespace

NSArray* applicationShortcutItems(SBUIAppIconForceTouchControllerDataProvider* provider, SEL selector) {
  NSString* bundleIdentifier = isOffered() ? kept(provider->applicationBundleIdentifier()) : nullptr;
  if (bundleIdentifier == nullptr) return platformApplicationShortcutItems(provider, selector);
  currentBundleIdentifier.set(bundleIdentifier);
  auto* items = NSMutableArray::copyOf(platformApplicationShortcutItems(provider, selector));
  items->add(makeItem(bundleIdentifier));
  return items;
}

SBUIAction* initAction(SBUIAction* action, SEL selector, NSObject* title, NSObject* subtitle, UIImage* image,
                       UIView* badgeView, const void* handler) {
  // Any action of this title gets the picture: the list's actions carry nothing else to tell them by.
  if (isOffered() && isOurTitle(title)) {
    image = UIImage::withContentsOfFile("/Library/PreferenceBundles/SprigdialSettings.bundle/Sprigdial.png"_ns)
                ->withRenderingMode(UIImageRenderingMode::alwaysTemplate);
  }
  return platformInitAction(action, selector, title, subtitle, image, badgeView, handler);
}

NSUInteger shouldActivateForceTouchItem(SBIconController* host, SEL selector,
                                        SBUIAppIconForceTouchController* controller, SBSApplicationShortcutItem* item,
                                        NSInteger index, NSObject* gestureRecognizer) {
  if (isOffered()) {
    if (isOurType(send<NSObject*>(item, "performSelector:"_sel, "type"_sel))) {
      openMenu(SBIconController::sharedInstance());
      return 0;
    }
  }
  return platformShouldActivateForceTouchItem(host, selector, controller, item, index, gestureRecognizer);
}

NSInteger forceTouchState(SBUIAppIconForceTouchController* controller, SEL selector) {
  // Whatever the settings: the menu looks at the flag exactly when the quick-action entry is switched off.
  forceTouchActive = platformForceTouchState(controller, selector) > 0;
  // Asked anew: the answer must be the platform's own at the time it is given.
  return platformForceTouchState(controller, selector);
}

NSArray* shortcutItemsForIconView(MenuHost* host, SEL selector, SBIconView* view, NSArray* proposed) {
  const NSString* bundleIdentifier = isOffered() ? currentBundleIdentifier.get() : nullptr;
  if (bundleIdentifier == nullptr) return platformShortcutItemsForIconView(host, selector, view, proposed);
  auto* items = NSMutableArray::copyOf(platformShortcutItemsForIconView(host, selector, view, proposed));
  auto* item = makeItem(bundleIdentifier);
  item->setIcon(SBSApplicationShortcutCustomImageIcon::withPNG(
      NSData::withContentsOfFile("/Library/PreferenceBundles/SprigdialSettings.bundle/icon@3x.png"_ns)));
  items->add(item);
  return items;
}

NSUInteger shouldActivateItem(MenuHost* host, SEL selector, SBIconView* view, SBSApplicationShortcutItem* item,
                              NSInteger index) {
  if (isOffered() && isOurType(item->type()) && isOurTitle(item->localizedTitle())) {
    openMenu(host);
    return 0;
  }
  return platformShouldActivateItem(host, selector, view, item, index);
}

}  // namespace menu
