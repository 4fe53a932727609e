// The two generations of the home screen, and what differs between them in several rooms.
#pragma once

#include "platform/CoreFoundation.hpp"
#include "platform/HomeScreen.hpp"

struct Generation {
  /// The class that carries the added menu methods.
  const char* menuHost;
  /// The application's icon; nil when the home screen has none.
  SBIcon* (*icon)(const MenuHost* host, const NSString* bundleIdentifier);
  /// The icon's view; nil when it has none.
  SBIconView* (*iconView)(const SBIcon* icon);
  bool (*isEditing)(const MenuHost* host);
  /// What follows the bundle's location on the way to its property list. The new generation's locations end
  /// in a slash already.
  const char* bundlePlist;

  /// The core library's version from which on the home screen is of the new generation.
  static constexpr double firstNewVersion = 1652.2;
  static bool isNew() { return kCFCoreFoundationVersionNumber >= firstNewVersion; }
  /// The running one.
  static const Generation& current();
};
