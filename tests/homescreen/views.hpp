// Finding views on the screen.
#pragma once

#include "tests/support/phone.hpp"

namespace test {

/// A view, and its frame on the screen.
struct PlacedView {
  sim::ViewOnScreen view;
  sim::Frame frame;
};

inline void collect(std::vector<PlacedView>& found, const sim::ViewOnScreen& view, double x, double y,
                    const std::string& className) {
  const sim::Frame frame{x + view.frame.x, y + view.frame.y, view.frame.width, view.frame.height};
  if (view.className == className) found.push_back({view, frame});
  for (const auto& subview : view.subviews)
    collect(found, subview, frame.x - view.scrolledX, frame.y - view.scrolledY, className);
}

/// The views of that class in the visible windows, back to front.
inline std::vector<PlacedView> viewsOf(const Screen& screen, const std::string& className) {
  std::vector<PlacedView> found;
  for (const auto& window : screen.tree)
    for (const auto& view : window.views) collect(found, view, window.frame.x, window.frame.y, className);
  return found;
}

/// The visible window of that name; null without one.
inline const sim::WindowOnScreen* windowNamed(const Screen& screen, const std::string& name) {
  for (const auto& window : screen.tree)
    if (window.name == name) return &window;
  return nullptr;
}

inline double right(const sim::Frame& frame) { return frame.x + frame.width; }
inline double bottom(const sim::Frame& frame) { return frame.y + frame.height; }

/// The text of the view's first label.
inline std::string caption(const PlacedView& placed) { return placed.view.subviews.at(0).text; }

/// A finger taps on that point.
inline void touchAt(Phone& phone, double x, double y) { phone.ask("touch-at", {{"x", x}, {"y", y}}); }
inline void touch(Phone& phone, const sim::Frame& frame) {
  touchAt(phone, frame.x + frame.width / 2, frame.y + frame.height / 2);
}
/// A finger goes from that point by dx and dy.
inline void drag(Phone& phone, double x, double y, double dx, double dy) {
  phone.ask("drag", {{"x", x}, {"y", y}, {"samples", {dx, dy}}});
}
inline void rotate(Phone& phone, const std::string& to) { phone.ask("rotate", {{"to", to}}); }

/// What the home screen says to a request that it refuses; empty when it does what was asked.
inline std::string refusal(const std::function<void()>& action) {
  try {
    action();
  } catch (const sim::BadInput& refused) {
    return refused.what();
  }
  return {};
}

}  // namespace test
