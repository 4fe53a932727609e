// The old generation's icon controller: touches, editing and quick actions are its business.
#pragma once

#include "simulator/homescreen/common/SBIconModel.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/old/SBIconViewMap.hpp"

namespace sim::old {

struct SBIconController : Object {
  Ref<SBIconModel> iconModel;
  Ref<SBIconViewMap> homescreenIconViewMap;

  SBIconController* init();
  BOOL isEditing() { return homeState().editing; }
  // A phone highlights and drags the icon; neither shows here.
  void addTouchedIconView(SBIconView*) {}
  void iconTouchMoved(SBIcon*, id) { ++homeState().touchesMoved; }
  /// Every entry may be activated.
  BOOL shouldActivate(id, id, NSInteger, id) { return true; }
};

void defineSBIconController();

}  // namespace sim::old
