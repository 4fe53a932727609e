// How the main thread waits for something outside the process.
#pragma once

#include <functional>

namespace sim {

/// Waits until the file descriptor can be read. The main thread does nothing else meanwhile.
void waitUntilReadable(int descriptor);
/// Lets the main thread wait in another way from now on, as long as that is what it does.
void setWaiting(std::function<void(int descriptor)> wait);

}  // namespace sim
