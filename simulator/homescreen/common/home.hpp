// The state of the home screen that no single class of the platform holds.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "simulator/device/generation.hpp"
#include "simulator/runtime/encoding.hpp"
#include "simulator/runtime/objc.hpp"

namespace sim {

/// A notification as it arrived at a place.
struct DeliveredNotification {
  std::string id;
  std::string text;
  unsigned long number = 0;  ///< of a banner, which no other has
};

/// One launch of an icon, as its launch method was called.
struct Launch {
  std::string id;
  NSInteger location;
  std::optional<std::string> context, settings, actions;  ///< none for nil
};

/// A notification as a method with more arguments than the request was told of it; texts, none for nil.
struct PostedNotification {
  std::string place, text;
  std::optional<std::string> coalesced, sourceAction;
  bool modal = false;
};

/// The arguments of one call of a platform's method that are no objects, as they arrived: of a BOOL the byte.
struct PassedOn {
  std::string method;
  std::vector<std::int64_t> values;
};

struct HomeState {
  Generation generation = Generation::old;
  bool screenOn = true;
  bool locked = false;
  bool poweringDown = false;
  bool editing = false;
  bool switcherOpen = false;
  std::string frontmost;              ///< the open application; empty on the home screen
  std::vector<std::string> switcher;  ///< bundle identifiers, latest first
  std::vector<std::string> events;    ///< all that happened since the start
  std::vector<DeliveredNotification> banners, lockScreen;
  std::vector<Launch> launches;
  std::vector<PostedNotification> posted;     ///< what reached the platform's own methods
  std::vector<PassedOn> passedOn;             ///< likewise, of the methods whose hooks only pass such arguments on
  std::vector<std::string> completedBanners;  ///< texts of the notifications whose completion was called
  long touchesMoved = 0;                      ///< how often the platform's own method was told of a moved touch
  long forceTouchStateAsked = 0;              ///< how often the platform's own method was asked for the list's state
};

/// The one home screen of the process.
HomeState& homeState();

/// Shows an application in front of the home screen.
void openApplication(const std::string& bundleIdentifier);

}  // namespace sim
