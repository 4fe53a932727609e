// What a person does with the home screen. What it does not have is a `Refused`, which changes nothing.
// Icons go by their bundle identifier, web pages by their title.
#pragma once

#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/homescreen/common/platform_actions.hpp"

namespace sim::gestures {

/// A finger is put on an icon and taken away again, without a tap.
void touch(const std::string& icon);
/// A finger drags on an icon, one touch movement a sample, each in points from the one before.
void swipe(const std::string& icon, const std::vector<CGPoint>& samples);

/// Presses an icon until its quick-action list opens. An empty list does not.
void forceTouch(const std::string& icon);
/// Chooses an entry of the open list by its title.
void choose(const std::string& title);
/// The open quick-action list.
struct QuickActions {
  Ref<SBIconView> icon;
  std::vector<QuickActionEntry> entries;
};
/// None while no list is open.
const std::optional<QuickActions>& quickActions();

/// Taps an icon.
void launch(const std::string& icon);
/// A finger taps on a point of the screen, whatever is there.
void touchAt(CGPoint point);
/// A finger comes down on a point and moves, one touch movement a sample. Sideways over the icons it turns the page.
void drag(CGPoint start, const std::vector<CGPoint>& samples);
/// Presses the home button twice, or swipes up and holds.
void openSwitcher();
/// Turns the device. What the home screen shows is laid out anew.
void rotate(Orientation held);
/// The home button: closes the list, ends editing, goes back from an application.
void pressHome();
void setEditing(bool on);

void lock();
void unlock();
/// The screen alone changes, without locking or unlocking.
void changeScreen(const ScreenChange& change);
/// Holds the power button until the slider comes up.
void powerDown();

/// Where the user lets an application's notifications appear.
struct NotificationPlaces {
  bool screen = true;  ///< it is turned on
  bool sound = true;
  bool lockScreen = true;
  bool banner = true;
};
/// A notification of an application arrives.
void notify(const std::string& application, const std::string& text, const NotificationPlaces& places,
            std::uint8_t modal);

void startDownload(const std::string& application);
/// Asks the icon whether it is downloading.
RawBool askDownload(const std::string& application);
/// The user removes the icon.
void removeDownload(const std::string& application);

}  // namespace sim::gestures
