// The preferences daemon. It holds the domains for every program of the phone and outlives the home screen. The phone
// hands it each program's connection; it ends with the phone, and what has not been written then is written.
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <list>
#include <map>

#include "simulator/device/messages.hpp"
#include "simulator/frameworks/foundation/foundation.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/foundation/property_list_text.hpp"
#include "simulator/frameworks/foundation/property_list_xml.hpp"
#include "simulator/preferences/daemon/domain.hpp"

namespace {

using nlohmann::json;

constexpr int phone = 3;

class Daemon {
 public:
  /// Every answer tells when something is due next, so that the program that has the phone's clock can say when that
  /// time has come.
  json answer(const json& request) {
    const AutoreleasePool pool;
    json answer = json::object();
    const auto now = request.at("now").get<std::int64_t>();
    const std::string what = request.value("do", "");
    if (what == "set") {
      domain(request.at("domain"))
          .change(readXML(request.at("values")), request.at("removed").get<std::vector<std::string>>(), now);
    } else if (what == "read") {
      answer["values"] = *sim::xmlPropertyList(domain(request.at("domain")).values());
    } else if (what == "look") {
      const auto held = domains_.find(request.at("domain"));
      answer["values"] = held != domains_.end() ? json(*sim::xmlPropertyList(held->second.values())) : json();
    } else if (what == "flush") {
      flush();
    }
    writeDue(now);
    answer["due"] = nextDue();
    return answer;
  }

  void flush() {
    for (auto& [name, domain] : domains_) domain.write();
  }

 private:
  static id readXML(const std::string& xml) {
    return sim::readXMLPropertyList(sim::charactersOf(std::string_view(xml)).value_or(u""));
  }

  /// The domain is read when somebody uses it first.
  sim::Domain& domain(const std::string& name) { return domains_.try_emplace(name, name).first->second; }

  void writeDue(std::int64_t now) {
    for (auto& [name, domain] : domains_)
      if (domain.due() && *domain.due() <= now) domain.write();
  }

  json nextDue() const {
    json next;
    for (const auto& [name, domain] : domains_)
      if (domain.due() && (next.is_null() || *domain.due() < next)) next = *domain.due();
    return next;
  }

  std::map<std::string, sim::Domain> domains_;
};

/// The next program's connection, handed over by the phone; -1 when the phone is switched off.
int receiveConnection() {
  char byte = 0;
  iovec content{&byte, 1};
  alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))];
  msghdr message{};
  message.msg_iov = &content;
  message.msg_iovlen = 1;
  message.msg_control = control;
  message.msg_controllen = sizeof control;
  if (recvmsg(phone, &message, MSG_CMSG_CLOEXEC) <= 0) return -1;
  const cmsghdr* header = CMSG_FIRSTHDR(&message);
  if (header == nullptr || header->cmsg_type != SCM_RIGHTS) return -1;
  int connection = -1;
  std::memcpy(&connection, CMSG_DATA(header), sizeof connection);
  return connection;
}

struct Program {
  int socket;
  sim::Messages messages{socket};
};

/// False when the program has gone.
bool serve(Daemon& daemon, Program& program) {
  const auto request = program.messages.receive();
  return request && program.messages.send(daemon.answer(*request));
}

}  // namespace

int main() {
  const AutoreleasePool pool;
  sim::installFoundationAdditions();
  Daemon daemon;
  std::list<Program> programs;
  while (true) {
    std::vector<pollfd> waiting{{phone, POLLIN, 0}};
    for (const Program& program : programs) waiting.push_back({program.socket, POLLIN, 0});
    if (poll(waiting.data(), waiting.size(), -1) <= 0) continue;
    auto program = programs.begin();
    for (std::size_t index = 1; index < waiting.size(); ++index) {
      const auto current = program++;
      if (waiting[index].revents == 0 || serve(daemon, *current)) continue;
      close(current->socket);
      programs.erase(current);
    }
    if (waiting[0].revents == 0) continue;
    const int connection = receiveConnection();
    if (connection < 0) break;
    programs.push_back({connection});
  }
  daemon.flush();
}
