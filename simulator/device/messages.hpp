// What the programs of a device and those outside it say to one another: one JSON object a line.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>

namespace sim {

/// One end of a conversation. The socket stays its owner's.
class Messages {
 public:
  explicit Messages(int socket) : socket_(socket) {}

  /// Waits for the next message; none when the other end has gone, or speaks something else.
  std::optional<nlohmann::json> receive();
  /// False when the other end has gone.
  bool send(const nlohmann::json& message) const;

 private:
  int socket_;
  std::string received_;
};

}  // namespace sim
