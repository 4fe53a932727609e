#include "simulator/frameworks/uikit/UIColor.hpp"

namespace sim {

UIColor* UIColor::colorWithWhite(Class cls, CGFloat white, CGFloat alpha) {
  return colorWithRed(cls, white, white, white, alpha);
}

UIColor* UIColor::colorWithRed(Class cls, CGFloat red, CGFloat green, CGFloat blue, CGFloat alpha) {
  auto color = make<UIColor>(cls);
  color->red = red;
  color->green = green;
  color->blue = blue;
  color->alpha = alpha;
  return autoreleased(color);
}

UIColor* UIColor::blackColor(Class cls) { return colorWithWhite(cls, 0, 1); }
UIColor* UIColor::whiteColor(Class cls) { return colorWithWhite(cls, 1, 1); }
UIColor* UIColor::clearColor(Class cls) { return colorWithWhite(cls, 0, 0); }

UIColor* UIColor::colorWithAlphaComponent(CGFloat component) { return colorWithRed(isa, red, green, blue, component); }

void defineUIColor() {
  ClassBuilder<UIColor>("UIColor", "NSObject")
      .classMethod<&UIColor::colorWithWhite>("colorWithWhite:alpha:")
      .classMethod<&UIColor::colorWithRed>("colorWithRed:green:blue:alpha:")
      .classMethod<&UIColor::blackColor>("blackColor")
      .classMethod<&UIColor::whiteColor>("whiteColor")
      .classMethod<&UIColor::clearColor>("clearColor")
      .method<&UIColor::colorWithAlphaComponent>("colorWithAlphaComponent:")
      .add();
}

}  // namespace sim
