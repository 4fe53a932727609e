// The new generation's icon manager: touches, editing and quick actions are its business.
#pragma once

#include "simulator/homescreen/common/SBIconModel.hpp"
#include "simulator/homescreen/common/SBIconView.hpp"
#include "simulator/homescreen/common/home.hpp"

namespace sim::recent {

struct SBHIconManager : Object {
  Ref<SBIconModel> iconModel;

  SBHIconManager* init();
  BOOL isEditing() { return homeState().editing; }
  // A phone highlights and drags the icon; neither shows here.
  void addTouchedIconView(SBIconView*) {}
  void iconTouchMoved(SBIcon*, id) { ++homeState().touchesMoved; }
  /// The list as it is proposed.
  id shortcutItems(SBIconView*, id proposed) { return proposed; }
  /// Every entry may be activated.
  BOOL shouldActivate(SBIconView*, id, NSInteger) { return true; }
};

void defineSBHIconManager();

}  // namespace sim::recent
