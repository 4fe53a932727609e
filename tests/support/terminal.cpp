#include "tests/support/terminal.hpp"

#include <poll.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <thread>
#include <utility>

namespace test {

Terminal::Terminal(const std::vector<std::string>& command, const std::map<std::string, std::string>& environment) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const winsize size{.ws_row = 50, .ws_col = 200, .ws_xpixel = 0, .ws_ypixel = 0};
  pid_ = forkpty(&descriptor_, nullptr, nullptr, &size);
  if (pid_ < 0) throw std::runtime_error("no terminal");
  if (pid_ > 0) return;
  setenv("TERM", "xterm", 1);
  for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
  execv(words.front(), words.data());
  _exit(127);
}

Terminal::~Terminal() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  close(descriptor_);
}

// A line editor that takes over the terminal would not know an end of input that came before.
void Terminal::waitForLineEditor() const {
  constexpr auto patience = std::chrono::seconds(2);
  const auto deadline = std::chrono::steady_clock::now() + patience;
  termios settings{};
  while (tcgetattr(descriptor_, &settings) == 0 && (settings.c_lflag & ICANON) != 0 &&
         std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void Terminal::type(std::string_view keys) const {
  waitForLineEditor();
  if (write(descriptor_, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size()))
    throw std::runtime_error("the terminal takes nothing");
}

bool Terminal::read() {
  constexpr int milliseconds = 20'000;
  pollfd waiting{descriptor_, POLLIN, 0};
  if (poll(&waiting, 1, milliseconds) <= 0) return false;
  std::array<char, 4096> block{};
  const ssize_t size = ::read(descriptor_, block.data(), block.size());
  if (size <= 0) return false;
  output_.append(block.data(), static_cast<std::size_t>(size));
  return true;
}

bool Terminal::shows(const std::string& text) {
  std::size_t found = 0;
  while ((found = output_.find(text)) == std::string::npos)
    if (!read()) return false;
  output_.erase(0, found + text.size());
  return true;
}

int Terminal::end() {
  while (read()) continue;
  int status = 0;
  waitpid(std::exchange(pid_, -1), &status, 0);
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace test
