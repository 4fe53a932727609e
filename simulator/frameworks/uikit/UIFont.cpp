#include "simulator/frameworks/uikit/UIFont.hpp"

namespace sim {

UIFont* UIFont::systemFontOfSize(Class cls, CGFloat size) {
  auto font = make<UIFont>(cls);
  font->pointSize = size;
  return autoreleased(font);
}

void defineUIFont() {
  ClassBuilder<UIFont>("UIFont", "NSObject")
      .classMethod<&UIFont::systemFontOfSize>("systemFontOfSize:")
      .getter<&UIFont::pointSize>("pointSize")
      .add();
}

}  // namespace sim
