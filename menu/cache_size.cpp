#include "menu/cache_size.hpp"

namespace menu {
namespace {

constexpr int mebibyteShift = 20;

// What "%.2f" writes, in hundredths: the nearest one, and the even one of two that are equally near. `value`
// is not negative. Single precision holds 24 binary digits, so everything here is exact.
std::uint64_t hundredths(float value) {
  constexpr int fractionBits = 23;
  constexpr int exponentBias = 127;
  const auto bits = __builtin_bit_cast(std::uint32_t, value);
  if (bits == 0) return 0;
  const std::uint64_t mantissa = (bits & ((1U << fractionBits) - 1)) | (1U << fractionBits);
  const int shift = fractionBits - (static_cast<int>(bits >> fractionBits) - exponentBias);
  const std::uint64_t scaled = mantissa * 100;
  if (shift <= 0) return scaled << -shift;
  if (shift >= 64) return 0;
  const std::uint64_t half = 1ULL << (shift - 1);
  const std::uint64_t rest = scaled & ((half << 1) - 1);
  const std::uint64_t whole = scaled >> shift;
  return whole + (rest > half || (rest == half && (whole & 1) != 0) ? 1 : 0);
}

NSString* decimal(std::uint64_t number) { return NSNumber::withUnsigned(number)->description(); }

}  // namespace

std::uint64_t folderSize(const NSString* folder) {
  const AutoreleasePool pool;
  NSFileManager* files = NSFileManager::defaultManager();
  NSArray* names = files->subpathsOfDirectory(folder);
  const NSUInteger count = names->count();
  std::uint64_t bytes = 0;
  for (NSUInteger i = 0; i < count; ++i) {
    const AutoreleasePool each;
    bytes += files->fileSize(folder->appendingPathComponent(names->at<NSString>(i)));
  }
  return bytes;
}

NSString* cacheSizeTitle(std::uint64_t bytes) {
  const std::uint64_t size = hundredths(static_cast<float>(bytes) * 0x1p-20F);
  NSString* text = nullptr;
  if (size % 100 == 0) {
    // Also when the fraction was only rounded away: the title then names what is surely there.
    text = decimal(bytes >> mebibyteShift);
  } else {
    NSString* tens = size % 100 < 10 ? ".0"_ns : "."_ns;
    text = decimal(size / 100)->appending(tens)->appending(decimal(size % 100));
  }
  return "Clear Caches("_ns->appending(text)->appending(" MB)"_ns);
}

}  // namespace menu
