// The icon of a web page.
#pragma once

#include "simulator/homescreen/common/SBLeafIcon.hpp"

namespace sim {

struct SBBookmarkIcon : SBLeafIcon {
  Ref<objc_object> title;

  SBBookmarkIcon* initWithTitle(id text);
  id displayName() { return title; }
};

void defineSBBookmarkIcon();

}  // namespace sim
