// Lines from a person: edited and remembered at a terminal, taken as they come from anywhere else.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace sim {

class LineReader {
 public:
  virtual ~LineReader() = default;
  /// The next line, without its line feed; none at the end, or when it was to stop.
  virtual std::optional<std::string> next() = 0;
};

/// What a Tab does: gets what stands before the cursor.
struct TabCompletion {
  std::size_t start = 0;   ///< from there to the cursor
  std::string insertion;   ///< is replaced by this
  std::string candidates;  ///< shown below when nothing changes; empty when there are none
};
using Completer = std::function<TabCompletion(const std::string& beforeCursor)>;

/// Reads standard input, at a terminal with a prompt, editing, completion, and a history that is kept in `history` as
/// far as that is possible.
std::unique_ptr<LineReader> readStandardInput(const std::filesystem::path& history, Completer completer,
                                              std::stop_token stop);

/// Lines as they come from a file descriptor, which is closed in the end.
std::unique_ptr<LineReader> readLines(int descriptor, std::stop_token stop);

/// Where this user's programs keep what they remember, by this name.
std::filesystem::path stateFile(const std::string& name);

}  // namespace sim
