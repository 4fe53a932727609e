// How the main thread waits for programs.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace sim {

/// Waits until the program, given by a file descriptor of its process, has ended.
void waitForProgram(int program, const std::string& name);
/// Supplies what happens during such waits, which may nest. Until then nothing does.
void setWaiting(std::function<void(int program, const std::string& name)> wait);

/// The names of the programs that are waited for now; the one waited for last is the last.
std::vector<std::string> programsWaitedFor();
/// Kills them: the home screen ends.
void endProgramsWaitedFor();

}  // namespace sim
