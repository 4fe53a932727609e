#include "simulator/frameworks/uikit/UIView.hpp"

#include <algorithm>
#include <ranges>
#include <set>

#include "platform/dispatch.hpp"
#include "simulator/frameworks/uikit/UIWindow.hpp"

namespace sim {
namespace {

// The views that are to be laid out at the end of the event. Waiting for that keeps none of them alive.
std::set<UIView*>& needingLayout() {
  // Views go until the very end of the process.
  static auto* const views = new std::set<UIView*>;
  return *views;
}

}  // namespace

UIView::~UIView() {
  needingLayout().erase(this);
  // The platform's notification center refers weakly to its observers: one that goes is observer no more.
  send(send<id>("NSNotificationCenter"_cls, "defaultCenter"_sel), "removeObserver:"_sel, id{this});
  for (const auto& view : subviews) view->superview = nullptr;
}

UIView* UIView::init() { return send<UIView*>(this, "initWithFrame:"_sel, CGRect{}); }

UIView* UIView::initWithFrame(CGRect initial) {
  auto* self = sendSuper<UIView*>(this, "NSObject"_cls, "init"_sel);
  if (self != nullptr) self->frame = initial;
  return self;
}

CGRect UIView::bounds() const { return {scrolled, frame.size}; }

void UIView::setFrame(CGRect changed) {
  const bool resized = changed.size != frame.size;
  frame = changed;
  if (resized) send(this, "setNeedsLayout"_sel);
}

id UIView::subviewsArray() { return array({subviews.begin(), subviews.end()}); }

void UIView::addSubview(UIView* view) {
  if (view == nullptr) return;
  const Ref<UIView> kept = view;
  send(view, "removeFromSuperview"_sel);
  attach(view);
  send(this, "setNeedsLayout"_sel);
  send(view, "setNeedsLayout"_sel);
}

void UIView::attach(UIView* view) {
  const Ref<UIView> kept = view;
  view->removeFromSuperview();
  subviews.push_back(kept);
  view->superview = this;
}

void UIView::removeFromSuperview() {
  if (superview == nullptr) return;
  auto& siblings = superview->subviews;
  superview = nullptr;
  const auto place = std::find(siblings.begin(), siblings.end(), this);
  // Erasing it may take the last reference, so that is done last.
  const Ref<UIView> self = *place;
  siblings.erase(place);
}

UIWindow* UIView::window() {
  UIView* top = this;
  while (top->superview != nullptr) top = top->superview;
  return isKind(top, "UIWindow"_cls) ? static_cast<UIWindow*>(top) : nullptr;
}

CALayer* UIView::layer() {
  if (ownLayer == nullptr) ownLayer = make<CALayer>("CALayer"_cls);
  return ownLayer;
}

void UIView::setNeedsLayout() {
  if (!needingLayout().insert(this).second) return;
  dispatch::afterOnMain(0, [view = this] {
    if (needingLayout().contains(view)) send(view, "layoutIfNeeded"_sel);
  });
}

void UIView::layoutIfNeeded() {
  if (needingLayout().erase(this) == 0) return;
  const Ref<UIView> kept = this;
  send(this, "layoutSubviews"_sel);
  // What the layout itself changed is laid out.
  needingLayout().erase(this);
}

BOOL UIView::pointInside(CGPoint point, id) { return contains(bounds(), point); }

UIView* UIView::hitTest(CGPoint point, id event) {
  constexpr CGFloat asGoodAsClear = 0.01;
  if (hidden || !userInteractionEnabled || alpha < asGoodAsClear) return nullptr;
  if (!send<BOOL>(this, "pointInside:withEvent:"_sel, point, event)) return nullptr;
  const auto candidates = subviews;
  for (UIView* view : std::ranges::reverse_view(candidates))
    if (auto* hit = send<UIView*>(view, "hitTest:withEvent:"_sel, point - view->frame.origin + view->scrolled, event))
      return hit;
  return this;
}

BOOL UIView::isDescendantOfView(UIView* other) {
  const UIView* view = this;
  while (view != nullptr && view != other) view = view->superview;
  return view != nullptr;
}

CGPoint UIView::fromWindow(CGPoint point) const {
  for (const UIView* view = this; view->superview != nullptr; view = view->superview)
    point = point - view->frame.origin + view->scrolled;
  return point;
}

CGRect UIView::onScreen() const {
  CGRect rect = frame;
  for (const UIView* view = superview; view != nullptr; view = view->superview)
    rect.origin = rect.origin - view->scrolled + view->frame.origin;
  return rect;
}

void removeSubviews(UIView* view) {
  while (!view->subviews.empty()) view->subviews.back()->removeFromSuperview();
}

void defineUIView() {
  ClassBuilder<UIView>("UIView", "NSObject")
      .method<&UIView::init>("init")
      .method<&UIView::initWithFrame>("initWithFrame:")
      .getter<&UIView::frame>("frame")
      .method<&UIView::setFrame>("setFrame:")
      .method<&UIView::bounds>("bounds")
      .getter<&UIView::superview>("superview")
      .method<&UIView::subviewsArray>("subviews")
      .method<&UIView::addSubview>("addSubview:")
      .method<&UIView::removeFromSuperview>("removeFromSuperview")
      .method<&UIView::window>("window")
      .method<&UIView::pointInside>("pointInside:withEvent:")
      .method<&UIView::hitTest>("hitTest:withEvent:")
      .method<&UIView::isDescendantOfView>("isDescendantOfView:")
      .property<&UIView::accessibilityIdentifier>("accessibilityIdentifier")
      .getter<&UIView::hidden>("isHidden")
      .property<&UIView::hidden>("hidden")
      .getter<&UIView::userInteractionEnabled>("isUserInteractionEnabled")
      .property<&UIView::userInteractionEnabled>("userInteractionEnabled")
      .property<&UIView::alpha>("alpha")
      .property<&UIView::backgroundColor>("backgroundColor")
      .method<&UIView::layer>("layer")
      .method<&UIView::setNeedsLayout>("setNeedsLayout")
      .method<&UIView::layoutIfNeeded>("layoutIfNeeded")
      .method<&UIView::layoutSubviews>("layoutSubviews")
      .add();
}

}  // namespace sim
