#include "simulator/homescreen/common/SBSApplicationShortcutItem.hpp"

#include "simulator/homescreen/common/SBApplicationController.hpp"

namespace sim {

Ref<SBSApplicationShortcutItem> makeShortcutItem(const DeclaredQuickAction& action,
                                                 const std::string& bundleIdentifier) {
  auto item = make<SBSApplicationShortcutItem>("SBSApplicationShortcutItem"_cls);
  send(item.get(), "setType:"_sel, action.type.get());
  send(item.get(), "setLocalizedTitle:"_sel, action.title.get());
  item->localizedSubtitle = action.subtitle.empty() ? nullptr : ns(action.subtitle);
  item->bundleIdentifierToLaunch = ns(bundleIdentifier);
  return item;
}

std::vector<id> shortcutItemsOf(id bundleIdentifier) {
  std::vector<id> items;
  auto* application =
      send<SBApplication*>(SBApplicationController::shared(), "applicationWithBundleIdentifier:"_sel, bundleIdentifier);
  if (application == nullptr) return items;
  for (const auto& action : application->info->application.quickActions)
    items.push_back(autoreleased(makeShortcutItem(action, text(bundleIdentifier))));
  return items;
}

void defineSBSApplicationShortcutItem() {
  ClassBuilder<SBSApplicationShortcutItem>("SBSApplicationShortcutItem", "NSObject")
      .property<&SBSApplicationShortcutItem::type>("type")
      .property<&SBSApplicationShortcutItem::localizedTitle>("localizedTitle")
      .property<&SBSApplicationShortcutItem::localizedSubtitle>("localizedSubtitle")
      .property<&SBSApplicationShortcutItem::bundleIdentifierToLaunch>("bundleIdentifierToLaunch")
      .property<&SBSApplicationShortcutItem::icon>("icon")
      .add();
}

}  // namespace sim
