// What only a driver can do or ask: a look behind the home screen, and standing between its methods.
#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

#include "simulator/control/agent/driver.hpp"
#include "simulator/control/agent/logs.hpp"
#include "simulator/control/agent/measure.hpp"
#include "simulator/control/agent/requests.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/icons.hpp"
#include "simulator/homescreen/common/platform_actions.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/class_description.hpp"
#include "simulator/runtime/interposition.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberType;

std::string textOf(const json& members, const char* name) { return members.at(name).get<std::string>(); }

// What only the platform's own methods can have seen.
json platformCounts(const json&) {
  json passedOn = json::array();
  for (const PassedOn& each : homeState().passedOn)
    passedOn.push_back({{"method", each.method}, {"values", each.values}});
  return {{"touchesMoved", homeState().touchesMoved},
          {"forceTouchStateAsked", homeState().forceTouchStateAsked},
          {"passedOn", passedOn},
          {"interposed", interposedCalls()},
          {"completedBanners", homeState().completedBanners}};
}

// The one object of a class, by whichever of the platform's names it is asked for.
id sharedObject(const std::string& className) {
  Class cls = objc_getClass(className.c_str());
  if (cls == nullptr) throw Refused("There is no class \"" + className + "\"");
  for (const char* name : {"sharedInstance", "sharedService", "sharedApplication"}) {
    SEL selector = sel_registerName(name);
    if (send<BOOL>(cls, "respondsToSelector:"_sel, selector)) return send<id>(cls, selector);
  }
  throw Refused("The class \"" + className + "\" has no shared object");
}

// A method takes no notice of more than it has; each fills a register or its place on the stack.
std::array<std::int64_t, 6> argumentsOf(const json& members) {
  std::array<std::int64_t, 6> arguments{};
  const auto given = members.value("arguments", std::vector<std::int64_t>());
  if (given.size() > arguments.size()) throw BadRequest("A message takes six arguments at most here");
  std::copy(given.begin(), given.end(), arguments.begin());
  return arguments;
}

json performSelector(const json& members) {
  id target = members.contains("target") ? sharedObject(textOf(members, "target")) : platformActions().menuHost();
  const std::string name = textOf(members, "selector");
  SEL selector = sel_registerName(name.c_str());
  if (!send<BOOL>(target, "respondsToSelector:"_sel, selector))
    throw Refused(std::string("A \"") + class_getName(object_getClass(target)) + "\" does not answer \"" + name + "\"");
  auto arguments = argumentsOf(members);
  if (members.contains("view"))
    arguments[0] = reinterpret_cast<std::int64_t>(viewOf(requireIcon(textOf(members, "view"))));
  // What a method without a result leaves in the register means nothing.
  const auto result = send<std::uint64_t>(target, selector, arguments[0], arguments[1], arguments[2], arguments[3],
                                          arguments[4], arguments[5]);
  return members.value("result", false) ? json(result) : json();
}

const std::map<std::string, Interposition>& interpositions() {
  static const std::map<std::string, Interposition> known = {
      {"off", {}},
      {"raise", {.what = Interference::raise}},
      {"raise always", {.what = Interference::raise, .always = true}},
      {"nil", {.what = Interference::nil}},
      {"other", {.what = Interference::other}},
      {"perform", {.what = Interference::prior}},
      {"value", {.what = Interference::value}},
  };
  return known;
}

json interposeMethod(const json& members) {
  Interposition interposition = interpositions().at(textOf(members, "do"));
  interposition.skip = members.value("skip", 0L);
  interposition.value = members.value("value", std::uint64_t{0});
  if (interposition.what == Interference::prior)
    interposition.first = [requests = members.value("requests", json::array())] {
      for (const json& each : requests) {
        const AutoreleasePool pool;
        perform(each);
      }
    };
  interfere(textOf(members, "method"), std::move(interposition));
  return {};
}

const std::map<std::string, SBIconView* (*)(id, SEL)>& iconViewInitialisers() {
  static constexpr NSUInteger plain = 0;
  static const std::map<std::string, SBIconView* (*)(id, SEL)> initialisers = {
      {"initWithContentType:", [](id made, SEL by) { return send<SBIconView*>(made, by, plain); }},
      {"initWithFrame:", [](id made, SEL by) { return send<SBIconView*>(made, by, CGRect{}); }},
      {"initWithConfigurationOptions:", [](id made, SEL by) { return send<SBIconView*>(made, by, plain); }},
      {"initWithConfigurationOptions:listLayoutProvider:",
       [](id made, SEL by) { return send<SBIconView*>(made, by, plain, id{nullptr}); }},
  };
  return initialisers;
}

// Icon views in places that the simulator does not show, such as a dock, whose icons have no label.
json makeIconView(const json& members) {
  static std::vector<Ref<SBIconView>> views;
  const std::string initialiser = textOf(members, "initialiser");
  SEL selector = sel_registerName(initialiser.c_str());
  if (!send<BOOL>("SBIconView"_cls, "instancesRespondToSelector:"_sel, selector))
    throw Refused("This generation's icon views are not made so");
  views.push_back(Ref<SBIconView>::adopt(
      iconViewInitialisers().at(initialiser)(send<id>("SBIconView"_cls, "alloc"_sel), selector)));
  if (members.value("without-label", false)) views.back()->labelView = nullptr;
  send(views.back(), "layoutSubviews"_sel);
  return {};
}

std::vector<Verb> homeScreenProbes() {
  return {
      {"platform",
       "what reached the platform's own methods: {\"touchesMoved\", \"forceTouchStateAsked\", \"passedOn\": boolean arguments as the bytes that arrived, \"completedBanners\", \"interposed\": calls by method}",
       {},
       platformCounts},
      {"perform",
       "sends a message to the menu host",
       {{"selector", Type::text},
        optional({"target", Type::text, "a class: the message goes to its shared object"}),
        optional(listOf({"arguments", Type::integer, "six at most, each as wide as a register"})),
        optional({"view", Type::id, "an icon, whose view is the first argument"}),
        optional({"result", Type::toggle, "the value is the result, as wide as a register"})},
       performSelector},
      {"interpose",
       "says what becomes of one call of an interposed method, the next or the one after those to skip",
       {{"method", Type::text, "as it was given at the start"},
        {"do", Type::choice, "", namesOf(interpositions())},
        optional({"skip", Type::integer, "so many calls run before"}),
        optional({"value", Type::integer, "for \"value\": what the call gives"}),
        optional(listOf({"requests", Type::json, "for \"perform\": what is done first"}))},
       interposeMethod},
      {"make-icon-view",
       "makes a view of no icon, as places beside the page do, lays it out and keeps it",
       {{"initialiser", Type::choice, "", namesOf(iconViewInitialisers())}, optional({"without-label", Type::toggle})},
       makeIconView},
      {"measure",
       "does what the benchmarks measure; the value is null, or for \"mapping\" the seconds that mapping the add-on took",
       {{"what", Type::choice, "", measureNames()},
        optional({"id", Type::id}),
        optional({"path", Type::text}),
        optional({"times", Type::integer}),
        optional({"folder", Type::text, "of \"run\""}),
        optional(listOf({"command", Type::text, "of \"run\""})),
        optional(listOf({"calls", Type::json, "of \"start\": the log of another process's start"}))},
       measure},
  };
}

}  // namespace

std::vector<Verb> probeVerbs() { return commonProbes() + homeScreenProbes(); }

}  // namespace sim
