#include "simulator/control/connection.hpp"

#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace sim {
namespace {

using Json = nlohmann::json;

}  // namespace

Connection::Connection(int socket, std::string name, Listener listener, std::chrono::milliseconds longestSilence)
    : socket_(socket),
      name_(std::move(name)),
      listener_(std::move(listener)),
      longestSilence_(longestSilence),
      lastSign_(std::chrono::steady_clock::now()),
      reader_([this] { listen(); }) {}

Connection::~Connection() {
  shutdown(socket_, SHUT_RDWR);
  reader_.join();
}

Connection::Answer Connection::ask(Json request, const std::stop_token& stop) {
  const auto asked = std::chrono::steady_clock::now();
  std::unique_lock lock(mutex_);
  const std::int64_t id = ++requests_;
  expected_[id];
  lock.unlock();
  request["id"] = id;
  write(request);
  lock.lock();
  try {
    await(lock, asked, stop, [&] { return expected_[id].has_value(); });
  } catch (...) {
    expected_.erase(id);
    throw;
  }
  const Json answer = std::move(*expected_.extract(id).mapped());
  if (answer.contains("error")) throw Refusal(answer.at("error"), answer.value("kind", ""));
  return {answer.value("value", Json()), answer.value("seconds", 0.0)};
}

void Connection::waitUntil(const std::function<bool()>& holds, const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  await(lock, std::chrono::steady_clock::now(), stop, holds);
}

void Connection::await(std::unique_lock<std::mutex>& lock, std::chrono::steady_clock::time_point since,
                       const std::stop_token& stop, const std::function<bool()>& holds) {
  const auto deadline = [&] { return std::max(since, lastSign_) + longestSilence_; };
  const auto done = [&] { return holds() || !lost_.empty(); };
  while (!done() && !stop.stop_requested() && std::chrono::steady_clock::now() < deadline()) {
    heard_.wait_until(lock, stop, deadline(), done);
  }
  if (holds()) return;
  if (!lost_.empty()) throw ConnectionLost(lost_);
  throw ConnectionLost(stop.stop_requested() ? "interrupted" : name_ + " gives no sign of life");
}

void Connection::send(const Json& request) { write(request); }

void Connection::write(const Json& request) {
  const std::string line = request.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
  const std::scoped_lock lock(writing_);
  for (std::size_t sent = 0; sent < line.size();) {
    const ssize_t size = ::send(socket_, line.data() + sent, line.size() - sent, MSG_NOSIGNAL);
    // The reading thread tells whoever waits that nothing comes any more.
    if (size < 0 && errno != EINTR) return;
    if (size > 0) sent += static_cast<std::size_t>(size);
  }
}

void Connection::listen() {
  std::string unread;
  std::array<char, 65536> block;
  while (true) {
    const ssize_t size = recv(socket_, block.data(), block.size(), 0);
    if (size < 0 && errno == EINTR) continue;
    if (size <= 0) break;
    unread.append(block.data(), static_cast<std::size_t>(size));
    std::size_t start = 0;
    for (std::size_t end = 0; (end = unread.find('\n', start)) != std::string::npos; start = end + 1) {
      take(unread.substr(start, end - start));
    }
    unread.erase(0, start);
  }
  const std::scoped_lock lock(mutex_);
  if (lost_.empty()) lost_ = name_ + " ended";
  heard_.notify_all();
}

void Connection::take(const std::string& line) {
  Json content = Json::parse(line, nullptr, false);
  std::unique_lock lock(mutex_);
  lastSign_ = std::chrono::steady_clock::now();
  if (!content.is_object()) {
    lost_ = "an answer of " + name_ + " is no JSON object";
  } else if (content.contains("push")) {
    lock.unlock();
    if (listener_) listener_(content);
    lock.lock();
  } else if (const auto waiting = expected_.find(content.value("id", std::int64_t{0})); waiting != expected_.end()) {
    waiting->second = std::move(content);
  }
  heard_.notify_all();
}

}  // namespace sim
