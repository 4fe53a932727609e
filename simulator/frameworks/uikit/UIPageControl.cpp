#include "simulator/frameworks/uikit/UIPageControl.hpp"

namespace sim {

void defineUIPageControl() {
  ClassBuilder<UIPageControl, UIView>("UIPageControl", "UIView")
      .property<&UIPageControl::numberOfPages>("numberOfPages")
      .property<&UIPageControl::currentPage>("currentPage")
      .add();
}

}  // namespace sim
