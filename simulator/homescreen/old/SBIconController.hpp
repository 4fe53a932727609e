// The old generation's icon controller: touches, editing and quick actions are its business.
#pragma once

#include "simulator/homescreen/common/SBIconModel.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/old/SBIconViewMap.hpp"

namespace sim::old {

struct SBIconController : Object {
  Ref<SBIconModel> iconModel;
  Ref<SBIconViewMap> homescreenIconViewMap;
  Ref<SBIconView> touchedIconView;

  SBIconController* init();
  BOOL isEditing() { return home().editing; }
  void addTouchedIconView(SBIconView* view) { touchedIconView = view; }
  /// A finger that moves drags the icon while it is being edited; nothing else here depends on it.
  void iconTouchMoved(SBIcon*, id) {}
  /// Every entry may be activated.
  BOOL shouldActivate(id, id, NSInteger, id) { return true; }
};

void defineSBIconController();

}  // namespace sim::old
