// An application as the home screen knows it.
#pragma once

#include "simulator/homescreen/common/SBApplicationInfo.hpp"

namespace sim {

struct SBApplication : Object {
  Ref<SBApplicationInfo> info;

  id bundleIdentifier() { return send<id>(info, "bundleIdentifier"_sel); }
  id displayName() { return send<id>(info, "displayName"_sel); }
};

void defineSBApplication();

}  // namespace sim
