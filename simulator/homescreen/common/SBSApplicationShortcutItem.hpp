// An entry of an icon's quick-action list.
#pragma once

#include "simulator/frameworks/launch_services/installed.hpp"
#include "simulator/homescreen/common/SBSApplicationShortcutCustomImageIcon.hpp"

namespace sim {

struct SBSApplicationShortcutItem : Object {
  Ref<objc_object> type, localizedTitle;                         ///< texts, or whatever the application declares
  Ref<objc_object> localizedSubtitle, bundleIdentifierToLaunch;  ///< texts
  Ref<SBSApplicationShortcutCustomImageIcon> icon;
};

/// The entry that an application declares; owned by the caller.
Ref<SBSApplicationShortcutItem> makeShortcutItem(const DeclaredQuickAction& action,
                                                 const std::string& bundleIdentifier);
/// The entries of an application; none for one that is unknown.
std::vector<id> shortcutItemsOf(id bundleIdentifier);

void defineSBSApplicationShortcutItem();

}  // namespace sim
