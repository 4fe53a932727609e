#include "tests/support/wire.hpp"

#include <poll.h>
#include <sys/socket.h>

#include <stdexcept>

#include "tests/support/places.hpp"

namespace test {
namespace {

std::vector<std::string> command(const std::string& generation, const std::vector<std::string>& options) {
  std::vector<std::string> words = {"/run/simulator/SpringBoard", "--generation", generation};
  words.insert(words.end(), options.begin(), options.end());
  return words;
}

}  // namespace

Wire::Wire(const sim::Device& device, const std::string& generation, const std::vector<std::string>& options)
    : process_(device.root(), {{buildFolder, "/run/simulator"}}, command(generation, options), {}) {}

void Wire::send(const std::string& line) {
  const std::string text = line + "\n";
  if (::send(process_.socket(), text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size()))
    throw std::runtime_error("the process has gone\n" + process_.output());
}

Wire::Json Wire::receive() {
  constexpr int patience = 60'000;
  std::size_t end = 0;
  while ((end = unread_.find('\n')) == std::string::npos) {
    char block[4096];
    pollfd waiting{process_.socket(), POLLIN, 0};
    const ssize_t size = poll(&waiting, 1, patience) > 0 ? recv(waiting.fd, block, sizeof block, 0) : 0;
    if (size <= 0) throw std::runtime_error("nothing comes\n" + process_.output());
    unread_.append(block, static_cast<std::size_t>(size));
  }
  const std::string line = unread_.substr(0, end);
  unread_.erase(0, end + 1);
  return Json::parse(line);
}

Wire::Json Wire::receive(const std::function<bool(const Json&)>& wanted) {
  while (true) {
    Json line = receive();
    if (wanted(line)) return line;
    passed.push_back(std::move(line));
  }
}

Wire::Json Wire::answer() {
  return receive([](const Json& line) { return !line.contains("push"); });
}
Wire::Json Wire::answerTo(int id) {
  return receive([id](const Json& line) { return line.value("id", Json()) == id; });
}
Wire::Json Wire::push(const std::string& name) {
  return receive([&](const Json& line) { return line.value("push", Json()) == name; });
}
Wire::Json Wire::ask(const Json& request) {
  send(request);
  return answer();
}

}  // namespace test
