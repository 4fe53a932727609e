// The driver's end of the conversation with a process of a phone: `protocol.md` tells its form.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

#include "simulator/device/error.hpp"

namespace sim {

/// What the process answers when it does not do what it was asked for. Nothing was changed.
struct Refusal : BadInput {
  Refusal(const std::string& reason, std::string kindOfIt) : BadInput(reason), kind(std::move(kindOfIt)) {}
  std::string kind;  ///< the protocol's word for it, such as "bad request" or "refused"
};

/// The process ended or gave no sign of life, or whoever waited was told to stop.
struct ConnectionLost : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Carries requests and answers over a socket, which has to outlive it. May be used by several threads at once: each
/// gets the answer to what it asked. No signal disturbs it.
class Connection {
 public:
  struct Answer {
    nlohmann::json value;
    double seconds = 0;  ///< how long the process took
  };
  using Listener = std::function<void(const nlohmann::json& push)>;

  /// `name` is what people call the process. `listener` is told each line that the process writes by itself, in a
  /// thread of the connection's own. A process that owes an answer and says nothing for so long has died.
  explicit Connection(int socket, std::string name = "the home screen", Listener listener = {},
                      std::chrono::milliseconds longestSilence = std::chrono::seconds(60));
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Asks, and waits as long as the process lives: each line from it counts as a sign of life. The request's members
  /// besides `id` are the caller's. Throws `Refusal`, and `ConnectionLost` also when `stop` is requested.
  Answer ask(nlohmann::json request, const std::stop_token& stop = {});
  /// Asks and does not wait; the answer is passed over.
  void send(const nlohmann::json& request);
  /// Waits until something holds; it is looked at after each line from the process. Throws `ConnectionLost`.
  void waitUntil(const std::function<bool()>& holds, const std::stop_token& stop = {});

 private:
  void await(std::unique_lock<std::mutex>& lock, std::chrono::steady_clock::time_point since,
             const std::stop_token& stop, const std::function<bool()>& holds);
  void write(const nlohmann::json& request);
  void listen();
  void take(const std::string& line);

  int socket_;
  std::string name_;
  Listener listener_;
  std::chrono::milliseconds longestSilence_;
  std::mutex mutex_;
  std::condition_variable_any heard_;
  std::int64_t requests_ = 0;                                       // their number so far
  std::map<std::int64_t, std::optional<nlohmann::json>> expected_;  // answers that are waited for
  std::chrono::steady_clock::time_point lastSign_;
  std::string lost_;  // why nothing more comes
  std::mutex writing_;
  std::thread reader_;
};

}  // namespace sim
