#include "simulator/device/messages.hpp"

#include <sys/socket.h>

#include <array>
#include <cerrno>

namespace sim {

using nlohmann::json;

std::optional<json> Messages::receive() {
  while (true) {
    if (const std::size_t end = received_.find('\n'); end != std::string::npos) {
      json message = json::parse(received_.substr(0, end), nullptr, false);
      received_.erase(0, end + 1);
      return message.is_object() ? std::optional(std::move(message)) : std::nullopt;
    }
    std::array<char, 65536> block;
    const ssize_t size = recv(socket_, block.data(), block.size(), 0);
    if (size == 0 || (size < 0 && errno != EINTR)) return std::nullopt;
    if (size > 0) received_.append(block.data(), static_cast<std::size_t>(size));
  }
}

bool Messages::send(const json& message) const {
  const std::string line = message.dump(-1, ' ', false, json::error_handler_t::replace) + "\n";
  for (std::size_t sent = 0; sent < line.size();) {
    const ssize_t size = ::send(socket_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL);
    if (size < 0 && errno != EINTR) return false;
    if (size > 0) sent += static_cast<std::size_t>(size);
  }
  return true;
}

}  // namespace sim
