#include "simulator/control/preferences_daemon.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <exception>
#include <system_error>

namespace sim {
namespace {

/// Gives a program another descriptor.
void sendDescriptor(int socket, int descriptor) {
  char byte = 0;
  iovec content{&byte, 1};
  alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> control{};
  msghdr message{};
  message.msg_iov = &content;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  cmsghdr* header = CMSG_FIRSTHDR(&message);
  header->cmsg_level = SOL_SOCKET;
  header->cmsg_type = SCM_RIGHTS;
  header->cmsg_len = CMSG_LEN(sizeof descriptor);
  std::memcpy(CMSG_DATA(header), &descriptor, sizeof descriptor);
  // A daemon that has gone shows on the other end.
  while (sendmsg(socket, &message, MSG_NOSIGNAL) < 0 && errno == EINTR) continue;
}

/// Whether something was said on the socket, and not only that its other end was closed.
bool hasWords(int socket) {
  char byte = 0;
  return recv(socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) > 0;
}

}  // namespace

PreferencesDaemon::PreferencesDaemon(std::filesystem::path device, std::filesystem::path buildFolder,
                                     std::map<std::string, std::string> environment)
    : device_(std::move(device)),
      buildFolder_(std::move(buildFolder)),
      environment_(std::move(environment)),
      woken_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (woken_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  // The daemon dies with the thread that started it, which therefore lives as long.
  attendant_ = std::thread([this] { attend(); });
}

PreferencesDaemon::~PreferencesDaemon() {
  {
    const std::lock_guard lock(mutex_);
    process_.reset();
    ends_ = true;
  }
  wake();
  attendant_.join();
  for (const Silent& connection : silent_) close(connection.socket);
  close(woken_);
}

int PreferencesDaemon::connect() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw std::system_error(errno, std::generic_category(), "socketpair");
  }
  {
    const std::lock_guard lock(mutex_);
    silent_.push_back({ends[0]});
  }
  wake();
  return ends[1];
}

bool PreferencesDaemon::runs() {
  const std::lock_guard lock(mutex_);
  return process_.has_value();
}

void PreferencesDaemon::kill() {
  const std::lock_guard lock(mutex_);
  if (process_) process_->kill();
  process_.reset();
  // What was said just before does not bring another daemon up.
  for (Silent& connection : silent_) connection.cut = true;
}

void PreferencesDaemon::attend() {
  while (true) {
    std::vector<pollfd> waiting{{woken_, POLLIN, 0}};
    {
      const std::lock_guard lock(mutex_);
      if (ends_) return;
      for (const Silent& connection : silent_) waiting.push_back({connection.socket, POLLIN, 0});
    }
    if (poll(waiting.data(), waiting.size(), -1) <= 0) continue;
    eventfd_t ignored = 0;
    eventfd_read(woken_, &ignored);
    for (const pollfd& each : waiting) {
      if (each.fd == woken_ || each.revents == 0) continue;
      const std::lock_guard lock(mutex_);
      const auto connection =
          std::find_if(silent_.begin(), silent_.end(), [&](const Silent& other) { return other.socket == each.fd; });
      if (hasWords(each.fd) && !ends_ && !connection->cut) handOver(each.fd);
      silent_.erase(connection);
      close(each.fd);
    }
  }
}

void PreferencesDaemon::handOver(int connection) {
  if (!process_) {
    try {
      process_.emplace(device_, std::vector<Mount>{{buildFolder_.string(), "/run/simulator"}},
                       std::vector<std::string>{"/run/simulator/cfprefsd"}, environment_);
    } catch (const std::exception&) {
      return;  // the program sees its connection closed
    }
  }
  sendDescriptor(process_->socket(), connection);
}

void PreferencesDaemon::wake() const { eventfd_write(woken_, 1); }

}  // namespace sim
