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

std::vector<Verb> homeScreenLooks() {
  return {
      {"screen", "everything a person sees", {}, screen},
      {"affordances",
       "what can be done now, with points of the screen: {\"icons\", \"entries\", \"buttons\", \"device\"}",
       {},
       [](const json&) { return affordances(); }},
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

}  // namespace

std::vector<Verb> lookVerbs() { return homeScreenLooks() + commonLooks(); }

}  // namespace sim
