#include "simulator/frameworks/uikit/UINavigationBar.hpp"

#include "simulator/frameworks/uikit/UILabel.hpp"
#include "simulator/frameworks/uikit/UINavigationController.hpp"
#include "simulator/frameworks/uikit/UINavigationItem.hpp"

namespace sim {
namespace {

constexpr CGFloat margin = 8, buttonWidth = 90;

void addButton(UINavigationBar* bar, CGFloat x, id title, bool back) {
  auto* button = addView<UINavigationButton>(bar, "UINavigationButton"_cls, {{x, 0}, {buttonWidth, bar->height}});
  button->back = back;
  addLabel(button, button->bounds(), title, {.alignment = back ? 0 : 2});
}

}  // namespace

void UINavigationBar::layoutSubviews() {
  removeSubviews(this);
  if (controller == nullptr || controller->viewControllers.empty()) return;
  const auto& stack = controller->viewControllers;
  UIViewController* top = stack.back();
  addLabel(this, {{margin + buttonWidth, 0}, {frame.size.width - 2 * (margin + buttonWidth), height}},
           send<id>(top, "title"_sel));
  if (stack.size() > 1) {
    id before = send<id>(stack[stack.size() - 2].get(), "title"_sel);
    addButton(this, margin, before != nullptr ? before : ns("Back"), true);
  }
  if (const auto& item = top->ownNavigationItem; item && item->rightBarButtonItem)
    addButton(this, frame.size.width - margin - buttonWidth, item->rightBarButtonItem->title, false);
}

void defineUINavigationBar() {
  ClassBuilder<UINavigationButton, UIView>("UINavigationButton", "UIView").add();
  ClassBuilder<UINavigationBar, UIView>("UINavigationBar", "UIView")
      .method<&UINavigationBar::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
