#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

enum class UIUserInterfaceIdiom : NSInteger { phone = 0, pad = 1 };

/// The device that the home screen runs on.
struct UIDevice : Object {
  static UIDevice* currentDevice(Class cls);
  UIUserInterfaceIdiom userInterfaceIdiom();
};

/// What kind of device this is: a phone until said otherwise.
void setIdiom(UIUserInterfaceIdiom idiom);
UIUserInterfaceIdiom idiom();

void defineUIDevice();

}  // namespace sim
