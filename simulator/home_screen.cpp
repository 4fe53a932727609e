// The program that a person starts: plays a script against a simulated home screen, or opens a console to it.
#include <signal.h>
#include <unistd.h>

#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "simulator/control/script.hpp"

namespace {

constexpr const char* usage =
    "usage: home-screen [--console-device DIR] [--console | SCRIPT]\n"
    "\n"
    "Plays SCRIPT, each line a verb, on a fresh device, and prints what a person would see. Without a script, opens\n"
    "a console on the device in DIR (.device), with a clock that runs by itself; Ctrl-C ends it.\n"
    "Exit status: 0, 1 when an expectation failed, 2 for bad input, 3 when the home screen died.\n"
    "\n"
    "Verbs:\n";

volatile sig_atomic_t interrupted = 0;

/// An interrupt makes the waiting call return, so that everything is taken down in order.
void catchInterrupts() {
  struct sigaction action {};
  action.sa_handler = [](int) { interrupted = 1; };
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
}

int runConsole(sim::Session::Options options, const std::string& device) {
  options.live = true;
  options.device = device;
  sim::Session session(options, std::cout);
  const bool terminal = isatty(STDIN_FILENO) != 0;
  std::string line = "boot old";
  std::cout << "A home screen of the old generation on " << device
            << "; \"help\" lists what you can do, Ctrl-C ends.\n";
  do {
    try {
      session.play(line);
    } catch (const std::exception& error) {
      std::cout.flush();
      if (interrupted == 0) std::cerr << error.what() << std::endl;
    }
    if (terminal) std::cout << "> ";
    std::cout.flush();
  } while (interrupted == 0 && std::getline(std::cin, line));
  if (terminal) std::cout << std::endl;
  return interrupted != 0 ? 130 : 0;
}

int runScript(const std::string& path, const sim::Session::Options& options) {
  std::ifstream script(path);
  if (!script || !std::filesystem::is_regular_file(path)) {
    std::cerr << "no such script: " << path << std::endl;
    return 2;
  }
  return sim::playScript(script, options, std::cout, std::cerr);
}

int refuse(const std::string& reason) {
  std::cerr << reason << "; --help tells more" << std::endl;
  return 2;
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
      std::cout << usage << sim::Session::help();
      return 0;
    }
    if (word == "--console") console = true;
    else if (word == "--console-device" && index + 1 < count) consoleDevice = words[++index];
    else if (word.starts_with("-")) return refuse("unknown option or no value: " + word);
    else if (script) return refuse("more than one script");
    else script = word;
  }
  if (script && console) return refuse("a script or the console, not both");
  catchInterrupts();
  if (script) return runScript(*script, options);
  return runConsole(options, consoleDevice);
}
