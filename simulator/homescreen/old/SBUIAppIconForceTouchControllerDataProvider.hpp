// Says what the quick-action list of one icon holds.
#pragma once

#include "simulator/homescreen/common/SBIcon.hpp"

namespace sim::old {

struct SBUIAppIconForceTouchControllerDataProvider : Object {
  Ref<SBIcon> icon;

  /// Nil for an icon that is no application.
  id applicationBundleIdentifier() { return send<id>(icon, "applicationBundleID"_sel); }
  /// Nil for an application without any.
  id applicationShortcutItems();
};

void defineSBUIAppIconForceTouchControllerDataProvider();

}  // namespace sim::old
