#pragma once

#include "simulator/runtime/class_builder.hpp"

namespace sim {

enum class UIImageRenderingMode : NSInteger { automatic = 0, alwaysOriginal = 1, alwaysTemplate = 2 };

/// A picture: where it came from and what it is made of, without its pixels.
struct UIImage : Object {
  std::string path;       ///< the file; empty when made of data
  Ref<objc_object> data;  ///< the PNG file's bytes, an NSData
  UIImageRenderingMode renderingMode = UIImageRenderingMode::automatic;

  /// Nil when the file is missing or is no PNG.
  static UIImage* imageWithContentsOfFile(Class cls, id path);
  /// Nil when the bytes are no PNG.
  static UIImage* imageWithData(Class cls, id data);
  UIImage* imageWithRenderingMode(UIImageRenderingMode mode);
};

/// What the image is: its file's path, with " (template)" when tinted, or "PNG of N bytes"; empty for nil.
std::string description(UIImage* image);

void defineUIImage();

}  // namespace sim
