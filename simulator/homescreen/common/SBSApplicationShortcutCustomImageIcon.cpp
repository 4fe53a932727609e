#include "simulator/homescreen/common/SBSApplicationShortcutCustomImageIcon.hpp"

namespace sim {

SBSApplicationShortcutCustomImageIcon* SBSApplicationShortcutCustomImageIcon::initWithImagePNGData(id data) {
  imagePNGData = data;
  return this;
}

void defineSBSApplicationShortcutCustomImageIcon() {
  ClassBuilder<SBSApplicationShortcutCustomImageIcon>("SBSApplicationShortcutCustomImageIcon", "NSObject")
      .method<&SBSApplicationShortcutCustomImageIcon::initWithImagePNGData>("initWithImagePNGData:")
      .getter<&SBSApplicationShortcutCustomImageIcon::imagePNGData>("imagePNGData")
      .add();
}

}  // namespace sim
