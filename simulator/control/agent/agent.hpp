// The home-screen process's side of the socket to its driver.
#pragma once

namespace sim {

/// Answers requests until the driver closes the socket. A live clock follows real time meanwhile; another one
/// stands still.
void serve(int socket, bool liveClock);

}  // namespace sim
