#include "simulator/frameworks/uikit/UIScreen.hpp"

#include "simulator/frameworks/uikit/UIDevice.hpp"

namespace sim {

UIScreen* UIScreen::mainScreen(Class cls) {
  static Slot<UIScreen> screen;
  if (!screen) screen.set(make<UIScreen>(cls));
  return screen.get();
}

CGRect UIScreen::bounds() { return screenBounds(); }

CGRect screenBounds() {
  return idiom() == UIUserInterfaceIdiom::pad ? CGRect{{}, {768, 1024}} : CGRect{{}, {375, 667}};
}

void defineUIScreen() {
  ClassBuilder<UIScreen>("UIScreen", "NSObject")
      .classMethod<&UIScreen::mainScreen>("mainScreen")
      .method<&UIScreen::bounds>("bounds")
      .add();
}

}  // namespace sim
