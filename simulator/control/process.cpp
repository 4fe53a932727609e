#include "simulator/control/process.hpp"

#include <cmath>

#include "simulator/control/words.hpp"
#include "simulator/runtime/clock.hpp"

namespace fs = std::filesystem;

namespace sim {
namespace {

/// Decimals that lose nothing.
std::string number(double value) { return nlohmann::json(value).dump(); }

/// By the order of `Program`.
struct ProgramRow {
  const char* file;
  const char* name;
};
constexpr ProgramRow programs[] = {{"SpringBoard", "the home screen"}, {"Preferences", "the settings application"}};

const ProgramRow& rowOf(Program program) { return programs[static_cast<std::size_t>(program)]; }

std::vector<std::string> command(Program program, const ProcessOptions& options, const Process::Before& before) {
  std::vector<std::string> words = options.before;
  words.insert(words.end(), {std::string("/run/simulator/") + rowOf(program).file, "--generation",
                             options.generation == Generation::old ? "old" : "new"});
  if (options.coreVersion) words.insert(words.end(), {"--core-version", number(*options.coreVersion)});
  if (options.tablet) words.emplace_back("--tablet");
  if (const auto& clock = before.clock ? before.clock : options.clock)
    words.insert(words.end(), {"--clock", number(*clock)});
  if (before.uptime) words.insert(words.end(), {"--uptime", std::to_string(*before.uptime)});
  if (options.live) words.emplace_back("--live");
  if (before.preferencesRun) words.emplace_back("--resume-preferences");
  if (program != Program::homeScreen) return words;
  for (const auto& method : options.interposed) words.insert(words.end(), {"--interpose", method});
  return words;
}

std::map<std::string, std::string> environment(const ProcessOptions& options) {
  std::map<std::string, std::string> variables = options.environment;
  // Foundation looks at the machine's own time zone before it looks at TZ.
  if (options.timeZone) variables["GNUSTEP_TZ"] = variables["TZ"] = *options.timeZone;
  return variables;
}

std::vector<Mount> folders(const ProcessOptions& options) {
  std::vector<Mount> all = options.folders;
  all.push_back({options.buildFolder.string(), "/run/simulator"});
  return all;
}

void checkTimeZone(const std::string& name) {
  const bool rule = name.find_first_of("0123456789") != std::string::npos && name.find('/') == std::string::npos;
  if (!rule && (name.find("..") != std::string::npos || !fs::is_regular_file(fs::path("/usr/share/zoneinfo") / name))) {
    throw BadInput("unknown time zone: " + name);
  }
}

}  // namespace

void check(const ProcessOptions& options) {
  if (options.clock && !clock::canShow(*options.clock)) {
    throw BadInput("the clock cannot stand at " + number(*options.clock) + ": it goes from 1970 to 2255");
  }
  if (options.timeZone) checkTimeZone(*options.timeZone);
  for (const Mount& folder : options.folders) {
    if (!fs::is_directory(folder.from)) throw BadInput("no such folder: " + folder.from);
  }
}

std::string nameOf(Program program) { return rowOf(program).name; }

Process::Process(Program program, const ProcessOptions& options, const fs::path& device, const Before& before,
                 Connection::Listener listener)
    : stop_(options.stop),
      listener_(std::move(listener)),
      program_(device, folders(options), command(program, options, before), environment(options), before.preferences),
      connection_(program_.socket(), nameOf(program), [this](const nlohmann::json& push) { hear(push); }) {}

Process::~Process() = default;

void Process::hear(const nlohmann::json& push) {
  const nlohmann::json& what = push.at("push");
  if (what == "waiting for") ++waits_;
  if (what == "waited for") --waits_;
  if (listener_) listener_(push);
}

void Process::finishWaiting() {
  connection_.waitUntil([this] { return waits_ == 0; }, stop_);
}

std::optional<int> Process::end(std::chrono::milliseconds patience) { return program_.end(patience); }
void Process::kill() { program_.kill(); }

}  // namespace sim
