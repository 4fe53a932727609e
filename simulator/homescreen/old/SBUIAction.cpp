#include "simulator/homescreen/old/SBUIAction.hpp"

namespace sim::old {

SBUIAction* SBUIAction::initWithTitle(id shownTitle, id shownSubtitle, UIImage* shownImage, UIView* shownBadge,
                                      const BlockLiteral* chosen) {
  title = shownTitle;
  subtitle = shownSubtitle;
  image = shownImage;
  badgeView = shownBadge;
  handler = chosen;
  return this;
}

void defineSBUIAction() {
  ClassBuilder<SBUIAction>("SBUIAction", "NSObject")
      .method<&SBUIAction::initWithTitle>("initWithTitle:subtitle:image:badgeView:handler:")
      .getter<&SBUIAction::title>("title")
      .getter<&SBUIAction::subtitle>("subtitle")
      .getter<&SBUIAction::image>("image")
      .getter<&SBUIAction::badgeView>("badgeView")
      .add();
}

}  // namespace sim::old
