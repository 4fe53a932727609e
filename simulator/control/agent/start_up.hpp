// How a program of the phone starts that has a screen: what its driver says on the command line, and what is there
// before its own classes.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/device/generation.hpp"

namespace sim {

struct StartOptions {
  Generation generation = Generation::old;
  std::optional<double> coreVersion;
  bool tablet = false;
  std::optional<double> clock;  // seconds since 1970
  std::int64_t uptime = 0;      // nanoseconds
  bool live = false;
  bool resumePreferences = false;
  bool verbs = false;  // it says what it can be asked for, and ends
};

/// One option of the command line, and what its value sets; "" for one without.
struct OptionRow {
  std::string name;
  bool hasValue;
  std::function<void(const char* value)> set;
};
/// The options that every program takes.
std::vector<OptionRow> optionRows(StartOptions& options);

/// Runs a program of that name, which reports what goes wrong under it: takes the words of the command line, prepares
/// the frameworks, lets `launch` bring the application up, and serves the driver until that has gone. Gives the exit
/// status.
int runProgram(const char* name, int count, char** words, const StartOptions& options,
               const std::vector<OptionRow>& rows, const std::function<void()>& launch);

}  // namespace sim
