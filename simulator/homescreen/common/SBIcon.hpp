// What every icon on the home screen has.
#pragma once

#include "simulator/homescreen/common/home.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

/// Whether icons can be asked for the name that they have at a place of the home screen. Those of before the core
/// library's version 1000 have one name, which is their application's.
bool iconsKnowLocations();

struct SBIcon : Object {
  Ref<objc_object> badge;  ///< a number or a text

  // Of an icon that stands for nothing in particular.
  id applicationBundleID() { return nullptr; }
  id displayName() { return nullptr; }
  id displayNameForLocation(NSInteger location);
  BOOL isDownloadingIcon() { return false; }

  id badgeNumberOrString() { return badge; }
  /// A zero and an empty text show as no badge.
  void setBadge(id value);

  /// The old generation's way to open what the icon stands for.
  void launchFromLocationContextSettingsActions(NSInteger location, id context, id settings, id actions);
  /// The new generation's way.
  void launchFromLocationContext(NSInteger location, id context);
};

void defineSBIcon(Generation generation);

}  // namespace sim
