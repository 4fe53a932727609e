#pragma once

#include "simulator/frameworks/uikit/UIView.hpp"

namespace sim {

/// A row of dots, one for each page.
struct UIPageControl : UIView {
  NSInteger numberOfPages = 0;
  NSInteger currentPage = 0;  ///< counted from 0
};

void defineUIPageControl();

}  // namespace sim
