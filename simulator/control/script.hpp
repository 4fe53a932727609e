// The language of scripts and of the console: one verb a line.
#pragma once

#include <filesystem>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/control/home_screen.hpp"
#include "simulator/device/files.hpp"

namespace sim {

/// An `expect` or `expect-not` that does not hold.
struct ExpectationFailed : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Plays verbs against a home screen.
class Session {
 public:
  struct Options {
    std::filesystem::path buildFolder = programFolder();
    std::optional<std::filesystem::path> device;  ///< booted on by default; without it every boot has a fresh one
    bool live = false;                            ///< the clock runs by itself
  };

  /// What the verbs print goes to `output`.
  Session(Options options, std::ostream& output);
  ~Session();

  /// Plays one line; a line without a verb does nothing. Throws `BadInput`, `ExpectationFailed`, `HomeScreenDied`.
  void play(const std::string& line);
  /// The verbs, one a line, with what they do.
  static std::string help();

 private:
  friend struct Verbs;
  using Words = std::vector<std::string>;

  HomeScreen& home();
  /// The screen, with the events that were not shown before the last `screen` as well.
  Screen look();

  Options options_;
  std::ostream& output_;
  std::unique_ptr<TemporaryFolder> freshDevice_;
  std::unique_ptr<HomeScreen> home_;
  std::vector<std::string> events_;
  std::size_t shownEvents_ = 0;
};

/// Splits a line as a shell does: blanks part words, '…' and "…" keep blanks, \ keeps the next character, # begins
/// a comment. Throws `BadInput` for a quote that is not closed.
std::vector<std::string> splitWords(const std::string& line);

/// Plays a script, echoing each line that is played, and returns the program's exit status: 0, 1 when an
/// expectation failed, 2 for bad input. What went wrong is one line on `errors` that names the script's line.
int playScript(std::istream& script, const Session::Options& options, std::ostream& output, std::ostream& errors);

}  // namespace sim
