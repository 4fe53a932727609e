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
