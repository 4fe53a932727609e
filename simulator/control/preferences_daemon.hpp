// The preferences daemon, from outside the device: it is started when a program first speaks to it, as on a phone.
#pragma once

#include <filesystem>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "simulator/device/sandbox.hpp"

namespace sim {

/// One device's daemon. It outlives the programs that speak to it, and ends with this value: what it had not written
/// is written then.
class PreferencesDaemon {
 public:
  PreferencesDaemon(std::filesystem::path device, std::filesystem::path buildFolder,
                    std::map<std::string, std::string> environment);
  ~PreferencesDaemon();
  PreferencesDaemon(const PreferencesDaemon&) = delete;
  PreferencesDaemon& operator=(const PreferencesDaemon&) = delete;

  /// A program's end of a new connection, which is the caller's to close.
  int connect();
  /// Whether any program has spoken to it.
  bool runs();
  /// Ends it at once: what it had not written is lost.
  void kill();

 private:
  void attend();
  void handOver(int connection);
  void wake() const;

  std::filesystem::path device_, buildFolder_;
  std::map<std::string, std::string> environment_;
  std::mutex mutex_;
  /// Our end of a connection on which nobody has spoken yet.
  struct Silent {
    int socket;
    bool cut = false;  ///< whatever is said comes too late
  };
  std::vector<Silent> silent_;
  std::optional<SandboxedProcess> process_;
  bool ends_ = false;
  int woken_;
  std::thread attendant_;
};

}  // namespace sim
