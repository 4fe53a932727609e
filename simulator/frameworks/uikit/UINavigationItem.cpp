#include "simulator/frameworks/uikit/UINavigationItem.hpp"

#include "simulator/frameworks/uikit/UINavigationController.hpp"

namespace sim {

void UINavigationItem::setRightBarButtonItem(UIBarButtonItem* item) {
  rightBarButtonItem = item;
  UINavigationController* navigation = controller != nullptr ? controller->navigationController() : nullptr;
  if (navigation != nullptr) send(navigation->bar.get(), "setNeedsLayout"_sel);
}

void defineUINavigationItem() {
  ClassBuilder<UINavigationItem>("UINavigationItem", "NSObject")
      .getter<&UINavigationItem::rightBarButtonItem>("rightBarButtonItem")
      .method<&UINavigationItem::setRightBarButtonItem>("setRightBarButtonItem:")
      .add();
}

}  // namespace sim
