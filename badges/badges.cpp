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
  auto* alert = UIAlertController::alertController("Set Custom Badge"_ns, targetName(), UIAlertControllerStyle::alert);
  alert->addTextField([](UITextField* field) {
    if (settings.useText) {
      field->setClearButtonMode(UITextFieldViewMode::always);
      field->setReturnKeyType(UIReturnKeyType::done);
    } else {
      field->setKeyboardType(UIKeyboardType::numberPad);
    }
  });
  // The alert is on the screen while its button is tapped; a reference from its own button would keep it
  // alive for ever when it is replaced without a tap.
  alert->addAction(UIAlertAction::action("Apply"_ns, UIAlertActionStyle::standard, [alert] {
    // An empty text is a badge value like any other: what it means is the system's affair.
    FBSSystemService::sharedService()->setBadgeValue(alert->firstTextField()->text(), currentBundleIdentifier.get());
    closeAlertWindow();
  }));
  alert->addAction(cancelAction());
  presentAlert(alert);
}

}  // namespace badges
