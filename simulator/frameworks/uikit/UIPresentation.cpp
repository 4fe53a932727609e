#include "simulator/frameworks/uikit/UIPresentation.hpp"

#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {

void showPresented(UIViewController* controller) {
  constexpr CGFloat black = 0, dimmed = 0.4;
  UIWindow* window = controller->window();
  const CGRect whole{{}, window->bounds().size};
  controller->transitionView = addView(window, "UITransitionView"_cls, whole);
  auto* dimming = addView(controller->transitionView, "UIDimmingView"_cls, whole);
  dimming->backgroundColor = send<UIColor*>("UIColor"_cls, "colorWithWhite:alpha:"_sel, black, dimmed);
  auto* view = send<UIView*>(controller, "view"_sel);
  if (view == nullptr) return;
  controller->transitionView->addSubview(view);
  view->layoutIfNeeded();
}

void removePresented(UIViewController* controller) {
  if (controller->transitionView) controller->transitionView->removeFromSuperview();
  controller->transitionView = nullptr;
}

void defineUIDimmingView() {
  ClassBuilder<UIView, UIView>("UITransitionView", "UIView").add();
  ClassBuilder<UIView, UIView>("UIDimmingView", "UIView").add();
}

}  // namespace sim
