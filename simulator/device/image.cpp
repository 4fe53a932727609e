#include "simulator/device/image.hpp"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace sim {
namespace {

void appendNumber(std::string& bytes, std::uint32_t number) {
  for (const int shift : {24, 16, 8, 0}) bytes += static_cast<char>(number >> shift);
}

std::uint32_t checksum(std::string_view bytes) {
  std::uint32_t sum = ~0U;
  for (const unsigned char byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~sum;
}

std::uint32_t adler(std::string_view bytes) {
  constexpr std::uint32_t modulus = 65521;
  std::uint32_t low = 1;
  std::uint32_t high = 0;
  for (const unsigned char byte : bytes) {
    low = (low + byte) % modulus;
    high = (high + low) % modulus;
  }
  return high << 16U | low;
}

void appendChunk(std::string& png, const std::string& typeAndData) {
  appendNumber(png, static_cast<std::uint32_t>(typeAndData.size() - 4));
  png += typeAndData;
  appendNumber(png, checksum(typeAndData));
}

/// The pixels in the form that the compression's format has for uncompressed data.
std::string stored(const std::string& pixels) {
  constexpr std::size_t longest = 65535;
  std::string stream = "\x78\x01";
  for (std::size_t start = 0; start < pixels.size(); start += longest) {
    const std::size_t size = std::min(longest, pixels.size() - start);
    stream += static_cast<char>(start + size == pixels.size() ? 1 : 0);
    for (const std::size_t half : {size, ~size}) {
      stream += static_cast<char>(half);
      stream += static_cast<char>(half >> 8U);
    }
    stream += pixels.substr(start, size);
  }
  appendNumber(stream, adler(pixels));
  return stream;
}

}  // namespace

std::string dialImage(std::uint32_t side) {
  std::string pixels;  // grey and opacity, each row after a byte for its filter
  const double middle = (side - 1) / 2.0;
  for (std::uint32_t y = 0; y < side; ++y) {
    pixels += '\0';
    for (std::uint32_t x = 0; x < side; ++x) {
      const double radius = std::hypot(x - middle, y - middle) / middle;
      const bool ring = radius > 0.75 && radius <= 0.95;
      const bool mark = radius <= 0.6 && std::abs(x - middle) <= side * 0.06 && y <= middle;
      pixels += '\0';
      pixels += static_cast<char>(ring || mark ? 0xFF : 0);
    }
  }
  std::string header = "IHDR";
  appendNumber(header, side);
  appendNumber(header, side);
  header += std::string("\x08\x04\0\0\0", 5);  // 8 bits, grey with opacity
  std::string png = "\x89PNG\r\n\x1a\n";
  appendChunk(png, header);
  appendChunk(png, "IDAT" + stored(pixels));
  appendChunk(png, "IEND");
  return png;
}

}  // namespace sim
