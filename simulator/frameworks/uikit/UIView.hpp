#pragma once

#include <vector>

#include "simulator/frameworks/uikit/CALayer.hpp"
#include "simulator/frameworks/uikit/UIColor.hpp"
#include "simulator/frameworks/uikit/geometry.hpp"
#include "simulator/runtime/class_builder.hpp"

namespace sim {

struct UIWindow;

/// A view keeps its subviews; it does not keep its superview. When it goes, it stops observing the default
/// notification center.
struct UIView : Object {
  CGRect frame;  ///< in the superview's coordinates
  UIView* superview = nullptr;
  std::vector<Ref<UIView>> subviews;  ///< back to front
  bool hidden = false;
  bool userInteractionEnabled = true;
  CGFloat alpha = 1;
  Ref<UIColor> backgroundColor;
  Ref<CALayer> ownLayer;  ///< made when first asked for

  ~UIView();
  UIView* init();
  UIView* initWithFrame(CGRect frame);
  /// The frame at the origin: the view in its own coordinates.
  CGRect bounds() const;
  void setFrame(CGRect frame);
  id subviewsArray();
  void addSubview(UIView* view);
  void removeFromSuperview();
  /// The window that the view is in; nil while it is in none.
  UIWindow* window();
  CALayer* layer();
  /// Asks for `layoutSubviews` at the end of the current event.
  void setNeedsLayout();
  void layoutIfNeeded();
  void layoutSubviews() {}

  /// A point of the window in this view's coordinates.
  CGPoint fromWindow(CGPoint point) const;
};

void defineUIView();

}  // namespace sim
