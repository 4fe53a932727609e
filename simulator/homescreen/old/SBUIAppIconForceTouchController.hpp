// Shows the quick-action list of one icon.
#pragma once

#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/common/SBSApplicationShortcutItem.hpp"
#include "simulator/homescreen/old/SBUIAction.hpp"

namespace sim::old {

struct SBUIAppIconForceTouchController : Object {
  NSInteger state = 0;  ///< 0 while no list is open, 1 while one is
  std::vector<Ref<SBSApplicationShortcutItem>> items;
  std::vector<Ref<SBUIAction>> actions;  ///< one for each item

  NSInteger currentState();
  /// Opens the list of the icon's application, unless it is empty.
  void open(SBIconView* view);
  /// Runs an entry's handler, then closes the list.
  void choose(std::size_t index);
  void close();

  /// The one that the home screen uses.
  static SBUIAppIconForceTouchController* shared();

 private:
  void change(NSInteger newState);
  void activate(std::size_t index);
};

void defineSBUIAppIconForceTouchController();

}  // namespace sim::old
