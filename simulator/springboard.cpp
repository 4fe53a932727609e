// The home-screen process. It comes up as on a phone: frameworks, the home screen's classes, the add-on, and
// then the application object, whose launching builds the home screen.
#include "simulator/homescreen/common/SpringBoard.hpp"

#include <getopt.h>
#include <sys/resource.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/control/agent/agent.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/core_foundation/version.hpp"
#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/frameworks/uikit/UIDevice.hpp"
#include "simulator/frameworks/uikit/uikit.hpp"
#include "simulator/homescreen/common/classes.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/measures.hpp"
#include "simulator/runtime/add_ons.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/interposition.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/waiting.hpp"

extern "C" void NSSetUncaughtExceptionHandler(void (*handler)(id exception));

namespace {

constexpr int driverSocket = 3;

struct Options {
  sim::Generation generation = sim::Generation::old;
  std::optional<double> coreVersion;
  bool tablet = false;
  std::optional<double> clock;  // seconds since 1970
  std::int64_t uptime = 0;      // nanoseconds
  bool live = false;
  std::vector<std::string> interposed;  // methods
  bool resumePreferences = false;
  bool verbs = false;  // it says what it can be asked for, and ends
};

double number(const char* text) {
  char* end = nullptr;
  const double value = std::strtod(text, &end);
  if (end == text || *end != '\0' || !std::isfinite(value))
    throw std::invalid_argument(std::string("\"") + text + "\" is no number");
  return value;
}

double time(const char* text) {
  const double seconds = number(text);
  if (!sim::clock::canShow(seconds))
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

sim::Generation generation(const std::string& name) {
  if (name == "old") return sim::Generation::old;
  if (name == "new") return sim::Generation::recent;
  throw std::invalid_argument("\"" + name + "\" is no generation: say \"old\" or \"new\"");
}

/// One option, and what its value (null for one without) sets.
struct OptionRow {
  const char* name;
  int argument;
  void (*set)(Options& options, const char* value);
};

constexpr OptionRow optionRows[] = {
    {"generation", required_argument, [](Options& o, const char* value) { o.generation = generation(value); }},
    {"core-version", required_argument, [](Options& o, const char* value) { o.coreVersion = number(value); }},
    {"tablet", no_argument, [](Options& o, const char*) { o.tablet = true; }},
    {"clock", required_argument, [](Options& o, const char* value) { o.clock = time(value); }},
    {"uptime", required_argument, [](Options& o, const char* value) { o.uptime = nanoseconds(value); }},
    {"live", no_argument, [](Options& o, const char*) { o.live = true; }},
    {"interpose", required_argument, [](Options& o, const char* value) { o.interposed.emplace_back(value); }},
    {"resume-preferences", no_argument, [](Options& o, const char*) { o.resumePreferences = true; }},
    {"verbs", no_argument, [](Options& o, const char*) { o.verbs = true; }},
};

Options parse(int count, char** arguments) {
  option table[std::size(optionRows) + 1] = {};
  for (std::size_t i = 0; i < std::size(optionRows); ++i)
    table[i] = {optionRows[i].name, optionRows[i].argument, nullptr, 0};
  Options options;
  opterr = 0;
  for (int row = 0, result = 0; (result = getopt_long(count, arguments, "", table, &row)) != -1;) {
    if (result != 0) throw std::invalid_argument(std::string("cannot take \"") + arguments[optind - 1] + "\"");
    optionRows[row].set(options, optarg);
  }
  if (optind < count) throw std::invalid_argument(std::string("cannot take \"") + arguments[optind] + "\"");
  return options;
}

/// A raised exception that nothing catches ends the process, as on a phone.
void reportException(id exception) {
  std::fprintf(stderr, "SpringBoard: %s: %s\n", sim::text(sim::send<id>(exception, "name"_sel)).c_str(),
               sim::text(sim::send<id>(exception, "reason"_sel)).c_str());
  sim::endProgramsWaitedFor();
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

void startUp(const Options& options) {
  const AutoreleasePool pool;
  NSSetUncaughtExceptionHandler(reportException);
  sim::homeState().generation = options.generation;
  sim::clock::passUntil(options.uptime);
  sim::clock::set(options.clock ? sim::clock::time(*options.clock) : sim::clock::realTime());
  sim::setCoreFoundationVersion(
      options.coreVersion.value_or(options.generation == sim::Generation::old ? 1575.17 : 1665.15));
  sim::installFoundationAdditions();
  if (options.resumePreferences) sim::resumePreferences();
  sim::defineUIKit();
  sim::setIdiom(options.tablet ? sim::UIUserInterfaceIdiom::pad : sim::UIUserInterfaceIdiom::phone);
  sim::setScreen(sim::measures().screens[0], sim::measures().screens[1]);
  sim::defineHomeScreenClasses();
  for (const auto& method : options.interposed) sim::interpose(method);
  for (const std::string& line : sim::mapAddOns("com.apple.springboard")) {
    std::fprintf(stderr, "SpringBoard: %s\n", line.c_str());
    sim::homeState().events.push_back(line);
  }
  sim::UIApplication* springBoard = sim::startApplication("SpringBoard"_cls);
  sim::send(springBoard, "applicationDidFinishLaunching:"_sel, springBoard);
  sim::runDueWork();
}

}  // namespace

int main(int count, char** arguments) {
  Options options;
  try {
    options = parse(count, arguments);
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "SpringBoard: %s\n", error.what());
    return 2;
  }
  if (options.verbs) {
    std::puts(sim::describeVerbs().dump(1).c_str());
    return 0;
  }
  try {
    limitFileDescriptors();
    startUp(options);
    sim::serve(driverSocket, options.live);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "SpringBoard: %s\n", error.what());
    std::abort();
  }
}
