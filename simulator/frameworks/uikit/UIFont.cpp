#include "simulator/frameworks/uikit/UIFont.hpp"

#include <algorithm>
#include <cmath>

namespace sim {

UIFont* UIFont::systemFontOfSize(Class cls, CGFloat size) {
  auto font = make<UIFont>(cls);
  font->pointSize = size;
  return autoreleased(font);
}

CGFloat textHeight(id text, CGFloat fontSize, CGFloat width) {
  constexpr CGFloat glyphWidth = 0.5, lineHeight = 1.25;
  CGFloat lines = 0;
  for (id line : elements(send<id>(text, "componentsSeparatedByString:"_sel, ns("\n")))) {
    const auto length = static_cast<CGFloat>(send<NSUInteger>(line, "length"_sel));
    lines += std::max(std::ceil(length * glyphWidth * fontSize / width), 1.0);
  }
  return std::ceil(lines * lineHeight * fontSize);
}

void defineUIFont() {
  ClassBuilder<UIFont>("UIFont", "NSObject")
      .classMethod<&UIFont::systemFontOfSize>("systemFontOfSize:")
      .getter<&UIFont::pointSize>("pointSize")
      .add();
}

}  // namespace sim
