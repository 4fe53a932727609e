// The program that a person starts: plays a script against a simulated home screen, or opens a console to it.
#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "simulator/control/console.hpp"
#include "simulator/control/script.hpp"

namespace {

constexpr const char* usage =
    "usage: home-screen [--console-device DIR] [--console | SCRIPT]\n"
    "\n"
    "Plays SCRIPT, each line a verb, on a fresh device, and prints what a person would see; \"-\" is standard input.\n"
    "Without a script, opens a console on the device in DIR (.device), with a clock that runs by itself; \"quit\",\n"
    "Ctrl-D or Ctrl-C ends it.\n"
    "Exit status: 0, 1 when an expectation failed, 2 for bad input, 3 when the home screen died.\n"
    "\n";

constexpr int interruptedStatus = 130;

/// Takes the signals that end the program, so that everything is taken down in order: they disturb no system call
/// and only stop whatever waits.
class Interruption {
 public:
  Interruption() {
    sigemptyset(&signals_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, wakeUp}) sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, nullptr);
    thread_ = std::thread([this] {
      int signal = 0;
      sigwait(&signals_, &signal);
      if (signal != wakeUp) stop_.request_stop();
    });
  }
  ~Interruption() {
    pthread_kill(thread_.native_handle(), wakeUp);
    thread_.join();
  }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

  std::stop_token token() const { return stop_.get_token(); }

 private:
  static constexpr int wakeUp = SIGUSR1;

  sigset_t signals_{};
  std::stop_source stop_;
  std::thread thread_;
};

int refuse(const std::string& reason) {
  std::cerr << reason << "; --help tells more" << std::endl;
  return 2;
}

int runScript(const std::string& path, const sim::Session::Options& options) {
  const int file = path == "-" ? dup(STDIN_FILENO) : open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0 || std::filesystem::is_directory(path)) return refuse("no such script: " + path);
  const auto script = sim::readLines(file, options.stop);
  return sim::playScript(*script, options, std::cout, std::cerr);
}

}  // namespace

int main(int count, char** words) {
  sim::Session::Options options;
  std::optional<std::string> script;
  std::string consoleDevice = ".device";
  bool console = false;
  for (int index = 1; index < count; ++index) {
    const std::string word = words[index];
    if (word == "--help") {
      std::cout << usage << sim::Session(options, std::cout).help();
      return 0;
    }
    if (word == "--console") console = true;
    else if (word == "--console-device" && index + 1 < count) consoleDevice = words[++index];
    else if (word.starts_with("-") && word != "-") return refuse("unknown option or no value: " + word);
    else if (script) return refuse("more than one script");
    else script = word;
  }
  if (script && console) return refuse("a script or the console, not both");
  const Interruption interruption;
  options.stop = interruption.token();
  int status = 0;
  if (script) {
    status = runScript(*script, options);
  } else {
    options.device = consoleDevice;
    sim::runConsole(options, std::cout, std::cerr);
  }
  return options.stop.stop_requested() ? interruptedStatus : status;
}
