// A process that runs on a device and has a screen: the home screen, or the settings application.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

#include "simulator/control/connection.hpp"
#include "simulator/device/files.hpp"
#include "simulator/device/generation.hpp"
#include "simulator/device/sandbox.hpp"

namespace sim {

/// Everything that a phone's processes run with; the add-on and what is interposed is the home screen's alone.
struct ProcessOptions {
  Generation generation = Generation::old;
  std::optional<double> coreVersion;  ///< the core library's version; without it the generation's own
  bool tablet = false;
  std::filesystem::path device;                         ///< its folder; made when missing
  std::filesystem::path buildFolder = programFolder();  ///< where SpringBoard is: /run/simulator
  std::optional<double> clock;                          ///< seconds since 1970; without it the clock starts now
  std::optional<std::string> timeZone;                  ///< such as "Europe/Rome"; without it this process's own
  bool live = false;                                    ///< the clock runs by itself
  std::map<std::string, std::string> environment;       ///< of the process, besides the usual
  std::vector<std::string> interposed;                  ///< methods, "CLASS SELECTOR" or "+CLASS SELECTOR"
  std::vector<Mount> folders;                           ///< of this machine, besides the usual
  /// The words before the program, paths of the device: a tracer, or what runs another machine's programs.
  std::vector<std::string> before;
  std::stop_token stop;  ///< ends all waiting for the process
};

/// Throws `BadInput` for what no home screen can run with.
void check(const ProcessOptions& options);

/// Which of a phone's programs.
enum class Program { homeScreen, settings };
/// What people call it: "the home screen".
std::string nameOf(Program program);

/// A running program and the connection to it. Ends with this value.
class Process {
 public:
  /// What was there before this process, and outlives it.
  struct Before {
    std::optional<std::int64_t> uptime;  ///< nanoseconds that the phone has been up; without it for a while
    std::optional<double> clock;         ///< the time that it is, in seconds since 1970; without it the options' own
    bool preferencesRun = false;         ///< whether the preferences daemon has something to do already
    int preferences = -1;                ///< a socket to that daemon, which the caller closes
  };
  /// Starts it on the device in `device`, a folder that is there.
  Process(Program program, const ProcessOptions& options, const std::filesystem::path& device, const Before& before,
          Connection::Listener listener = {});
  ~Process();

  /// Carries requests and answers; see there.
  Connection& connection() { return connection_; }
  /// Waits until it waits for no program. Throws `ConnectionLost`.
  void finishWaiting();
  /// Lets it end and waits for that, for so long; none when it still runs, else its exit status.
  std::optional<int> end(std::chrono::milliseconds patience);
  /// Ends it at once, with all that it started.
  void kill();
  /// What it wrote to its standard output and error.
  std::string output() const { return program_.output(); }

 private:
  void hear(const nlohmann::json& push);

  std::stop_token stop_;
  Connection::Listener listener_;
  std::atomic<int> waits_ = 0;  // for how many programs it waits
  SandboxedProcess program_;
  Connection connection_;
};

}  // namespace sim
