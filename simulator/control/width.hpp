// How wide a text is in a terminal.
#pragma once

#include <cstddef>
#include <string_view>

namespace sim {

/// The columns that a text takes: two for a wide character, a flag or an emoji, however many code points it is made
/// of; none for what only changes the character before it. A byte that is no UTF-8 takes one.
std::size_t columns(std::string_view text);

}  // namespace sim
