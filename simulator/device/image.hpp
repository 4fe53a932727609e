// Pictures, made here.
#pragma once

#include <cstdint>
#include <string>

namespace sim {

/// A square PNG of that many pixels a side: a dial with a mark, in one colour on a clear ground.
std::string dialImage(std::uint32_t side);

}  // namespace sim
