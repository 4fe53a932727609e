// How a line may go on, while a person types it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "simulator/control/session.hpp"

namespace sim {

struct Completion {
  std::size_t start = 0;                ///< where the word being typed begins in the line
  std::string insertion;                ///< what to put in its place: as much as is sure, in quotes where needed
  std::vector<std::string> candidates;  ///< the words that it may become; none when nothing fits
};

/// `line` is what stands before the cursor.
Completion complete(Session& session, const std::string& line);

}  // namespace sim
