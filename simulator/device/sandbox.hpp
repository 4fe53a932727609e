// Starting a program inside the device, where the device's folder is the root of the file system.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// A folder of this machine and where it is in the device; it cannot be written to there.
struct Mount {
  std::string from, to;
};

/// A program that runs inside a device as an ordinary user, with a socket to speak with it. It is ended with
/// this value.
class SandboxedProcess {
 public:
  /// Starts `command`, whose paths are the device's; the folders are there besides the machine's programs and
  /// libraries. The program's end of the socket is its file descriptor 3; `preferences`, a socket to the preferences
  /// daemon, its descriptor 4 (-1 for none). Namespaces are used where they are allowed, else system calls are traced;
  /// SIMULATOR_SANDBOX=bwrap or proot in the environment decides for one. Throws `std::runtime_error`.
  SandboxedProcess(const std::filesystem::path& device, const std::vector<Mount>& folders,
                   const std::vector<std::string>& command, const std::map<std::string, std::string>& environment,
                   int preferences = -1);
  ~SandboxedProcess();
  SandboxedProcess(const SandboxedProcess&) = delete;
  SandboxedProcess& operator=(const SandboxedProcess&) = delete;

  /// Open as long as this value lives.
  int socket() const { return socket_; }
  /// Tells the program by the socket that nothing more comes, and waits for the program's end, for so long; none when
  /// it still runs. The value is the exit status, or 128 and the signal's number.
  std::optional<int> end(std::chrono::milliseconds patience);
  /// Ends the program and what it started at once, wherever it is; returns when it is gone.
  void kill();
  /// What the program wrote to its standard output and error.
  std::string output() const;

 private:
  pid_t pid_ = -1;
  int socket_ = -1;
  int output_ = -1;
  std::optional<int> status_;
};

}  // namespace sim
