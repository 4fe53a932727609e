#include "simulator/homescreen/old/SBIconViewMap.hpp"

#include "simulator/homescreen/common/icons.hpp"

namespace sim::old {

id SBIconViewMap::iconModel() { return sim::iconModel(); }
id SBIconViewMap::iconViewForIcon(id icon) { return send<id>(rootFolder(), "iconViewForIcon:"_sel, icon); }

void defineSBIconViewMap() {
  ClassBuilder<SBIconViewMap>("SBIconViewMap", "NSObject")
      .method<&SBIconViewMap::iconModel>("iconModel")
      .method<&SBIconViewMap::iconViewForIcon>("iconViewForIcon:")
      .add();
}

}  // namespace sim::old
