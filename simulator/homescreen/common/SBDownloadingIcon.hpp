// The icon of an application that is still on its way.
#pragma once

#include "simulator/homescreen/common/SBApplicationIcon.hpp"

namespace sim {

struct SBDownloadingIcon : SBApplicationIcon {
  BOOL isDownloadingIcon() { return true; }
  /// The user took the icon away: the home screen forgets it and its application.
  void uninstalledByUser();
};

void defineSBDownloadingIcon();

}  // namespace sim
