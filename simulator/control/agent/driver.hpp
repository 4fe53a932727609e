// The driver at the other end of the socket, as the home-screen process tells it things.
#pragma once

#include <nlohmann/json.hpp>

namespace sim::driver {

/// From now on lines go to this socket.
void connect(int socket);
/// Writes a line: an answer or a push. May be called from any thread. A driver that has gone hears nothing.
void tell(const nlohmann::json& line);

/// Whether the driver wants to hear of events and changes. It does not until it says so.
void subscribe(bool on);
bool subscribed();

}  // namespace sim::driver
