#include "simulator/control/width.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <utility>

namespace sim {
namespace {

constexpr std::size_t widest = 2;
/// Makes an emoji of the character before it.
constexpr utf8proc_int32_t emojiSelector = 0xFE0F;

}  // namespace

std::size_t columns(std::string_view text) {
  std::size_t before = 0;   // of the characters that are complete
  std::size_t current = 0;  // of the one that may go on
  utf8proc_int32_t previous = 0;
  utf8proc_int32_t state = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  for (std::size_t index = 0; index < text.size();) {
    utf8proc_int32_t point = 0;
    const auto length = utf8proc_iterate(bytes + index, static_cast<utf8proc_ssize_t>(text.size() - index), &point);
    if (length < 0) point = 0xFFFD;
    index += length < 0 ? 1 : static_cast<std::size_t>(length);
    if (previous != 0 && utf8proc_grapheme_break_stateful(previous, point, &state) != 0) {
      before += std::exchange(current, 0);
    }
    const auto width = point == emojiSelector ? widest : static_cast<std::size_t>(utf8proc_charwidth(point));
    current = std::min(widest, current + width);
    previous = point;
  }
  return before + current;
}

}  // namespace sim
