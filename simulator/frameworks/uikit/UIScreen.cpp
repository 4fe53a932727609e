#include "simulator/frameworks/uikit/UIScreen.hpp"

namespace sim {
namespace {
HeldScreen screens[] = {{{375, 667}, {20, 0, 0, 0}, 216}, {{667, 375}, {}, 162}};
Orientation held = Orientation::portrait;
}  // namespace

UIScreen* UIScreen::mainScreen(Class cls) {
  static Slot<UIScreen> screen;
  if (!screen) screen.set(make<UIScreen>(cls));
  return screen.get();
}

CGRect UIScreen::bounds() { return screenBounds(); }

const HeldScreen& heldScreen() { return screens[static_cast<std::size_t>(held)]; }

CGRect screenBounds() { return {{}, heldScreen().size}; }

void setScreen(const HeldScreen& portrait, const HeldScreen& landscape) {
  screens[0] = portrait;
  screens[1] = landscape;
}

Orientation orientation() { return held; }
void setOrientation(Orientation orientation) { held = orientation; }

void defineUIScreen() {
  ClassBuilder<UIScreen>("UIScreen", "NSObject")
      .classMethod<&UIScreen::mainScreen>("mainScreen")
      .method<&UIScreen::bounds>("bounds")
      .add();
}

}  // namespace sim
