#include "simulator/frameworks/uikit/UIImage.hpp"

#include <cstring>

namespace sim {
namespace {

bool isPNG(id data) {
  static constexpr unsigned char signature[] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
  return send<NSUInteger>(data, "length"_sel) > sizeof signature &&
         std::memcmp(send<const void*>(data, "bytes"_sel), signature, sizeof signature) == 0;
}

}  // namespace

UIImage* UIImage::imageWithContentsOfFile(Class cls, id path) {
  if (path == nullptr) return nullptr;
  UIImage* image = imageWithData(cls, send<id>("NSData"_cls, "dataWithContentsOfFile:"_sel, path));
  if (image != nullptr) image->path = text(path);
  return image;
}

UIImage* UIImage::imageWithData(Class cls, id data) {
  if (!isPNG(data)) return nullptr;
  auto image = make<UIImage>(cls);
  image->data = data;
  return autoreleased(image);
}

UIImage* UIImage::imageWithRenderingMode(UIImageRenderingMode mode) {
  auto image = make<UIImage>(isa);
  image->path = path;
  image->data = data;
  image->renderingMode = mode;
  return autoreleased(image);
}

std::string description(UIImage* image) {
  if (image == nullptr) return {};
  if (image->path.empty()) return "PNG of " + std::to_string(send<NSUInteger>(image->data, "length"_sel)) + " bytes";
  return image->path + (image->renderingMode == UIImageRenderingMode::alwaysTemplate ? " (template)" : "");
}

void defineUIImage() {
  ClassBuilder<UIImage>("UIImage", "NSObject")
      .classMethod<&UIImage::imageWithContentsOfFile>("imageWithContentsOfFile:")
      .classMethod<&UIImage::imageWithData>("imageWithData:")
      .method<&UIImage::imageWithRenderingMode>("imageWithRenderingMode:")
      .getter<&UIImage::renderingMode>("renderingMode")
      .add();
}

}  // namespace sim
