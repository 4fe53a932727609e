#include "menu/open_app.hpp"

#include "menu/swipe.hpp"
#include "state/generation.hpp"
#include "state/target.hpp"

namespace menu {

void openApps(MenuHost* host, SEL) {
  constexpr NSInteger homeScreen = 0;
  auto* model = static_cast<SBIconModel*>(host->valueForKey("_iconModel"_ns));
  SBIcon* icon = kept(model->leafIcon(currentBundleIdentifier.get()));
  if (Generation::isNew()) {
    send(icon, "launchFromLocation:context:"_sel, homeScreen, lastLaunch.context.get());
  } else {
    send(icon, "launchFromLocation:context:activationSettings:actions:"_sel, homeScreen, lastLaunch.context.get(),
         lastLaunch.activationSettings.get(), lastLaunch.actions.get());
  }
}

}  // namespace menu
