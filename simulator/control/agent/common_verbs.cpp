// What every process of a phone has that has a screen: sheets and alerts, the world around it, and a look inside.
#include <sys/resource.h>

#include <algorithm>
#include <cmath>

#include "simulator/control/agent/driver.hpp"
#include "simulator/control/agent/logs.hpp"
#include "simulator/control/agent/verbs.hpp"
#include "simulator/frameworks/core_foundation/darwin_notifications.hpp"
#include "simulator/frameworks/core_foundation/preferences.hpp"
#include "simulator/frameworks/foundation/property_list.hpp"
#include "simulator/frameworks/uikit/UIApplication.hpp"
#include "simulator/frameworks/uikit/UIPasteboard.hpp"
#include "simulator/frameworks/uikit/transitions.hpp"
#include "simulator/homescreen/common/home.hpp"
#include "simulator/homescreen/common/refused.hpp"
#include "simulator/homescreen/common/touches.hpp"
#include "simulator/runtime/blocks.hpp"
#include "simulator/runtime/call_log.hpp"
#include "simulator/runtime/class_builder.hpp"
#include "simulator/runtime/class_description.hpp"
#include "simulator/runtime/clock.hpp"
#include "simulator/runtime/main_queue.hpp"
#include "simulator/runtime/waiting.hpp"

