// The picture of a quick action, as the bytes of a PNG file.
#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct SBSApplicationShortcutCustomImageIcon : Object {
  Ref<objc_object> imagePNGData;  ///< nil for no picture

  SBSApplicationShortcutCustomImageIcon* initWithImagePNGData(id data);
};

void defineSBSApplicationShortcutCustomImageIcon();

}  // namespace sim
