#include "simulator/control/agent/start_up.hpp"

#include <getopt.h>
#include <sys/resource.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <stdexcept>

#include "simulator/control/agent/agent.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/core_foundation/version.hpp"
#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/frameworks/launch_services/LSApplicationProxy.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/UIScreen.hpp"
#include "simulator/frameworks/uikit/uikit.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/measures.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/waiting.hpp"

extern "C" void NSSetUncaughtExceptionHandler(void (*handler)(id exception));

namespace sim {
namespace {

constexpr int driverSocket = 3;

const char* programName = "";

double number(const char* text) {
  char* end = nullptr;
  const double value = std::strtod(text, &end);
  if (end == text || *end != '\0' || !std::isfinite(value))
    throw std::invalid_argument(std::string("\"") + text + "\" is no number");
  return value;
}

double time(const char* text) {
  const double seconds = number(text);
  if (!clock::canShow(seconds))
    throw std::invalid_argument(std::string("the clock cannot stand at \"") + text + "\": it goes from 1970 to 2255");
  return seconds;
}

std::int64_t nanoseconds(const char* text) {
  std::int64_t value = -1;
  const char* end = text + std::strlen(text);
  if (std::from_chars(text, end, value).ptr != end || value < 0)
    throw std::invalid_argument(std::string("\"") + text + "\" is no number of nanoseconds");
  return value;
}

Generation generation(const std::string& name) {
  if (name == "old") return Generation::old;
  if (name == "new") return Generation::recent;
  throw std::invalid_argument("\"" + name + "\" is no generation: say \"old\" or \"new\"");
}

void parse(int count, char** arguments, const std::vector<OptionRow>& rows) {
  std::vector<option> table;
  for (const OptionRow& row : rows)
    table.push_back({row.name.c_str(), row.hasValue ? required_argument : no_argument, nullptr, 0});
  table.push_back({});
  opterr = 0;
  for (int row = 0, result = 0; (result = getopt_long(count, arguments, "", table.data(), &row)) != -1;) {
    if (result != 0) throw std::invalid_argument(std::string("cannot take \"") + arguments[optind - 1] + "\"");
    rows[static_cast<std::size_t>(row)].set(optarg != nullptr ? optarg : "");
  }
  if (optind < count) throw std::invalid_argument(std::string("cannot take \"") + arguments[optind] + "\"");
}

/// A raised exception that nothing catches ends the process, as on a phone.
void reportException(id exception) {
  std::fprintf(stderr, "%s: %s: %s\n", programName, text(send<id>(exception, "name"_sel)).c_str(),
               text(send<id>(exception, "reason"_sel)).c_str());
  endProgramsWaitedFor();
  std::abort();
}

/// A phone's processes have few file descriptors, and Foundation closes every possible one in each program that it
/// starts.
void limitFileDescriptors() {
  constexpr rlim_t most = 256;
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  limit.rlim_cur = std::min(limit.rlim_cur, most);
  setrlimit(RLIMIT_NOFILE, &limit);
}

void prepareFrameworks(const StartOptions& options) {
  NSSetUncaughtExceptionHandler(reportException);
  homeState().generation = options.generation;
  clock::passUntil(options.uptime);
  clock::set(options.clock ? clock::time(*options.clock) : clock::realTime());
  setCoreFoundationVersion(options.coreVersion.value_or(options.generation == Generation::old ? 1575.17 : 1665.15));
  installFoundationAdditions();
  if (options.resumePreferences) resumePreferences();
  defineLSApplicationProxy();
  defineUIKit();
  setIdiom(options.tablet ? UIUserInterfaceIdiom::pad : UIUserInterfaceIdiom::phone);
  setScreen(measures().screens[0], measures().screens[1]);
}

}  // namespace

std::vector<OptionRow> optionRows(StartOptions& options) {
  return {
      {"generation", true, [&](const char* value) { options.generation = generation(value); }},
      {"core-version", true, [&](const char* value) { options.coreVersion = number(value); }},
      {"tablet", false, [&](const char*) { options.tablet = true; }},
      {"clock", true, [&](const char* value) { options.clock = time(value); }},
      {"uptime", true, [&](const char* value) { options.uptime = nanoseconds(value); }},
      {"live", false, [&](const char*) { options.live = true; }},
      {"resume-preferences", false, [&](const char*) { options.resumePreferences = true; }},
      {"verbs", false, [&](const char*) { options.verbs = true; }},
  };
}

int runProgram(const char* name, int count, char** words, const StartOptions& options,
               const std::vector<OptionRow>& rows, const std::function<void()>& launch) {
  programName = name;
  try {
    parse(count, words, rows);
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "%s: %s\n", name, error.what());
    return 2;
  }
  if (options.verbs) {
    std::puts(describeVerbs().dump(1).c_str());
    return 0;
  }
  try {
    limitFileDescriptors();
    {
      const AutoreleasePool pool;
      prepareFrameworks(options);
      launch();
    }
    serve(driverSocket, options.live);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", name, error.what());
    std::abort();
  }
  return 0;
}

}  // namespace sim