namespace sim {
namespace {

using nlohmann::json;
using Type = MemberType;

std::string textOf(const json& members, const char* name) { return members.at(name).get<std::string>(); }

// The buttons of an alert take no touch while it comes.
touches::Button requirePresented(const std::string& title) {
  const touches::Button button = touches::requireButton(title);
  const Ref<UIAlertController> awaited = button.alert;
  const Transition* transition = transitionOf(awaited);
  if (transition == nullptr) return button;
  if (transition->kind == Transition::Kind::dismissal) throw Refused("The sheet or alert is on its way off the screen");
  advanceClock(transition->end - clock::passed());
  const touches::Button there = touches::requireButton(title);
  if (there.alert != awaited.get()) throw Refused("The sheet or alert did not stay on the screen");
  return there;
}

json tapButton(const json& members) {
  const auto [button, action] = requirePresented(textOf(members, "title"));
  const Ref<UIAlertController> alert = button;
  press(alert, action);
  const Transition* dismissal = transitionOf(alert);
  if (dismissal != nullptr && !members.value("late", false)) advanceClock(dismissal->end - clock::passed());
  return {};
}

json animations(const json& members) {
  setAnimations(members.at("on").get<bool>());
  return {};
}

json typeText(const json& members) {
  const std::string typed = textOf(members, "text");
  UITextField* field = touches::requireFocus();
  if (!field->hasKeysFor(typed)) throw Refused("The number pad has digits only: \"" + typed + "\" can be pasted");
  field->typeOver(typed);
  return {};
}

json pasteText(const json& members) {
  touches::requireFocus()->replaceAll(ns(textOf(members, "text")));
  return {};
}

json clearText(const json&) {
  UITextField* field = touches::requireFocus();
  if (!field->showsClearButton()) throw Refused("The text field shows no clear button");
  field->tapClearButton();
  return {};
}

id settingOf(const json& value) {
  if (value.is_boolean()) return send<id>("NSNumber"_cls, "numberWithBool:"_sel, BOOL{value.get<bool>()});
  if (value.is_number_integer())
    return send<id>("NSNumber"_cls, "numberWithLongLong:"_sel, static_cast<long long>(value.get<std::int64_t>()));
  if (value.is_number()) return send<id>("NSNumber"_cls, "numberWithDouble:"_sel, value.get<double>());
  if (!value.is_string()) throw BadRequest("A setting is a text, a number or a boolean");
  return ns(value.get<std::string>());
}

json changePreferences(const json& members) {
  id values = send<id>("NSMutableDictionary"_cls, "dictionary"_sel);
  std::vector<std::string> removed;
  for (const auto& [key, value] : members.at("values").items())
    if (value.is_null()) removed.push_back(key);
    else send(values, "setObject:forKey:"_sel, settingOf(value), ns(key));
  setPreferences(textOf(members, "domain"), values, removed);
  return {};
}

json flush(const json&) {
  flushPreferences();
  return {};
}

json post(const json& members) {
  postDarwinNotification(textOf(members, "name"));
  return {};
}

json advance(const json& members) {
  // A double cannot hold the clock's nanoseconds.
  constexpr long double second = 1e9L;
  const double seconds = members.at("seconds").get<double>();
  const double latest = static_cast<double>(std::max(clock::now(), clock::passed()) / second);
  if (!(seconds >= 0 && latest + seconds < clock::lastMoment))
    throw BadRequest("The clock runs forwards only, and not beyond the year 2255");
  advanceClock(std::llround(seconds * second));
  return {};
}

json setClock(const json& members) {
  const double seconds = members.at("seconds").get<double>();
  if (!clock::canShow(seconds)) throw BadRequest("There is no such time on this clock");
  clock::set(clock::time(seconds));
  return {};
}

json catchUp(const json& members) {
  advanceClock(std::max<std::int64_t>(members.at("uptime").get<std::int64_t>() - clock::passed(), 0));
  return {};
}

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

json calls(const json& members) {
  static constexpr const char* kinds[] = {"hook", "add", "observe", "send", "post", "missing"};
  return logSince(members, callLog(), [](const Call& call) {
    return json{{"kind", kinds[static_cast<std::size_t>(call.kind)]},
                {"class", call.className},
                {"selector", call.selector},
                {"encoding", call.encoding}};
  });
}

json subscribe(const json& members) {
  driver::subscribe(members.at("on").get<bool>());
  return {};
}

json switchMessageLog(const json& members) {
  logMessages(members.at("on").get<bool>());
  return {};
}

json darwinPostsLog(const json& members) {
  return logSince(members, darwinPosts(), [](const std::string& name) { return json(name); });
}

json membersOf(const std::vector<ClassDescription::Member>& all) {
  json list = json::array();
  for (const auto& [name, type] : all) list.push_back({{"name", name}, {"type", type}});
  return list;
}

json describeClass(const json& members) {
  const std::string name = textOf(members, "name");
  Class cls = objc_getClass(name.c_str());
  if (cls == nullptr) throw Refused("There is no class \"" + name + "\"");
  const ClassDescription described = describe(cls);
  return {{"superclass", described.superclass},
          {"protocols", described.protocols},
          {"instanceVariables", membersOf(described.instanceVariables)},
          {"methods", membersOf(described.methods)},
          {"classMethods", membersOf(described.classMethods)}};
}

json live(const json&) {
  // What has gone leaves no trace: before and after can be compared as they are.
  json counts = {{"blocks", liveBlocks()}};
  for (const auto& [name, count] : liveObjects())
    if (count != 0) counts[name] = count;
  return counts;
}

json memory(const json&) {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return {{"peakKiB", usage.ru_maxrss}};
}

json address(const void* pointer) {
  return pointer != nullptr ? json(reinterpret_cast<std::uintptr_t>(pointer)) : json();
}

json observers(const json&) {
  json list = json::array();
  for (const auto& observer : darwinObservers())
    list.push_back({{"name", text(asId(observer.name))},
                    {"observer", address(observer.observer)},
                    {"object", address(observer.object)},
                    {"suspension", observer.suspension}});
  return list;
}

}  // namespace

std::vector<Verb> alertGestures() {
  return {
      {"tap",
       "taps a button of the topmost window's sheet or alert; time passes until it has come, and until it has gone and the button's handler has run",
       {{"title", Type::text},
        optional({"late", Type::toggle, "it has still to go: let time pass for that"}),
        optional({"go-on", Type::toggle, "is answered as soon as it waits for a program"})},
       tapButton},
      {"type", "types over the text of the field that has the focus, key by key", {{"text", Type::text}}, typeText},
      {"paste", "pastes in the place of that text", {{"text", Type::text}}, pasteText},
      {"clear", "taps that field's clear button", {}, clearText},
  };
}

std::vector<Verb> worldGestures() {
  return {
      {"post", "another process posts a Darwin notification", {{"name", Type::text}}, post},
      {"set-preferences",
       "another program sets these values through the preferences daemon; a null value removes its key",
       {{"domain", Type::text}, {"values", Type::json, "an object"}},
       changePreferences},
      {"flush", "the preferences daemon writes at once what has changed", {}, flush},
      {"advance", "lets time pass", {{"seconds", Type::number}}, advance},
      {"catch-up",
       "lets time pass up to a moment that another process of the phone has come to",
       {{"uptime", Type::integer, "the nanoseconds that have passed there"}},
       catchUp},
      {"set-clock",
       "sets the clock, forwards or backwards; no time passes",
       {{"seconds", Type::number, "since 1970"}},
       setClock},
      {"animations", "whether sheets and alerts take their time to come and to go", {{"on", Type::toggle}}, animations},
  };
}

std::vector<Verb> commonLooks() {
  return {
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
  };
}

std::vector<Verb> commonProbes() {
  return {
      {"verbs", "this table", {}, [](const json&) { return describeVerbs(); }},
      {"subscribe", "from now on each event and change is pushed, or no more", {{"on", Type::toggle}}, subscribe},
      {"calls",
       "what the add-on hooked, added, observed, posted and, while messages are logged, sent: {\"kind\", \"class\", \"selector\", \"encoding\"}",
       {sinceMember()},
       calls},
      {"log-messages",
       "starts or ends logging the messages that the add-on sends",
       {{"on", Type::toggle}},
       switchMessageLog},
      {"darwin-posts", "the names of the Darwin notifications posted, by whomever", {sinceMember()}, darwinPostsLog},
      {"darwin-observers",
       "{\"name\", \"observer\", \"object\", \"suspension\"} in order of registration",
       {},
       observers},
      {"memory", "{\"peakKiB\"}: the most memory that the process has held", {}, memory},
      {"live",
       "live objects of the simulated classes and of those that the add-on registered, by class, and copied \"blocks\"",
       {},
       live},
      {"class",
       "what the runtime knows of the class itself: {\"superclass\", \"protocols\", \"instanceVariables\", \"methods\", \"classMethods\"}",
       {{"name", Type::text}},
       describeClass},
  };
}

}  // namespace sim
