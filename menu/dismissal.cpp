#include "menu/dismissal.hpp"

#include "appdata/alert.hpp"

namespace menu {
namespace {

// Whatever the settings: a menu that is up must not float over the lock screen.
void dismiss() {
  if (alertWindow) closeAlertWindow();
}

}  // namespace

void setInScreenOffMode(NSObject* dashboard, SEL selector, NSUInteger off, NSUInteger autoUnlock) {
  platformSetInScreenOffMode(dashboard, selector, off, autoUnlock);
  dismiss();
}

void setInScreenOffModeFromSource(NSObject* dashboard, SEL selector, NSUInteger off, NSUInteger autoUnlock,
                                  NSUInteger source) {
  platformSetInScreenOffModeFromSource(dashboard, selector, off, autoUnlock, source);
  dismiss();
}

void orderFront(NSObject* powerDown, SEL selector) {
  platformOrderFront(powerDown, selector);
  dismiss();
}

void coverSheetWillAppear(NSObject* coverSheet, SEL selector, NSUInteger animated) {
  platformCoverSheetWillAppear(coverSheet, selector, animated);
  dismiss();
}

void powerDownViewWillAnimateIn(NSObject* powerDown, SEL selector, NSUInteger argument) {
  platformPowerDownViewWillAnimateIn(powerDown, selector, argument);
  dismiss();
}

}  // namespace menu
