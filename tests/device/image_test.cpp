// The pictures that a device holds, read as every program reads them.
#include "simulator/device/image.hpp"

#include <gtest/gtest.h>
#include <png.h>

#include <vector>

TEST(Images, AreSquareDialsOnClearGround) {
  constexpr std::uint32_t side = 35;
  const std::string file = sim::dialImage(side);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_memory(&image, file.data(), file.size()), 0) << image.message;
  EXPECT_EQ(image.width, side);
  EXPECT_EQ(image.height, side);
  image.format = PNG_FORMAT_RGBA;
  std::vector<png_byte> pixels(PNG_IMAGE_SIZE(image));
  ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0) << image.message;
  const auto opacity = [&](std::size_t x, std::size_t y) { return pixels[(y * side + x) * 4 + 3]; };
  EXPECT_EQ(opacity(0, 0), 0) << "a corner";
  EXPECT_EQ(opacity(17, 2), 255) << "the ring";
  EXPECT_EQ(opacity(17, 10), 255) << "the mark";
  EXPECT_EQ(opacity(17, 25), 0) << "opposite of the mark";
}
