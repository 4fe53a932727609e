#include "simulator/homescreen/common/SBBookmarkIcon.hpp"

namespace sim {

SBBookmarkIcon* SBBookmarkIcon::initWithTitle(id text) {
  title = text;
  return this;
}

void defineSBBookmarkIcon() {
  ClassBuilder<SBBookmarkIcon, SBLeafIcon>("SBBookmarkIcon", "SBLeafIcon")
      .method<&SBBookmarkIcon::initWithTitle>("initWithTitle:")
      .method<&SBBookmarkIcon::displayName>("displayName")
      .add();
}

}  // namespace sim
