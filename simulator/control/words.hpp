// The words of a line, as a person types them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sim {

/// Splits a line as a shell does: blanks part words, '…' and "…" keep blanks, \ keeps the next character, # begins
/// a comment. Throws `BadInput` for a quote that is not closed.
std::vector<std::string> splitWords(const std::string& line);

/// A line that is still being typed.
struct UnfinishedLine {
  std::vector<std::string> words;  ///< the finished ones
  std::string last;                ///< the one being typed; empty after a blank
  std::size_t start = 0;           ///< where that begins in the line, a quote included
  bool comment = false;            ///< it has no further words
};
UnfinishedLine splitUnfinished(const std::string& line);

/// The word as a line has to have it, in quotes where it needs them.
std::string quoted(const std::string& word);

/// Those of `known` that the word may be meant for, the nearest first and three at most.
std::vector<std::string> nearest(const std::string& word, const std::vector<std::string>& known);

/// Words one after the other, with something between them.
std::string joined(const std::vector<std::string>& words, const std::string& between = ", ");

}  // namespace sim
