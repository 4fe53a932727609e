// The user's choices, as the settings pane writes them.
#pragma once

#include "settings/file.hpp"

/// The settings in force. Plain values, replaced as a whole on every load; read on the main thread.
struct Settings {
  bool enabled;      ///< master switch
  int direction;     ///< of the swipe: 0 up, 1 down, anything else none
  float slideValue;  ///< least travel of one touch sample, in points
  bool useForce;     ///< the menu is reached through the quick-action list, not by a swipe
  bool useEditing;   ///< the swipe works while the home screen is edited, and only then
  // The menu's entries, in the settings pane's order.
  bool useRename;
  bool useBadge;
  bool useCustom;
  bool useCopyID;
  bool useCopySchemes;
  bool openFilza;
  bool useCache;
  bool useBackUp;
  bool useRestore;
  bool delBackUp;
  bool useReset;
  bool useMute;
  bool openApp;
  bool showSize;        ///< the cache entry tells the size
  bool useText;         ///< a badge may be any text
  bool hideLabel;       ///< icon labels are hidden
  int disableType;      ///< what muting keeps away: 0 banners, 1 all but banners, anything else everything
  bool muteLockScreen;  ///< follows from `disableType`: screen, sound and lock screen stay quiet
  bool muteBanners;     ///< follows from `disableType`: no banners
};

inline constinit Settings settings{};

/// Reads the settings file into `settings`. A key that is absent, or holds something that is neither number
/// nor text, gives its default; so does every key when there is no readable file.
void loadSettings();

/// The settings pane has written the file.
void settingsChanged(CFNotificationCenterRef, void*, CFStringRef, const void*, const void*);
