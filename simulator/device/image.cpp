#include "simulator/device/image.hpp"

#include <png.h>

#include <cmath>
#include <stdexcept>
#include <vector>

namespace sim {

std::string dialImage(std::uint32_t side) {
  std::vector<png_byte> pixels;  // grey and opacity
  pixels.reserve(std::size_t{2} * side * side);
  const double middle = (side - 1) / 2.0;
  for (std::uint32_t y = 0; y < side; ++y) {
    for (std::uint32_t x = 0; x < side; ++x) {
      const double radius = std::hypot(x - middle, y - middle) / middle;
      const bool ring = radius > 0.75 && radius <= 0.95;
      const bool mark = radius <= 0.6 && std::abs(x - middle) <= side * 0.06 && y <= middle;
      pixels.push_back(0);
      pixels.push_back(ring || mark ? 0xFF : 0);
    }
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = image.height = side;
  image.format = PNG_FORMAT_GA;
  std::string png(PNG_IMAGE_PNG_SIZE_MAX(image), '\0');
  std::size_t size = png.size();
  if (png_image_write_to_memory(&image, png.data(), &size, 0, pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(image.message);
  }
  png.resize(size);
  return png;
}

}  // namespace sim
