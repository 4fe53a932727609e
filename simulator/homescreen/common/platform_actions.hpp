// What differs between the two generations of the home screen, besides classes that only one of them has.
#pragma once

#include "simulator/homescreen/common/NCNotificationRequest.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"

namespace sim {

/// An entry of the open quick-action list, as a person sees it.
struct QuickActionEntry {
  std::string title;
  std::string subtitle;
  std::string image;  ///< empty without a picture
};

/// How the cover sheet is told of the screen's state.
struct ScreenChange {
  std::uint8_t off = true;  ///< this and the next are told as they are, even if they are no booleans
  std::uint8_t autoUnlock = false;
  std::optional<NSInteger> unlockSource;  ///< told of only when it is there
};

/// One generation. What a person does sends the messages that a phone of that generation sends.
struct PlatformActions {
  /// Registers the classes that only this generation has.
  void (*defineClasses)();
  /// What the address of an application's bundle ends in.
  const char* endOfBundleURL;
  /// Sends an icon's view that was just allocated the initialiser that the icon lists use.
  SBIconView* (*initIconView)(id allocated);
  /// The object that icons' touches are told to.
  id (*menuHost)();
  /// Sends the icon its launch message.
  void (*launch)(SBIcon* icon, const std::string& identifier);
  /// Asks for the list's entries and shows the list, unless there are none.
  std::vector<QuickActionEntry> (*openQuickActions)(SBIconView* view);
  /// Acts on an entry of the open list.
  void (*chooseQuickAction)(std::size_t index);
  /// The list is gone from the screen.
  void (*closeQuickActions)();
  void (*changeScreen)(const ScreenChange& change);
  void (*showPowerDown)();
  void (*postToLockScreen)(NCNotificationRequest* request);
  /// `modal` is for the generation that knows modal notifications.
  void (*postBanner)(NCNotificationRequest* request, std::uint8_t modal);
};

/// Those of the running generation.
const PlatformActions& platformActions();

extern const PlatformActions oldActions;
extern const PlatformActions newActions;

}  // namespace sim
