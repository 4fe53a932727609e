// Running a command and reading what it prints.
#pragma once

#include <string>
#include <vector>

/// The lines that a shell command writes to standard output. Throws when it ends with another status than 0.
std::vector<std::string> linesOf(const std::string& command);
