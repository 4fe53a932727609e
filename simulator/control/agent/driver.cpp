#include "simulator/control/agent/driver.hpp"

#include <sys/socket.h>

#include <cerrno>
#include <mutex>
#include <string>

namespace sim::driver {
namespace {
std::mutex writing;
int connected = -1;
bool listens = false;
}  // namespace

void connect(int socket) { connected = socket; }

void tell(const nlohmann::json& line) {
  const std::string text = line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
  const std::scoped_lock lock(writing);
  for (std::size_t written = 0; written < text.size();) {
    const ssize_t size = send(connected, text.data() + written, text.size() - written, MSG_NOSIGNAL);
    if (size < 0 && errno != EINTR) return;
    if (size > 0) written += static_cast<std::size_t>(size);
  }
}

void subscribe(bool on) { listens = on; }
bool subscribed() { return listens; }

}  // namespace sim::driver
