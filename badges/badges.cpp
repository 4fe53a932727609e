#include "badges/badges.hpp"

#include "appdata/alert.hpp"
#include "appdata/container.hpp"
#include "settings/settings.hpp"
#include "state/generation.hpp"
#include "state/target.hpp"

namespace badges {

void clearBadges(MenuHost* host, SEL) {
  Generation::current().icon(host, currentBundleIdentifier.get())->setBadge(nullptr);
}

void setBadges(MenuHost*, SEL) {
  auto* alert = UIAlertController::alertController("Set Custom Badge"_ns, nameOf(targetApplication()),
                                                   UIAlertControllerStyle::alert);
  alert->addTextField([](UITextField* field) {
    if (settings.useText) {
      field->setClearButtonMode(UITextFieldViewMode::always);
      field->setReturnKeyType(UIReturnKeyType::done);
    } else {
      field->setKeyboardType(UIKeyboardType::numberPad);
    }
  });
  // The button keeps its alert, which may have left the screen by the time the button has its turn. The platform
  // breaks the circle: an alert that has disappeared lets go of its buttons' handlers.
  alert->addAction(UIAlertAction::action("Apply"_ns, UIAlertActionStyle::standard, [alert = Ref(alert)] {
    // An empty text is a badge value like any other: what it means is the system's affair.
    NSString* value = kept(alert->firstTextField()->text());
    FBSSystemService::sharedService()->setBadgeValue(value, currentBundleIdentifier.get());
    closeAlertWindow();
  }));
  alert->addAction(cancelAction());
  presentAlert(alert);
}

}  // namespace badges
