#include "state/generation.hpp"

namespace {

constexpr Generation oldGeneration{
    .menuHost = "SBIconController",
    .icon =
        [](const MenuHost*, const NSString* bundleIdentifier) {
          return SBIconController::sharedInstance()->homescreenIconViewMap()->iconModel()->applicationIcon(
              bundleIdentifier);
        },
    .iconView =
        [](const SBIcon* icon) { return SBIconController::sharedInstance()->homescreenIconViewMap()->iconView(icon); },
    .isEditing = [](const MenuHost*) { return SBIconController::sharedInstance()->isEditing(); },
    .bundlePlist = "/Info.plist",
};

constexpr Generation newGeneration{
    .menuHost = "SBHIconManager",
    .icon = [](const MenuHost* host,
               const NSString* bundleIdentifier) { return host->iconModel()->leafIcon(bundleIdentifier); },
    // A list that was never set up knows no views; the label is refreshed by the rename notification instead.
    .iconView =
        [](const SBIcon* icon) {
          return autoreleased(send<SBIconViewMap*>("SBIconListView"_cls, "alloc"_sel))->iconView(icon);
        },
    .isEditing = [](const MenuHost* host) { return host->isEditing(); },
    .bundlePlist = "Info.plist",
};

}  // namespace

const Generation& Generation::current() { return isNew() ? newGeneration : oldGeneration; }
