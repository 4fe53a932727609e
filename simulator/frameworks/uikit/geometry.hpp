// Points, sizes and rectangles, in points of the screen.
#pragma once

#include "simulator/runtime/encoding.hpp"

namespace sim {

struct CGPoint {
  CGFloat x = 0, y = 0;
  bool operator==(const CGPoint&) const = default;
};
struct CGSize {
  CGFloat width = 0, height = 0;
  bool operator==(const CGSize&) const = default;
};
struct CGRect {
  CGPoint origin;
  CGSize size;
  bool operator==(const CGRect&) const = default;
};

/// The margins along a rectangle's edges.
struct UIEdgeInsets {
  CGFloat top = 0, left = 0, bottom = 0, right = 0;
};

inline CGPoint operator+(CGPoint a, CGPoint b) { return {a.x + b.x, a.y + b.y}; }
inline CGPoint operator-(CGPoint a, CGPoint b) { return {a.x - b.x, a.y - b.y}; }
/// A rectangle's right and lower edge are not part of it.
inline bool contains(const CGRect& rect, CGPoint point) {
  const CGPoint within = point - rect.origin;
  return within.x >= 0 && within.y >= 0 && within.x < rect.size.width && within.y < rect.size.height;
}
/// The rectangle without a margin on each side.
inline CGRect inset(const CGRect& rect, CGFloat dx, CGFloat dy) {
  return {{rect.origin.x + dx, rect.origin.y + dy}, {rect.size.width - 2 * dx, rect.size.height - 2 * dy}};
}
inline CGPoint middle(const CGRect& rect) {
  return {rect.origin.x + rect.size.width / 2, rect.origin.y + rect.size.height / 2};
}

template <>
struct Encoding<CGPoint> {
  static std::string text() { return "{CGPoint=dd}"; }
};
template <>
struct Encoding<CGSize> {
  static std::string text() { return "{CGSize=dd}"; }
};
template <>
struct Encoding<CGRect> {
  static std::string text() { return "{CGRect={CGPoint=dd}{CGSize=dd}}"; }
};

}  // namespace sim
