#include "simulator/homescreen/new/quick_actions.hpp"

#include "simulator/homescreen/common/SBSApplicationShortcutItem.hpp"

namespace sim::recent {
namespace {

struct OpenList {
  Ref<SBIconView> view;
  std::vector<Ref<SBSApplicationShortcutItem>> items;
};

OpenList& openList() {
  static OpenList list;
  return list;
}

/// An entry that the home screen adds to every icon's list.
struct SystemEntry {
  const char* type;
  const char* title;
  void (*activate)(const std::string& bundleIdentifier);
};

constexpr SystemEntry systemEntries[] = {
    {"com.apple.springboardhome.application-shortcut-item.rearrange-icons", "Edit Home Screen",
     [](const std::string&) { homeState().editing = true; }},
    // A phone asks first, and so far nobody answers here.
    {"com.apple.springboardhome.application-shortcut-item.remove-app", "Delete App",
     [](const std::string& identifier) { homeState().events.push_back("asked whether to delete " + identifier); }},
};

id proposedItems(id bundleIdentifier) {
  std::vector<id> items = shortcutItemsOf(bundleIdentifier);
  for (const auto& entry : systemEntries)
    items.push_back(autoreleased(makeShortcutItem({ns(entry.type), ns(entry.title), ""}, text(bundleIdentifier))));
  return array(items);
}

QuickActionEntry describe(SBSApplicationShortcutItem* item) {
  const auto bytes = send<NSUInteger>(send<id>(send<id>(item, "icon"_sel), "imagePNGData"_sel), "length"_sel);
  return {text(send<id>(item, "localizedTitle"_sel)), text(send<id>(item, "localizedSubtitle"_sel)),
          bytes != 0 ? "PNG of " + std::to_string(bytes) + " bytes" : ""};
}

void activate(SBSApplicationShortcutItem* item) {
  const std::string identifier = text(send<id>(item, "bundleIdentifierToLaunch"_sel));
  const std::string type = text(send<id>(item, "type"_sel));
  for (const auto& entry : systemEntries)
    if (type == entry.type) return entry.activate(identifier);
  openApplication(identifier);
}

}  // namespace

std::vector<QuickActionEntry> openQuickActions(SBIconView* view) {
  id proposed = proposedItems(send<id>(send<id>(view, "icon"_sel), "applicationBundleID"_sel));
  id items =
      send<id>(platformActions().menuHost(), "iconView:applicationShortcutItemsWithProposedItems:"_sel, view, proposed);
  std::vector<QuickActionEntry> entries;
  openList().view = view;
  for (id element : elements(items)) {
    auto* item = static_cast<SBSApplicationShortcutItem*>(element);
    openList().items.emplace_back(item);
    entries.push_back(describe(item));
  }
  return entries;
}

void chooseQuickAction(std::size_t index) {
  const OpenList list = openList();
  const bool allowed =
      send<BOOL>(platformActions().menuHost(), "iconView:shouldActivateApplicationShortcutItem:atIndex:"_sel,
                 list.view.get(), list.items.at(index).get(), static_cast<NSInteger>(index));
  if (allowed) activate(list.items[index]);
  closeQuickActions();
}

void closeQuickActions() { openList() = {}; }

}  // namespace sim::recent
