#include "simulator/frameworks/uikit/UIDevice.hpp"

namespace sim {
namespace {
UIUserInterfaceIdiom current = UIUserInterfaceIdiom::phone;
}

UIDevice* UIDevice::currentDevice(Class cls) {
  static Slot<UIDevice> device;
  if (!device) device.set(make<UIDevice>(cls));
  return device.get();
}

UIUserInterfaceIdiom UIDevice::userInterfaceIdiom() { return current; }

void setIdiom(UIUserInterfaceIdiom idiom) { current = idiom; }
UIUserInterfaceIdiom idiom() { return current; }

void defineUIDevice() {
  ClassBuilder<UIDevice>("UIDevice", "NSObject")
      .classMethod<&UIDevice::currentDevice>("currentDevice")
      .method<&UIDevice::userInterfaceIdiom>("userInterfaceIdiom")
      .add();
}

}  // namespace sim
