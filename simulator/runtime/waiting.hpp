// How the main thread waits for a program.
#pragma once

#include <functional>

namespace sim {

/// Waits until the program, given by a file descriptor of its process, has ended. The main thread does nothing else
/// meanwhile.
void waitForProgram(int program);
/// Lets the main thread wait for programs in another way from now on.
void setWaiting(std::function<void(int program)> wait);

}  // namespace sim
