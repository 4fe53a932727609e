// What is seen of a phone.
#include "simulator/control/agent/affordances.hpp"
#include "simulator/control/agent/logs.hpp"
#include "simulator/control/agent/screen_reader.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIPasteboard.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/waiting.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberType;

json screen(const json&) { return readScreen(); }

json now(const json&) { return static_cast<double>(static_cast<long double>(clock::now()) / 1e9L); }

json uptime(const json&) { return clock::passed(); }

json pasteboard(const json&) {
  const UIPasteboard* board = generalPasteboard();
  if (!board->type) return {};
  return {{"type", text(board->type)}, {"text", text(board->value)}};
}

json preferencesDomain(const json& members) {
  const std::string domain = members.at("domain").get<std::string>();
  id values = members.value("read", false) ? readPreferences(domain) : heldPreferences(domain);
  if (values == nullptr) return {};
  const auto xml = xmlPropertyList(values);
  if (!xml) throw Refused("The preferences domain \"" + domain + "\" holds what no property list can");
  return *xml;
}

json events(const json& members) {
  return logSince(members, homeState().events, [](const std::string& event) { return json(event); });
}

json urls(const json& members) {
  return logSince(members, openedURLs(), [](const OpenedURL& each) {
    return json{{"url", each.url}, {"opened", each.opened}};
  });
}

json launches(const json& members) {
  return logSince(members, homeState().launches, [](const Launch& launch) {
    return json{{"id", launch.id},
                {"location", std::to_string(launch.location)},
                {"context", launch.context},
                {"settings", launch.settings},
                {"actions", launch.actions}};
  });
}

json notifications(const json& members) {
  return logSince(members, homeState().posted, [](const PostedNotification& each) {
    return json{{"place", each.place},
                {"text", each.text},
                {"coalesced", each.coalesced},
                {"sourceAction", each.sourceAction},
                {"modal", each.modal}};
  });
}

}  // namespace

std::vector<Verb> lookVerbs() {
  return {
      {"screen", "everything a person sees", {}, screen},
      {"affordances",
       "what can be done now, with points of the screen: {\"icons\", \"entries\", \"buttons\", \"device\"}",
       {},
       [](const json&) { return affordances(); }},
      {"events",
       "what happened that no look at the screen shows: \"screen woken by ID\", \"sound for ID\", \"launched ID\"",
       {sinceMember()},
       events},
      {"waiting",
       "the programs that the home screen waits for",
       {},
       [](const json&) { return json(programsWaitedFor()); }},
      {"now", "the clock, in seconds since 1970", {}, now},
      {"uptime", "the nanoseconds that have passed since the phone came up", {}, uptime},
      {"pasteboard", "what was copied: {\"type\", \"text\"}, or null", {}, pasteboard},
      {"preferences",
       "a preferences domain as the daemon holds it: an XML property list, as text; null for one that nobody has used",
       {{"domain", Type::text},
        optional({"read", Type::toggle, "as by a program that wants a value: the daemon reads the domain's file"})},
       preferencesDomain},
      {"urls", "the addresses that were to be opened: {\"url\", \"opened\"}", {sinceMember()}, urls},
      {"launches",
       "what icons' launch method was told: {\"id\", \"location\", \"context\", \"settings\", \"actions\"}, texts, null for nil",
       {sinceMember()},
       launches},
      {"notifications",
       "what reached the platform's own methods of the old generation: {\"place\", \"text\", \"coalesced\", \"sourceAction\", \"modal\"}",
       {sinceMember()},
       notifications},
  };
}

}  // namespace sim
