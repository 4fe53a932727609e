#include "simulator/frameworks/core_foundation/preferences.hpp"

#include <cstdio>
#include <stdexcept>

#include "platform/CoreFoundation.hpp"
#include "platform/dispatch.hpp"
#include "simulator/device/messages.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/foundation/property_list_text.hpp"
#include "simulator/frameworks/foundation/property_list_xml.hpp"

namespace sim {
namespace {

using nlohmann::json;

constexpr int daemonSocket = 4;

// The moment at which the daemon waits to be told the time.
std::optional<std::int64_t> awaited;

json ask(json request);

// The phone's clock runs in this process alone: it tells the daemon when its moment has come.
void tellTimeAt(std::int64_t due, std::int64_t now) {
  if (awaited && *awaited <= due) return;
  awaited = due;
  dispatch::afterOnMain(due - now, [] {
    awaited.reset();
    ask({{"do", "nothing"}});
  });
}

json ask(json request) {
  static Messages daemon(daemonSocket);
  const auto now = static_cast<std::int64_t>(dispatch_time(0, 0));
  request["now"] = now;
  const auto answer = daemon.send(request) ? daemon.receive() : std::nullopt;
  if (!answer) throw std::runtime_error("the preferences daemon has gone");
  if (const json& due = answer->at("due"); !due.is_null()) tellTimeAt(due, now);
  return *answer;
}

id valuesIn(const json& answer) {
  const json& xml = answer.at("values");
  if (xml.is_null()) return nullptr;
  return readXMLPropertyList(charactersOf(std::string_view(xml.get_ref<const std::string&>())).value_or(u""));
}

}  // namespace

void resumePreferences() { ask({{"do", "nothing"}}); }

id readPreferences(const std::string& domain) { return valuesIn(ask({{"do", "read"}, {"domain", domain}})); }

id heldPreferences(const std::string& domain) { return valuesIn(ask({{"do", "look"}, {"domain", domain}})); }

void setPreferences(const std::string& domain, id values, const std::vector<std::string>& removed) {
  const auto xml = xmlPropertyList(values);
  if (!xml) {
    std::fprintf(stderr, "the preferences of %s cannot hold what no property list can\n", domain.c_str());
    return;
  }
  ask({{"do", "set"}, {"domain", domain}, {"values", *xml}, {"removed", removed}});
}

void flushPreferences() { ask({{"do", "flush"}}); }

}  // namespace sim

extern "C" void CFPreferencesSetAppValue(CFStringRef key, const void* value, CFStringRef application) {
  AutoreleasePool pool;
  const std::string domain = sim::text(asId(application));
  id values = sim::send<id>("NSMutableDictionary"_cls, "dictionary"_sel);
  if (value != nullptr) sim::send(values, "setObject:forKey:"_sel, asId(value), asId(key));
  sim::setPreferences(domain, values,
                      value != nullptr ? std::vector<std::string>{} : std::vector{sim::text(asId(key))});
}
