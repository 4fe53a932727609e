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
  CGRect frame;      ///< in the superview's coordinates
  CGPoint scrolled;  ///< the point of its own coordinates that its upper left corner shows
  UIView* superview = nullptr;
  std::vector<Ref<UIView>> subviews;  ///< back to front
  bool hidden = false;
  bool userInteractionEnabled = true;
  CGFloat alpha = 1;
  Ref<UIColor> backgroundColor;
  Ref<CALayer> ownLayer;                     ///< made when first asked for
  Ref<objc_object> accessibilityIdentifier;  ///< a text; nil for none

  ~UIView();
  UIView* init();
  UIView* initWithFrame(CGRect frame);
  /// The view in its own coordinates.
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

  /// Whether the view itself takes a touch at a point of its own coordinates; subviews are not asked.
  BOOL pointInside(CGPoint point, id event);
  /// The frontmost view at a point of this view's coordinates, which may be the view itself; nil when nothing there
  /// takes touches: what is hidden, as good as clear or without interaction takes none, nor do its subviews.
  UIView* hitTest(CGPoint point, id event);
  /// Whether it is the other view, or somewhere in it.
  BOOL isDescendantOfView(UIView* view);

  /// Puts the view in front of the subviews, and no more.
  void attach(UIView* view);
  /// A point of the window in this view's coordinates.
  CGPoint fromWindow(CGPoint point) const;
  /// The view in the coordinates of the screen that its window stands on.
  CGRect onScreen() const;
};

/// A new view of the class, of which only the superview knows. What the system puts up by itself goes no way that an
/// application's views go.
template <class T = UIView>
T* addView(UIView* superview, Class cls, CGRect frame) {
  const auto view = make<T>(cls);
  view->frame = frame;
  superview->attach(view);
  return static_cast<T*>(superview->subviews.back().get());
}
/// Takes every subview away.
void removeSubviews(UIView* view);

void defineUIView();

}  // namespace sim
