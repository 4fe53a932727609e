#include "tests/support/command.hpp"

#include <array>
#include <cstdio>
#include <sstream>
#include <stdexcept>

std::vector<std::string> linesOf(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("cannot run " + command);
  std::string output;
  std::array<char, 4096> buffer{};
  while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), pipe)) output.append(buffer.data(), size);
  if (const int status = pclose(pipe); status != 0)
    throw std::runtime_error(command + " ended with status " + std::to_string(status));
  std::vector<std::string> lines;
  std::istringstream stream(output);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}
