#include "simulator/homescreen/new/SBHIconManager.hpp"

#include "simulator/homescreen/common/icons.hpp"

namespace sim::recent {

SBHIconManager* SBHIconManager::init() {
  iconModel = sim::iconModel();
  return this;
}

void defineSBHIconManager() {
  ClassBuilder<SBHIconManager>("SBHIconManager", "NSObject")
      .ivar("_iconModel", &SBHIconManager::iconModel)
      .method<&SBHIconManager::init>("init")
      .getter<&SBHIconManager::iconModel>("iconModel")
      .method<&SBHIconManager::isEditing>("isEditing")
      .method<&SBHIconManager::addTouchedIconView>("_addTouchedIconView:")
      .method<&SBHIconManager::iconTouchMoved>("icon:touchMoved:")
      .method<&SBHIconManager::shortcutItems>("iconView:applicationShortcutItemsWithProposedItems:")
      .method<&SBHIconManager::shouldActivate>("iconView:shouldActivateApplicationShortcutItem:atIndex:")
      .add();
}

}  // namespace sim::recent
